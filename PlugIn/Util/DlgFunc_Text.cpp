#include "Util/DlgFunc_Text.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>

#include "Lib/Numbers.h"
#include "Lib/Text.h"

const char* gwgetsubstring(char* destination, const char* source, char separator, int32_t index,
                           int32_t size) noexcept {
    *destination = '\0';
    if (!source || index < 0 || size <= 0) return nullptr;
    const char* at = source;
    for (; index > 0 && *at; ++at)
        if (*at == separator) --index;
    if (!*at) return nullptr;

    const char* const field = at;
    while (*at && *at != separator)
        ++at;
    const auto copied = std::min<std::ptrdiff_t>(at - field, size - 1);
    *std::copy_n(field, copied, destination) = '\0';
    return *at ? at + 1 : at;
}

char* TrimTrailingBlanks(char* buffer, int length) {
    for (int last = length - 1; last >= 0; --last) {
        char& c = buffer[last];
        if (c != ' ' && c != '\n' && c != '\r' && c != '\0') break;
        c = '\0';
    }
    return buffer;
}

bool ClampNumberText(char* text, double minimum, double maximum) {
    if (!text) return false;
    const double number = ToReal(text);
    if (number < minimum) {
        std::sprintf(text, "%.0f", minimum);
        return true;
    }
    if (number > maximum) {
        std::sprintf(text, "%.0f", maximum);
        return true;
    }
    return false;
}

std::string OpenFileFilter(const char* filter) {
    std::string parts = OrEmpty(filter);
    std::replace(parts.begin(), parts.end(), '|', '\0');
    // Together with the string's own terminator there are two even without a last "|".
    parts += '\0';
    return parts;
}
