// printf-style formatting, the one spelling of it in the module, and the hexadecimal text of bytes. A null format and
// one that the runtime refuses give an empty text. Arguments are what printf takes: numbers, and pointers to narrow
// texts, of which none is null.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <string>

#include "PrintfFormat.h"

// Longest text of FormatString, in characters without the terminator.
inline constexpr int kFormatStringLimit = 8192;

// Formats, cut to kFormatStringLimit characters.
PRINTF_FORMAT(format, 1, 2) std::string FormatString(const char* format, ...);

// The whole text, however long.
std::string FormatArguments(const char* format, va_list arguments);

// A text used as its own format, without arguments: "%%" gives "%", every other conversion is copied as it stands.
std::string FormatOwnText(const char* text);

// A text in a buffer of 8192 characters of its own, terminator included, for what must be said when there is no memory
// to say it: it only grows, and what does not fit is cut.
class BoundedText {
 public:
    BoundedText() noexcept { text_[0] = '\0'; }

    PRINTF_FORMAT(format, 2, 3) void Append(const char* format, ...) noexcept;
    void AppendArguments(const char* format, va_list arguments) noexcept;
    // Makes the text what FormatOwnText gives.
    void FormatAsItsOwn() noexcept;

    const char* c_str() const noexcept { return text_; }
    bool empty() const noexcept { return length_ == 0; }

 private:
    size_t length_ = 0;
    char text_[8192];
};

// Two upper-case hexadecimal digits a byte, high nibble first.
std::string HexText(const void* bytes, size_t count);
