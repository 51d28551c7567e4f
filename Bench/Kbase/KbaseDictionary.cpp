#include "KbaseDictionary.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>

#include "BenchTexts.h"

namespace bench {
namespace {

template <class Value>
Value Load(const char* bytes) {
    Value value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

// Returns the shortest decimal string that converts back to the same number.
std::string FloatText(float value) {
    char text[32] = "";
    for (int precision = 6; precision <= 9; ++precision) {
        std::snprintf(text, sizeof text, "%.*g", precision, static_cast<double>(value));
        if (std::strtof(text, nullptr) == value) break;
    }
    return text;
}

std::string FieldText(size_t size, const char* bytes) {
    if (size == 1) return std::to_string(Load<std::uint8_t>(bytes));
    return size == 2 ? std::to_string(Load<std::int16_t>(bytes)) : FloatText(Load<float>(bytes));
}

bool AddField(const std::string& word, std::vector<KbaseField>& layout) {
    const size_t colon = word.find(':');
    const std::string type = colon == std::string::npos ? std::string() : word.substr(colon + 1);
    if (type != "u8" && type != "i16" && type != "f32") return false;
    layout.push_back({word.substr(0, colon), type == "u8" ? 1u : type == "i16" ? 2u : 4u});
    return true;
}

}  // namespace

size_t KbaseAttributeForm::elementSize() const {
    size_t size = isText() ? 1 : 0;
    for (const KbaseField& field : layout)
        size += field.size;
    return size;
}

std::vector<std::string> KbaseAttributeForm::Decode(std::string_view bytes) const {
    if (isText()) {
        const std::string quoted = Escaped(bytes);
        return {quoted.substr(1, quoted.size() - 2)};
    }
    std::vector<std::string> elements;
    for (size_t at = 0; at + elementSize() <= bytes.size();) {
        std::string text;
        for (const KbaseField& field : layout) {
            text += (text.empty() ? "" : " ") + field.name + '=' + FieldText(field.size, bytes.data() + at);
            at += field.size;
        }
        elements.push_back(text);
    }
    return elements;
}

bool KbaseDictionary::Read(const std::string& path) {
    *this = {};
    std::ifstream file(path, std::ios::binary);
    std::string line;
    const auto next = [&] {
        std::getline(file, line);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        return static_cast<bool>(file);
    };
    bool good = next() && line == "Kbase dictionary 1";
    while (good && (good = next()) && line != "end of dictionary")
        good = TakeLine(line);
    if (!good) *this = {};
    return good;
}

bool KbaseDictionary::TakeLine(const std::string& line) {
    std::istringstream words(line.substr(0, line.find('#')));
    std::string kind, symbol, form, field;
    if (!(words >> kind)) return true;
    if (kind == "class") {
        KbaseClassId id = {};
        words >> symbol >> id[0] >> id[1];
        return words && (words >> std::ws).eof() && classes_.emplace(symbol, id).second;
    }
    int number = 0;
    KbaseAttributeForm attribute;
    words >> number >> form >> attribute.minCount >> attribute.maxCount >> attribute.name;
    if (kind != "attribute" || !words || attribute.minCount < 0 || attribute.maxCount < attribute.minCount)
        return false;
    while (words >> field)
        if (!AddField(field, attribute.layout)) return false;
    return form == (attribute.isText() ? "text" : "binary") && attributes_.emplace(number, attribute).second;
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
