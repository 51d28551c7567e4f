#include "Lib/FormatText.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

// Formats in place, since the result is never longer. Returns its length.
size_t FormatInPlace(char* text) noexcept {
    char* to = text;
    for (const char* at = text; *at; ++at) {
        *to++ = *at;
        if (at[0] == '%' && at[1] == '%') ++at;
    }
    *to = '\0';
    return static_cast<size_t>(to - text);
}

}  // namespace

std::string FormatString(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::string text = FormatArguments(format, arguments);
    va_end(arguments);
    if (text.size() > kMaxFormatStringLength) text.resize(kMaxFormatStringLength);
    return text;
}

std::string FormatArguments(const char* format, va_list arguments) {
    std::string text;
    if (!format) return text;
    char first[256];
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(first, sizeof first, format, arguments);
    if (length >= static_cast<int>(sizeof first)) {
        text.resize(static_cast<size_t>(length));
        std::vsnprintf(text.data(), text.size() + 1, format, again);
    } else if (length > 0) {
        text.assign(first, static_cast<size_t>(length));
    }
    va_end(again);
    return text;
}

std::string FormatOwnText(const char* text) {
    std::string result = text ? text : "";
    result.resize(FormatInPlace(result.data()));
    return result;
}

void BoundedText::Append(const char* format, ...) noexcept {
    va_list arguments;
    va_start(arguments, format);
    AppendArguments(format, arguments);
    va_end(arguments);
}

void BoundedText::AppendArguments(const char* format, va_list arguments) noexcept {
    const size_t space = sizeof text_ - length_;
    const int length = format ? std::vsnprintf(text_ + length_, space, format, arguments) : -1;
    if (length > 0) length_ += std::min(static_cast<size_t>(length), space - 1);
    text_[length_] = '\0';
}

void BoundedText::FormatAsItsOwn() noexcept {
    length_ = FormatInPlace(text_);
}

std::string HexText(const void* bytes, size_t count) {
    static const char digits[] = "0123456789ABCDEF";
    const uint8_t* at = static_cast<const uint8_t*>(bytes);
    std::string text(count * 2, '\0');
    char* to = text.data();  // writing through the string would load its pointer again for every digit
    for (size_t i = 0; i < count; ++i) {
        *to++ = digits[at[i] >> 4];
        *to++ = digits[at[i] & 15];
    }
    return text;
}
