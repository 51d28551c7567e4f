// Required library; nothing in this module calls it.
// Base64 with the standard alphabet of RFC 4648, without line breaks. The caller's buffer must hold 4 characters for
// every started 3 bytes, or 3 bytes for every started 4 characters. Neither function writes a terminator.
#pragma once

#include <cstddef>
#include <cstdint>

// Returns the number of characters written.
int Base64Encode(char* output, const uint8_t* input, size_t length);

// Returns the number of bytes written. A character outside the alphabet ends its group, and decoding continues with the
// next four characters; blanks and line breaks are not skipped. A terminator inside a group counts as index 64 and ends
// decoding, so a text whose length is not a multiple of four ends in a meaningless byte ("TWE": 'M', 'a', 0x40).
int Base64Decode(uint8_t* output, const char* text);
