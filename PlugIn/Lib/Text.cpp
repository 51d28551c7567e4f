#include <windows.h>

#include "Text.h"

std::string ToUpper(std::string text) {
    for (char& c : text) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return text;
}

std::wstring Widen(std::string_view text) {
    std::wstring wide(text.size(), L'\0');  // no code page has a character that grows
    const int length = static_cast<int>(text.size());
    const int written = MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), length);
    wide.resize(static_cast<size_t>(written));
    return wide;
}

std::string Narrow(std::wstring_view text) {
    std::string narrow(text.size() * 3, '\0');  // the most that a code page of a system needs
    const int written = WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), narrow.data(),
                                            static_cast<int>(narrow.size()), nullptr, nullptr);
    narrow.resize(static_cast<size_t>(written));
    return narrow;
}
