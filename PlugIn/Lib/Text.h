// Null and empty strings, truncation, letter case, and conversion between narrow strings (ANSI code page) and wide
// ones. A character that the other side lacks becomes its replacement character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Returns an empty string for null.
inline const char* OrEmpty(const char* text) noexcept {
    return text ? text : "";
}

inline bool IsNullOrEmpty(const char* text) noexcept {
    return !text || !*text;
}

// Copies what fits into a buffer of `size` bytes, which must not be 0, and terminates it. Returns the copied length.
inline size_t CopyTruncated(char* buffer, size_t size, std::string_view text) noexcept {
    const size_t length = text.copy(buffer, size - 1);
    buffer[length] = '\0';
    return length;
}

// Changes ASCII letters to upper case, nothing else.
std::string ToUpper(std::string text);

std::wstring Widen(std::string_view text);
std::string Narrow(std::wstring_view text);
