#include "Texts.h"

#include <windows.h>

#include <cstdio>
#include <cwchar>

namespace bench {

std::string LogText(const wchar_t* text) {
    return text == nullptr ? "(null)" : Ansi(text);
}

std::string HandleText(std::uint64_t handle) {
    char text[17];
    std::snprintf(text, sizeof text, "%llX", static_cast<unsigned long long>(handle));
    return text;
}

std::uint64_t HandleFromText(const wchar_t* text) {
    if (text == nullptr || *text == L'\0' || std::wcslen(text) > 16) return 0;
    if (std::wcsspn(text, L"0123456789abcdefABCDEF") != std::wcslen(text)) return 0;
    return std::wcstoull(text, nullptr, 16);
}

std::string PointText(const double point[3]) {
    return NumberText(point[0]) + "," + NumberText(point[1]) + "," + NumberText(point[2]);
}

std::wstring UpperCase(std::wstring text) {
    if (!text.empty()) CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

}  // namespace bench
