// Conversion between reals and text, always by the rules of the "C" locale. The C runtime's functions follow the
// process's locale, which AutoCAD shares with every plug-in: after one setlocale they read "25.5" as 25 and write
// "1,5".
#pragma once

#include <cstddef>
#include <string>

// Reads a real as strtod does: leading blanks, a sign, then a decimal or hexadecimal number, "inf" or "nan". Returns
// the end of the number; `text` when there is none, and then leaves `value` unchanged. A number that is too large
// becomes an infinity, one that is too small 0.
const char* ReadReal(const char* text, float& value) noexcept;
const char* ReadReal(const char* text, double& value) noexcept;
// Returns the number at the start of the text, 0 when there is none.
double ToReal(const char* text) noexcept;

// Size of a buffer for any real with up to eight decimals.
inline constexpr size_t kRealTextSize = 320;
// Writes the same as printf for "%.*f", without a terminator; a negative precision means 6. Returns the length, 0 when
// the text does not fit.
size_t WriteReal(char* buffer, size_t size, double value, int precision = 6) noexcept;
// Returns the same text, cut to kMaxFormatStringLength characters.
std::string RealText(double value, int precision = 6);
