#include "Lib/Base64.h"

#include <array>
#include <cstdio>

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Index in the alphabet by character: 64 for the terminator, -1 for a character outside the alphabet.
constexpr std::array<int8_t, 256> kIndexes = [] {
    std::array<int8_t, 256> indexes = {};
    for (int8_t& index : indexes)
        index = -1;
    for (size_t i = 0; i < sizeof kAlphabet; ++i)
        indexes[static_cast<uint8_t>(kAlphabet[i])] = static_cast<int8_t>(i);
    return indexes;
}();

int IndexOf(char character) {
    return kIndexes[static_cast<uint8_t>(character)];
}

// Returns the 24 bits of four characters of the alphabet; -1 for any other group. Never reads beyond a terminator.
int BitsOfWholeGroup(const char* group) {
    int bits = 0;
    for (int i = 0; i < 4; ++i) {
        const int index = IndexOf(group[i]);
        if (index < 0 || index > 63) return -1;
        bits = bits << 6 | index;
    }
    return bits;
}

// Decodes one group of at most four characters, of which only the last may be the terminator. Returns the bytes
// written.
int DecodeGroup(uint8_t* output, const char* group, size_t size) {
    if (group[0] == '=') return 0;
    if (size > 1 && group[1] == '=') {
        std::fputs("Warning: orphaned bits ignored.\n", stderr);
        return 0;
    }
    int bytes = 0;
    int previous = IndexOf(group[0]);
    if (previous < 0) return 0;
    for (size_t i = 1; i < size; ++i) {
        // A pad in third place does not end the group; the fourth character is still decoded.
        const bool pad = i > 1 && group[i] == '=';
        const int index = pad ? 0 : IndexOf(group[i]);
        if (index < 0) return bytes;
        if (!pad) {
            const int shift = static_cast<int>(2 * i);
            output[bytes++] = static_cast<uint8_t>(previous << shift | index >> (6 - shift));
        }
        previous = index;
    }
    return bytes;
}

}  // namespace

int Base64Encode(char* output, const uint8_t* input, size_t length) {
    char* at = output;
    for (size_t i = 0; i < length; i += 3) {
        const size_t left = length - i;
        const int first = input[i];
        const int second = left > 1 ? input[i + 1] : 0;
        const int third = left > 2 ? input[i + 2] : 0;
        *at++ = kAlphabet[first >> 2];
        *at++ = kAlphabet[(first & 3) << 4 | second >> 4];
        *at++ = left > 1 ? kAlphabet[(second & 15) << 2 | third >> 6] : '=';
        *at++ = left > 2 ? kAlphabet[third & 63] : '=';
    }
    return static_cast<int>(at - output);
}

int Base64Decode(uint8_t* output, const char* text) {
    int written = 0;
    while (*text) {
        if (const int bits = BitsOfWholeGroup(text); bits >= 0) {
            for (const int shift : {16, 8, 0})
                output[written++] = static_cast<uint8_t>(bits >> shift);
            text += 4;
            continue;
        }
        size_t size = 1;
        bool ended = false;
        while (size < 4 && !ended)
            ended = text[size++] == '\0';
        written += DecodeGroup(output + written, text, size);
        if (ended) break;
        text += size;
    }
    return written;
}
