#include "Util/XmlTextBuilder.h"

#include <cstdarg>

#include "Lib/FormatText.h"

namespace {

const char* EntityOf(char character) {
    switch (character) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return "&apos;";
        default:
            return nullptr;
    }
}

std::string EscapeText(const std::string& text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char character : text) {
        if (const char* entity = EntityOf(character)) {
            escaped += entity;
        } else {
            escaped += character;
        }
    }
    return escaped;
}

}  // namespace

void XmlTextBuilder::AppendFormat(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    Append(FormatArguments(format, arguments));
    va_end(arguments);
}

void XmlTextBuilder::AppendHex(const void* bytes, size_t count) {
    Append(HexText(bytes, count));
}

std::string XmlTextBuilder::Escape(const char* value) {
    return EscapeText(FormatOwnText(value));
}

std::string XmlTextBuilder::EscapeFormat(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const std::string text = FormatArguments(format, arguments);
    va_end(arguments);
    return EscapeText(text);
}
