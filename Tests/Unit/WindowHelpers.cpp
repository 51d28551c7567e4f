#include <windows.h>
#include <commdlg.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "ImportPatch.h"
#include "ModuleNames.h"
#include "Util/DlgFunc.h"
#include "Util/DlgFunc_Version.h"

namespace {

class PlacedWindow {
 public:
    PlacedWindow(RECT place, HWND parent)
        : handle_(CreateWindowExA(0, "Static", "", parent ? WS_CHILD : WS_POPUP, place.left, place.top,
                                  place.right - place.left, place.bottom - place.top, parent, nullptr, nullptr,
                                  nullptr)) {}
    ~PlacedWindow() { DestroyWindow(handle_); }
    PlacedWindow(const PlacedWindow&) = delete;
    PlacedWindow& operator=(const PlacedWindow&) = delete;
    HWND handle() const { return handle_; }
    RECT place() const {
        RECT area = {};
        GetWindowRect(handle_, &area);
        return area;
    }

 private:
    HWND handle_;
};

OPENFILENAMEA asked;
std::string askedFilter;
BOOL WINAPI AnswerOpen(OPENFILENAMEA* request) {
    asked = *request;
    askedFilter.assign(request->lpstrFilter, 16);
    std::strcpy(request->lpstrFile, "C:\\chosen.kpd");
    return 7;
}

VS_FIXEDFILEINFO versions;
BOOL WINAPI AnswerVersions(const void*, const char*, void** found, UINT* length) {
    *found = &versions;
    *length = sizeof versions;
    return TRUE;
}

}  // namespace

TEST(WindowHelpers, WindowsAreCentredInWholePixels) {
    const PlacedWindow alone({3, 4, 104, 55}, nullptr);
    CenterWindowOnParent(alone.handle());
    EXPECT_EQ(alone.place().left, (GetSystemMetrics(SM_CXSCREEN) - 101) / 2);
    EXPECT_EQ(alone.place().top, (GetSystemMetrics(SM_CYSCREEN) - 51) / 2);
    EXPECT_EQ(alone.place().right - alone.place().left, 101) << "the size stays";
    SetWindowPos(alone.handle(), nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    CenterWindowOnScreen(alone.handle());
    EXPECT_EQ(alone.place().left, (GetSystemMetrics(SM_CXSCREEN) - 101) / 2);

    const PlacedWindow parent({101, 50, 401, 301}, nullptr);
    // An owned popup has its owner for parent, as dialogs do.
    const HWND owned =
        CreateWindowExA(0, "Static", "", WS_POPUP, 0, 0, 31, 21, parent.handle(), nullptr, nullptr, nullptr);
    CenterWindowOnParent(owned);
    RECT area = {};
    GetWindowRect(owned, &area);
    EXPECT_EQ(area.left, (101 + 401) / 2 - 31 / 2);
    EXPECT_EQ(area.top, (50 + 301) / 2 - 21 / 2);
    DestroyWindow(owned);
}

TEST(WindowHelpers, OpenFileDialogIsAskedForAnExistingFile) {
    const ImportPatch patch("GetOpenFileNameA", AnswerOpen);
    const HWND owner = GetDesktopWindow();
    char file[MAX_PATH] = "proposal.kpd";
    EXPECT_EQ(ShowOpenFileDialog(owner, "Products|*.kpd|", "C:\\data", file, "kpd", "Choose"), 7);
    EXPECT_STREQ(file, "C:\\chosen.kpd");
    EXPECT_EQ(asked.lStructSize, sizeof(OPENFILENAMEA));
    EXPECT_EQ(asked.hwndOwner, owner);
    EXPECT_EQ(asked.hInstance, GetModuleHandleA(kModuleFileName));
    EXPECT_EQ(askedFilter, std::string("Products\0*.kpd\0\0", 16));
    EXPECT_EQ(asked.nFilterIndex, 1u);
    EXPECT_EQ(asked.nMaxFile, 260u);
    EXPECT_STREQ(asked.lpstrInitialDir, "C:\\data");
    EXPECT_STREQ(asked.lpstrTitle, "Choose");
    EXPECT_STREQ(asked.lpstrDefExt, "kpd");
    EXPECT_EQ(asked.Flags, 0x9804u);
}

TEST(WindowHelpers, ProductVersionsLeaveZerosOut) {
    const struct {
        uint32_t most;
        uint32_t least;
        const char* text;
    } cases[] = {{0x00020000, 0x00000005, "2.5"},
                 {0x00010004, 0x00020A33, "1.4.2.2611"},
                 {0, 0, ""},
                 {0x0000FFFF, 0x00030000, "65535.3"}};
    for (const auto& c : cases)
        EXPECT_EQ(ProductVersionText(c.most, c.least), c.text);
}

TEST(WindowHelpers, ProductVersionOfTheModule) {
    const HMODULE module = GetModuleHandleA(kModuleFileName);
    const std::string version = GetModuleProductVersion(nullptr);
    EXPECT_EQ(version, GetModuleProductVersion(module));
    EXPECT_EQ(version, "1.4.2.2611");
    char text[16];
    std::memset(text, '#', sizeof text);
    EXPECT_EQ(GetModuleProductVersionText(nullptr, text, 4), 1);
    EXPECT_STREQ(text, "1.4");
    EXPECT_EQ(text[4], '#');
    // This program has no version resource.
    EXPECT_EQ(GetModuleProductVersion(GetModuleHandleW(nullptr)), "");
    EXPECT_EQ(GetModuleProductVersionText(GetModuleHandleW(nullptr), text, 16), 0);
    EXPECT_STREQ(text, "");
}

TEST(WindowHelpers, TheProductVersionIsNotTheFileVersion) {
    const ImportPatch patch("VerQueryValueA", AnswerVersions);
    versions.dwFileVersionMS = 0x00050006;
    versions.dwFileVersionLS = 0x00070008;
    versions.dwProductVersionMS = 0x00020000;
    versions.dwProductVersionLS = 0x00000005;
    EXPECT_EQ(GetModuleProductVersion(nullptr), "2.5");
}
