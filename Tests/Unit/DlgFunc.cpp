// Functions for dialogs: texts, positions of windows, the open-file dialog, and the module's version.
#include <windows.h>
#include <commdlg.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "CommaLocale.h"
#include "Lib/FormatText.h"
#include "Lib/ModuleIdentity.h"
#include "RecordedCalls.h"
#include "Util/DlgFunc.h"
#include "Util/DlgFunc_Text.h"
#include "Util/DlgFunc_Version.h"

TEST(DialogTexts, ReadsFieldsOfASeparatedText) {
    const struct {
        const char* source;
        char separator;
        int index, size;
        const char* field;
        int next;  // offset of the returned position, -1 for null
    } cases[] = {
        {"a;b;c", ';', 1, 10, "b", 4},
        {"a;b;c", ';', 2, 10, "c", 5},
        {"a;b;c", ';', 3, 10, "", -1},
        {"a;b;c;", ';', 3, 10, "", -1},
        {"a;;c", ';', 1, 10, "", 3},
        {"width;height", ';', 0, 4, "wid", 6},
        {"width;height", ';', 0, 6, "width", 6},
        {"width", ';', 0, 1, "", 5},
        {"a;b", '\0', 0, 10, "a;b", 3},
        {"a;b", ';', -1, 10, "", -1},
        {"a;b", ';', 0, 0, "", -1},
        {nullptr, ';', 0, 10, "", -1},
    };
    for (const auto& c : cases) {
        char field[16];
        std::memset(field, '#', sizeof field);
        const char* next = gwgetsubstring(field, c.source, c.separator, c.index, c.size);
        EXPECT_STREQ(field, c.field) << c.index << " of " << (c.source ? c.source : "null");
        EXPECT_EQ(next ? static_cast<int>(next - c.source) : -1, c.next) << c.index << " of " << c.field;
        EXPECT_EQ(field[std::strlen(c.field) + 1], '#') << "written beyond the terminator";
    }
}

TEST(DialogTexts, ReplacesTrailingBlanksWithTerminators) {
    const std::pair<std::string, std::string> cases[] = {
        {"900 \r\n ", std::string("900\0\0\0\0", 7)},
        {"9 0\t ", std::string("9 0\t\0", 5)},
        {" \r\n", std::string(3, '\0')},
        {std::string("a\0b \0", 5), std::string("a\0b\0\0", 5)},
        {"", ""},
    };
    for (const auto& [before, after] : cases) {
        std::string text = before + "!";
        EXPECT_EQ(TrimTrailingBlanks(text.data(), static_cast<int>(before.size())), text.data());
        EXPECT_EQ(text, after + "!");
    }
}

TEST(DialogTexts, LimitsNumbersToTheirBounds) {
    const CommaLocale locale;
    const struct {
        const char* before;
        double minimum, maximum;
        bool replaced;
        const char* after;
    } cases[] = {
        {"12.7", 0, 10, true, "10"},         {"-3", 0, 10, true, "0"},
        {"10", 0, 10, false, "10"},          {"0", 0, 10, false, "0"},
        {"7.5 mm", 7.2, 9, false, "7.5 mm"}, {"none", 5, 10, true, "5"},
        {"9", 9.6, 20, true, "10"},          {"1e9", -1e6, 1e6, true, "1000000"},
    };
    for (const auto& c : cases) {
        char text[32] = "";
        std::strcpy(text, c.before);
        EXPECT_EQ(ClampNumberText(text, c.minimum, c.maximum), c.replaced) << c.before;
        EXPECT_STREQ(text, c.after);
    }
    EXPECT_FALSE(ClampNumberText(nullptr, 1, 2));
}

TEST(WindowHelpers, CentresWindowsInWholePixels) {
    const HWND window = reinterpret_cast<HWND>(0x51), owner = reinterpret_cast<HWND>(0x52);
    HWND parent = nullptr;
    RecordedCalls calls;
    calls.Record("GetParent", GetParent, [&](HWND) { return parent; });
    calls.Record("GetSystemMetrics", GetSystemMetrics, [](int which) {
        return which == SM_CXSCREEN ? 1000 : which == SM_CYSCREEN ? 700 : 0;
    });
    calls.Record("GetWindowRect", GetWindowRect, [&](HWND of, RECT* area) {
        *area = of == window ? RECT{3, 4, 104, 55} : RECT{101, 50, 401, 302};
        return TRUE;
    });
    calls.Return("SetWindowPos", SetWindowPos, TRUE);
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

TEST(WindowHelpers, RequestsAnExistingFile) {
    OPENFILENAMEA requested = {};
    std::string requestedFilter;
    RecordedCalls calls;
    calls.Record("GetOpenFileNameA", GetOpenFileNameA, [&](OPENFILENAMEA* request) {
        requested = *request;
        requestedFilter.assign(request->lpstrFilter, 16);
        std::strcpy(request->lpstrFile, "C:\\chosen.kpd");
        return 7;
    });
    const HWND owner = GetDesktopWindow();
    char file[MAX_PATH] = "proposal.kpd";
    EXPECT_EQ(ShowOpenFileDialog(owner, "Products|*.kpd|", "C:\\data", file, "kpd", "Choose"), 7);
    EXPECT_STREQ(file, "C:\\chosen.kpd");
    EXPECT_EQ(OpenFileFilter("Products|*.kpd"), std::string("Products\0*.kpd\0", 15)) << "ends in two terminators";
    EXPECT_EQ(OpenFileFilter(nullptr), std::string(1, '\0'));
    EXPECT_EQ(requested.hwndOwner, owner);
    EXPECT_EQ(requested.hInstance, GetModuleHandleA(kModuleFileName));
    EXPECT_EQ(requestedFilter, std::string("Products\0*.kpd\0\0", 16));
    EXPECT_EQ(FormatString("%lu, filter %lu, %lu, %s, %s, %s, %lX", requested.lStructSize, requested.nFilterIndex,
                           requested.nMaxFile, requested.lpstrInitialDir, requested.lpstrTitle, requested.lpstrDefExt,
                           requested.Flags),
              "152, filter 1, 260, C:\\data, Choose, kpd, 9804");
}

TEST(WindowHelpers, ReturnsTheProductVersionOfTheModule) {
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

TEST(WindowHelpers, ReadsTheProductVersionNotTheFileVersion) {
    VS_FIXEDFILEINFO versions = {0, 0, 0x00050006, 0x00070008, 0x00020000, 0x00000005, 0, 0, 0, 0, 0, 0, 0};
    UINT size = sizeof versions;
    RecordedCalls calls;
    calls.Record("VerQueryValueA", VerQueryValueA, [&](const void*, const char*, void** found, UINT* length) {
        *found = &versions;
        *length = size;
        return TRUE;
    });
    EXPECT_EQ(GetModuleProductVersion(nullptr), "2.5");
    --size;
    EXPECT_EQ(GetModuleProductVersion(nullptr), "") << "the block is too short";
}
