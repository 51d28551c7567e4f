// String and number conversions of the bench: narrow and wide strings, hexadecimal bytes, quoting, lists,
// case-insensitive comparison, decimal numbers. Pure functions. Parsers return false on failure and leave their output
// unchanged.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace bench {

// Characters missing in the system's code page are lost.
std::string Utf8(std::wstring_view text);
std::wstring FromUtf8(std::string_view text);
std::string Ansi(std::wstring_view text);
std::wstring FromAnsi(std::string_view text);

// Two upper-case digits per byte without separators, "0A00FF". FromHex accepts both cases.
std::string Hex(std::string_view bytes);
bool FromHex(std::string_view digits, std::string& bytes);

// Returns 'text', as the call log and sentences quote it.
std::string Quoted(std::string_view text);
// Returns "text" with \", \\, \n and \r escaped and other control characters as \xNN. Bytes above 7F stay, so UTF-8
// stays readable.
std::string Escaped(std::string_view text);

std::string Join(const std::vector<std::string>& parts, const char* separator);
// Keeps empty parts; returns at least one part.
std::vector<std::string> Split(std::string_view text, char separator);

// Compare without regard to letter case; only ASCII letters in narrow strings.
bool SameName(std::string_view one, std::string_view other);
bool SameName(std::wstring_view one, std::wstring_view other);

// Formats with at most `decimals` decimals, no trailing zeros and no negative zero: "0", "12.5", "-3".
std::string NumberText(double value, int decimals = 6);
// Parse a string that is entirely a decimal number, independently of the locale.
bool ReadNumber(std::string_view text, long& value);
bool ReadNumber(std::string_view text, double& value);

}  // namespace bench
