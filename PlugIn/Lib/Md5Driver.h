// Operations over MD5: digests of buffers, texts, files and standard input. A digest is 16 bytes, owned by the caller;
// a file that cannot be opened is named on standard output and leaves the digest untouched.
#pragma once

#include <cstddef>
#include <cstdint>

class MD5Driver {
 public:
    virtual ~MD5Driver() = default;

    // 32 upper-case hexadecimal digits and a terminator into `output`, and 0; -1 for a null output, a size below 33 or
    // null data. Length 0 is valid.
    static int MD5HexDigest(char* output, size_t outputSize, const void* data, size_t length);

    static void MDBuffer(uint8_t digest[16], const void* data, size_t length);
    static void MDString(uint8_t digest[16], const char* text);
    static void MDFile(uint8_t digest[16], const char* path);
    // Digest of the file with `skipLength` bytes left out at each offset. Offsets increase and their regions do not
    // overlap; one that reaches past the end shortens the skip length for all. The digest is left untouched when the
    // skip length exceeds the file's size.
    static void MDFileSkipping(uint8_t digest[16], const char* path, const long* offsets, int offsetCount,
                               long skipLength);
    // Standard input up to its end.
    static void MDFilter(uint8_t digest[16]);
    // 32 lower-case hexadecimal digits on standard output.
    static void MDPrint(const uint8_t digest[16]);
#ifndef NDEBUG
    // Time of 1000 blocks of 1000 bytes, printed on standard output; debug builds only, since a run below one second
    // divides by zero.
    static void MDTimeTrial();
#endif
};
