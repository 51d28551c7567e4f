// printf-style formatting, and the hexadecimal text of bytes. The result is empty for a null format and for one that
// the runtime rejects. Arguments are those of printf: numbers, and pointers to narrow strings, none of them null.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <string>

#include "PrintfFormat.h"

// In characters, without terminator.
inline constexpr int kMaxFormatStringLength = 8192;

// Formats and cuts to kMaxFormatStringLength characters.
PRINTF_FORMAT(format, 1, 2) std::string FormatString(const char* format, ...);

// Formats without a limit.
std::string FormatArguments(const char* format, va_list arguments);

// Formats a text as its own format, without arguments: "%%" becomes "%", any other conversion stays.
std::string FormatOwnText(const char* text);

// A text in a fixed buffer of 8192 characters, terminator included, for reports when memory is exhausted. It only
// grows; what does not fit is cut.
class BoundedText {
 public:
    BoundedText() noexcept { text_[0] = '\0'; }

    PRINTF_FORMAT(format, 2, 3) void Append(const char* format, ...) noexcept;
    void AppendArguments(const char* format, va_list arguments) noexcept;
    // Replaces the text with the result of FormatOwnText.
    void FormatAsItsOwn() noexcept;

    const char* c_str() const noexcept { return text_; }
    bool empty() const noexcept { return length_ == 0; }

 private:
    size_t length_ = 0;
    char text_[8192];
};

// Returns two upper-case hexadecimal digits per byte, high nibble first.
std::string HexText(const void* bytes, size_t count);
