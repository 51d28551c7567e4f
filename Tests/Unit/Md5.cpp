#include "Lib/Md5.h"

#include <cstring>
#include <gtest/gtest.h>
#include <io.h>

#include "Lib/FormatText.h"
#include "Lib/Md5Driver.h"
#include "TestFiles.h"

namespace {

// Bytes without a short period.
std::string SampleBytes(size_t count) {
    std::string bytes;
    uint32_t state = 12345;
    for (size_t i = 0; i < count; ++i) {
        state = state * 1664525 + 1013904223;
        bytes += static_cast<char>(state >> 24);
    }
    return bytes;
}

}  // namespace

TEST(Md5, ReturnsKnownDigests) {
    const std::pair<std::string, const char*> cases[] = {
        {"", "D41D8CD98F00B204E9800998ECF8427E"},
        // Lengths around the limit at which the padding needs another block.
        {std::string(55, 'a'), "EF1772B6DFF9A122358552954AD0DF65"},
        {std::string(56, 'a'), "3B0C8AC703F828B04C6C197006D17218"},
        {std::string(64, 'a'), "014842D480B571495A4A0363793F7367"},
        {std::string(1000000, 'a'), "7707D6AE4E027C70EEA2A935C2296F21"},
    };
    for (const auto& [text, digest] : cases) {
        char output[33] = "sentinel";
        EXPECT_EQ(MD5Driver::MD5HexDigest(output, sizeof output, text.data(), text.size()), 0);
        EXPECT_STREQ(output, digest);
    }
}

TEST(Md5, CarriesTheBitCountIntoTheHighWord) {
    MD5Context context;
    MD5Init(&context);
    context.bitCount[0] = 0xFFFFFE00;
    MD5Update(&context, std::string(64, 'x').data(), 64);
    EXPECT_EQ(context.bitCount[0], 0u);
    EXPECT_EQ(context.bitCount[1], 1u);
}

TEST(Md5, RejectsBadArguments) {
    char output[33] = "sentinel";
    EXPECT_EQ(MD5Driver::MD5HexDigest(nullptr, 33, "0", 1), -1);
    EXPECT_EQ(MD5Driver::MD5HexDigest(output, 32, "0", 1), -1);
    EXPECT_EQ(MD5Driver::MD5HexDigest(output, 33, nullptr, 0), -1);
    EXPECT_STREQ(output, "sentinel");
}

TEST(Md5, PrintsDigestsAndReadsStandardInput) {
    uint8_t digest[16];
    MD5Driver::MDString(digest, "abc");
    testing::internal::CaptureStdout();
    MD5Driver::MDPrint(digest);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "900150983cd24fb0d6963f7d28e17f72");

    const TestFolder folder;
    WriteWholeFile(folder.file("input"), "\x1A" + SampleBytes(999));
    const int savedInput = _dup(0);
    std::FILE* const input = std::freopen(folder.file("input").c_str(), "rb", stdin);
    ASSERT_NE(input, nullptr);
    MD5Driver::MDFilter(digest);
    _dup2(savedInput, 0);
    _close(savedInput);
    std::clearerr(stdin);
    EXPECT_EQ(HexText(digest, 16), "47E9EB8D620EDF998FED23E4C7C6F9C3");
}

TEST(Md5, ReportsAMissingFileAndKeepsTheDigest) {
    const std::string path = "no such folder\\file";
    uint8_t digest[16];
    std::memset(digest, 0xEE, sizeof digest);
    const long offset = 0;
    testing::internal::CaptureStdout();
    MD5Driver::MDFile(digest, path.c_str());
    MD5Driver::MDFileSkipping(digest, path.c_str(), &offset, 1, 1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), path + " can't be opened\n" + path + " can't be opened\n");
    EXPECT_EQ(HexText(digest, 16), std::string(32, 'E'));
}

TEST(Md5, IgnoresSkippedRegions) {
    const TestFolder folder;
    const std::string path = folder.file("data");
    // The bytes include 0x1A, which must not end the file.
    WriteWholeFile(path, SampleBytes(5000));
    const struct {
        std::vector<long> offsets;
        long skip;
        const char* digest;
    } cases[] = {
        {{}, 10, "37F68E137CEE183222AF703FD7D30A01"},
        {{100}, -5, "37F68E137CEE183222AF703FD7D30A01"},
        {{0}, 5000, "D41D8CD98F00B204E9800998ECF8427E"},
        {{1023, 2048}, 25, "2645E7C2D3564EE61C8243B023829A7D"},
        {{0, 1024}, 1024, "AEBB24FB74A54BF091E42BFC7CE6FB9D"},
        {{10, 20, 30}, 10, "8EC99E7A15F5B41EAE56A814BD8AE1FD"},
        {{100, 4999}, 7, "DB1E1F4117E385901668FABE08059F51"},
        {{-50, 2000}, 300, "4EA51B40E4F60A34B05DE814B1918379"},
        {{4500, 9000}, 7, "37F68E137CEE183222AF703FD7D30A01"},
        {{3, 1100, 3000}, 1000, "02720EEE37F93F672FA0D45A8D46A8EE"},
        {{0}, 5001, "EEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEE"},
    };
    uint8_t digest[16];
    for (const auto& one : cases) {
        std::memset(digest, 0xEE, sizeof digest);
        MD5Driver::MDFileSkipping(digest, path.c_str(), one.offsets.data(), static_cast<int>(one.offsets.size()),
                                  one.skip);
        EXPECT_EQ(HexText(digest, 16), one.digest) << "skip " << one.skip << " at " << one.offsets.size();
    }
    MD5Driver::MDFile(digest, path.c_str());
    EXPECT_EQ(HexText(digest, 16), "37F68E137CEE183222AF703FD7D30A01");
    // A file over 2 GiB, more than a long can count: five zero bytes remain.
    const long offset = 0;
    std::filesystem::resize_file(path, 0);
    std::filesystem::resize_file(path, 0x80000004);
    MD5Driver::MDFileSkipping(digest, path.c_str(), &offset, 1, 0x7FFFFFFF);
    EXPECT_EQ(HexText(digest, 16), "CA9C491AC66B2C62500882E93F3719A8");
}
