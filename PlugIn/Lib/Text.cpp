#include "Lib/Text.h"

#include <windows.h>

std::string ToUpper(std::string text) {
    for (char& c : text) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return text;
}

std::wstring Widen(std::string_view text) {
    std::wstring wide(text.size(), L'\0');  // no code page's character becomes longer
    const int length = static_cast<int>(text.size());
    const int written = MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), length);
    wide.resize(static_cast<size_t>(written));
    return wide;
}

std::string Narrow(std::wstring_view text) {
    const size_t maxSize = text.size() * 3;  // no system's code page needs more
    const auto convert = [&](char* to) {
        return static_cast<size_t>(WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), to,
                                                       static_cast<int>(maxSize), nullptr, nullptr));
    };
    char buffer[256];
    if (maxSize <= sizeof buffer) return std::string(buffer, convert(buffer));
    std::string narrow(maxSize, '\0');
    narrow.resize(convert(narrow.data()));
    return narrow;
}
