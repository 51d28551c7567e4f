#include "BenchTexts.h"

#include <windows.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

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

char LowerCase(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

int DigitValue(char digit) {
    const std::string_view digits = kHexDigits;
    const size_t place = digits.find(digit >= 'a' && digit <= 'f' ? static_cast<char>(digit - 'a' + 'A') : digit);
    return place == std::string_view::npos ? -1 : static_cast<int>(place);
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
    for (size_t i = 0; i < digits.size(); i += 2) {
        const int high = DigitValue(digits[i]);
        const int low = DigitValue(digits[i + 1]);
        if (high < 0 || low < 0) return false;
        read += static_cast<char>(high * 16 + low);
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
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return LowerCase(a) == LowerCase(b); });
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

bool ReadNumber(const std::string& text, long& value) {
    if (text.empty() || text.find_first_not_of("+-0123456789") != std::string::npos) return false;
    char* end = nullptr;
    const long read = std::strtol(text.c_str(), &end, 10);
    if (*end != '\0') return false;
    value = read;
    return true;
}

bool ReadNumber(const std::string& text, double& value) {
    if (text.empty() || text.find_first_not_of("+-.0123456789eE") != std::string::npos) return false;
    char* end = nullptr;
    const double read = std::strtod(text.c_str(), &end);
    if (*end != '\0' || !std::isfinite(read)) return false;
    value = read;
    return true;
}

}  // namespace bench
