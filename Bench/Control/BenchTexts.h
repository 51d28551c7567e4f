// How the bench spells texts and numbers: narrow and wide, bytes in hexadecimal, quotes, names without regard to letter
// case, decimal numbers. Pure functions, linked into whoever needs them; readers answer false and leave their output
// alone.
#pragma once

#include <string>
#include <string_view>

namespace bench {

// A text that does not fit the system's code page loses what does not fit.
std::string Utf8(std::wstring_view text);
std::wstring FromUtf8(std::string_view text);
std::string Ansi(std::wstring_view text);
std::wstring FromAnsi(std::string_view text);

// "0A00FF": two upper-case digits a byte, no separators. Read back in either case.
std::string Hex(std::string_view bytes);
bool FromHex(std::string_view digits, std::string& bytes);

// 'text', as journal lines and sentences quote.
std::string Quoted(std::string_view text);
// "text" in which every byte can be written: \" and \\, \n and \r, other control characters as \xNN. Bytes above 7F
// stay, so that UTF-8 stays legible.
std::string Escaped(std::string_view text);

// Letter case is ignored; in narrow texts that of ASCII letters.
bool SameName(std::string_view one, std::string_view other);
bool SameName(std::wstring_view one, std::wstring_view other);

// At most `decimals` decimals, no trailing zeros, no negative zero: "0", "12.5", "-3".
std::string NumberText(double value, int decimals = 6);
// A decimal number and nothing else.
bool ReadNumber(const std::string& text, long& value);
bool ReadNumber(const std::string& text, double& value);

}  // namespace bench
