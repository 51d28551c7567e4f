#include "LibraryRows.h"

#include <windows.h>
#include <wincrypt.h>
#include <wininet.h>

#include <array>
#include <cmath>
#include <cstring>
#include <random>
#include <stdexcept>

#include "Lib/Base64.h"
#include "Lib/Md5Driver.h"
#include "TestFiles.h"
#include "Util/Download.h"
#include "WebServer.h"

namespace {

constexpr int kMegabyte = 1 << 20;

std::string Bytes(size_t count) {
    std::mt19937 random(1);
    std::string bytes(count, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

// MD5 exactly as RFC 1321 describes it.
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
    uint32_t words[16];
    std::memcpy(words, block, sizeof words);
    uint32_t a = state[0], b = state[1], c = state[2], d = state[3];
    const auto round = [&](int first, const std::array<int, 4>& shifts, int step, int start, auto mixed) {
        for (int i = first; i < first + 16; ++i) {
            const uint32_t sum = a + mixed() + words[(step * i + start) % 16] + sines[i];
            a = d, d = c, c = b, b += Rotate(sum, shifts[i % 4]);
        }
    };
    round(0, {7, 12, 17, 22}, 1, 0, [&] { return (b & c) | (~b & d); });
    round(16, {5, 9, 14, 20}, 5, 1, [&] { return (b & d) | (c & ~d); });
    round(32, {4, 11, 16, 23}, 3, 5, [&] { return b ^ c ^ d; });
    round(48, {6, 10, 15, 21}, 7, 0, [&] { return c ^ (b | ~d); });
    state[0] += a, state[1] += b, state[2] += c, state[3] += d;
}

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

void DigestRow(Table& table) {
    const std::string bytes = Bytes(32 * kMegabyte);
    std::array<uint8_t, 16> ours, peers;
    table.Ratio("MD5 of 32 MB / RFC 1321 by the book", 1.0,
                Timed([&] { MD5Driver::MDBuffer(ours.data(), bytes.data(), bytes.size()); }),
                Timed([&] { peers = TextbookMd5(bytes); }));
    table.Same([&] { return ours == peers; });
}

// Decodes whole groups up to the first other character.
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

void Base64Rows(Table& table) {
    const std::string bytes = Bytes(12 * kMegabyte), text = CryptoBase64Encode(bytes);
    std::string decoded, encoded, peers;
    table.Ratio("Base64 decode of 12 MB / a table of 256", 1.8, Timed([&] {
                    decoded.assign(text.size(), '\0');
                    decoded.resize(Base64Decode(reinterpret_cast<uint8_t*>(decoded.data()), text.c_str()));
                }),
                Timed([&] { peers = TableBase64Decode(text); }));
    table.Same([&] { return decoded == bytes && peers == bytes; });
    table.Ratio("Base64 encode of 12 MB / CryptBinaryToString", 0.5, Timed([&] {
                    encoded.assign(bytes.size() / 3 * 4 + 4, '\0');
                    const uint8_t* from = reinterpret_cast<const uint8_t*>(bytes.data());
                    encoded.resize(Base64Encode(encoded.data(), from, bytes.size()));
                }),
                Timed([&] { peers = CryptoBase64Encode(bytes); }));
    table.Same([&] { return encoded == text; });
}

void DownloadRow(Table& table) {
    const TestFolder folder;
    const std::string url = SORVIK_WEB_SERVER "/klimora/export/file.bin", ours = folder.file("ours"),
                      peers = folder.file("peers"), bytes = Bytes(8 * kMegabyte);
    bench::WebServer server{SORVIK_CATALOGUE};
    server.UseAsProxy();
    server.Serve("/klimora/export/file.bin", bytes);
    table.Ratio("download of 8 MB / a bare WinINet loop", 1.5, Timed([&] { DownloadFile(url.c_str(), ours.c_str()); }),
                Timed([&] { BareDownload(url.c_str(), peers.c_str()); }));
    table.Same([&] { return ReadWholeFile(ours) == bytes && ReadWholeFile(peers) == bytes; });
}

}  // namespace

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

void LibraryRows(Table& table) {
    DigestRow(table);
    Base64Rows(table);
    DownloadRow(table);
}
