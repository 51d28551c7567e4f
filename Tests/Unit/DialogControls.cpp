#include <cstdlib>
#include <typeinfo>

#include "DialogFixture.h"
#include "Lib/ModuleIdentity.h"
#include "RecordedCalls.h"
#include "TestFiles.h"
#include "Util/PDialogControlButtons.h"
#include "Util/PDialogControlLists.h"
#include "Util/PDialogControlTexts.h"

namespace {

constexpr int kControl = 1200;
constexpr int kOther = 1201;

// A dialog with two children of one kind.
class DialogControls : public testing::Test {
 protected:
    template <class Bind>
    void Open(const char* className, DWORD style, Bind bind, const char* text = "") {
        dialog_ = std::make_unique<BoundDialog>();
        dialog_->Open({{className, style, kControl, text}, {className, style, kOther, text}}, [&] { bind(*dialog_); });
    }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return dialog_->Send(kControl, message, wParam, lParam);
    }

    std::unique_ptr<BoundDialog> dialog_;
};

ComboListData ListOf(std::initializer_list<std::pair<double, const char*>> items) {
    ComboListData list = nullptr;
    for (const auto& [value, text] : items)
        InsertComboListDataItem(&list, value, text);
    return list;
}

}  // namespace

TEST_F(DialogControls, ShowsControlStates) {
    const std::pair<ControlState, LONG> cases[] = {{kControlNormal, WS_VISIBLE},
                                                   {7, WS_VISIBLE},
                                                   {kControlReadOnly, WS_VISIBLE | ES_READONLY},
                                                   {kControlDisabled, WS_VISIBLE | WS_DISABLED},
                                                   {kControlHidden, 0}};
    for (const auto& c : cases) {
        const bool isDate = c.first == kControlHidden || c.first == kControlReadOnly;
        // The opposite style bits are set first, so that each bit is both cleared and set.
        Open("EDIT", c.first == kControlHidden ? 0 : ES_READONLY | WS_DISABLED, [&](BoundDialog& self) {
            self.BindAs<PDialogControlTextEdit>(kControl, c.first, "", nullptr, 0);
            if (isDate)
                self.BindAs<PDialogControlDate>(kOther, c.first, "", nullptr, 8);
            else
                self.BindAs<PDialogControlStaticText>(kOther, c.first, "", "");
        });
        for (const int control : {kControl, kOther}) {
            const LONG style = GetWindowLongA(dialog_->GetControl(control), GWL_STYLE);
            EXPECT_EQ(style & (WS_VISIBLE | WS_DISABLED | ES_READONLY), c.second) << c.first << " of " << control;
        }
    }
}

TEST_F(DialogControls, ShowsLimitsAndReadsTexts) {
    char text[] = "AB\0###", untouched[] = "kept";
    Open("EDIT", WS_BORDER, [&](BoundDialog& self) {
        self.SetTitle("Silencer");
        self.Bind<PDialogControlTextEdit>(kControl, text, 4);
        self.Bind<PDialogControlTextEdit>(kOther, untouched, 0);
    });
    char title[16] = "";
    GetWindowTextA(dialog_->dialogWindow(), title, sizeof title);
    EXPECT_STREQ(title, "Silencer");
    EXPECT_EQ(dialog_->TextOf(kControl), "AB");
    EXPECT_EQ(dialog_->TextOf(kOther), "kept");
    EXPECT_EQ(Send(EM_GETLIMITTEXT), 4);
    EXPECT_NE(dialog_->Send(kOther, EM_GETLIMITTEXT), 0);
    SetWindowTextA(dialog_->GetControl(kControl), "longer than four");
    SetWindowTextA(dialog_->GetControl(kOther), "new");
    // Only the given control is transferred.
    EXPECT_EQ(dialog_->FromDialog(kOther), 0);
    EXPECT_EQ(dialog_->FromDialog(999), 0);
    EXPECT_EQ(dialog_->FromDialog(0), 0);
    EXPECT_STREQ(text, "AB");
    EXPECT_EQ(dialog_->ToDialog(kOther), 0);
    EXPECT_EQ(dialog_->ToDialog(0), 0);
    EXPECT_EQ(dialog_->TextOf(kOther), "kept");
    EXPECT_EQ(dialog_->TextOf(kControl), "longer than four");
    EXPECT_EQ(dialog_->FromDialog(-1), 0);
    EXPECT_EQ(std::string(text, 6), std::string("long\0#", 6));
    EXPECT_STREQ(untouched, "kept");

    Open(
        "STATIC", SS_LEFT,
        [](BoundDialog& self) {
            self.Bind<PDialogControlStaticText>(kControl, "Length");
            self.Bind<PDialogControlStaticText>(kOther, "");
        },
        "template");
    EXPECT_EQ(dialog_->TextOf(kControl), "Length");
    EXPECT_EQ(dialog_->TextOf(kOther), "template");
}

TEST_F(DialogControls, FillsListsUpToAnEmptyTextAndConsumesThem) {
    const struct {
        bool combo;
        float before;
        LRESULT selected;
        float after;
    } cases[] = {{true, 2.5F, 3, 2.5F},  {true, -0.0F, 1, 0},  {true, 9, 0, 1},      {true, 5, 0, 1},
                 {false, 2.5F, 3, 2.5F}, {false, -0.0F, 1, 0}, {false, 9, LB_ERR, 9}};
    for (const auto& c : cases) {
        ComboListData list =
            ListOf({{1, "a"}, {2.5, "c"}, {9, "refused"}, {0, "b"}, {2.5, "d"}, {4, "x"}, {5, "behind"}});
        list[5].text[0] = '\0';
        float value = c.before;
        PDialogControl* binder = nullptr;
        RecordedCalls calls({{list, "list"}});
        calls.Record("free", std::free);
        calls.Record("SendMessageA", SendMessageA, [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
            const bool adds = message == CB_ADDSTRING || message == LB_ADDSTRING;
            if (adds && reinterpret_cast<const char*>(lParam) == std::string("refused")) return LRESULT{-2};
            const auto procedure = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(window, GWLP_WNDPROC));
            return CallWindowProcA(procedure, window, message, wParam, lParam);
        });
        Open(c.combo ? "COMBOBOX" : "LISTBOX", c.combo ? CBS_DROPDOWNLIST | CBS_SORT : LBS_SORT,
             [&](BoundDialog& self) {
                 const auto bind = [&](int id, ComboListData* from, float* to) -> PDialogControl& {
                     if (c.combo) return self.Bind<PDialogControlComboBox>(id, from, to);
                     return self.Bind<PDialogControlListBox>(id, from, to);
                 };
                 binder = &bind(kControl, &list, &value);
                 PDialogControl& unbound = bind(kOther, nullptr, nullptr);
                 EXPECT_EQ(unbound.ToDialog(), -1);
                 EXPECT_EQ(unbound.FromDialog(), -1);
             });
        EXPECT_EQ(list, nullptr);
        EXPECT_NE(calls.Take().find("free list\n"), std::string::npos);
        EXPECT_EQ(Send(c.combo ? CB_GETCOUNT : LB_GETCOUNT), 4);
        EXPECT_EQ(Send(c.combo ? CB_GETCURSEL : LB_GETCURSEL), c.selected) << c.before << ", the last of equal values";
        EXPECT_EQ(binder->FromDialog(), 0);
        EXPECT_EQ(value, c.after) << c.before;
        Send(c.combo ? CB_SETCURSEL : LB_SETCURSEL, 2);
        EXPECT_EQ(binder->FromDialog(), 0);
        EXPECT_EQ(value, 2.5F) << "sorting keeps value and text together";
        EXPECT_EQ(binder->ToDialog(), -1) << "the list was consumed";
        EXPECT_EQ(Send(c.combo ? CB_GETCOUNT : LB_GETCOUNT), 0);
        EXPECT_EQ(binder->FromDialog(), 0);
        EXPECT_EQ(value, 2.5F) << "without a selection the value stays";
    }
}

TEST_F(DialogControls, BindsACheckBoxToAFlag) {
    bool flag = true;
    PDialogControl* unbound = nullptr;
    Open("BUTTON", BS_AUTO3STATE, [&](BoundDialog& self) {
        self.Bind<PDialogControlCheckBox>(kControl, "Insulated", &flag);
        unbound = &self.Bind<PDialogControlCheckBox>(kOther, "Lost", nullptr);
    });
    EXPECT_EQ(dialog_->TextOf(kControl), "Insulated");
    EXPECT_EQ(Send(BM_GETCHECK), BST_CHECKED);
    for (const WPARAM check : {BST_INDETERMINATE, BST_CHECKED, BST_UNCHECKED}) {
        Send(BM_SETCHECK, check);
        dialog_->FromDialog(-1);
        EXPECT_EQ(flag, check == BST_CHECKED) << check;
    }
    Send(BM_SETCHECK, BST_CHECKED);
    dialog_->ToDialog(-1);
    EXPECT_EQ(Send(BM_GETCHECK), BST_UNCHECKED);
    EXPECT_EQ(unbound->ToDialog(), -1);
    EXPECT_EQ(unbound->FromDialog(), -1);
    EXPECT_EQ(dialog_->TextOf(kOther), "Lost") << "the text is set before the flag";
}

TEST_F(DialogControls, ReturnsZeroFromEveryTransfer) {
    bool flag = true;
    float value = 1;
    char text[] = "text";
    ComboListData list = ListOf({{1, "A"}});
    Open("COMBOBOX", CBS_DROPDOWNLIST, [&](BoundDialog& self) {
        for (PDialogControl* binder :
             {&self.Bind<PDialogControlComboBox>(kControl, &list, &value),
              &self.Bind<PDialogControlButton>(kOther, "Button"),
              &self.Bind<PDialogControlCheckBox>(kOther, "Box", &flag),
              &self.Bind<PDialogControlRadioButton>(kOther, "Round", &value, 1.0F),
              &self.Bind<PDialogControlStaticText>(kOther, text), &self.Bind<PDialogControlStaticImage>(kOther, "none"),
              &self.Bind<PDialogControlTextEdit>(kOther, text, 4),
              &self.Bind<PDialogControlDate>(kOther, nullptr, 8)}) {
            EXPECT_EQ(binder->ToDialog(), 0) << typeid(*binder).name();
            EXPECT_EQ(binder->FromDialog(), 0) << typeid(*binder).name();
            EXPECT_EQ(binder->HandleMessage(WM_COMMAND, 0, 0), 0);
        }
    });
}

TEST_F(DialogControls, BindsRadioButtonsToOneVariable) {
    float value = 2;
    Open("BUTTON", BS_AUTORADIOBUTTON, [&](BoundDialog& self) {
        self.Bind<PDialogControlRadioButton>(kControl, "Round", &value, 1.0F);
        self.Bind<PDialogControlRadioButton>(kOther, "Rectangular", &value, 2.0F);
    });
    EXPECT_EQ(Send(BM_GETCHECK), BST_UNCHECKED);
    EXPECT_EQ(dialog_->Send(kOther, BM_GETCHECK), BST_CHECKED);
    Send(BM_SETCHECK, BST_CHECKED);
    dialog_->Send(kOther, BM_SETCHECK, BST_UNCHECKED);
    dialog_->FromDialog(-1);
    EXPECT_EQ(value, 1);
}

TEST_F(DialogControls, ReadsDatesWithAnySeparator) {
    const struct {
        const char* before;
        int size, shown;
        const char* after;
    } cases[] = {{"5/3/2024", 32, 20240305, "5.3.2024"}, {"31-12-1999", 6, 19991231, "31.12"}};
    for (const auto& c : cases) {
        char text[32] = "";
        std::strcpy(text, c.before);
        PDialogControl* control = nullptr;
        Open("SysDateTimePick32", DTS_SHOWNONE, [&](BoundDialog& self) {
            control = &self.Bind<PDialogControlDate>(kControl, text, c.size);
            self.Bind<PDialogControlDate>(kOther, nullptr, 8);
        });
        EXPECT_EQ(control->ToDialog(), 0);
        SYSTEMTIME date = {};
        EXPECT_EQ(Send(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date)), GDT_VALID);
        EXPECT_EQ(date.wYear * 10000 + date.wMonth * 100 + date.wDay, c.shown);
        std::strcpy(text, "##########");
        EXPECT_EQ(control->FromDialog(), 0);
        EXPECT_STREQ(text, c.after);
        std::strcpy(text, "kept");
        Send(DTM_SETSYSTEMTIME, GDT_NONE, reinterpret_cast<LPARAM>(&date));
        EXPECT_EQ(control->FromDialog(), 0);
        EXPECT_STREQ(text, "kept") << "without a date the text stays";
        *text = '\0';
        RecordedCalls calls;
        calls.Return("SendMessageA", SendMessageA, 0);
        dialog_->ToDialog(-1);
        EXPECT_EQ(calls.Take().find(" 0x1002 "), std::string::npos) << "DTM_SETSYSTEMTIME was sent without a text";
    }
}

TEST_F(DialogControls, LoadsTheImageThatTheStyleSelects) {
    const TestFolder folder;
    const std::string file = folder.file("duct.bmp");
    WriteWholeFile(file, "");
    const std::string fromFile = "null \"" + file + "\" ", fromModule = "module \"#115\" ";
    const struct {
        bool isButton;
        DWORD style;
        LONG extended;
        std::string name, load;  // arguments of LoadImageA; empty when no image is loaded
        int type;
    } cases[] = {
        {true, BS_BITMAP, 0, file, fromFile + "0x0 0 0 0x1010", IMAGE_BITMAP},
        {true, BS_ICON, 0, "#115", fromModule + "0x1 0 0 0x1000", IMAGE_ICON},
        // The extended style has priority over the style, and bitmap over icon.
        {true, BS_BITMAP, BS_ICON, file, fromFile + "0x1 0 0 0x1010", IMAGE_ICON},
        {true, BS_PUSHBUTTON, BS_ICON | BS_BITMAP, file, fromFile + "0x0 0 0 0x1010", IMAGE_BITMAP},
        // A folder with the image's name is not an image file.
        {true, BS_ICON, 0, folder.path(), "module \"" + folder.path() + "\" 0x1 0 0 0x1000", IMAGE_ICON},
        {false, SS_BITMAP, 0, file, "", 0},
        {false, SS_BITMAP, 0x01, file, fromFile + "0x1 0 0 0x1010", IMAGE_ICON},
        {false, SS_BITMAP, 0x03, "#115", fromModule + "0x1 0 0 0x1000", IMAGE_ICON},
        {false, SS_ICON, 0x02, file, fromFile + "0x0 0 0 0x1010", IMAGE_BITMAP},
        {false, SS_ICON, 0x04, file, fromFile + "0x0 0 0 0x1010", IMAGE_BITMAP},
    };
    for (const auto& c : cases) {
        RecordedCalls calls({{GetModuleHandleA(kModuleFileName), "module"}});
        calls.Return("LoadImageA", LoadImageA, reinterpret_cast<HANDLE>(0x51));
        calls.Return("SendMessageA", SendMessageA, 0);
        calls.Return("DeleteObject", DeleteObject, TRUE);
        calls.Return("DestroyIcon", DestroyIcon, TRUE);
        PDialogControl* control = nullptr;
        Open(c.isButton ? "BUTTON" : "STATIC", c.style, [&](BoundDialog& self) {
            SetWindowLongA(self.GetControl(kControl), GWL_EXSTYLE, c.extended);
            control = c.isButton ? &self.Bind<PDialogControlButton>(kControl, c.name)
                                 : &self.Bind<PDialogControlStaticImage>(kControl, c.name);
        });
        const std::string state = "SendMessageA & 0xCF 0x0 0\n";  // EM_SETREADONLY
        const std::string load = "LoadImageA " + c.load + "\nSendMessageA & " + (c.isButton ? "0xF7 " : "0x172 ") +
                                 (c.type == IMAGE_ICON ? "0x1" : "0x0") + " 81\n";
        const std::string erase = c.type == IMAGE_ICON ? "DestroyIcon LoadImageA\n" : "DeleteObject LoadImageA\n";
        EXPECT_EQ(calls.Take(), c.load.empty() ? state : state + load) << c.extended;
        EXPECT_EQ(control->ToDialog(), 0);
        EXPECT_EQ(calls.Take(), c.load.empty() ? state : state + erase + load) << "the previous image is deleted";
        dialog_.reset();
        EXPECT_EQ(calls.Take(), c.load.empty() ? "" : erase);
    }
}

TEST_F(DialogControls, ShowsTheTextOfButtonsWithoutAnImage) {
    for (const DWORD style : {BS_PUSHBUTTON, BS_BITMAP, BS_ICON}) {
        Open("BUTTON", style, [](BoundDialog& self) {
            self.Bind<PDialogControlButton>(kControl, "no-such-image");
            self.Bind<PDialogControlButton>(kOther, "#115");
        });
        EXPECT_EQ(dialog_->TextOf(kControl), "no-such-image");
    }
    EXPECT_NE(dialog_->Send(kOther, BM_GETIMAGE, IMAGE_ICON), 0) << "the module has the icon";
}
