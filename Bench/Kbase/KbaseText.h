// The frame that both text files of the record database share: they open with "Kbase KIND 1" and close with
// "end of KIND" (KIND is dictionary or database). Blanks at the beginning of a line do not matter, nor do the ends of
// lines (\n or \r\n); after the last line come blank lines and comments after "#" only.
#pragma once

#include <string>
#include <vector>

namespace bench {

struct KbaseText {
    std::vector<std::string> lines;  // between first and last line
    long long end = 0;               // byte at which the last line begins
};

// False with the reason in `error` when the file cannot be read, is something else or is cut off.
bool ReadKbaseText(const std::string& path, const std::string& kind, KbaseText& text, std::string& error);
// The reason for a line of `lines` that cannot stand there.
std::string KbaseLineError(const std::string& path, const std::string& kind, size_t line);

}  // namespace bench
