// Stores attributes of a product record in the record database, which counts elements and characters in 16 bits. A
// larger value would be stored wrongly, so it is refused.
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

// Stores `count` elements. Throws AttributeTooLarge for more than kMaxAttributeCount. Ignores the database's result on
// purpose: a value that it refuses is missing from the record.
inline void InsertElements(KB_HANDLE database, KB_RECORD* record, short attribute, const void* elements, size_t count) {
    if (count > kMaxAttributeCount) {
        throw AttributeTooLarge("Attribute " + std::to_string(attribute) +
                                " is too large for the record database: " + std::to_string(count) + ", at most 32767.");
    }
    kbinsertatt(database, record, attribute, elements, static_cast<short>(count));
}

// Stores a string without its terminator.
inline void InsertText(KB_HANDLE database, KB_RECORD* record, short attribute, const std::string& text) {
    InsertElements(database, record, attribute, text.c_str(), text.size());
}
