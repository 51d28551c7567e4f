#include "Lib/Md5Driver.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <string>
#include <vector>

#include "Lib/FormatText.h"
#include "Lib/Handles.h"
#include "Lib/Md5.h"

namespace {

constexpr size_t kReadSize = 1024;

StdioFile OpenForDigest(const char* path) {
    if (!path) path = "";
    StdioFile file(std::fopen(path, "rb"));
    if (!file) std::printf("%s can't be opened\n", path);
    return file;
}

void DigestStream(uint8_t digest[16], std::FILE* file, size_t readSize) {
    MD5Context context;
    MD5Init(&context);
    uint8_t buffer[kReadSize];
    while (const size_t length = std::fread(buffer, 1, readSize, file))
        MD5Update(&context, buffer, length);
    MD5Final(digest, &context);
}

// The standard functions return a long, which ends at 2 GiB.
int64_t SizeOf(std::FILE* file) {
    _fseeki64(file, 0, SEEK_END);
    const int64_t size = _ftelli64(file);
    _fseeki64(file, 0, SEEK_SET);
    return size;
}

// Returns the offsets clamped to the file, and shortens the skip length to what fits behind the last of them.
std::vector<int64_t> ClampRegions(const long* offsets, int offsetCount, int64_t size, int64_t& skipLength) {
    std::vector<int64_t> clamped;
    if (offsets && offsetCount > 0) clamped.assign(offsets, offsets + offsetCount);
    for (int64_t& offset : clamped) {
        offset = std::clamp<int64_t>(offset, 0, size);
        skipLength = std::min(skipLength, size - offset);
    }
    return clamped;
}

void DigestAround(uint8_t digest[16], std::FILE* file, const std::vector<int64_t>& offsets, int64_t skipLength) {
    MD5Context context;
    MD5Init(&context);
    uint8_t buffer[kReadSize];
    size_t next = 0;
    int64_t position = 0;
    for (;;) {
        size_t wanted = kReadSize;
        const bool meetsRegion = next < offsets.size() && offsets[next] - position <= int64_t{kReadSize};
        // A region that begins before the position overlaps its predecessor; the rest of it is skipped from here.
        if (meetsRegion) wanted = static_cast<size_t>(std::max<int64_t>(offsets[next] - position, 0));
        const size_t length = std::fread(buffer, 1, wanted, file);
        MD5Update(&context, buffer, length);
        position += static_cast<int64_t>(length);
        if (length < wanted) break;
        if (meetsRegion) {
            _fseeki64(file, skipLength, SEEK_CUR);
            position += skipLength;
            ++next;
        }
    }
    MD5Final(digest, &context);
}

}  // namespace

int MD5Driver::MD5HexDigest(char* output, size_t outputSize, const void* data, size_t length) {
    if (!output || outputSize < 33 || !data) return -1;
    output[0] = '\0';
    uint8_t digest[16];
    MDBuffer(digest, data, length);
    const std::string text = HexText(digest, sizeof digest);
    std::memcpy(output, text.c_str(), text.size() + 1);
    return 0;
}

void MD5Driver::MDBuffer(uint8_t digest[16], const void* data, size_t length) {
    MD5Context context;
    MD5Init(&context);
    MD5Update(&context, data, length);
    MD5Final(digest, &context);
}

void MD5Driver::MDString(uint8_t digest[16], const char* text) {
    MDBuffer(digest, text, text ? std::strlen(text) : 0);
}

void MD5Driver::MDFile(uint8_t digest[16], const char* path) {
    if (const StdioFile file = OpenForDigest(path)) DigestStream(digest, file.get(), kReadSize);
}

void MD5Driver::MDFileSkipping(uint8_t digest[16], const char* path, const long* offsets, int offsetCount,
                               long skipLength) {
    const StdioFile file = OpenForDigest(path);
    if (!file) return;
    const int64_t size = SizeOf(file.get());
    if (skipLength > size) return;
    if (skipLength <= 0) {
        DigestStream(digest, file.get(), kReadSize);
        return;
    }
    int64_t skipped = skipLength;
    const std::vector<int64_t> regions = ClampRegions(offsets, offsetCount, size, skipped);
    DigestAround(digest, file.get(), regions, skipped);
}

void MD5Driver::MDFilter(uint8_t digest[16]) {
    DigestStream(digest, stdin, 16);
}

// Lower case here, upper case in MD5HexDigest: callers depend on both.
void MD5Driver::MDPrint(const uint8_t digest[16]) {
    for (int i = 0; i < 16; ++i)
        std::printf("%02x", digest[i]);
}

#ifndef NDEBUG
void MD5Driver::MDTimeTrial() {
    constexpr int kBlockSize = 1000;
    constexpr int kBlockCount = 1000;
    std::printf("MD5 time trial. Digesting %d %d-byte blocks ...", kBlockCount, kBlockSize);
    uint8_t block[kBlockSize];
    for (int i = 0; i < kBlockSize; ++i)
        block[i] = static_cast<uint8_t>(i & 0xFF);

    MD5Context context;
    uint8_t digest[16];
    const long long start = _time64(nullptr);
    MD5Init(&context);
    for (int i = 0; i < kBlockCount; ++i)
        MD5Update(&context, block, kBlockSize);
    MD5Final(digest, &context);
    const long seconds = static_cast<long>(_time64(nullptr) - start);

    std::printf(" done\nDigest = ");
    MDPrint(digest);
    std::printf("\nTime = %ld seconds\n", seconds);
    std::printf("Speed = %ld bytes/second\n", static_cast<long>(kBlockSize) * kBlockCount / seconds);
}
#endif
