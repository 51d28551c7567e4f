#include "KbaseDictionary.h"

#include "BenchTexts.h"
#include "KbaseText.h"

namespace bench {

std::vector<std::string> KbaseAttributeForm::Decode(std::string_view bytes) const {
    if (isText()) return {Escaped(bytes)};
    std::vector<std::string> lines;
    for (size_t offset = 0; offset + elementSize() <= bytes.size(); offset += elementSize())
        lines.push_back(layout.Decode(bytes.substr(offset, elementSize())));
    return lines;
}

bool KbaseDictionary::Read(const std::string& path, std::string& error) {
    classes_.clear();
    attributes_.clear();
    std::vector<std::string> lines;
    if (!ReadLines(path, lines)) {
        error = path + " cannot be read.";
        return false;
    }
    if (lines.empty() || lines.front() != "Kbase dictionary 1") {
        error = path + " is no dictionary.";
        return false;
    }
    bool ended = false;
    for (size_t i = 1; i < lines.size(); ++i) {
        const std::vector<std::string> words = Words(lines[i].substr(0, lines[i].find('#')));
        if (words.empty()) continue;
        if (!ended && words == std::vector<std::string>{"end", "of", "dictionary"}) {
            ended = true;
        } else if (ended || !ReadLine(words)) {
            error = path + " line " + std::to_string(i + 1) + " is no line of a dictionary.";
            classes_.clear();
            attributes_.clear();
            return false;
        }
    }
    if (!ended) {
        error = path + " is cut off.";
        classes_.clear();
        attributes_.clear();
    }
    return ended;
}

bool KbaseDictionary::ReadLine(const std::vector<std::string>& words) {
    long first = 0;
    long second = 0;
    if (words[0] == "class") {
        if (words.size() != 4 || !ReadNumber(words[2], first) || !ReadNumber(words[3], second)) return false;
        return classes_.emplace(words[1], KbaseClassId{first, second}).second;
    }
    long number = 0;
    if (words[0] != "attribute" || words.size() < 6 || !ReadNumber(words[1], number) || !ReadNumber(words[3], first) ||
        !ReadNumber(words[4], second) || first < 0 || second < first)
        return false;
    KbaseAttributeForm form;
    form.name = words[5];
    form.fewest = static_cast<int>(first);
    form.most = static_cast<int>(second);
    const std::vector<std::string> layout(words.begin() + 6, words.end());
    if (words[2] == "binary" ? !form.layout.Parse(layout) : words[2] != "text" || !layout.empty()) return false;
    return attributes_.emplace(static_cast<int>(number), form).second;
}

const KbaseClassId* KbaseDictionary::FindClass(const std::string& symbol) const {
    const auto found = classes_.find(symbol);
    return found == classes_.end() ? nullptr : &found->second;
}

std::string KbaseDictionary::ClassSymbol(const KbaseClassId& id) const {
    for (const auto& [symbol, known] : classes_)
        if (known == id) return symbol;
    return {};
}

const KbaseAttributeForm* KbaseDictionary::FindAttribute(int number) const {
    const auto found = attributes_.find(number);
    return found == attributes_.end() ? nullptr : &found->second;
}

}  // namespace bench
