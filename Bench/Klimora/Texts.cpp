#include "Texts.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cwchar>

namespace bench::klimora {
namespace {

std::string ToCodePage(const std::wstring& text, UINT codePage) {
    const int size = static_cast<int>(text.size());
    const int length = WideCharToMultiByte(codePage, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<size_t>(length), '\0');
    WideCharToMultiByte(codePage, 0, text.data(), size, result.data(), length, nullptr, nullptr);
    return result;
}

}  // namespace

std::string Narrow(const std::wstring& text) {
    return ToCodePage(text, CP_UTF8);
}

std::string FromBstr(BSTR text) {
    if (!text) return {};
    const wchar_t* end = std::wmemchr(text, L'\0', SysStringLen(text));
    return Narrow(std::wstring(text, end ? static_cast<size_t>(end - text) : SysStringLen(text)));
}

std::wstring Wide(const std::string& utf8) {
    const int size = static_cast<int>(utf8.size());
    const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
    std::wstring result(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, result.data(), length);
    return result;
}

BSTR ToBstr(const std::string& text) {
    const std::wstring wide = Wide(text);
    return SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

std::string Ansi(const std::string& utf8) {
    return ToCodePage(Wide(utf8), CP_ACP);
}

bool SameName(const std::string& a, const std::string& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

bool IsHandle(const std::string& text) {
    return !text.empty() && text.size() <= 16 && text.find_first_not_of('0') != std::string::npos &&
           text.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
}

bool ReadInteger(const std::string& text, long& value) {
    if (text.empty() || std::isspace(static_cast<unsigned char>(text[0]))) return false;
    char* end = nullptr;
    const long read = std::strtol(text.c_str(), &end, 10);
    if (*end != '\0') return false;
    value = read;
    return true;
}

bool ReadReal(const std::string& text, double& value) {
    if (text.empty() || text.find_first_not_of("+-.0123456789eE") != std::string::npos) return false;
    char* end = nullptr;
    const double read = std::strtod(text.c_str(), &end);
    if (*end != '\0' || !std::isfinite(read)) return false;
    value = read;
    return true;
}

bool ReadReals(const std::string& text, size_t count, std::vector<double>& values) {
    std::vector<double> read;
    size_t start = 0;
    while (start <= text.size()) {
        const size_t end = std::min(text.find(' ', start), text.size());
        double value = 0;
        if (!ReadReal(text.substr(start, end - start), value)) return false;
        read.push_back(value);
        start = end + 1;
    }
    if (read.size() != count) return false;
    values = read;
    return true;
}

std::string RealText(double value) {
    std::string text = std::to_string(value);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text == "-0" ? "0" : text;
}

std::string PointText(double x, double y, double z) {
    return RealText(x) + " " + RealText(y) + " " + RealText(z);
}

std::vector<std::string> Split(const std::string& text, const char* separators) {
    std::vector<std::string> words;
    size_t start = text.find_first_not_of(separators);
    while (start != std::string::npos) {
        const size_t end = text.find_first_of(separators, start);
        words.push_back(text.substr(start, end - start));
        start = text.find_first_not_of(separators, end);
    }
    return words;
}

}  // namespace bench::klimora
