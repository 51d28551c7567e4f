// Required library; nothing in this module calls it.
// Converts a text between a narrow code page, by default UTF-8, and wide characters, and keeps both forms. A text that
// cannot be converted becomes empty.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <cstddef>
#include <string>

class TextConverter {
 public:
    // Resizes the wide buffer, filling new characters with zeros, and discards the narrow copy.
    void Reserve(size_t characters);

    // Converts a narrow text; null counts as empty. Returns the wide text up to its terminator.
    std::wstring ToWide(const char* text, UINT codePage = CP_UTF8);

    // Converts the wide text. The pointer is valid until the next conversion or Reserve.
    const char* ToNarrow(UINT codePage = CP_UTF8);

    // Returns the whole wide buffer, including its terminator and anything after it. The caller frees it.
    BSTR ToBstr() const;

 private:
    std::wstring wide_;
    std::string narrow_;
};
