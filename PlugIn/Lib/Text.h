// Null texts, letter case, and conversions between narrow texts (ANSI code page) and wide ones. Everything is by value
// and nothing fails: a character that the other side does not know becomes its replacement character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// A null text as an empty one.
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

// ASCII letters in upper case, everything else as it is.
std::string ToUpper(std::string text);

std::wstring Widen(std::string_view text);
std::string Narrow(std::wstring_view text);
