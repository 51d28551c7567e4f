#include "FormatText.h"

#include <cstdint>
#include <cstdio>

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
    char buffer[256];
    va_list pass;
    va_copy(pass, arguments);
    const int length = std::vsnprintf(buffer, sizeof buffer, format, pass);
    va_end(pass);
    if (length < 0) return std::string();
    const size_t size = static_cast<size_t>(length);
    if (size < sizeof buffer) return std::string(buffer, size);
    std::string text(size, '\0');
    std::vsnprintf(text.data(), size + 1, format, arguments);
    return text;
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
    std::string text(count * 2, '\0');
    for (size_t i = 0; i < count; ++i) {
        text[2 * i] = digits[at[i] >> 4];
        text[2 * i + 1] = digits[at[i] & 15];
    }
    return text;
}
