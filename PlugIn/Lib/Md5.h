// MD5 message digest of RFC 1321: initialise a context, add data in pieces of any length, and take the digest. Data may
// be null only with length 0. Nothing here fails.
#pragma once

#include <cstddef>
#include <cstdint>

struct MD5Context {
    uint32_t state[4];
    uint32_t bitCount[2];  // low word first
    uint8_t buffer[64];
};

void MD5Init(MD5Context* context);
void MD5Update(MD5Context* context, const void* data, size_t length);
// Writes the digest and clears the context.
void MD5Final(uint8_t digest[16], MD5Context* context);
