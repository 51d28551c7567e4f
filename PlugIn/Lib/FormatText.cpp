#include "FormatText.h"

#include <cstdint>
#include <cstdio>
#include <memory>

std::string FormatString(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::string text = FormatArguments(format, arguments);
    va_end(arguments);
    if (text.size() > kFormatStringLimit) text.resize(kFormatStringLimit);
    return text;
}

std::string FormatArguments(const char* format, va_list arguments) {
    if (!format) return std::string();
    char first[256];
    std::unique_ptr<char[]> larger;
    char* buffer = first;
    size_t size = sizeof first;
    for (;;) {
        va_list pass;
        va_copy(pass, arguments);
        const int length = std::vsnprintf(buffer, size, format, pass);
        va_end(pass);
        if (length < 0) return std::string();
        if (static_cast<size_t>(length) < size) return std::string(buffer, static_cast<size_t>(length));
        size *= 2;
        larger.reset(new char[size + 10]);
        buffer = larger.get();
    }
}

std::string FormatOwnText(const char* text) {
    std::string result;
    for (const char* at = text ? text : ""; *at; ++at) {
        result += *at;
        if (at[0] == '%' && at[1] == '%') ++at;
    }
    return result;
}

std::string HexText(const void* bytes, size_t count) {
    static const char digits[] = "0123456789ABCDEF";
    const uint8_t* at = static_cast<const uint8_t*>(bytes);
    std::string text;
    text.reserve(count * 2);
    for (size_t i = 0; i < count; ++i) {
        text += digits[at[i] >> 4];
        text += digits[at[i] & 15];
    }
    return text;
}
