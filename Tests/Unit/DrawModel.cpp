#include "Util/DrawModel.h"

#include <algorithm>
#include <cstring>

#include "DiagnosticsFixture.h"

namespace {

using DrawModelTest = DiagnosticsTest;

// A parameter buffer filled with a sentinel, which must not change beyond the size that a case passes.
struct Buffer {
    explicit Buffer(const std::string& text) {
        std::memset(bytes, '#', sizeof bytes);
        std::memcpy(bytes, text.c_str(), text.size() + 1);
    }
    char bytes[2100];
};

std::string Set(const std::string& text, const char* name, const char* value, int size = 1024) {
    Buffer buffer(text);
    EXPECT_EQ(SetKModelParam(buffer.bytes, size, name, value), 0);
    const size_t end = std::max(static_cast<size_t>(size), text.size() + 1);
    EXPECT_EQ(std::string(buffer.bytes + end, 2100 - end), std::string(2100 - end, '#'));
    return std::string(buffer.bytes, strnlen(buffer.bytes, static_cast<size_t>(size)));
}

}  // namespace

TEST_F(DrawModelTest, ReplacesParametersInPlaceOrAppendsThem) {
    const struct {
        const char *before, *name, *value, *after;
    } cases[] = {
        {"L=900;H=300;", "H", "350", "L=900;H=350;"},
        {"L=900", "W", "10", "L=900;W=10;"},
        {"", "X", "1", "X=1;"},
        {"L=1;L=2;", "L", "3", "L=3;L=3;"},
        {"L=1;H=2", "L", "", "L=;H=2;"},
        {"LL=1;l=2;L=3", "L", "9", "LL=1;l=2;L=9;"},
        {"A=b=c;H=2;", "H", "d=e", "A=b=c;H=d=e;"},
        {"A;H=2;", "X", "1", "A=;H=2;X=1;"},
        {"A;H=2;", "A", "1", "A=1;H=2;"},
        {";;A=1;;B=2;;", "B", "3", "A=1;B=3;"},
        {"=5;A=1;", "A", "2", "=5;A=2;"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Set(c.before, c.name, c.value), c.after) << c.before << " " << c.name;
}

TEST_F(DrawModelTest, TruncatesLongPairsAndTexts) {
    const std::string pair127 = "L=" + std::string(125, '1');
    EXPECT_EQ(Set(pair127 + ";H=2;", "H", "3"), pair127 + ";H=3;");
    EXPECT_EQ(Set(pair127 + "1;H=2;", "H", "3"), pair127 + ";H=3;") << "the rest of the pair is skipped";
    const std::string nameOnly(200, 'n');
    EXPECT_EQ(Set(nameOnly + "=7;", "H", "3"), std::string(127, 'n') + "=;H=3;");

    std::string full;
    while (full.size() < 1000)
        full += "abcd=1234;";
    EXPECT_EQ(Set(full, "X", std::string(21, 'v').c_str()), full + "X=" + std::string(21, 'v') + ";")
        << "1024 characters fit";
    EXPECT_EQ(Set(full, "X", std::string(22, 'v').c_str()), full + "X=" + std::string(22, 'v'));
    EXPECT_EQ(Set(full, "X", std::string(500, 'v').c_str()), full + "X=" + std::string(22, 'v'));
}

TEST_F(DrawModelTest, ReadsAndWritesOnlyWithinTheBuffer) {
    EXPECT_EQ(Set("L=1;", "H", "2", 9), "L=1;H=2;");
    EXPECT_EQ(Set("L=1;", "H", "2", 8), "L=1;H=2;") << "no space for a terminator";
    EXPECT_EQ(Set("L=1;", "H", "2", 6), "L=1;H=");
    EXPECT_EQ(Set("", "H", "2", 0), "");
    // Without a terminator within its size, as an earlier call may leave it: nothing beyond the size is read.
    EXPECT_EQ(Set("L=1;H=2;X=7;", "L", "", 8), "L=;H=2;");
}

TEST_F(DrawModelTest, ReportsImpossibleBufferSizes) {
    g_diagSettings->errorBits = RF_LOG | RF_FUNCTION | RF_FILELINE;
    for (const int size : {-1, 1025}) {
        Buffer buffer("L=1;");
        EXPECT_EQ(SetKModelParam(buffer.bytes, size, "L", "2"), -1);
        EXPECT_STREQ(buffer.bytes, "L=1;");
    }
    const std::string line =
        "Error  -  SetKModelParam(...)  -  \"(sizeof(_new_params)<_params_len) params len is too long.\""
        "  -  PlugIn/Util/DrawModel#509\n";
    EXPECT_EQ(LogLines(), line + line);
}

TEST_F(DrawModelTest, RemovesTheFirstMatchOfTheName) {
    const struct {
        const char *before, *name;
        int result;
        const char* after;
    } cases[] = {
        {"L=900;H=300", "H", 0, "L=900;"},
        {"L=900;H=300;", "L", 0, "H=300;"},
        {"L=900;", "L", 0, ""},
        {"BA=1;A=2;", "A", 0, "BA=2;"},
        {"L=1;L=2;", "L", 0, "L=2;"},
        {"L=900;", "l", -1, "L=900;"},
        {"L;H=1;", "L", -1, "L;H=1;"},
        {"", "L", -1, ""},
    };
    for (const auto& c : cases) {
        Buffer buffer(c.before);
        EXPECT_EQ(RemoveKModelParam(buffer.bytes, c.name), c.result) << c.before;
        EXPECT_STREQ(buffer.bytes, c.after) << c.before << " without " << c.name;
        EXPECT_EQ(buffer.bytes[std::strlen(c.before) + 1], '#');
    }
}
