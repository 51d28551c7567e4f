#include "ProductRecord.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "BenchTexts.h"

namespace bench {
namespace {

bool StartsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}
bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// What stands between the first and the last apostrophe.
std::string BetweenApostrophes(const std::string& line) {
    const size_t first = line.find('\'');
    const size_t last = line.rfind('\'');
    return first == last ? std::string() : line.substr(first + 1, last - first - 1);
}

// "kbinsertatt 1650 count=1 22 bytes 0A00... -> 0" or "kbinsertatt 1562 count=3 'abc' -> 0"
void Insert(const std::string& line, const KbaseDictionary& dictionary, KbaseRecord& record) {
    std::istringstream words(line);
    std::string call, count, size, unit, digits;
    int number = 0;
    words >> call >> number >> count >> size >> unit >> digits;
    const KbaseAttributeForm* form = dictionary.FindAttribute(number);
    if (!form) return;
    std::string bytes;
    if (form->isText())
        bytes = BetweenApostrophes(line);
    else if (unit != "bytes" || !FromHex(digits, bytes))
        return;
    record.attributes[number] = {form->name, bytes, form->Decode(bytes)};
}

}  // namespace

bool SavedRecord(const std::vector<std::string>& journal, const KbaseDictionary& dictionary, KbaseRecord& record) {
    KbaseRecord open;
    bool saved = false;
    for (const std::string& line : journal) {
        if (StartsWith(line, "kbcreaterec ") && EndsWith(line, " -> record")) {
            std::istringstream words(line);
            std::string call, database;
            open = {};
            words >> call >> database >> open.className;
            open.key = BetweenApostrophes(line);
        } else if (StartsWith(line, "kbinsertatt ") && EndsWith(line, " -> 0")) {
            Insert(line, dictionary, open);
        } else if (StartsWith(line, "kbsaverec ") && EndsWith(line, " -> 0")) {
            record = open;
            saved = true;
        }
    }
    return saved;
}

std::string RecordReport(const KbaseRecord& record) {
    std::string report = "Product record " + record.className + ", key " + record.key + "\n";
    for (const auto& [number, attribute] : record.attributes) {
        char head[64];
        std::snprintf(head, sizeof head, "  %5d  %-20s ", number, attribute.name.c_str());
        const std::string indent(std::string(head).size(), ' ');
        bool first = true;
        for (const std::string& line : attribute.decoded) {
            report += (first ? head : indent) + line + "\n";
            first = false;
        }
        if (attribute.decoded.empty()) report += std::string(head) + "(empty)\n";
    }
    return report;
}

}  // namespace bench
