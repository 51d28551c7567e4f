#include "Util/TextConverter.h"

#include "Lib/Text.h"

void TextConverter::Reserve(size_t characters) {
    wide_.resize(characters, L'\0');
    narrow_.clear();
}

std::wstring TextConverter::ToWide(const char* text, UINT codePage) {
    text = OrEmpty(text);
    const DWORD flags = codePage == CP_UTF8 ? 0 : MB_PRECOMPOSED;
    const int characters = MultiByteToWideChar(codePage, flags, text, -1, nullptr, 0);
    Reserve(static_cast<size_t>(characters));
    if (characters > 0) MultiByteToWideChar(codePage, flags, text, -1, wide_.data(), characters);
    return wide_.c_str();
}

const char* TextConverter::ToNarrow(UINT codePage) {
    const int bytes = WideCharToMultiByte(codePage, 0, wide_.c_str(), -1, nullptr, 0, nullptr, nullptr);
    narrow_.assign(static_cast<size_t>(bytes) + 1, '\0');
    WideCharToMultiByte(codePage, 0, wide_.c_str(), -1, narrow_.data(), bytes, nullptr, nullptr);
    return narrow_.c_str();
}

BSTR TextConverter::ToBstr() const {
    return SysAllocStringLen(wide_.c_str(), static_cast<UINT>(wide_.size()));
}
