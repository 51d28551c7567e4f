// Base64 with the standard alphabet of RFC 4648, without line breaks. The caller owns the buffers and gives them room
// enough: 4 characters for every started 3 bytes, 3 bytes for every started 4 characters. Neither writes a terminator.
#pragma once

#include <cstddef>
#include <cstdint>

// Number of characters written.
int Base64Encode(char* output, const uint8_t* input, size_t length);

// Number of bytes written. A character outside the alphabet ends its group, decoding goes on with the next four; blanks
// and line breaks are not skipped. A terminator inside a group counts as index 64 and is the last character read, so a
// text whose length is no multiple of four gives a last byte of no meaning ("TWE" gives 'M', 'a', 0x40).
int Base64Decode(uint8_t* output, const char* text);
