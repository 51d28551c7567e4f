// Reals as decimal text and back, always by the rules of the "C" locale. The C runtime's own functions follow the
// process's locale, which AutoCAD shares with every plug-in: after one setlocale they read "25.5" as 25 and write
// "1,5".
#pragma once

#include <cstddef>
#include <string>

// Reads a real as strtod does: leading blanks, a sign, then a decimal or hexadecimal number, "inf" or "nan". Returns
// the end of the number; `text` when there is none, and `value` is then unchanged. A number that is too large becomes
// an infinity, one that is too small 0.
const char* ReadReal(const char* text, float& value) noexcept;
const char* ReadReal(const char* text, double& value) noexcept;
// Returns the number at the start of the text, 0 when there is none.
double ToReal(const char* text) noexcept;

// Holds any real with up to eight decimals.
inline constexpr size_t kRealTextSize = 320;
// Writes what printf does for "%.*f"; a negative precision stands for 6. Returns the length, without a terminator; 0
// when the text does not fit.
size_t WriteReal(char* buffer, size_t size, double value, int precision = 6) noexcept;
// The same, of any length up to FormatString's limit.
std::string RealText(double value, int precision = 6);
