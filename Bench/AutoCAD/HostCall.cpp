#include "HostCall.h"

#include <windows.h>

#include <cstdio>
#include <cwchar>

#include "HostSession.h"

namespace bench {

HostCall::HostCall(const char* name, const std::string& arguments) : Call(name, arguments) {
    const DWORD mainThread = TheSession().mainThread;
    if (mainThread != 0 && mainThread != GetCurrentThreadId())
        Accuse(std::string(name) + " was called on a thread that is not AutoCAD's own.");
}

std::string Narrow(const wchar_t* text) {
    return text == nullptr ? "(null)" : Narrow(std::wstring(text));
}

std::string Narrow(const std::wstring& text) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, narrow.data(), size, nullptr, nullptr);
    return narrow;
}

std::wstring Wide(const std::string& text) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<size_t>(size), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), size);
    return wide;
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

std::string NumberText(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.10g", value == 0.0 ? 0.0 : value);
    return text;
}

std::string PointText(const double point[3]) {
    return NumberText(point[0]) + "," + NumberText(point[1]) + "," + NumberText(point[2]);
}

bool SameName(std::wstring_view one, std::wstring_view other) {
    return CompareStringOrdinal(one.data(), static_cast<int>(one.size()), other.data(), static_cast<int>(other.size()),
                                TRUE) == CSTR_EQUAL;
}

std::wstring UpperCase(std::wstring text) {
    if (!text.empty()) CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

}  // namespace bench
