// printf-style formatting into string objects, the one spelling of it in the module, and the hexadecimal
// text of bytes. Nothing here fails: a null text is an empty one, and a format that the runtime refuses gives an empty
// text. Arguments are what printf takes: numbers and pointers to narrow texts.
#pragma once

#include "PrintfFormat.h"

#include <cstdarg>
#include <cstddef>
#include <string>

// Longest text of FormatString, in characters without the terminator.
inline constexpr int kFormatStringLimit = 8192;

// Formats, cut to kFormatStringLimit characters.
PRINTF_FORMAT(format, 1, 2) std::string FormatString(const char* format, ...);

// The core of all formatting: the whole text, however long. A text beyond 255 characters is formatted a second time,
// into a string of its length.
std::string FormatArguments(const char* format, va_list arguments);

// A text used as its own format, without arguments: "%%" gives "%", every other conversion is copied as it stands.
std::string FormatOwnText(const char* text);

// Two upper-case hexadecimal digits a byte, high nibble first.
std::string HexText(const void* bytes, size_t count);
