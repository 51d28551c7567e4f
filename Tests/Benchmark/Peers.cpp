#include "Peers.h"

#include <wincrypt.h>
#include <wininet.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace {

uint32_t Rotate(uint32_t value, int bits) {
    return value << bits | value >> (32 - bits);
}

void TextbookBlock(uint32_t (&state)[4], const uint8_t* block) {
    static const std::array<uint32_t, 64> sines = [] {
        std::array<uint32_t, 64> table = {};
        for (int i = 0; i < 64; ++i)
            table[i] = static_cast<uint32_t>(std::floor(4294967296.0 * std::fabs(std::sin(i + 1.0))));
        return table;
    }();
    static const int shifts[4][4] = {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};
    uint32_t words[16];
    std::memcpy(words, block, sizeof words);
    uint32_t a = state[0], b = state[1], c = state[2], d = state[3];
    for (int i = 0; i < 64; ++i) {
        uint32_t mixed = 0;
        int word = 0;
        switch (i / 16) {
            case 0:
                mixed = (b & c) | (~b & d), word = i;
                break;
            case 1:
                mixed = (b & d) | (c & ~d), word = (5 * i + 1) % 16;
                break;
            case 2:
                mixed = b ^ c ^ d, word = (3 * i + 5) % 16;
                break;
            default:
                mixed = c ^ (b | ~d), word = 7 * i % 16;
        }
        const uint32_t next = b + Rotate(a + mixed + words[word] + sines[i], shifts[i / 16][i % 4]);
        a = d, d = c, c = b, b = next;
    }
    state[0] += a, state[1] += b, state[2] += c, state[3] += d;
}

}  // namespace

std::array<uint8_t, 16> TextbookMd5(const std::string& message) {
    uint32_t state[4] = {0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476};
    const uint8_t* bytes = reinterpret_cast<const uint8_t*>(message.data());
    const size_t whole = message.size() / 64 * 64;
    for (size_t at = 0; at < whole; at += 64)
        TextbookBlock(state, bytes + at);
    std::string tail = message.substr(whole) + '\x80';
    while (tail.size() % 64 != 56)
        tail += '\0';
    const uint64_t bits = 8 * static_cast<uint64_t>(message.size());
    tail.append(reinterpret_cast<const char*>(&bits), sizeof bits);
    for (size_t at = 0; at < tail.size(); at += 64)
        TextbookBlock(state, reinterpret_cast<const uint8_t*>(tail.data()) + at);
    std::array<uint8_t, 16> digest;
    std::memcpy(digest.data(), state, sizeof state);
    return digest;
}

std::string TableBase64Decode(const std::string& text) {
    static const std::array<int8_t, 256> indexes = [] {
        std::array<int8_t, 256> table;
        table.fill(-1);
        int8_t index = 0;
        for (const char* c = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/"; *c; ++c)
            table[static_cast<uint8_t>(*c)] = index++;
        return table;
    }();
    std::string bytes(text.size() / 4 * 3, '\0');
    char* to = bytes.data();
    const uint8_t* from = reinterpret_cast<const uint8_t*>(text.data());
    for (const uint8_t* const end = from + text.size() / 4 * 4; from < end; from += 4) {
        const int a = indexes[from[0]], b = indexes[from[1]], c = indexes[from[2]], d = indexes[from[3]];
        if ((a | b | c | d) < 0) break;
        *to++ = static_cast<char>(a << 2 | b >> 4);
        *to++ = static_cast<char>(b << 4 | c >> 2);
        *to++ = static_cast<char>(c << 6 | d);
    }
    bytes.resize(static_cast<size_t>(to - bytes.data()));
    return bytes;
}

std::string CryptoBase64Encode(const std::string& bytes) {
    const auto* data = reinterpret_cast<const BYTE*>(bytes.data());
    const DWORD size = static_cast<DWORD>(bytes.size());
    DWORD length = (size + 2) / 3 * 4 + 1;
    std::string text(length, '\0');
    CryptBinaryToStringA(data, size, CRYPT_STRING_BASE64 | CRYPT_STRING_NOCRLF, text.data(), &length);
    text.resize(length);
    return text;
}

void TableHex(const void* bytes, size_t size, char* text) {
    static const char digits[] = "0123456789ABCDEF";
    const uint8_t* from = static_cast<const uint8_t*>(bytes);
    for (const uint8_t* const end = from + size; from < end; ++from) {
        *text++ = digits[*from >> 4];
        *text++ = digits[*from & 15];
    }
    *text = '\0';
}

BSTR MeasuredBstr(const char* text) {
    const int length = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    const BSTR wide = SysAllocStringLen(nullptr, static_cast<UINT>(length));
    MultiByteToWideChar(CP_ACP, 0, text, -1, wide, length);
    return wide;
}

std::string MeasuredFormat(const char* format, const char* text, int number) {
    std::string formatted(static_cast<size_t>(std::snprintf(nullptr, 0, format, text, number)), '\0');
    std::snprintf(formatted.data(), formatted.size() + 1, format, text, number);
    return formatted;
}

void BareDownload(const char* url, const char* path) {
    const HANDLE file = CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD connection = 7;
    if (!InternetGetConnectedState(&connection, 0)) throw std::runtime_error("no network");
    const HINTERNET session = InternetOpenA("http generic", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
    const DWORD flags = INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_NO_UI;
    const HINTERNET address = InternetOpenUrlA(session, url, nullptr, 0, flags, 0);
    char buffer[1024];
    DWORD read = 0, written = 0;
    while (InternetReadFile(address, buffer, sizeof buffer, &read) && read > 0)
        WriteFile(file, buffer, read, &written, nullptr);
    InternetCloseHandle(address);
    InternetCloseHandle(session);
    CloseHandle(file);
}
