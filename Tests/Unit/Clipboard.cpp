#include "Util/Clipboard.h"

#include "DiagnosticsFixture.h"
#include "Lib/FormatText.h"
#include "RecordedCalls.h"
#include "Util/ClipboardBlock.h"
#include "Util/ExportedMemory.h"

namespace {

constexpr char kFormat[] = "SorvikUnitTest";
constexpr char kOther[] = "SorvikUnitTestOther";

std::string Composed(const std::string& text, const char* data, int32_t size) {
    std::string block(ClipboardBlockSize(text, size), '\0');
    ComposeClipboardBlock(block.data(), text, data, size);
    return block;
}

// The first bytes on the clipboard in hexadecimal, read with plain Windows calls.
std::string OnTheClipboard(const char* format, size_t count) {
    EXPECT_TRUE(OpenClipboard(nullptr)) << "gwclip_copy left the clipboard open";
    const HGLOBAL block = GetClipboardData(RegisterClipboardFormatA(format));
    const std::string hex = block ? HexText(GlobalLock(block), count) : "none";
    GlobalUnlock(block);
    CloseClipboard();
    return hex;
}

// "text|size|data", as gwclip_paste returns them.
std::string Paste(int32_t textSize = 40) {
    char text[64];
    std::memset(text, '#', sizeof text);
    int32_t size = 0x5A5A;
    const GwMemory data(gwclip_paste(nullptr, kFormat, text, textSize, &size));
    EXPECT_EQ(text[textSize], '#');
    return text + ("|" + std::to_string(size)) +
           (data ? "|" + std::string(static_cast<const char*>(data.get()), static_cast<size_t>(size)) : "");
}

using ClipboardFailures = DiagnosticsTest;

}  // namespace

TEST(Clipboard, WritesTheBytesOfABlock) {
    EXPECT_EQ(Composed("A", nullptr, 0), std::string("\1\0A\0\0\0\0", 7));
    EXPECT_EQ(Composed("A", nullptr, -2), std::string("\1\0A\xFE\xFF\xFF\xFF", 7));
    EXPECT_EQ(Composed("", nullptr, 1), std::string("\0\0\1\0\0\0\0", 7)) << "null data is zeros";
    const std::string wrapped = Composed(std::string(0x8000, 't'), "d", 1);
    EXPECT_EQ(wrapped.size(), 0x8000u + 7);
    EXPECT_EQ(wrapped.substr(0, 8), std::string("\0\x80\1\0\0\0d\0", 8)) << "a negative length: no text";
}

TEST(Clipboard, ReadsForeignBlocksAsFarAsTheyAreValid) {
    const std::pair<std::string, const char*> cases[] = {
        {std::string("\2\0AB\3\0\0\0xyz", 11), "AB|3|xyz"},
        {std::string("\1\0A\0\0\0\0", 7), "A|0"},
        {std::string("\0\0\1\0\0\0x", 7), "|1|x"},
        {std::string("\xFF\xFF\2\0\0\0ab", 8), "|2|ab"},
        {std::string("\1\0A\xFE\xFF\xFF\xFF", 7), "A|-2"},
        {std::string("\0\2AB\3\0\0\0xyz", 11), "|0"},
        {std::string("\2\0AB\xFF\xFF\xFF\x7Fxyz", 11), "|0"},
        {std::string("\2\0A\0\0\0\0", 7), "|0"},
        {std::string("\1\0A\2\0\0\0x", 8), "|0"},
        {"short", "|0"},
    };
    for (const auto& [bytes, pasted] : cases) {
        HGLOBAL handle = nullptr;
        std::memcpy(gwGmallocH(static_cast<uint32_t>(bytes.size()), &handle), bytes.data(), bytes.size());
        GlobalUnlock(handle);
        const GlobalMemory block(handle);
        RecordedCalls calls;
        calls.Return("IsClipboardFormatAvailable", IsClipboardFormatAvailable, TRUE);
        calls.Return("OpenClipboard", OpenClipboard, FALSE, 1);
        calls.Return("GetClipboardData", GetClipboardData, block.get());
        calls.Record("GlobalUnlock", GlobalUnlock);
        calls.Record("CloseClipboard", CloseClipboard);
        EXPECT_EQ(Paste(), pasted);
        const std::string text = calls.Take();
        EXPECT_EQ(text.substr(text.find("GlobalUnlock")), "GlobalUnlock GetClipboardData\nCloseClipboard\n");
        EXPECT_EQ(Paste(), "|0");
        EXPECT_EQ(calls.Take().find("CloseClipboard"), std::string::npos) << "closed without being open";
    }
}

TEST(Clipboard, PastesWhatWasCopied) {
    const HWND owner = CreateWindowExA(0, "Static", "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    ASSERT_EQ(gwclip_copy(owner, kOther, nullptr, nullptr, 0, true), 0);
    EXPECT_EQ(gwclip_has_data(kFormat), 0);
    EXPECT_EQ(Paste(), "|0");
    ASSERT_EQ(gwclip_copy(owner, kFormat, "silencer", "0123456789", 10, false), 0);
    EXPECT_EQ(gwclip_has_data(kFormat), 1);
    EXPECT_EQ(OnTheClipboard(kOther, 6), "000000000000") << "the second copy emptied the clipboard";
    EXPECT_EQ(OnTheClipboard(kFormat, 24), "080073696C656E6365720A00000030313233343536373839");
    EXPECT_EQ(Paste(9), "silencer|10|0123456789");
    EXPECT_EQ(Paste(8), "silence|10|0123456789");
    EXPECT_EQ(Paste(1), "|10|0123456789");
    EXPECT_TRUE(GwMemory(gwclip_paste(nullptr, kFormat, nullptr, 8, nullptr)));
    char untouched = '#';
    EXPECT_TRUE(GwMemory(gwclip_paste(nullptr, kFormat, &untouched, 0, nullptr)));
    EXPECT_EQ(untouched, '#');
    ASSERT_EQ(gwclip_copy(owner, kFormat, "", "0123456789", 10, true), 0);
    EXPECT_EQ(OnTheClipboard(kFormat, 16), "00000A00000030313233343536373839");
    EXPECT_EQ(OnTheClipboard(kOther, 6), "none");
    OpenClipboard(owner);
    EmptyClipboard();
    CloseClipboard();
    DestroyWindow(owner);
}

TEST_F(ClipboardFailures, ReleasesWhatWasAcquired) {
    g_diagSettings->errorBits = RF_SILENT;
    const std::string name = "RegisterClipboardFormatA \"SorvikUnitTest\"\n";
    const std::string allocate = name + "GlobalAlloc 0x42 0x9\n", make = allocate + "GlobalLock GlobalAlloc\n";
    const std::string fill = make + "GlobalUnlock GlobalAlloc\nOpenClipboard OWNER\n";
    const std::string empty = fill + "EmptyClipboard\n";
    const std::string set = empty + "SetClipboardData 0xC123 GlobalAlloc\nCloseClipboard\n";
    const std::string freed = "GlobalFree GlobalAlloc\n";
    const struct {
        void (*refuse)(RecordedCalls& calls);
        int result;
        std::string calls;
    } cases[] = {
        {[](auto& c) { c.Return("RegisterClipboardFormatA", RegisterClipboardFormatA, 0); }, -1, name},
        {[](auto& c) { c.Return("GlobalAlloc", GlobalAlloc, nullptr); }, -2, allocate},
        {[](auto& c) { c.Return("GlobalLock", GlobalLock, nullptr); }, -2, make + freed},
        {[](auto& c) { c.Return("OpenClipboard", OpenClipboard, FALSE); }, -3, fill + freed},
        {[](auto& c) { c.Return("EmptyClipboard", EmptyClipboard, FALSE); }, -3, empty + "CloseClipboard\n" + freed},
        {[](auto& c) { c.Return("SetClipboardData", SetClipboardData, nullptr); }, 0, set + freed},
        {[](auto&) {}, 0, set},
    };
    const HWND owner = GetDesktopWindow();
    for (const auto& one : cases) {
        RecordedCalls calls({{owner, "OWNER"}});
        calls.Return("RegisterClipboardFormatA", RegisterClipboardFormatA, 0xC123);
        calls.Record("GlobalAlloc", GlobalAlloc);
        calls.Record("GlobalLock", GlobalLock);
        calls.Record("GlobalUnlock", GlobalUnlock);
        calls.Record("GlobalFree", GlobalFree);
        calls.Return("OpenClipboard", OpenClipboard, TRUE);
        calls.Return("EmptyClipboard", EmptyClipboard, TRUE);
        calls.Return("SetClipboardData", SetClipboardData, owner);
        calls.Return("CloseClipboard", CloseClipboard, TRUE);
        one.refuse(calls);
        EXPECT_EQ(gwclip_copy(owner, kFormat, "t", "da", 2, true), one.result) << one.calls;
        EXPECT_EQ(calls.Take(), one.calls);
    }
    EXPECT_EQ(gwclip_copy(nullptr, nullptr, "t", "d", 1, true), -1);
}

TEST(Clipboard, RejectsBlocksBeyondFourGigabytes) {
    // Only the patched strlen sees a long text here, because a real one would not fit into memory.
    static constexpr char huge[] = "";
    const ImportPatch patch(
        "strlen", +[](const char* text) { return text == huge ? size_t{0x80000000} : strnlen(text, 1000000); });
    EXPECT_EQ(gwclip_copy(nullptr, kFormat, huge, "d", 0x7FFFFFFF, true), -2);
}
