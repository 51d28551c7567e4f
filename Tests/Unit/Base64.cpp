#include "Lib/Base64.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>

#include "Lib/FormatText.h"

namespace {

std::string Encode(const std::string& data) {
    std::string output((data.size() + 2) / 3 * 4 + 1, '#');
    const std::string input = data + '\xFF';  // reading past the end changes the result
    const int length = Base64Encode(output.data(), reinterpret_cast<const uint8_t*>(input.data()), data.size());
    EXPECT_EQ(static_cast<size_t>(length), output.size() - 1);
    EXPECT_EQ(output.back(), '#');
    output.pop_back();
    return output;
}

std::string Decode(const std::string& text) {
    std::string output((text.size() + 3) / 4 * 3 + 1, '#');
    const int length = Base64Decode(reinterpret_cast<uint8_t*>(output.data()), text.c_str());
    EXPECT_EQ(output.back(), '#');
    return output.substr(0, static_cast<size_t>(length));
}

}  // namespace

TEST(Base64, ConvertsTextsOfEachLengthBothWays) {
    const std::pair<std::string, std::string> cases[] = {
        {"", ""}, {"foob", "Zm9vYg=="}, {"fooba", "Zm9vYmE="}, {"foobar", "Zm9vYmFy"}, {std::string(1, '\0'), "AA=="}};
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(Encode(bytes), text);
        EXPECT_EQ(Decode(text), bytes);
    }
}

TEST(Base64, ConvertsTheWholeAlphabet) {
    const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    const std::string bytes = Decode(alphabet);
    EXPECT_EQ(HexText(bytes.data(), bytes.size()),
              "00108310518720928B30D38F41149351559761969B71D79F8218A39259A7A29AABB2DBAFC31CB3D35DB7E39EBBF3DFBF");
    EXPECT_EQ(Encode(bytes), alphabet);
}

TEST(Base64, DecodesMalformedInput) {
    const std::pair<const char*, std::string> cases[] = {
        {"=WE=TWE=", "Ma"},   // a group that begins with a pad has no bytes
        {"T W=TWE=", "Ma"},   // a byte needs two valid characters
        {"TW-=TWE=", "MMa"},  // bytes before the invalid character stay
        {"TWE-Zm9v", "Mafoo"},
        {"TQ==Zm9v", "Mfoo"},             // a pad does not end the text
        {"TQ=A", std::string("M\0", 2)},  // the fourth character counts even after a pad
        // The terminator counts as index 64. Nothing after it is read.
        {"T", std::string("\x4C", 1)},
        {"TQ", std::string("M\x10", 2)},
        {"TWE", std::string("Ma\x40", 3)},
        {"Zm9v=", "foo"},
        {"Zm9v-", "foo"},
    };
    for (const auto& [text, bytes] : cases) {
        // Valid text follows the terminator, so that reading past it changes the result.
        EXPECT_EQ(Decode(std::string(text) + '\0' + "TWFu"), bytes) << text;
    }
}

TEST(Base64, WarnsOfOrphanedBits) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(Decode("T===Zm9v"), "foo");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Warning: orphaned bits ignored.\n");
    testing::internal::CaptureStderr();
    EXPECT_EQ(Decode("===="), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}
