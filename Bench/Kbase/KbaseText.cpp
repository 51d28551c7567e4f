#include "KbaseText.h"

#include <algorithm>
#include <fstream>

namespace bench {

bool ReadKbaseText(const std::string& path, const std::string& kind, KbaseText& text, std::string& error) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        error = path + " cannot be read.";
        return false;
    }
    text = {};
    bool begun = false;
    bool ended = false;
    std::string line;
    for (long long start = 0; std::getline(file, line); start += static_cast<long long>(line.size()) + 1) {
        std::string word = line.substr(std::min(line.find_first_not_of(" \t"), line.size()));
        if (!word.empty() && word.back() == '\r') word.pop_back();
        if (!begun && word != "Kbase " + kind + " 1") break;
        if (ended && !word.empty() && word[0] != '#') {
            error = path + " goes on after its end.";
            return false;
        }
        if (begun && !ended) {
            ended = word == "end of " + kind;
            if (ended)
                text.end = start;
            else
                text.lines.push_back(word);
        }
        begun = true;
    }
    if (!ended) error = path + (begun ? " is cut off." : " is no " + kind + ".");
    return ended;
}

std::string KbaseLineError(const std::string& path, const std::string& kind, size_t line) {
    return path + " line " + std::to_string(line + 2) + " is no line of a " + kind + ".";
}

}  // namespace bench
