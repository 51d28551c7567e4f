#include "Util/Clipboard.h"

#include <cstring>

#include "ClipboardFixture.h"
#include "ImportPatch.h"
#include "Lib/FormatText.h"
#include "Util/ClipboardBlock.h"
#include "Util/GlobalMemory.h"

namespace {

constexpr char kFormat[] = "SorvikUnitTest";

std::string Composed(const std::string& text, const std::string& data, int32_t size) {
    std::string block(ClipboardBlockSize(text, size), '\0');
    ComposeClipboardBlock(block.data(), text, data.data(), size);
    return block;
}

BOOL WINAPI Refuse() {
    return FALSE;
}
BOOL WINAPI RefuseWindow(HWND) {
    return FALSE;
}

struct Pasted {
    std::string text;
    int32_t dataSize;
    std::string data;  // "null" without data
};
Pasted Paste(HWND owner, int textSize = 40) {
    char text[64];
    std::memset(text, '#', sizeof text);
    int32_t dataSize = 0x5A5A;
    const GwMemory data(gwclip_paste(owner, kFormat, text, textSize, &dataSize));
    EXPECT_EQ(text[textSize], '#');
    return {text, dataSize,
            data ? std::string(static_cast<const char*>(data.get()), static_cast<size_t>(dataSize)) : "null"};
}

}  // namespace

TEST_F(ClipboardTest, BlockBytes) {
    const struct {
        std::string text;
        std::string data;
        int32_t size;
        const char* bytes;
    } cases[] = {
        {"AB", "xyz", 3,
         "0200"
         "4142"
         "03000000"
         "78797A"},
        {"", std::string("\0\1", 2), 2,
         "0000"
         "02000000"
         "0001"},
        {"A", "", 0,
         "0100"
         "41"
         "00000000"},
        {"A", "", -2,
         "0100"
         "41"
         "FEFFFFFF"},
    };
    for (const auto& c : cases) {
        const std::string block = Composed(c.text, c.data, c.size);
        EXPECT_EQ(HexText(block.data(), block.size()), c.bytes);
    }
    EXPECT_EQ(Composed("", "0123456789", 10).size(), 16u);
    char zeros[10] = "";
    ComposeClipboardBlock(zeros, "", nullptr, 4);
    EXPECT_EQ(HexText(zeros, sizeof zeros), "00000400000000000000") << "null data of 4 bytes";
    const std::string wrapped = Composed(std::string(0x8000, 't'), "d", 1);
    EXPECT_EQ(wrapped.size(), 0x8000u + 7);
    EXPECT_EQ(HexText(wrapped.data(), 8),
              "0080"
              "01000000"
              "64"
              "00")
        << "the length has become negative: no text";
    const std::string longest = Composed(std::string(0x7FFF, 't'), "d", 1);
    EXPECT_EQ(ParseClipboardBlock(longest.data(), longest.size()).text.size(), 0x7FFFu);
}

TEST_F(ClipboardTest, BlocksAreNeverReadBeyondTheirEnd) {
    const std::string block = Composed("text", "data", 4);
    for (size_t size = 0; size < block.size(); ++size) {
        // Of its exact size, so that a checker of heap accesses sees a read beyond it.
        const std::string cut = block.substr(0, size);
        const ClipboardBlockView view = ParseClipboardBlock(cut.data(), cut.size());
        EXPECT_TRUE(view.text.empty() && view.dataSize == 0 && !view.data) << size;
    }
    const ClipboardBlockView whole = ParseClipboardBlock(block.data(), block.size());
    EXPECT_EQ(whole.text, "text");
    EXPECT_EQ(std::string(whole.data, static_cast<size_t>(whole.dataSize)), "data");
}

TEST_F(ClipboardTest, AnotherProcessReadsTheBlock) {
    EXPECT_EQ(gwclip_has_data(kFormat), 0);
    ASSERT_EQ(gwclip_copy(owner(), kFormat, "AB", "xyz", 3, true), 0);
    EXPECT_EQ(gwclip_has_data(kFormat), 1);
    EXPECT_EQ(gwclip_has_data("SorvikOther"), 0);
    EXPECT_EQ(ReadByPeer(kFormat, 11),
              "0200"
              "4142"
              "03000000"
              "78797A");
    ASSERT_EQ(gwclip_copy(owner(), "SorvikOther", "", "0123456789", 10, false), 0);
    EXPECT_EQ(gwclip_has_data(kFormat), 1) << "not emptied";
    ASSERT_EQ(gwclip_copy(owner(), "SorvikOther", nullptr, nullptr, 0, true), 0);
    EXPECT_EQ(gwclip_has_data(kFormat), 0);
    EXPECT_EQ(ReadByPeer("SorvikOther", 6), "000000000000");
}

TEST_F(ClipboardTest, PasteCutsTheTextToItsBuffer) {
    ASSERT_EQ(gwclip_copy(owner(), kFormat, "silencer", "0123456789", 10, true), 0);
    for (const auto& [size, text] : {std::pair{40, "silencer"}, {9, "silencer"}, {8, "silence"}, {1, ""}}) {
        const Pasted pasted = Paste(owner(), size);
        EXPECT_EQ(pasted.text, text);
        EXPECT_EQ(pasted.dataSize, 10);
        EXPECT_EQ(pasted.data, "0123456789");
    }
    const GwMemory data(gwclip_paste(owner(), kFormat, nullptr, 0, nullptr));
    EXPECT_TRUE(data);
}

TEST_F(ClipboardTest, BlocksOfAnotherProcess) {
    const struct {
        const char* hex;
        Pasted pasted;
    } cases[] = {
        {"0200"
         "4142"
         "03000000"
         "78797A",
         {"AB", 3, "xyz"}},
        {"0100"
         "41"
         "00000000",
         {"A", 0, "null"}},
        {"FFFF"
         "02000000"
         "6162",
         {"", 2, "ab"}},
        {"0100"
         "41"
         "FEFFFFFF",
         {"A", -2, "null"}},
        {"0002"
         "4142"
         "03000000"
         "78797A",
         {"", 0, "null"}},
        {"0200"
         "4142"
         "FFFFFF7F"
         "78797A",
         {"", 0, "null"}},
        {"0000000000", {"", 0, "null"}},
    };
    for (const auto& c : cases) {
        WriteByPeer(kFormat, c.hex);
        const Pasted pasted = Paste(owner());
        EXPECT_EQ(pasted.text, c.pasted.text) << c.hex;
        EXPECT_EQ(pasted.dataSize, c.pasted.dataSize) << c.hex;
        EXPECT_EQ(pasted.data, c.pasted.data) << c.hex;
    }
    Empty();
    EXPECT_EQ(Paste(owner()).data, "null");
    EXPECT_TRUE(OpenClipboard(nullptr)) << "paste has closed it on every way out";
    CloseClipboard();
}

TEST_F(ClipboardTest, CopyTellsWhatFailed) {
    EXPECT_EQ(gwclip_copy(owner(), "", "t", "d", 1, true), -1);
    EXPECT_EQ(gwclip_copy(owner(), nullptr, "t", "d", 1, true), -1);
    {
        const ImportPatch patch("OpenClipboard", RefuseWindow);
        EXPECT_EQ(gwclip_copy(owner(), kFormat, "t", "d", 1, true), -3);
    }
    {
        const ImportPatch patch("EmptyClipboard", Refuse);
        EXPECT_EQ(gwclip_copy(owner(), kFormat, "t", "d", 1, true), -3);
        EXPECT_EQ(gwclip_copy(owner(), kFormat, "t", "d", 1, false), 0) << "and the clipboard was closed before";
    }
}
