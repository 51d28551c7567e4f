// Values of the attributes of a product record, handed to the record database. It takes a value's length, or the number
// of its elements, in 16 bits: a larger one would be stored as something else, so it is refused.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

#include "kbase.h"

inline constexpr size_t kMaxAttributeCount = 32767;

class AttributeTooLarge : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

// Stores `count` elements. Throws AttributeTooLarge for more than kMaxAttributeCount. What the database answers is not
// looked at: a value that it refuses is missing in the record.
inline void InsertElements(KB_HANDLE database, KB_RECORD* record, short attribute, const void* elements, size_t count) {
    if (count > kMaxAttributeCount) {
        throw AttributeTooLarge("Attribute " + std::to_string(attribute) +
                                " is too large for the record database: " + std::to_string(count) + ", at most 32767.");
    }
    kbinsertatt(database, record, attribute, elements, static_cast<short>(count));
}

// Stores a text without its terminator.
inline void InsertText(KB_HANDLE database, KB_RECORD* record, short attribute, const std::string& text) {
    InsertElements(database, record, attribute, text.c_str(), text.size());
}
