#include "Lib/Md5.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

// Integer part of 2^32 * |sin(i + 1)|, i in radians.
constexpr uint32_t kSines[64] = {
    0xD76AA478, 0xE8C7B756, 0x242070DB, 0xC1BDCEEE, 0xF57C0FAF, 0x4787C62A, 0xA8304613, 0xFD469501,
    0x698098D8, 0x8B44F7AF, 0xFFFF5BB1, 0x895CD7BE, 0x6B901122, 0xFD987193, 0xA679438E, 0x49B40821,
    0xF61E2562, 0xC040B340, 0x265E5A51, 0xE9B6C7AA, 0xD62F105D, 0x02441453, 0xD8A1E681, 0xE7D3FBC8,
    0x21E1CDE6, 0xC33707D6, 0xF4D50D87, 0x455A14ED, 0xA9E3E905, 0xFCEFA3F8, 0x676F02D9, 0x8D2A4C8A,
    0xFFFA3942, 0x8771F681, 0x6D9D6122, 0xFDE5380C, 0xA4BEEA44, 0x4BDECFA9, 0xF6BB4B60, 0xBEBFBC70,
    0x289B7EC6, 0xEAA127FA, 0xD4EF3085, 0x04881D05, 0xD9D4D039, 0xE6DB99E5, 0x1FA27CF8, 0xC4AC5665,
    0xF4292244, 0x432AFF97, 0xAB9423A7, 0xFC93A039, 0x655B59C3, 0x8F0CCC92, 0xFFEFF47D, 0x85845DD1,
    0x6FA87E4F, 0xFE2CE6E0, 0xA3014314, 0x4E0811A1, 0xF7537E82, 0xBD3AF235, 0x2AD7D2BB, 0xEB86D391,
};

// Rotations of the four rounds, by step modulo 4.
constexpr int kShifts[4][4] = {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};

uint32_t RotateLeft(uint32_t value, int bits) {
    return (value << bits) | (value >> (32 - bits));
}

uint32_t LoadLittleEndian(const uint8_t* bytes) {
    return static_cast<uint32_t>(bytes[0]) | static_cast<uint32_t>(bytes[1]) << 8 |
           static_cast<uint32_t>(bytes[2]) << 16 | static_cast<uint32_t>(bytes[3]) << 24;
}

void StoreLittleEndian(uint8_t* bytes, uint32_t value) {
    for (int i = 0; i < 4; ++i)
        bytes[i] = static_cast<uint8_t>(value >> (8 * i));
}

uint32_t F(uint32_t x, uint32_t y, uint32_t z) {
    return z ^ (x & (y ^ z));
}
uint32_t G(uint32_t x, uint32_t y, uint32_t z) {
    return y ^ (z & (x ^ y));
}
uint32_t H(uint32_t x, uint32_t y, uint32_t z) {
    return x ^ y ^ z;
}
uint32_t I(uint32_t x, uint32_t y, uint32_t z) {
    return y ^ (x | ~z);
}

// One round of 16 steps, unrolled. Step i uses word First + i * Stride of the block. The roles of the four state words
// rotate from step to step instead of their values.
template <uint32_t (*Mix)(uint32_t, uint32_t, uint32_t), int Round, int First, int Stride, int... Step>
void RunRound(uint32_t (&s)[4], const uint32_t (&words)[16], std::integer_sequence<int, Step...>) {
    const auto step = [](uint32_t& a, uint32_t b, uint32_t c, uint32_t d, uint32_t addend, int shift) {
        a = b + RotateLeft(a + Mix(b, c, d) + addend, shift);
    };
    (step(s[(16 - Step) % 4], s[(17 - Step) % 4], s[(18 - Step) % 4], s[(19 - Step) % 4],
          words[(First + Step * Stride) % 16] + kSines[16 * Round + Step], kShifts[Round][Step % 4]),
     ...);
}

void Transform(uint32_t (&state)[4], const uint8_t* block) {
    uint32_t words[16];
    for (int i = 0; i < 16; ++i)
        words[i] = LoadLittleEndian(block + 4 * i);
    uint32_t s[4] = {state[0], state[1], state[2], state[3]};
    constexpr std::make_integer_sequence<int, 16> steps{};
    RunRound<F, 0, 0, 1>(s, words, steps);
    RunRound<G, 1, 1, 5>(s, words, steps);
    RunRound<H, 2, 5, 3>(s, words, steps);
    RunRound<I, 3, 0, 7>(s, words, steps);
    for (int i = 0; i < 4; ++i)
        state[i] += s[i];
}

}  // namespace

void MD5Init(MD5Context* context) {
    *context = {{0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476}, {0, 0}, {}};
}

void MD5Update(MD5Context* context, const void* data, size_t length) {
    if (!length) return;
    size_t used = (context->bitCount[0] >> 3) & 63;
    const uint64_t bits = (static_cast<uint64_t>(context->bitCount[1]) << 32 | context->bitCount[0]) +
                          (static_cast<uint64_t>(length) << 3);
    context->bitCount[0] = static_cast<uint32_t>(bits);
    context->bitCount[1] = static_cast<uint32_t>(bits >> 32);

    const uint8_t* bytes = static_cast<const uint8_t*>(data);
    while (length) {
        if (used == 0 && length >= sizeof context->buffer) {
            Transform(context->state, bytes);
            bytes += sizeof context->buffer;
            length -= sizeof context->buffer;
            continue;
        }
        const size_t taken = std::min(length, sizeof context->buffer - used);
        std::memcpy(context->buffer + used, bytes, taken);
        used += taken;
        bytes += taken;
        length -= taken;
        if (used == sizeof context->buffer) {
            Transform(context->state, context->buffer);
            used = 0;
        }
    }
}

void MD5Final(uint8_t digest[16], MD5Context* context) {
    static const uint8_t padding[64] = {0x80};
    uint8_t bits[8];
    StoreLittleEndian(bits, context->bitCount[0]);
    StoreLittleEndian(bits + 4, context->bitCount[1]);

    const size_t used = (context->bitCount[0] >> 3) & 63;
    MD5Update(context, padding, used < 56 ? 56 - used : 120 - used);
    MD5Update(context, bits, sizeof bits);
    for (int i = 0; i < 4; ++i)
        StoreLittleEndian(digest + 4 * i, context->state[i]);
    *context = {};
}
