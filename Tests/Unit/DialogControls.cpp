#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "DialogFixture.h"
#include "Util/PDialogControlButtons.h"
#include "Util/PDialogControlLists.h"
#include "Util/PDialogControlTexts.h"

namespace {

constexpr int kControl = 1200;
constexpr int kOther = 1201;

DialogTemplate With(const wchar_t* className, DWORD style, const wchar_t* text = L"") {
    DialogTemplate layout(L"Bound");
    layout.Add(className, style, kControl, text, 0, 4).Add(className, style, kOther, text, 4, 4);
    return layout;
}

std::string TextOf(const BoundDialog& dialog, int id = kControl) {
    char text[256] = "";
    GetWindowTextA(dialog.GetControl(id), text, sizeof text);
    return text;
}

LRESULT Send(const BoundDialog& dialog, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendMessageA(dialog.GetControl(kControl), message, wParam, lParam);
}

ComboListData ListOf(std::initializer_list<std::pair<double, const char*>> items) {
    ComboListData list = nullptr;
    for (const auto& [value, text] : items)
        InsertComboListDataItem(&list, value, text);
    return list;
}

}  // namespace

TEST(DialogControls, StatesShow) {
    const struct {
        ControlState state;
        bool readOnly;
        bool enabled;
        bool visible;
    } cases[] = {{kControlNormal, false, true, true},
                 {7, false, true, true},
                 {kControlReadOnly, true, true, true},
                 {kControlDisabled, false, false, true},
                 {kControlHidden, false, true, false}};
    for (const auto& c : cases) {
        BoundDialog dialog([&](BoundDialog& self) {
            self.Bind<PDialogControlStaticText>(kOther, kControlNormal, "", "");
            self.Bind<PDialogControlTextEdit>(kControl, c.state, "", nullptr, 0);
        });
        dialog.Open(With(L"EDIT", WS_BORDER));
        const LONG style = GetWindowLongA(dialog.GetControl(kControl), GWL_STYLE);
        EXPECT_EQ((style & ES_READONLY) != 0, c.readOnly) << c.state;
        EXPECT_EQ((style & WS_DISABLED) == 0, c.enabled) << c.state;
        EXPECT_EQ((style & WS_VISIBLE) != 0, c.visible) << c.state;
    }
}

TEST(DialogControls, StaticTextsShowUnlessEmpty) {
    BoundDialog dialog([](BoundDialog& self) {
        self.Bind<PDialogControlStaticText>(kControl, kControlNormal, "", "Length");
        self.Bind<PDialogControlStaticText>(kOther, kControlNormal, "", "");
    });
    dialog.Open(With(L"STATIC", SS_LEFT, L"template"));
    EXPECT_EQ(TextOf(dialog), "Length");
    EXPECT_EQ(TextOf(dialog, kOther), "template");
}

TEST(DialogControls, EditsAreLimitedAndReadBack) {
    char buffer[] = "SORV1#";
    char untouched[] = "kept";
    BoundDialog dialog([&](BoundDialog& self) {
        self.Bind<PDialogControlTextEdit>(kControl, kControlNormal, "", buffer, 4);
        self.Bind<PDialogControlTextEdit>(kOther, kControlNormal, "", untouched, 0);
    });
    std::memcpy(buffer, "AB\0", 3);
    dialog.Open(With(L"EDIT", WS_BORDER));
    EXPECT_EQ(TextOf(dialog), "AB");
    EXPECT_EQ(Send(dialog, EM_GETLIMITTEXT), 4);
    SetWindowTextA(dialog.GetControl(kControl), "longer than four");
    SetWindowTextA(dialog.GetControl(kOther), "new");
    dialog.FromDialog(-1);
    EXPECT_STREQ(buffer, "long");
    EXPECT_EQ(buffer[5], '#');
    EXPECT_STREQ(untouched, "kept");
}

TEST(DialogControls, OnlyTheNamedControlTakesPart) {
    char first[16] = "one";
    char second[16] = "two";
    BoundDialog dialog([&](BoundDialog& self) {
        self.Bind<PDialogControlTextEdit>(kControl, kControlNormal, "", first, 15);
        self.Bind<PDialogControlTextEdit>(kOther, kControlNormal, "", second, 15);
    });
    dialog.Open(With(L"EDIT", WS_BORDER));
    std::strcpy(first, "three");
    std::strcpy(second, "four");
    EXPECT_EQ(dialog.ToDialog(kOther), 0);
    EXPECT_EQ(TextOf(dialog), "one");
    EXPECT_EQ(TextOf(dialog, kOther), "four");
    EXPECT_EQ(dialog.FromDialog(kControl), 0);
    EXPECT_STREQ(first, "one");
    EXPECT_EQ(dialog.ToDialog(999), 0) << "an unknown control is nobody's";
}

TEST(DialogControls, ComboBoxesConsumeTheirList) {
    const struct {
        float before;
        LRESULT selected;
        float after;
    } cases[] = {{2.5F, 1, 2.5F}, {-0.0F, 2, 0.0F}, {77, 0, 1}};
    for (const auto& c : cases) {
        ComboListData list = ListOf({{1, "one"}, {2.5, "two and a half"}, {0, "none"}});
        float value = c.before;
        PDialogControl* binder = nullptr;
        BoundDialog dialog([&](BoundDialog& self) {
            binder = &self.Bind<PDialogControlComboBox>(kControl, kControlNormal, "", &list, &value);
        });
        dialog.Open(With(L"COMBOBOX", CBS_DROPDOWNLIST));
        EXPECT_EQ(list, nullptr);
        EXPECT_EQ(Send(dialog, CB_GETCOUNT), 3);
        EXPECT_EQ(Send(dialog, CB_GETCURSEL), c.selected) << c.before;
        EXPECT_EQ(binder->FromDialog(), 0);
        EXPECT_EQ(value, c.after) << c.before;
        EXPECT_EQ(binder->ToDialog(), -1) << "the list is gone";
        EXPECT_EQ(Send(dialog, CB_GETCOUNT), 0);
        EXPECT_EQ(binder->FromDialog(), 0);
        EXPECT_EQ(value, c.after) << "nothing selected, nothing changed";
    }
}

TEST(DialogControls, SortedComboBoxesKeepValueAndTextTogether) {
    ComboListData list = ListOf({{3, "c"}, {1, "a"}, {2, "b"}});
    float value = 2;
    BoundDialog dialog(
        [&](BoundDialog& self) { self.Bind<PDialogControlComboBox>(kControl, kControlNormal, "", &list, &value); });
    dialog.Open(With(L"COMBOBOX", CBS_DROPDOWNLIST | CBS_SORT));
    EXPECT_EQ(Send(dialog, CB_GETCURSEL), 1);
    Send(dialog, CB_SETCURSEL, 2);
    dialog.FromDialog(-1);
    EXPECT_EQ(value, 3);
}

TEST(DialogControls, ListsStopAtAnEmptyText) {
    ComboListData list = ListOf({{1, "x"}, {2, "two"}});
    list[0].text[0] = '\0';
    float value = 2;
    BoundDialog dialog([&](BoundDialog& self) {
        self.Bind<PDialogControlComboBox>(kControl, kControlNormal, "", &list, &value);
        EXPECT_EQ(self.Bind<PDialogControlComboBox>(kOther, kControlNormal, "", nullptr, nullptr).FromDialog(), -1);
    });
    dialog.Open(With(L"COMBOBOX", CBS_DROPDOWNLIST));
    EXPECT_EQ(Send(dialog, CB_GETCOUNT), 0);
    EXPECT_EQ(list, nullptr);
    dialog.FromDialog(-1);
    EXPECT_EQ(value, 2);
}

TEST(DialogControls, ListBoxesSelectNothingWithoutAMatch) {
    for (const bool match : {true, false}) {
        ComboListData list = ListOf({{1, "one"}, {2, "two"}});
        float value = match ? 2.0F : 9.0F;
        BoundDialog dialog(
            [&](BoundDialog& self) { self.Bind<PDialogControlListBox>(kControl, kControlNormal, "", &list, &value); });
        dialog.Open(With(L"LISTBOX", WS_BORDER));
        EXPECT_EQ(list, nullptr);
        EXPECT_EQ(Send(dialog, LB_GETCOUNT), 2);
        EXPECT_EQ(Send(dialog, LB_GETCURSEL), match ? 1 : LB_ERR);
        dialog.FromDialog(-1);
        EXPECT_EQ(value, match ? 2.0F : 9.0F);
        Send(dialog, LB_SETCURSEL, 0);
        dialog.FromDialog(-1);
        EXPECT_EQ(value, 1);
    }
}

TEST(DialogControls, CheckBoxesCarryAFlag) {
    bool flag = true;
    PDialogControl* unbound = nullptr;
    BoundDialog dialog([&](BoundDialog& self) {
        self.Bind<PDialogControlCheckBox>(kControl, kControlNormal, "", "Insulated", &flag);
        unbound = &self.Bind<PDialogControlCheckBox>(kOther, kControlNormal, "", "Lost", nullptr);
    });
    dialog.Open(With(L"BUTTON", BS_AUTO3STATE));
    EXPECT_EQ(TextOf(dialog), "Insulated");
    EXPECT_EQ(Send(dialog, BM_GETCHECK), BST_CHECKED);
    for (const WPARAM check : {BST_UNCHECKED, BST_CHECKED, BST_INDETERMINATE}) {
        Send(dialog, BM_SETCHECK, check);
        dialog.FromDialog(-1);
        EXPECT_EQ(flag, check == BST_CHECKED) << check;
    }
    EXPECT_EQ(unbound->ToDialog(), -1);
    EXPECT_EQ(unbound->FromDialog(), -1);
    EXPECT_EQ(TextOf(dialog, kOther), "Lost") << "the button's part is done before";
}

TEST(DialogControls, RadioButtonsShareAVariable) {
    float value = 2;
    BoundDialog dialog([&](BoundDialog& self) {
        self.Bind<PDialogControlRadioButton>(kControl, kControlNormal, "", "Round", &value, 1.0F);
        self.Bind<PDialogControlRadioButton>(kOther, kControlNormal, "", "Rectangular", &value, 2.0F);
    });
    dialog.Open(With(L"BUTTON", BS_AUTORADIOBUTTON));
    EXPECT_EQ(Send(dialog, BM_GETCHECK), BST_UNCHECKED);
    EXPECT_EQ(SendMessageA(dialog.GetControl(kOther), BM_GETCHECK, 0, 0), BST_CHECKED);
    SendMessageA(dialog.GetControl(kControl), BM_CLICK, 0, 0);
    dialog.FromDialog(-1);
    EXPECT_EQ(value, 1);
}

TEST(DialogControls, DatesTakeAnySeparator) {
    const struct {
        const char* before;
        int size;
        const char* after;
    } cases[] = {{"5/3/2024", 32, "5.3.2024"}, {"29.2.2024", 32, "29.2.2024"}, {"31-12-1999", 6, "31.12"}};
    for (const auto& c : cases) {
        char text[32] = "";
        std::strcpy(text, c.before);
        BoundDialog dialog(
            [&](BoundDialog& self) { self.Bind<PDialogControlDate>(kControl, kControlNormal, "", text, c.size); });
        dialog.Open(With(L"SysDateTimePick32", DTS_SHOWNONE));
        SYSTEMTIME date = {};
        EXPECT_EQ(Send(dialog, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date)), GDT_VALID);
        int day = 0, month = 0, year = 0;
        std::sscanf(c.before, "%d%*c%d%*c%d", &day, &month, &year);
        EXPECT_EQ(date.wDay, day) << c.before;
        EXPECT_EQ(date.wMonth, month) << c.before;
        EXPECT_EQ(date.wYear, year) << c.before;
        dialog.FromDialog(-1);
        EXPECT_STREQ(text, c.after);
        std::strcpy(text, "kept");
        Send(dialog, DTM_SETSYSTEMTIME, GDT_NONE, reinterpret_cast<LPARAM>(&date));
        dialog.FromDialog(-1);
        EXPECT_STREQ(text, "kept") << "no date, no text";
    }
}
