#include "Texts.h"

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
    for (const std::string& word : Split(text, ' ')) {
        double value = 0;
        if (!ReadNumber(word, value)) return false;
        read.push_back(value);
    }
    if (read.size() != count) return false;
    values = read;
    return true;
}

std::string PointText(double x, double y, double z) {
    return NumberText(x) + " " + NumberText(y) + " " + NumberText(z);
}

}  // namespace bench::klimora
