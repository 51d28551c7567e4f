#include "Lib/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>

#include "Lib/FormatText.h"

namespace {

bool IsHexadecimal(const char* digits) {
    return digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X') &&
           std::strspn(digits + 2, "0123456789abcdefABCDEF.") > 0;
}

// Returns whether an out-of-range number is too large rather than too small, by its exponent or else its first digit.
bool IsTooLarge(const char* number, const char* end, bool hexadecimal) {
    const char* const letters = hexadecimal ? "pP" : "eE";
    const char* const exponent = std::find_if(number, end, [&](char c) { return std::strchr(letters, c); });
    return exponent != end ? exponent[1] != '-' : *number != '0' && *number != '.';
}

template <class Real>
const char* Read(const char* text, Real& value) noexcept {
    const char* number = text + std::strspn(text, " \t\n\v\f\r");
    const bool negative = *number == '-';
    if (negative || *number == '+') ++number;
    if (*number == '-') return text;
    const bool hexadecimal = IsHexadecimal(number);
    if (hexadecimal) number += 2;
    Real magnitude = 0;
    const auto [end, error] = std::from_chars(number, number + std::strlen(number), magnitude,
                                              hexadecimal ? std::chars_format::hex : std::chars_format::general);
    if (error == std::errc::invalid_argument) return text;
    if (error == std::errc::result_out_of_range)
        magnitude = IsTooLarge(number, end, hexadecimal) ? std::numeric_limits<Real>::infinity() : Real(0);
    value = negative ? -magnitude : magnitude;
    return end;
}

}  // namespace

const char* ReadReal(const char* text, float& value) noexcept {
    return Read(text, value);
}

const char* ReadReal(const char* text, double& value) noexcept {
    return Read(text, value);
}

double ToReal(const char* text) noexcept {
    double value = 0;
    Read(text, value);
    return value;
}

size_t WriteReal(char* buffer, size_t size, double value, int precision) noexcept {
    const auto [end, error] =
        std::to_chars(buffer, buffer + size, value, std::chars_format::fixed, precision < 0 ? 6 : precision);
    return error == std::errc() ? static_cast<size_t>(end - buffer) : 0;
}

std::string RealText(double value, int precision) {
    const int decimals = std::min(precision, kMaxFormatStringLength);
    std::string text(kRealTextSize + static_cast<size_t>(std::max(decimals, 0)), '\0');
    text.resize(
        std::min(WriteReal(text.data(), text.size(), value, decimals), static_cast<size_t>(kMaxFormatStringLength)));
    return text;
}
