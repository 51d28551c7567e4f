#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "DiagnosticsFixture.h"
#include "DialogFixture.h"
#include "ImportPatch.h"
#include "Robot.h"
#include "Util/PDialogControlButtons.h"
#include "Util/PDialogControlLists.h"
#include "Util/PDialogControlTexts.h"

namespace {

constexpr int kEdit = 1200;
constexpr int kUnbound = 1201;

DialogTemplate Layout() {
    DialogTemplate layout(L"Bound");
    layout.Add(L"EDIT", WS_BORDER | WS_TABSTOP, kEdit, L"", 0)
        .Add(L"EDIT", WS_BORDER | WS_TABSTOP, kUnbound, L"free", 1)
        .Add(L"BUTTON", BS_DEFPUSHBUTTON | WS_TABSTOP, IDOK, L"OK", 2)
        .Add(L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, IDCANCEL, L"Cancel", 3)
        .Add(L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, IDCLOSE, L"Close", 4);
    return layout;
}

int endedWith = 0;
BOOL WINAPI RecordEnd(HWND, INT_PTR result) {
    endedWith = static_cast<int>(result);
    return TRUE;
}

// A binder that answers every message with its own result.
class Greedy : public PDialogControl {
 public:
    Greedy(HWND window, ControlState state, const std::string& tooltip, INT_PTR result)
        : PDialogControl(window, state, tooltip), result_(result) {}
    INT_PTR HandleMessage(UINT, WPARAM, LPARAM) override { return result_; }

 private:
    INT_PTR result_;
};

class DialogMessages : public DiagnosticsTest {
 protected:
    DialogMessages() { g_diagSettings->errorBits = RF_LOG | RF_FUNCTION | RF_FILELINE; }

    BoundDialog dialog_{[this](BoundDialog& self) {
        self.Bind<PDialogControlTextEdit>(kEdit, kControlNormal, "Length in mm", text_, 15);
    }};
    char text_[16] = "900";
};

std::string TooltipOf(BoundDialog& dialog, int id) {
    NMTTDISPINFOA question = {};
    question.hdr.code = TTN_GETDISPINFOA;
    question.hdr.idFrom = reinterpret_cast<UINT_PTR>(dialog.GetControl(id));
    EXPECT_EQ(dialog.HandleMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&question)), 0);
    return question.lpszText ? question.lpszText : "null";
}

}  // namespace

TEST_F(DialogMessages, OkClosesOnceTheValuesAreAccepted) {
    bench::Robot robot;
    robot.Expect(bench::Dialog("Bound").Shows(kEdit, "900").Limit(kEdit, 15).Press(IDOK));
    robot.Expect(bench::Dialog("Bound").Type(kEdit, "1250").Press(IDOK));
    dialog_.verdicts = {1, 0};
    EXPECT_EQ(dialog_.Run(Layout()), 1);
    EXPECT_EQ(dialog_.validations, std::vector<std::string>({"1 1 1 0", "1 1 1 0"}));
    EXPECT_STREQ(text_, "1250");
    EXPECT_TRUE(robot.Complaints().empty()) << robot.Complaints().front();
}

TEST_F(DialogMessages, CancelAndCloseEndWithTwo) {
    for (const int button : {IDCANCEL, IDCLOSE}) {
        bench::Robot robot;
        robot.Expect(bench::Dialog("Bound").Press(button));
        BoundDialog dialog([](BoundDialog&) {});
        EXPECT_EQ(dialog.Run(Layout()), 2) << button;
        EXPECT_TRUE(dialog.validations.empty());
        EXPECT_TRUE(robot.Complaints().empty()) << robot.Complaints().front();
    }
}

TEST_F(DialogMessages, CommandsCountOnlyFromTheirButton) {
    dialog_.Open(Layout());
    const ImportPatch patch("EndDialog", RecordEnd);
    const struct {
        int command;
        int from;  // control, 0 for none
        int ends;
    } cases[] = {{IDOK, IDOK, 1},         {IDOK, 0, 0},        {IDOK, IDCANCEL, 0},   {IDCANCEL, 0, 0},
                 {IDCANCEL, IDCANCEL, 2}, {IDCANCEL, IDOK, 0}, {IDCLOSE, IDCLOSE, 2}, {IDCLOSE, 0, 0},
                 {IDCANCEL, IDCLOSE, 2},  {IDCLOSE, kEdit, 0}, {kEdit, kEdit, 0}};
    for (const auto& c : cases) {
        endedWith = 0;
        const LPARAM from = reinterpret_cast<LPARAM>(c.from ? dialog_.GetControl(c.from) : nullptr);
        EXPECT_EQ(dialog_.HandleMessage(WM_COMMAND, MAKEWPARAM(c.command, BN_CLICKED), from), 0);
        EXPECT_EQ(endedWith, c.ends) << c.command << " from " << c.from;
    }
}

TEST_F(DialogMessages, TheFrameOnlyPostsACancelThatEndsNothing) {
    dialog_.Open(Layout());
    const HWND window = GetParent(dialog_.GetControl(IDOK));
    EXPECT_TRUE(dialog_.HasControl(IDOK));
    EXPECT_FALSE(dialog_.HasControl(9999));
    EXPECT_EQ(dialog_.HandleMessage(WM_CLOSE, 0, 0), 0);
    MSG posted = {};
    ASSERT_TRUE(PeekMessageA(&posted, window, WM_COMMAND, WM_COMMAND, PM_REMOVE));
    EXPECT_EQ(posted.wParam, static_cast<WPARAM>(IDCANCEL));
    EXPECT_EQ(posted.lParam, 0);
    EXPECT_EQ(dialog_.HandleMessage(WM_HELP, 0, 0), 1);
    EXPECT_EQ(dialog_.HandleMessage(WM_SIZE, 0, 0), 0);
}

TEST_F(DialogMessages, FocusSelectsTheWholeText) {
    dialog_.Open(Layout());
    const auto enter = [&](int id) {
        return dialog_.HandleMessage(WM_COMMAND, MAKEWPARAM(id, EN_SETFOCUS),
                                     reinterpret_cast<LPARAM>(dialog_.GetControl(id)));
    };
    SendMessageA(dialog_.GetControl(kEdit), EM_SETSEL, 1, 1);
    SetFocus(dialog_.GetControl(IDOK));
    EXPECT_EQ(enter(kEdit), 1);
    EXPECT_EQ(GetFocus(), dialog_.GetControl(kEdit));
    EXPECT_EQ(SendMessageA(dialog_.GetControl(kEdit), EM_GETSEL, 0, 0), MAKELRESULT(0, 3));
    EXPECT_EQ(enter(kUnbound), 0) << "no binder, no care";
    EXPECT_EQ(GetFocus(), dialog_.GetControl(kEdit));
}

TEST_F(DialogMessages, BindersSeeMessagesFirst) {
    BoundDialog dialog([](BoundDialog& self) {
        self.Bind<Greedy>(kEdit, kControlNormal, "", 0);
        self.Bind<Greedy>(kUnbound, kControlNormal, "", 42);
        self.Bind<Greedy>(IDOK, kControlNormal, "", 43);
    });
    EXPECT_EQ(dialog.HandleMessage(WM_HELP, 0, 0), 1);
    dialog.Open(Layout());
    EXPECT_EQ(dialog.HandleMessage(WM_HELP, 0, 0), 42);
}

TEST_F(DialogMessages, TooltipsComeFromTheBinders) {
    HWND tips = nullptr;
    {
        BoundDialog dialog([&](BoundDialog& self) {
            self.Bind<PDialogControlTextEdit>(kEdit, kControlNormal, "Length in mm", text_, 15);
            self.Bind<PDialogControlTextEdit>(kUnbound, kControlNormal, "", nullptr, 0);
            self.Bind<PDialogControlButton>(IDOK, kControlNormal, "Takes the values", "OK");
        });
        dialog.Open(Layout());
        tips = dialog.tooltipWindow();
        ASSERT_TRUE(IsWindow(tips));
        EXPECT_EQ(GetWindowLongA(tips, GWL_STYLE) & (TTS_NOPREFIX | TTS_ALWAYSTIP), TTS_NOPREFIX | TTS_ALWAYSTIP);
        EXPECT_EQ(SendMessageA(tips, TTM_GETTOOLCOUNT, 0, 0), 2) << "no text, no tool";
        EXPECT_EQ(TooltipOf(dialog, kEdit), "Length in mm");
        EXPECT_EQ(TooltipOf(dialog, IDOK), "Takes the values");
        EXPECT_EQ(TooltipOf(dialog, kUnbound), "null");

        TOOLINFOA tool = {};
        tool.cbSize = sizeof tool;
        ASSERT_TRUE(SendMessageA(tips, TTM_ENUMTOOLSA, 0, reinterpret_cast<LPARAM>(&tool)));
        EXPECT_EQ(tool.uFlags, static_cast<UINT>(TTF_IDISHWND | TTF_SUBCLASS));
        EXPECT_EQ(tool.uId, reinterpret_cast<UINT_PTR>(dialog.GetControl(kEdit)));
        EXPECT_EQ(tool.hwnd, GetParent(dialog.GetControl(kEdit)));
    }
    EXPECT_FALSE(IsWindow(tips));
}

TEST_F(DialogMessages, ColoursAreAnsweredWithOneBrush) {
    const HDC device = CreateCompatibleDC(nullptr);
    const HBRUSH red = dialog_.CtlColor(device, RGB(1, 2, 3), RGB(200, 0, 0));
    LOGBRUSH facts = {};
    ASSERT_TRUE(GetObjectA(red, sizeof facts, &facts));
    EXPECT_EQ(facts.lbColor, RGB(200, 0, 0));
    EXPECT_EQ(GetTextColor(device), RGB(1, 2, 3));
    EXPECT_EQ(GetBkColor(device), RGB(200, 0, 0));
    EXPECT_EQ(GetBkMode(device), TRANSPARENT);
    EXPECT_EQ(dialog_.CtlColor(device, 0, RGB(200, 0, 0)), red);

    const HBRUSH face = dialog_.CtlColor(device, 0xFFFFFFFF, 0xFFFFFFFF);
    ASSERT_TRUE(GetObjectA(face, sizeof facts, &facts));
    EXPECT_EQ(facts.lbColor, GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(GetTextColor(device), GetSysColor(COLOR_BTNTEXT));

    BoundDialog fresh([](BoundDialog&) {});
    EXPECT_NE(fresh.CtlColor(device, 0, 0), nullptr) << "black is a colour like any other";
    DeleteDC(device);
}

TEST_F(DialogMessages, MissingPartsAreReported) {
    BoundDialog dialog([](BoundDialog&) {});
    EXPECT_EQ(dialog.SetHandle(nullptr), -1);
    EXPECT_EQ(dialog.AddControl(nullptr), -1);
    EXPECT_EQ(dialog.ToDialog(-1), -1);
    EXPECT_EQ(dialog.FromDialog(-1), 0);
    EXPECT_EQ(LogLines(),
              "Error  -  PDialog::SetHandle(...)  -  \"Dialog handle is NULL\"  -  PlugIn/Util/PDialog#49\n"
              "Error  -  PDialog::AddControl(...)  -  \"Wrong parameter _Control is NULL\"  -  PlugIn/Util/PDialog#62\n"
              "Error  -  PDialog::ToDialog(...)  -  \"Dialog handle is NULL\"  -  PlugIn/Util/PDialog#144\n");
}

// Everything at once, for a person to look at: the picture stays when SORVIK_KEEP_PICTURES is set.
TEST_F(DialogMessages, ADialogWithEveryKindOfControl) {
    enum { kLabel = 1300, kLength, kShape, kSize, kRound, kBox, kInsulated, kDate, kIcon };
    DialogTemplate layout(L"template", 190, 190);
    layout.Add(L"STATIC", SS_ICON, kIcon, L"", 0, 2, 0x01)
        .Add(L"STATIC", SS_LEFT, kLabel, L"", 2)
        .Add(L"EDIT", WS_BORDER | WS_TABSTOP, kLength, L"", 3)
        .Add(L"COMBOBOX", CBS_DROPDOWNLIST | WS_TABSTOP, kShape, L"", 4, 4)
        .Add(L"LISTBOX", WS_BORDER | WS_TABSTOP, kSize, L"", 5, 2)
        .Add(L"BUTTON", BS_AUTORADIOBUTTON | WS_GROUP, kRound, L"", 7, 1, 0, 5, 70)
        .Add(L"BUTTON", BS_AUTORADIOBUTTON, kBox, L"", 7, 1, 0, 80, 70)
        .Add(L"BUTTON", BS_AUTOCHECKBOX | WS_GROUP, kInsulated, L"", 8)
        .Add(L"SysDateTimePick32", WS_TABSTOP, kDate, L"", 9)
        .Add(L"BUTTON", BS_DEFPUSHBUTTON | WS_TABSTOP, IDOK, L"OK", 10, 1, 0, 5, 60);
    char length[8] = "900", date[16] = "5/3/2024";
    float shape = 2, size = 315, kind = 1;
    bool insulated = true;
    ComboListData shapes = nullptr, sizes = nullptr;
    for (const auto& [value, text] : {std::pair{1, "Straight"}, {2, "Bend"}})
        InsertComboListDataItem(&shapes, value, text);
    for (const int diameter : {250, 315, 400})
        InsertComboListDataItem(&sizes, diameter, ("Diameter " + std::to_string(diameter)).c_str());
    BoundDialog dialog([&](BoundDialog& self) {
        self.SetTitle("Silencer");
        self.Bind<PDialogControlStaticImage>(kIcon, kControlNormal, "", "#115");
        self.Bind<PDialogControlStaticText>(kLabel, kControlNormal, "", "Length in mm");
        self.Bind<PDialogControlTextEdit>(kLength, kControlNormal, "600 to 1200", length, 4);
        self.Bind<PDialogControlComboBox>(kShape, kControlNormal, "", &shapes, &shape);
        self.Bind<PDialogControlListBox>(kSize, kControlNormal, "", &sizes, &size);
        self.Bind<PDialogControlRadioButton>(kRound, kControlNormal, "", "Round", &kind, 1.0F);
        self.Bind<PDialogControlRadioButton>(kBox, kControlNormal, "", "Rectangular", &kind, 2.0F);
        self.Bind<PDialogControlCheckBox>(kInsulated, kControlDisabled, "", "Insulated", &insulated);
        self.Bind<PDialogControlDate>(kDate, kControlNormal, "", date, 16);
    });
    const std::string picture = "bound-dialog.png";
    bench::Robot robot;
    robot.Expect(
        bench::Dialog("Silencer").Saying("Length in mm").Type(kLength, "12345").Screenshot(picture).Press(IDOK));
    EXPECT_EQ(dialog.Run(layout), IDOK);
    EXPECT_TRUE(robot.Complaints().empty()) << robot.Complaints().front();
    EXPECT_STREQ(length, "1234");
    EXPECT_STREQ(date, "5.3.2024");
    EXPECT_EQ(shape, 2);
    EXPECT_EQ(size, 315);
    EXPECT_EQ(kind, 1);
    EXPECT_TRUE(insulated);
    EXPECT_TRUE(Exists(picture));
    if (!std::getenv("SORVIK_KEEP_PICTURES")) DeleteFileA(picture.c_str());
}
