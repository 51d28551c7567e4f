// Conversions of texts: letter case, and between narrow texts (ANSI code page) and wide ones. Everything is by value
// and nothing fails: a character that the other side does not know becomes its replacement character.
#pragma once

#include <string>
#include <string_view>

// ASCII letters in upper case, everything else as it is.
std::string ToUpper(std::string text);

std::wstring Widen(std::string_view text);
std::string Narrow(std::wstring_view text);
