// Spellings that the record database's files and its journal lines share: bytes in upper-case hexadecimal, and texts in
// quotes in which every byte can be written. Pure functions; a failure is an empty result and false.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace bench {

// "0A00FF"; two digits a byte, no separators.
std::string Hex(std::string_view bytes);
// Upper- or lower-case digits; false when `digits` is no even number of them.
bool FromHex(std::string_view digits, std::string& bytes);

// "text" with \" \\ and \xNN for quotes, backslashes and control characters; bytes above 7F stay, so UTF-8 stays
// legible.
std::string Quoted(std::string_view text);
bool FromQuoted(std::string_view quoted, std::string& text);

// Words between blanks; a quoted text is one word and keeps its quotes.
std::vector<std::string> Words(std::string_view line);

// Lines of a file without their ends (\n or \r\n); false when the file cannot be read.
bool ReadLines(const std::string& path, std::vector<std::string>& lines);

}  // namespace bench
