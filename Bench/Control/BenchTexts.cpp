#include "BenchTexts.h"

#include <windows.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace bench {
namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";

std::string Narrow(std::wstring_view text, UINT codePage) {
    const int size = static_cast<int>(text.size());
    const int length = WideCharToMultiByte(codePage, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<size_t>(length), '\0');
    WideCharToMultiByte(codePage, 0, text.data(), size, narrow.data(), length, nullptr, nullptr);
    return narrow;
}

std::wstring Wide(std::string_view text, UINT codePage) {
    const int size = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(codePage, 0, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), size, wide.data(), length);
    return wide;
}

template <class Number>
bool Read(std::string_view text, Number& value) {
    const char* const end = text.data() + text.size();
    Number read = 0;
    const auto [stop, error] = std::from_chars(text.data(), end, read);
    if (error != std::errc() || stop != end || !std::isfinite(static_cast<double>(read))) return false;
    value = read;
    return true;
}

}  // namespace

std::string Utf8(std::wstring_view text) {
    return Narrow(text, CP_UTF8);
}
std::wstring FromUtf8(std::string_view text) {
    return Wide(text, CP_UTF8);
}
std::string Ansi(std::wstring_view text) {
    return Narrow(text, CP_ACP);
}
std::wstring FromAnsi(std::string_view text) {
    return Wide(text, CP_ACP);
}

std::string Hex(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) {
        const unsigned char byte = static_cast<unsigned char>(c);
        text += kHexDigits[byte >> 4];
        text += kHexDigits[byte & 15];
    }
    return text;
}

bool FromHex(std::string_view digits, std::string& bytes) {
    if (digits.size() % 2 != 0) return false;
    std::string read;
    for (const char* pair = digits.data(); pair != digits.data() + digits.size(); pair += 2) {
        unsigned char byte = 0;
        if (std::from_chars(pair, pair + 2, byte, 16).ptr != pair + 2) return false;
        read += static_cast<char>(byte);
    }
    bytes = read;
    return true;
}

std::string Quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

std::string Escaped(std::string_view text) {
    std::string escaped = "\"";
    for (const char c : text) {
        const unsigned char byte = static_cast<unsigned char>(c);
        if (c == '\n')
            escaped += "\\n";
        else if (c == '\r')
            escaped += "\\r";
        else if (byte < 0x20 || byte == 0x7F)
            escaped += "\\x" + Hex(std::string_view(&c, 1));
        else
            escaped += c == '"' || c == '\\' ? std::string("\\") + c : std::string(1, c);
    }
    return escaped + '"';
}

bool SameName(std::string_view one, std::string_view other) {
    return one.size() == other.size() && _strnicmp(one.data(), other.data(), one.size()) == 0;
}

bool SameName(std::wstring_view one, std::wstring_view other) {
    return CompareStringOrdinal(one.data(), static_cast<int>(one.size()), other.data(), static_cast<int>(other.size()),
                                TRUE) == CSTR_EQUAL;
}

std::string NumberText(double value, int decimals) {
    char buffer[400] = "";  // the largest number has 309 digits before the point
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
    std::string text = buffer;
    if (text.find('.') != std::string::npos) text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text == "-0" ? "0" : text;
}

std::string Join(const std::vector<std::string>& parts, const char* separator) {
    std::string text;
    for (const std::string& part : parts)
        text += (&part == &parts.front() ? "" : separator) + part;
    return text;
}

std::vector<std::string> Split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (size_t start = 0; start <= text.size();) {
        const size_t end = std::min(text.find(separator, start), text.size());
        parts.emplace_back(text.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

bool ReadNumber(std::string_view text, long& value) {
    return Read(text, value);
}

bool ReadNumber(std::string_view text, double& value) {
    return Read(text, value);
}

}  // namespace bench
