// The user-code dialog: how it opens, what it rejects, and which code the device gets.
#include "ConfiguratorDialog.h"
#include "RecordedCalls.h"
#include "SessionBench.h"
#include "Util/KLUtils_Text.h"

namespace {

using bench::BoxIcon;

class UserCodeDialog : public SessionBench {
 protected:
    UserCodeDialog() {
        EXPECT_EQ(session_.Initialize(), 0);
        EXPECT_EQ(Take(session_, "<r><device/></r>"), 0);
        Printed();
    }
    ~UserCodeDialog() override {
        for (const std::string& complaint : robot_.Complaints())
            ADD_FAILURE() << complaint;
    }

    void Types(const std::string& code) { robot_.Expect(bench::Dialog("Configurator").Type(1102, code).Press(IDOK)); }
    void Meets(const std::string& text, BoxIcon icon, const std::vector<std::string>& buttons,
               const std::string& answer) {
        robot_.Expect(bench::Box(text)
                          .Captioned("Sorvik Klimora Cloud Plugin " PRODUCT_VERSION)
                          .Icon(icon)
                          .Buttons(buttons)
                          .AnswerWith(answer));
    }
    int Show() { return ShowUserCodeDialog(bench::MainWindow(), session_); }
    std::string Device() const { return session_.CurrentDevice()->ToString(); }

    KlConn session_;
    bench::Robot robot_{bench::MainWindow()};
};

TEST_F(UserCodeDialog, OpensCentredWithTheProposalAndFocusOnOk) {
    bench::SeenDialog seen;
    robot_.Expect(bench::Dialog("Configurator")
                      .Shows(1102, "SORV2")
                      .Look([&](const bench::SeenDialog& d) { seen = d; })
                      .Press(IDCANCEL));
    RecordedCalls calls;
    calls.Record("SetDlgItemTextA", SetDlgItemTextA, [](HWND dialog, int control, LPCSTR text) {
        EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
        return SetWindowTextA(GetDlgItem(dialog, control), text);
    });
    calls.Record("GetSystemMetrics", GetSystemMetrics);
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    EXPECT_EQ(Show(), -1);
    const std::string called = calls.Take();
    for (const int size : {SM_CXSMICON, SM_CYSMICON, SM_CXICON, SM_CYICON})
        EXPECT_NE(called.find("GetSystemMetrics " + std::to_string(size) + "\n"), std::string::npos) << called;
    EXPECT_EQ(seen.focusId, IDOK);
    EXPECT_EQ(seen.owner, bench::MainWindow());
    EXPECT_FALSE(seen.watchedEnabled);
    const auto icon = [](int resource, int width, int height) {
        return LoadImageA(GetModuleHandleA("Sorvik_R24_x64.arx"), MAKEINTRESOURCEA(resource), IMAGE_ICON,
                          GetSystemMetrics(width), GetSystemMetrics(height), LR_SHARED);
    };
    EXPECT_EQ(seen.smallIcon, icon(115, SM_CXSMICON, SM_CYSMICON));
    EXPECT_EQ(seen.largeIcon, icon(118, SM_CXICON, SM_CYICON));
    EXPECT_NE(seen.smallIcon, nullptr);
    const auto middle = [](const RECT& r) { return POINT{(r.left + r.right) / 2, (r.top + r.bottom) / 2}; };
    EXPECT_NEAR(middle(seen.rectangle).x, middle(seen.ownerRectangle).x, 1);
    EXPECT_NEAR(middle(seen.rectangle).y, middle(seen.ownerRectangle).y, 1);
    EXPECT_EQ(Device(), "<device />");
}

TEST_F(UserCodeDialog, RejectsEmptyCodesAndQuestionsUsedOnes) {
    const std::string used = "User code is already in use.\nDo you want to replace existing product?";
    Types("");
    Meets("User code can not be empty", BoxIcon::kError, {"OK"}, "OK");
    Types("SORV1");
    Meets(used, BoxIcon::kWarning, {"Yes", "No"}, "No");
    robot_.Expect(bench::Dialog("Configurator").Shows(1102, "SORV1").Close());
    EXPECT_EQ(Show(), -1);
    EXPECT_EQ(Device(), "<device><UserCode>SORV1</UserCode></device>") << "the code is set before the question";
    {
        RecordedCalls calls;
        calls.Return("MessageBoxA", MessageBoxA, 0);
        Types("SORV1");
        robot_.Expect(bench::Dialog("Configurator").Shows(1102, "SORV1").Close());
        EXPECT_EQ(Show(), -1) << "a failed message box does not mean yes";
    }
    Types("ABCDEFGHIJK");
    EXPECT_EQ(Show(), 0);
    EXPECT_EQ(Device(), "<device UserCode=\"ABCDEFGHIJ\"><UserCode>ABCDEFGHIJ</UserCode></device>");
    Types("SORV1");
    Meets(used, BoxIcon::kWarning, {"Yes", "No"}, "Yes");
    EXPECT_EQ(Show(), 0);
    EXPECT_EQ(Device(), "<device UserCode=\"SORV1\"><UserCode>SORV1</UserCode></device>");
    EXPECT_EQ(Printed(), "");
}

TEST_F(UserCodeDialog, ReportsItsFailures) {
    const std::string place = "Failed to take the user code. PlugIn/ConfiguratorDialog(93):ShowUserCodeDialog ";
    RecordedCalls calls;
    calls.Return("GetWindowTextA", GetWindowTextA, 0, 0, 1);
    robot_.Expect(bench::Dialog("Configurator").Press(IDOK));
    EXPECT_EQ(Show(), -1);
    EXPECT_EQ(Printed(), Line(place + "Can not read the user code."));
    Take(session_, "<r/>");
    Printed();
    robot_.Expect(bench::Dialog("Configurator").Press(IDOK));
    EXPECT_EQ(Show(), -1);
    EXPECT_EQ(Printed(), Line(place + "There is no product to give a user code."));
    for (const INT_PTR failure : {0, -1}) {  // no owner, no template
        calls.Record("DialogBoxParamA", DialogBoxParamA, [&](HINSTANCE, LPCSTR, HWND, DLGPROC procedure, LPARAM) {
            EXPECT_EQ(procedure(nullptr, WM_COMMAND, IDOK, 0), FALSE) << "a command before WM_INITDIALOG";
            return failure;
        });
        EXPECT_EQ(Show(), -1);
        EXPECT_EQ(Printed(), Line("Can not show the user code dialog."));
    }
}

TEST_F(UserCodeDialog, ProposesTheFirstFreeNumber) {
    const struct {
        const char *others, *suffix, *proposal;  // codes beside SORV1
    } cases[] = {{"", "", "SORV2"},
                 {"SORV3", "", "SORV2"},
                 {"SORV2,SORV3", "", "SORV4"},
                 {"sorv2,SORV2 ,SORV02,SORV10", "", "SORV2"},
                 {"", "-A", "SORV1-A"},
                 {"SORV12", "2", "SORV22"}};
    for (const auto& c : cases) {
        std::string parts = "</KPDClass>";
        for (const std::string& code : KLUtils::Split(c.others, ","))
            parts.insert(0, "<Part><UserCode>" + code + "</UserCode></Part>");
        OpenSampleWith("</KPDClass>", parts);
        EXPECT_EQ(session_.ProposeUserCode("dSilencerType", c.suffix), c.proposal) << c.others;
    }
    EXPECT_EQ(session_.ProposeUserCode("dSupplyType", ""), "SORV1") << "a class without products";
    EXPECT_FALSE(session_.IsUserCodeInUse("dSupplyType", "SORV1"));
}

TEST_F(UserCodeDialog, ReadsCodesUpToTheOneInUse) {
    OpenSampleWith("</KPDClass>", "<Part><UserCode/></Part><Part><UserCode>SORV2</UserCode></Part></KPDClass>");
    const struct {
        const char* code;
        bool inUse;
        int failing;  // ordinal of the server call that fails, 0 for none
        size_t reads;
    } cases[] = {{"SORV1", true, 0, 2}, {"SORV2", true, 0, 4}, {"sorv1", false, 0, 4}, {"free", true, 1, 1},
                 {"free", true, 3, 3},  {"SORV1", true, 3, 2}, {"SORV2", true, 2, 2}};
    for (const auto& c : cases) {
        bench::ClearFaults();
        bench::ClearCallLog();
        if (c.failing > 0) bench::FailCall("IKlimora200805::getPartAtt", c.failing, 5);
        EXPECT_EQ(session_.IsUserCodeInUse("dSilencerType", c.code), c.inUse) << c.code << c.failing;
        EXPECT_EQ(Calls("IKlimora200805::getPartAtt").size(), c.reads) << c.code << c.failing;
    }
    EXPECT_EQ(session_.ProposeUserCode("dSilencerType", ""), "SORV3") << "an empty code does not end the list";
}

}  // namespace
