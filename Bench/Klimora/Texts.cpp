#include "Texts.h"

#include <algorithm>
#include <cwchar>

namespace bench::klimora {

std::string FromBstr(BSTR text) {
    if (!text) return {};
    const wchar_t* end = std::wmemchr(text, L'\0', SysStringLen(text));
    return Utf8(std::wstring_view(text, end ? static_cast<size_t>(end - text) : SysStringLen(text)));
}

BSTR ToBstr(const std::string& text) {
    const std::wstring wide = FromUtf8(text);
    return SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

bool IsHandle(const std::string& text) {
    return !text.empty() && text.size() <= 16 && text.find_first_not_of('0') != std::string::npos &&
           text.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
}

bool ReadReals(const std::string& text, size_t count, std::vector<double>& values) {
    std::vector<double> read;
    size_t start = 0;
    while (start <= text.size()) {
        const size_t end = std::min(text.find(' ', start), text.size());
        double value = 0;
        if (!ReadNumber(text.substr(start, end - start), value)) return false;
        read.push_back(value);
        start = end + 1;
    }
    if (read.size() != count) return false;
    values = read;
    return true;
}

std::string PointText(double x, double y, double z) {
    return NumberText(x) + " " + NumberText(y) + " " + NumberText(z);
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
