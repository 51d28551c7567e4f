#include "KbaseLayout.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace bench {
namespace {

size_t SizeOf(KbaseField::Type type) {
    switch (type) {
        case KbaseField::Type::kU8:
            return 1;
        case KbaseField::Type::kI16:
            return 2;
        case KbaseField::Type::kF32:
            return 4;
    }
    return 0;
}

std::string DecodeField(KbaseField::Type type, const char* bytes) {
    switch (type) {
        case KbaseField::Type::kU8:
            return std::to_string(static_cast<unsigned char>(*bytes));
        case KbaseField::Type::kI16: {
            std::int16_t number;
            std::memcpy(&number, bytes, sizeof number);
            return std::to_string(number);
        }
        case KbaseField::Type::kF32: {
            float number;
            std::memcpy(&number, bytes, sizeof number);
            return ShortestDecimal(number);
        }
    }
    return {};
}

}  // namespace

bool KbaseLayout::Parse(const std::vector<std::string>& words) {
    fields_.clear();
    for (const std::string& word : words) {
        const size_t colon = word.find(':');
        const std::string type = colon == std::string::npos ? std::string() : word.substr(colon + 1);
        KbaseField field{word.substr(0, colon), KbaseField::Type::kU8};
        if (type == "i16") {
            field.type = KbaseField::Type::kI16;
        } else if (type == "f32") {
            field.type = KbaseField::Type::kF32;
        } else if (type != "u8") {
            fields_.clear();
            return false;
        }
        fields_.push_back(field);
    }
    return !fields_.empty();
}

size_t KbaseLayout::size() const {
    size_t size = 0;
    for (const KbaseField& field : fields_)
        size += SizeOf(field.type);
    return size;
}

std::string KbaseLayout::Decode(std::string_view element) const {
    std::string text;
    size_t offset = 0;
    for (const KbaseField& field : fields_) {
        if (!text.empty()) text += ' ';
        text += field.name + '=' + DecodeField(field.type, element.data() + offset);
        offset += SizeOf(field.type);
    }
    return text;
}

std::string ShortestDecimal(float value) {
    char text[32] = "";
    for (int precision = 6; precision <= 9; ++precision) {
        std::snprintf(text, sizeof text, "%.*g", precision, static_cast<double>(value));
        if (std::strtof(text, nullptr) == value) break;
    }
    return text;
}

}  // namespace bench
