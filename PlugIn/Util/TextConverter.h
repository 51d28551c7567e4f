// One text in both widths: converts between a narrow code page and wide characters and keeps what it made. UTF-8 is
// the code page unless another is named. A text that cannot be converted becomes an empty one.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <cstddef>
#include <string>

class TextConverter {
 public:
    explicit TextConverter(UINT codePage = CP_UTF8) : codePage_(codePage) {}

    // A new wide buffer of so many characters, zero-filled, with as much of the old text as fits. Discards the narrow
    // copy.
    void Reserve(size_t characters);
    // Characters of the wide buffer, the text's terminator included.
    size_t capacity() const { return wide_.size(); }

    // Takes a narrow text (null as empty); the wide text up to its terminator.
    std::wstring ToWide(const char* text, UINT codePage);
    std::wstring ToWide(const char* text) { return ToWide(text, codePage_); }

    // The held wide text, narrow. The pointer holds until the next conversion or Reserve.
    const char* ToNarrow(UINT codePage);
    const char* ToNarrow() { return ToNarrow(codePage_); }
    bool hasNarrowCopy() const { return !narrow_.empty(); }

    // The whole wide buffer as a BSTR, its terminator and what may follow included; the caller frees it.
    BSTR ToBstr() const;

 private:
    std::wstring wide_;
    std::string narrow_;
    UINT codePage_;
};
