// One text in both widths: converts between a narrow code page and wide characters and keeps what it made. UTF-8 is
// the code page of every call that names no other. A text that cannot be converted becomes an empty one.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <cstddef>
#include <string>

class TextConverter {
 public:
    // A new wide buffer of so many characters, zero-filled, with as much of the old text as fits. Discards the narrow
    // copy.
    void Reserve(size_t characters);

    // Takes a narrow text (null as empty); the wide text up to its terminator.
    std::wstring ToWide(const char* text, UINT codePage = CP_UTF8);

    // The held wide text, narrow. The pointer holds until the next conversion or Reserve.
    const char* ToNarrow(UINT codePage = CP_UTF8);

    // The whole wide buffer as a BSTR, its terminator and what may follow included; the caller frees it.
    BSTR ToBstr() const;

 private:
    std::wstring wide_;
    std::string narrow_;
};
