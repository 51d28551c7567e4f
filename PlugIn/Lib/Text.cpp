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
    const size_t most = text.size() * 3;  // what a code page of a system needs
    const auto convert = [&](char* to) {
        return static_cast<size_t>(WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), to,
                                                       static_cast<int>(most), nullptr, nullptr));
    };
    char few[256];
    if (most <= sizeof few) return std::string(few, convert(few));
    std::string narrow(most, '\0');
    narrow.resize(convert(narrow.data()));
    return narrow;
}
