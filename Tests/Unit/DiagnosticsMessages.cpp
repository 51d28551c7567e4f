#include <gtest/gtest.h>

#include "Lib/ErrorText.h"
#include "Lib/FormatText.h"
#include "Lib/Md5Driver.h"
#include "Lib/WindowMessageNames.h"
#include "Lib/WindowMessageText.h"
#include "RecordedCalls.h"

TEST(DiagnosticsMessages, ReadsParametersPerMessage) {
    const struct {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        const char* text;
    } cases[] = {
        {0x0020, 0x00010203, 0x02000001, "WM_SETCURSOR(hwndCursor, areacode=66051, #msgs=1)"},
        {0x0006, 0, 0x00010002, "WM_ACTIVATE(WA_INACTIVE, fMinimized=1, hwnd=2)"},
        {0x0006, 1, 0, "WM_ACTIVATE(WA_ACTIVE, fMinimized=0, hwnd=0)"},
        {0x0006, 2, 0, "WM_ACTIVATE(WA_CLICKACTIVE, fMinimized=0, hwnd=0)"},
        {0x0006, 5, 0, "WM_ACTIVATE(?, fMinimized=0, hwnd=0)"},
        {0x0007, 4000000000u, 0, "WM_SETFOCUS(hwnd=4000000000)"},
        {0x0008, 0, 0x12AB, "WM_KILLFOCUS(hwndGetsFocus=00000000000012AB)"},
        {0x0084, 0, 0xFFFF0003, "WM_NCHITTEST(xPos=3, yPos=65535)"},
        {0x0102, 65, 0x401E0002, "WM_CHAR(nVkey=65, repeat=2, scan=1E, ext=0, alt=0, prevstate=Down, trans=Pressed)"},
        {0x0102, 65, static_cast<LPARAM>(0xA1050001u),
         "WM_CHAR(nVkey=65, repeat=1, scan=05, ext=16777216, alt=536870912, prevstate=Up, trans=Released)"},
        {0x0111, 0x00050007, 0x00090008, "WM_COMMAND(idItem=327687, hwndCtl=8, wNotify=9)"},
        {0x0002, 1, 1, "WM_DESTROY()"},
        {0x0010, 1, 1, "WM_CLOSE()"},
        {0x0082, 1, 1, "WM_NCDESTROY()"},
        {0x0100, 0x1B, 0x10001, "WM_KEYFIRST(W=001B, L=00010001)"},
        {0x0209, 0, 0, "WM_MBUTTONDBLCLK(W=0000, L=00000000)"},
        {0x0401, 0x12345, 0x1FFFFFFFF, "0x0401(W=12345, L=FFFFFFFF)"},
    };
    for (const auto& one : cases)
        EXPECT_EQ(DescribeWindowMessage(one.message, one.wParam, one.lParam), one.text);
}

TEST(DiagnosticsMessages, ListsEveryMessageName) {
    std::string rows;
    for (const WindowMessageName* row = kWindowMessageNames; row->name; ++row)
        rows += FormatString("%s 0x%X\n", row->name, row->message);
    char digest[33] = "";
    MD5Driver::MD5HexDigest(digest, sizeof digest, rows.data(), rows.size());
    EXPECT_STREQ(digest, "7A7C6DE96033BE5345823AC2325EAB63") << rows;
}

TEST(DiagnosticsMessages, WritesTheErrorNumberLast) {
    const std::string number = "WinAPI last error = 2 ";
    const std::string text = ErrorText(ERROR_FILE_NOT_FOUND);
    ASSERT_GT(text.size(), number.size());
    EXPECT_EQ(text.substr(text.size() - number.size()), number);
    EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos);
    RecordedCalls calls;
    calls.Record("FormatMessageA", FormatMessageA);
    SetLastError(ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(LastErrorText(), text);
    EXPECT_EQ(calls.Take(), "FormatMessageA 0x1200 null 0x2 0x400 & 0x1FEA null\n");
    EXPECT_NE(ErrorText(ERROR_BAD_EXE_FORMAT).find("%1"), std::string::npos) << "no inserts";
    EXPECT_EQ(ErrorText(0xE0001234), "WinAPI last error = -536866252 ");
}

TEST(DiagnosticsMessages, TruncatesFormattedStrings) {
    for (const size_t length : {0u, 255u, 256u, 511u, 512u, 8191u, 8192u}) {
        const std::string text(length, 'x');
        EXPECT_EQ(FormatString("%s", text.c_str()), text);
    }
    EXPECT_EQ(FormatString("%s%s", std::string(8190, 'x').c_str(), "abc"), std::string(8190, 'x') + "ab");
    const char* const none = nullptr;
    EXPECT_EQ(FormatString(none), "");
    EXPECT_EQ(FormatString("%d-%5.2f-%c", 7, 1.5, 'z'), "7- 1.50-z");
}
