#include "KbaseText.h"

#include <fstream>

namespace bench {
namespace {

int DigitValue(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    return -1;
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

}  // namespace

std::string Hex(std::string_view bytes) {
    static const char digits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char c : bytes) {
        const unsigned char byte = static_cast<unsigned char>(c);
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

bool FromHex(std::string_view digits, std::string& bytes) {
    bytes.clear();
    if (digits.size() % 2 != 0) return false;
    for (size_t i = 0; i < digits.size(); i += 2) {
        const int high = DigitValue(digits[i]);
        const int low = DigitValue(digits[i + 1]);
        if (high < 0 || low < 0) return false;
        bytes += static_cast<char>(high * 16 + low);
    }
    return true;
}

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        const unsigned char byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            quoted += '\\';
            quoted += c;
        } else if (byte < 0x20 || byte == 0x7F) {
            quoted += "\\x" + Hex(std::string_view(&c, 1));
        } else {
            quoted += c;
        }
    }
    return quoted + '"';
}

bool FromQuoted(std::string_view quoted, std::string& text) {
    text.clear();
    if (quoted.size() < 2 || quoted.front() != '"' || quoted.back() != '"') return false;
    quoted = quoted.substr(1, quoted.size() - 2);
    for (size_t i = 0; i < quoted.size(); ++i) {
        if (quoted[i] == '"') return false;
        if (quoted[i] != '\\') {
            text += quoted[i];
            continue;
        }
        if (++i == quoted.size()) return false;
        if (quoted[i] != 'x') {
            text += quoted[i];
            continue;
        }
        std::string byte;
        if (i + 2 >= quoted.size() || !FromHex(quoted.substr(i + 1, 2), byte)) return false;
        text += byte;
        i += 2;
    }
    return true;
}

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
