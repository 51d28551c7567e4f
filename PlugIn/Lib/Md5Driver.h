// MD5 digests of buffers, strings, files and standard input; of these this module calls MD5HexDigest only. A digest is
// 16 bytes in the caller's memory. For a file that cannot be opened, a message with its name goes to standard output
// and the digest stays unchanged.
#pragma once

#include <cstddef>
#include <cstdint>

class MD5Driver {
 public:
    virtual ~MD5Driver() = default;

    // Writes 32 upper-case hexadecimal digits and a terminator and returns 0. Returns -1 for a null output, a size
    // below 33 or null data. Length 0 is valid.
    static int MD5HexDigest(char* output, size_t outputSize, const void* data, size_t length);

    static void MDBuffer(uint8_t digest[16], const void* data, size_t length);
    static void MDString(uint8_t digest[16], const char* text);
    static void MDFile(uint8_t digest[16], const char* path);
    // Skips `skipLength` bytes of the file at each offset. Offsets increase and their regions do not overlap; one that
    // reaches past the end shortens the skip length for all. The digest stays unchanged when the skip length exceeds
    // the file's size.
    static void MDFileSkipping(uint8_t digest[16], const char* path, const long* offsets, int offsetCount,
                               long skipLength);
    // Reads standard input up to its end.
    static void MDFilter(uint8_t digest[16]);
    // Prints 32 lower-case hexadecimal digits on standard output.
    static void MDPrint(const uint8_t digest[16]);
#ifndef NDEBUG
    // Prints the time for 1000 blocks of 1000 bytes on standard output. Only in debug builds, since a run below one
    // second divides by zero.
    static void MDTimeTrial();
#endif
};
