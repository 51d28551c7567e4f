#include "KbaseText.h"

#include <fstream>

namespace bench {
namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

}  // namespace

std::vector<std::string> Words(std::string_view line) {
    std::vector<std::string> words;
    for (size_t i = 0; i < line.size();) {
        if (IsBlank(line[i])) {
            ++i;
            continue;
        }
        const size_t start = i;
        bool inQuotes = false;
        for (; i < line.size() && (inQuotes || !IsBlank(line[i])); ++i) {
            if (line[i] == '\\' && inQuotes && i + 1 < line.size())
                ++i;
            else if (line[i] == '"')
                inQuotes = !inQuotes;
        }
        words.emplace_back(line.substr(start, i - start));
    }
    return words;
}

bool ReadLines(const std::string& path, std::vector<std::string>& lines) {
    lines.clear();
    std::ifstream file(path, std::ios::binary);
    if (!file) return false;
    std::string line;
    while (std::getline(file, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    return true;
}

}  // namespace bench
