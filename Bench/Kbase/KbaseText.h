// The record database's files as lines and words. A failure is an empty result and false.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace bench {

// Words between blanks; a quoted text is one word and keeps its quotes.
std::vector<std::string> Words(std::string_view line);

// Lines of a file without their ends (\n or \r\n); false when the file cannot be read.
bool ReadLines(const std::string& path, std::vector<std::string>& lines);

}  // namespace bench
