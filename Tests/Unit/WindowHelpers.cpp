#include "RecordedCalls.h"

#include <commdlg.h>
#include <gtest/gtest.h>

#include "ModuleNames.h"
#include "Util/DlgFunc.h"
#include "Util/DlgFunc_Version.h"

TEST(WindowHelpers, WindowsAreCentredInWholePixels) {
    const HWND window = reinterpret_cast<HWND>(0x51), owner = reinterpret_cast<HWND>(0x52);
    HWND parent = nullptr;
    RecordedCalls calls;
    calls.Record("GetParent", GetParent, [&](HWND) { return parent; });
    calls.Record("GetSystemMetrics", GetSystemMetrics, [](int which) { return which == SM_CXSCREEN ? 1000 : 700; });
    calls.Record("GetWindowRect", GetWindowRect, [&](HWND of, RECT* area) {
        *area = of == window ? RECT{3, 4, 104, 55} : RECT{101, 50, 401, 302};
        return TRUE;
    });
    calls.Give("SetWindowPos", SetWindowPos, TRUE);
    const auto placed = [&] {
        const std::string lines = calls.Take();
        return lines.substr(lines.rfind("SetWindowPos"));
    };
    CenterWindowOnScreen(window);
    EXPECT_EQ(placed(), "SetWindowPos & null 449 324 0 0 0x5\n");
    CenterWindowOnParent(window);
    EXPECT_EQ(placed(), "SetWindowPos & null 449 324 0 0 0x5\n");
    parent = owner;
    CenterWindowOnParent(window);
    EXPECT_EQ(placed(), "SetWindowPos & null 201 151 0 0 0x5\n");
}

TEST(WindowHelpers, OpenFileDialogIsAskedForAnExistingFile) {
    OPENFILENAMEA asked = {};
    std::string askedFilter;
    RecordedCalls calls;
    calls.Record("GetOpenFileNameA", GetOpenFileNameA, [&](OPENFILENAMEA* request) {
        asked = *request;
        askedFilter.assign(request->lpstrFilter, 16);
        std::strcpy(request->lpstrFile, "C:\\chosen.kpd");
        return 7;
    });
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
    EXPECT_EQ(asked.lpstrTitle + std::string(asked.lpstrInitialDir) + asked.lpstrDefExt, "ChooseC:\\datakpd");
    EXPECT_EQ(asked.Flags, 0x9804u);
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
    EXPECT_EQ(GetModuleProductVersionText(nullptr, nullptr, 4), 0);
    EXPECT_EQ(GetModuleProductVersionText(nullptr, text, 0), 0);
    EXPECT_STREQ(text, "1.4");
    // This program has no version resource.
    EXPECT_EQ(GetModuleProductVersion(GetModuleHandleW(nullptr)), "");
    EXPECT_EQ(GetModuleProductVersionText(GetModuleHandleW(nullptr), text, 16), 0);
    EXPECT_STREQ(text, "");
}

TEST(WindowHelpers, TheProductVersionIsNotTheFileVersion) {
    VS_FIXEDFILEINFO versions = {};
    versions.dwFileVersionMS = 0x00050006;
    versions.dwFileVersionLS = 0x00070008;
    versions.dwProductVersionMS = 0x00020000;
    versions.dwProductVersionLS = 0x00000005;
    RecordedCalls calls;
    calls.Record("VerQueryValueA", VerQueryValueA, [&](const void*, const char*, void** found, UINT* length) {
        *found = &versions;
        *length = sizeof versions;
        return TRUE;
    });
    EXPECT_EQ(GetModuleProductVersion(nullptr), "2.5");
}
