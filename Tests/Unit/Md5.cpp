#include "Lib/Md5.h"

#include <gtest/gtest.h>
#include <io.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "Lib/FormatText.h"
#include "Lib/Md5Driver.h"
#include "TestFiles.h"

namespace {

std::string DigestOf(const std::string& data) {
    uint8_t digest[16];
    MD5Driver::MDBuffer(digest, data.data(), data.size());
    return HexText(digest, sizeof digest);
}

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

TEST(Md5, KnownDigests) {
    const struct {
        std::string text;
        const char* digest;
    } cases[] = {
        {"", "D41D8CD98F00B204E9800998ECF8427E"},
        {"0", "CFCD208495D565EF66E7DFF9F98764DA"},
        {"a", "0CC175B9C0F1B6A831C399E269772661"},
        {"abc", "900150983CD24FB0D6963F7D28E17F72"},
        {"message digest", "F96B697D7CB7938D525A2F31AAF161D0"},
        {"abcdefghijklmnopqrstuvwxyz", "C3FCD3D76192E4007DFB496CCA67E13B"},
        {"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789", "D174AB98D277D9F5A5611C2C9F419D9F"},
        {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
         "57EDF4A22BE3C955AC49DA2E2107B67A"},
        // Lengths at which the padding needs no block, or one more.
        {std::string(55, 'a'), "EF1772B6DFF9A122358552954AD0DF65"},
        {std::string(56, 'a'), "3B0C8AC703F828B04C6C197006D17218"},
        {std::string(57, 'a'), "652B906D60AF96844EBD21B674F35E93"},
        {std::string(63, 'a'), "B06521F39153D618550606BE297466D5"},
        {std::string(64, 'a'), "014842D480B571495A4A0363793F7367"},
        {std::string(65, 'a'), "C743A45E0D2E6A95CB859ADAE0248435"},
        {std::string(119, 'a'), "8A7BD0732ED6A28CE75F6DABC90E1613"},
        {std::string(120, 'a'), "5F61C0CCAD4CAC44C75FF505E1F1E537"},
        {std::string(1000000, 'a'), "7707D6AE4E027C70EEA2A935C2296F21"},
    };
    for (const auto& one : cases) {
        char output[33] = "poison";
        EXPECT_EQ(MD5Driver::MD5HexDigest(output, sizeof output, one.text.data(), one.text.size()), 0);
        EXPECT_STREQ(output, one.digest);
    }
}

TEST(Md5, PiecesGiveTheDigestOfTheWhole) {
    for (const size_t length : {1u, 55u, 56u, 57u, 63u, 64u, 65u, 119u, 120u, 128u, 1000u}) {
        const std::string data = SampleBytes(length);
        for (const size_t piece : {1u, 7u, 63u, 64u, 65u}) {
            MD5Context context;
            MD5Init(&context);
            for (size_t at = 0; at < length; at += piece) {
                MD5Update(&context, data.data() + at, std::min(piece, length - at));
            }
            uint8_t digest[16];
            MD5Final(digest, &context);
            EXPECT_EQ(HexText(digest, 16), DigestOf(data)) << length << " by " << piece;
        }
    }
}

TEST(Md5, BitCountCarriesIntoItsHighWord) {
    MD5Context context;
    MD5Init(&context);
    context.bitCount[0] = 0xFFFFFE00;
    MD5Update(&context, std::string(64, 'x').data(), 64);
    EXPECT_EQ(context.bitCount[0], 0u);
    EXPECT_EQ(context.bitCount[1], 1u);
}

TEST(Md5, HexDigestRefusesBadArguments) {
    char output[33];
    std::memset(output, 'p', sizeof output);
    EXPECT_EQ(MD5Driver::MD5HexDigest(nullptr, 33, "0", 1), -1);
    EXPECT_EQ(MD5Driver::MD5HexDigest(output, 32, "0", 1), -1);
    EXPECT_EQ(MD5Driver::MD5HexDigest(output, 33, nullptr, 0), -1);
    EXPECT_EQ(std::string(output, 33), std::string(33, 'p'));
}

TEST(Md5, DriversPrintAndReadStreams) {
    uint8_t digest[16];
    MD5Driver::MDString(digest, "abc");
    testing::internal::CaptureStdout();
    MD5Driver::MDPrint(digest);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "900150983cd24fb0d6963f7d28e17f72");

    const TestFolder folder;
    WriteWholeFile(folder.file("input"), std::string(1000, 'a'));
    const int savedInput = _dup(0);
    std::FILE* const input = std::freopen(folder.file("input").c_str(), "rb", stdin);
    ASSERT_NE(input, nullptr);
    MD5Driver::MDFilter(digest);
    _dup2(savedInput, 0);
    _close(savedInput);
    std::clearerr(stdin);
    EXPECT_EQ(HexText(digest, 16), DigestOf(std::string(1000, 'a')));
}

TEST(Md5, MissingFileIsNamedAndLeavesTheDigest) {
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

TEST(Md5, SkippedRegionsAreLeftOut) {
    const TestFolder folder;
    const std::string path = folder.file("data");
    const std::string data = SampleBytes(5000);
    WriteWholeFile(path, data);
    const struct {
        std::vector<long> offsets;
        long skip;
    } cases[] = {
        {{}, 10},         {{0}, 0},           {{100}, -5},        {{0}, 1},           {{0}, 5000},
        {{1024}, 1},      {{1023, 2048}, 25}, {{0, 1024}, 1024},  {{10, 20, 30}, 10}, {{4990}, 100},
        {{100, 4999}, 7}, {{5000}, 3},        {{-50, 2000}, 300}, {{9000}, 2},        {{3, 1100, 3000}, 1000},
    };
    for (const auto& one : cases) {
        long skip = std::max(one.skip, 0L);
        std::vector<bool> left(data.size(), true);
        std::vector<long> offsets;
        for (const long offset : one.offsets) {
            offsets.push_back(std::clamp(offset, 0L, 5000L));
            skip = std::min(skip, 5000 - offsets.back());
        }
        for (const long offset : offsets)
            std::fill_n(left.begin() + offset, skip, false);
        std::string kept;
        for (size_t i = 0; i < data.size(); ++i) {
            if (left[i]) kept += data[i];
        }
        uint8_t digest[16];
        MD5Driver::MDFileSkipping(digest, path.c_str(), one.offsets.data(), static_cast<int>(one.offsets.size()),
                                  one.skip);
        EXPECT_EQ(HexText(digest, 16), DigestOf(kept)) << "skip " << one.skip << " at " << one.offsets.size();
    }
    uint8_t digest[16];
    std::memset(digest, 0xEE, sizeof digest);
    const long offset = 0;
    MD5Driver::MDFileSkipping(digest, path.c_str(), &offset, 1, 5001);
    EXPECT_EQ(HexText(digest, 16), std::string(32, 'E'));
}
