#include "DiagnosticsFixture.h"
#include "DialogFixture.h"
#include "Lib/FormatText.h"
#include "Lib/ModuleIdentity.h"
#include "RecordedCalls.h"
#include "Util/PDialogControlButtons.h"
#include "Util/PDialogControlTexts.h"

namespace {

constexpr int kEdit = 1200;
constexpr int kUnbound = 1201;

// A binder that returns its own result for every message.
struct Greedy : PDialogControl {
    Greedy(HWND window, ControlState state, const std::string& tooltip, INT_PTR result)
        : PDialogControl(window, state, tooltip), result_(result) {}
    INT_PTR HandleMessage(UINT, WPARAM, LPARAM) override { return result_; }
    const INT_PTR result_;
};

class DialogMessages : public ErrorReportsTest {
 protected:
    void Open(const std::function<void(BoundDialog&)>& bind) {
        dialog_->Open({{"EDIT", WS_BORDER, kEdit, "900"},
                       {"EDIT", WS_BORDER, kUnbound, "free"},
                       {"BUTTON", BS_PUSHBUTTON, IDOK, "OK"},
                       {"BUTTON", BS_PUSHBUTTON, IDCANCEL, "Cancel"},
                       {"BUTTON", BS_PUSHBUTTON, IDCLOSE, "Close"}},
                      [&] { bind(*dialog_); });
    }
    LRESULT Command(int command, int code, int from) {
        return dialog_->HandleMessage(WM_COMMAND, MAKEWPARAM(command, code),
                                      reinterpret_cast<LPARAM>(from ? dialog_->GetControl(from) : nullptr));
    }

    std::unique_ptr<BoundDialog> dialog_ = std::make_unique<BoundDialog>();
};

}  // namespace

TEST_F(DialogMessages, AcceptsCommandsOnlyFromTheirButton) {
    Open([](BoundDialog&) {});
    RecordedCalls calls({{dialog_->dialogWindow(), "dialog"}});
    calls.Return("EndDialog", EndDialog, TRUE);
    const struct {
        int command, from;  // control, 0 for none
        int verdict, validations, ends;
    } cases[] = {
        {IDOK, IDOK, 0, 1, 1},                            // valid
        {IDOK, IDOK, 1, 1, 0},                            // invalid
        {IDOK, IDOK, -1, 1, 0},      {IDOK, 0, 0, 0, 0},  // without a button
        {IDOK, IDCANCEL, 0, 0, 0},   {IDCANCEL, 0, 0, 0, 0}, {IDCANCEL, IDCANCEL, 0, 0, 2}, {IDCANCEL, IDOK, 0, 0, 0},
        {IDCLOSE, IDCLOSE, 0, 0, 2}, {IDCLOSE, 0, 0, 0, 0},  {IDCANCEL, IDCLOSE, 0, 0, 2},  {kEdit, kEdit, 0, 0, 0},
    };
    for (const auto& c : cases) {
        dialog_->validations = 0;
        dialog_->verdict = c.verdict;
        EXPECT_EQ(Command(c.command, BN_CLICKED, c.from), 0);
        EXPECT_EQ(dialog_->validations, c.validations) << c.command << " from " << c.from;
        EXPECT_EQ(calls.Take(), c.ends ? "EndDialog dialog " + std::to_string(c.ends) + "\n" : "")
            << c.command << " from " << c.from;
    }
}

TEST_F(DialogMessages, PassesMessagesToBindersFirstAndPostsCancelOnClose) {
    Open([](BoundDialog&) {});
    EXPECT_TRUE(dialog_->HasControl(IDOK));
    EXPECT_FALSE(dialog_->HasControl(9999));
    RecordedCalls calls({{dialog_->dialogWindow(), "dialog"}});
    calls.Return("PostMessageA", PostMessageA, TRUE);
    EXPECT_EQ(dialog_->HandleMessage(WM_CLOSE, 0, 0), 0);
    EXPECT_EQ(calls.Take(), "PostMessageA dialog 0x111 0x2 0\n");
    EXPECT_EQ(dialog_->HandleMessage(WM_HELP, 0, 0), 1);
    EXPECT_EQ(dialog_->HandleMessage(WM_SIZE, 0, 0), 0);
    dialog_->Bind<Greedy>(kEdit, 0);
    dialog_->Bind<Greedy>(kUnbound, 42);
    dialog_->Bind<Greedy>(IDOK, 43);
    EXPECT_EQ(dialog_->HandleMessage(WM_HELP, 0, 0), 42);
}

TEST_F(DialogMessages, SelectsTheWholeTextOnFocus) {
    Open([](BoundDialog& self) { self.Bind<PDialogControlTextEdit>(kEdit, nullptr, 0); });
    dialog_->Send(kEdit, EM_SETSEL, 1, 1);
    SetFocus(dialog_->GetControl(IDOK));
    EXPECT_EQ(Command(kEdit, EN_CHANGE, kEdit), 0);
    EXPECT_EQ(Command(kUnbound, EN_SETFOCUS, kUnbound), 0) << "without a binder";
    EXPECT_EQ(GetFocus(), dialog_->GetControl(IDOK));
    EXPECT_EQ(Command(kEdit, EN_SETFOCUS, kEdit), 1);
    EXPECT_EQ(GetFocus(), dialog_->GetControl(kEdit));
    EXPECT_EQ(dialog_->Send(kEdit, EM_GETSEL), MAKELRESULT(0, 3));
}

TEST_F(DialogMessages, ShowsTheTooltipsOfBinders) {
    Open([&](BoundDialog& self) {
        self.BindAs<PDialogControlTextEdit>(kEdit, kControlNormal, "Length in mm", nullptr, 0);
        self.Bind<PDialogControlTextEdit>(kUnbound, nullptr, 0);
        self.BindAs<PDialogControlButton>(IDOK, kControlNormal, "Takes the values", "OK");
    });
    const HWND tips = dialog_->tooltipWindow();
    EXPECT_EQ(SendMessageA(tips, TTM_GETTOOLCOUNT, 0, 0), 2) << "a tool without a text";
    const auto textOf = [&](int id, UINT code) {
        NMTTDISPINFOA question = {};
        question.hdr.code = code;
        question.hdr.idFrom = reinterpret_cast<UINT_PTR>(dialog_->GetControl(id));
        EXPECT_EQ(dialog_->HandleMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&question)), 0);
        return std::string(question.lpszText ? question.lpszText : "null");
    };
    EXPECT_EQ(textOf(kEdit, TTN_GETDISPINFOA), "Length in mm");
    EXPECT_EQ(textOf(IDOK, TTN_GETDISPINFOA), "Takes the values");
    EXPECT_EQ(textOf(kUnbound, TTN_GETDISPINFOA), "null");
    EXPECT_EQ(textOf(kEdit, TTN_GETDISPINFOW), "null") << "another notification";

    // The destructor releases everything, the tools before the window.
    const HDC device = CreateCompatibleDC(nullptr);
    RecordedCalls calls({{dialog_->CtlColor(device, 0, RGB(1, 1, 1)), "brush"}, {tips, "tips"}});
    const HWND dialogWindow = dialog_->dialogWindow();
    const std::vector<HWND> expected = {dialog_->GetControl(kEdit), dialog_->GetControl(IDOK)};
    std::vector<HWND> tools;
    calls.Record("DestroyWindow", DestroyWindow);
    calls.Record("DeleteObject", DeleteObject);
    calls.Record("SendMessageA", SendMessageA, [&](HWND window, UINT message, WPARAM, LPARAM lParam) {
        EXPECT_EQ(window, tips);
        EXPECT_NE(calls.Take().find("SendMessageA"), std::string::npos);
        const auto& tool = *reinterpret_cast<TOOLINFOA*>(lParam);
        tools.push_back(reinterpret_cast<HWND>(tool.uId));
        // TTM_DELTOOLA with LPSTR_TEXTCALLBACK.
        EXPECT_EQ(
            FormatString("%X %u %u %lld", message, tool.cbSize, tool.uFlags, reinterpret_cast<int64_t>(tool.lpszText)),
            "405 72 17 -1");
        EXPECT_EQ(tool.hwnd, dialogWindow);
        return 0;
    });
    dialog_.reset();
    EXPECT_EQ(tools, expected);
    EXPECT_EQ(calls.Take(), "DeleteObject brush\nDestroyWindow tips\n");
    DeleteDC(device);
}

TEST_F(DialogMessages, CreatesTheTooltipWindowForDialogAndModule) {
    Open([](BoundDialog&) {});
    RecordedCalls calls({{dialog_->dialogWindow(), "dialog"}, {GetModuleHandleA(kModuleFileName), "module"}});
    calls.Record("InitCommonControls", InitCommonControls);
    calls.Return("CreateWindowExA", CreateWindowExA, nullptr);
    EXPECT_EQ(dialog_->HandleMessage(WM_INITDIALOG, 0, 0), 0);
    EXPECT_EQ(calls.Take(),
              "InitCommonControls\nCreateWindowExA 0x0 \"tooltips_class32\" null 0x80000003 -2147483648 -2147483648 "
              "-2147483648 -2147483648 dialog null module null\n");
}

TEST_F(DialogMessages, ReturnsOneBrushForColours) {
    const HDC device = CreateCompatibleDC(nullptr);
    RecordedCalls calls;
    calls.Record("GetSysColor", GetSysColor, [](int which) { return 0xAB0000u + static_cast<DWORD>(which); });
    calls.Record("CreateSolidBrush", CreateSolidBrush);
    calls.Record("DeleteObject", DeleteObject);
    const struct {
        COLORREF text, background;
        const char *calls, *seen;
    } cases[] = {
        {0, 0, "CreateSolidBrush 0x0\n", "text 0 on 0 with 0"},  // black, not "no colour"
        {0x030201, 0xC8, "CreateSolidBrush 0xC8\nDeleteObject CreateSolidBrush\n", "text 30201 on C8 with C8"},
        {0, 0xC8, "", "text 0 on C8 with C8"},
        {CLR_INVALID, CLR_INVALID,
         "GetSysColor 18\nGetSysColor 15\nCreateSolidBrush 0xAB000F\nDeleteObject CreateSolidBrush\n",
         "text AB0012 on AB000F with AB000F"},
    };
    for (const auto& c : cases) {
        LOGBRUSH brush = {};
        SetBkMode(device, OPAQUE);
        EXPECT_TRUE(GetObjectA(dialog_->CtlColor(device, c.text, c.background), sizeof brush, &brush));
        EXPECT_EQ(calls.Take(), c.calls);
        EXPECT_EQ(FormatString("text %lX on %lX with %lX", GetTextColor(device), GetBkColor(device), brush.lbColor),
                  c.seen);
        EXPECT_EQ(GetBkMode(device), TRANSPARENT);
    }
    DeleteDC(device);
}

TEST_F(DialogMessages, ReportsMissingParts) {
    EXPECT_EQ(dialog_->SetHandle(nullptr), -1);
    EXPECT_EQ(dialog_->AddControl(nullptr), -1);
    EXPECT_EQ(dialog_->ToDialog(-1), -1);
    EXPECT_EQ(dialog_->FromDialog(-1), 0);
    EXPECT_EQ(LogLines(), Line("PDialog::SetHandle", "Dialog handle is NULL", "Util/PDialog#49") +
                              Line("PDialog::AddControl", "Wrong parameter _Control is NULL", "Util/PDialog#62") +
                              Line("PDialog::ToDialog", "Dialog handle is NULL", "Util/PDialog#144"));
}
