// The robot against real message boxes and a small dialog built in memory: what it reads, how it answers, and that it
// complains about everything that the script did not foresee.
#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <vector>

#include "Robot.h"

namespace bench {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

int ShowBox(const char* text, UINT style, HWND owner = nullptr) {
    return MessageBoxA(owner, text, "Robot at work", style);
}

constexpr int kCode = 1102;
constexpr int kCodeLimit = 10;

// A dialog with a text, a field of limited length, OK and Cancel. OK refuses an empty field with a message box.
class CodeDialog {
 public:
    CodeDialog() {
        Put<DWORD>(WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE | DS_SETFONT);
        Put<DWORD>(0);
        Put<WORD>(4);
        for (WORD size : {20, 20, 127, 47})
            Put<WORD>(size);
        Put<WORD>(0);
        Put<WORD>(0);
        PutText(L"Code");
        Put<WORD>(8);
        PutText(L"MS Shell Dlg");
        PutControl(0x0082, SS_CENTER, 4, 11, 50, 8, 0xFFFF, L"User code");
        PutControl(0x0081, WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, 71, 8, 50, 14, kCode, L"");
        PutControl(0x0080, BS_DEFPUSHBUTTON | WS_TABSTOP, 4, 29, 50, 14, IDOK, L"&OK");
        PutControl(0x0080, BS_PUSHBUTTON | WS_TABSTOP, 71, 29, 50, 14, IDCANCEL, L"Cancel");
    }

    INT_PTR Run(HWND owner = nullptr) {
        return DialogBoxIndirectParamW(nullptr, reinterpret_cast<const DLGTEMPLATE*>(template_.data()), owner,
                                       Procedure, reinterpret_cast<LPARAM>(this));
    }
    const std::string& code() const { return code_; }

 private:
    template <typename T>
    void Put(T value) {
        for (size_t i = 0; i < sizeof value; i += sizeof(WORD))
            template_.push_back(static_cast<WORD>(value >> (8 * i)));
    }
    void PutText(const wchar_t* text) {
        do
            template_.push_back(static_cast<WORD>(*text));
        while (*text++);
    }
    void PutControl(WORD className, DWORD style, WORD x, WORD y, WORD width, WORD height, WORD id,
                    const wchar_t* text) {
        if (template_.size() % 2) template_.push_back(0);
        Put<DWORD>(style | WS_CHILD | WS_VISIBLE);
        Put<DWORD>(0);
        for (WORD value : {x, y, width, height, id, WORD{0xFFFF}, className})
            Put<WORD>(value);
        PutText(text);
        Put<WORD>(0);
    }

    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM word, LPARAM parameter) {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrW(dialog, GWLP_USERDATA, parameter);
            SendDlgItemMessageW(dialog, kCode, EM_LIMITTEXT, kCodeLimit, 0);
            SetDlgItemTextA(dialog, kCode, "SORV1");
            SetFocus(GetDlgItem(dialog, IDOK));
            return FALSE;
        }
        if (message == WM_CLOSE) PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        if (message != WM_COMMAND) return FALSE;
        if (LOWORD(word) == IDCANCEL) EndDialog(dialog, IDCANCEL);
        if (LOWORD(word) == IDOK) reinterpret_cast<CodeDialog*>(GetWindowLongPtrW(dialog, GWLP_USERDATA))->Ok(dialog);
        return TRUE;
    }

    void Ok(HWND dialog) {
        char text[64] = "";
        GetDlgItemTextA(dialog, kCode, text, sizeof text);
        code_ = text;
        if (code_.empty())
            ShowBox("Code is empty", MB_OK | MB_ICONERROR, dialog);
        else
            EndDialog(dialog, IDOK);
    }

    std::vector<WORD> template_;
    std::string code_;
};

TEST(RobotTest, ReadsAndAnswersEveryKindOfBox) {
    const struct {
        UINT style;
        BoxIcon icon;
        std::vector<std::string> buttons;
        const char* answer;
        int result;
    } cases[] = {
        {MB_OK, BoxIcon::kNone, {"OK"}, "OK", IDOK},
        {MB_OK | MB_ICONERROR, BoxIcon::kError, {"OK"}, "OK", IDOK},
        {MB_OKCANCEL | MB_ICONWARNING, BoxIcon::kWarning, {"OK", "Cancel"}, "Cancel", IDCANCEL},
        {MB_YESNO | MB_ICONQUESTION, BoxIcon::kQuestion, {"Yes", "No"}, "No", IDNO},
        {MB_YESNO | MB_ICONWARNING, BoxIcon::kWarning, {"Yes", "No"}, "Yes", IDYES},
        {MB_YESNOCANCEL | MB_ICONINFORMATION, BoxIcon::kInformation, {"Yes", "No", "Cancel"}, "No", IDNO},
        {MB_RETRYCANCEL, BoxIcon::kNone, {"Retry", "Cancel"}, "Retry", IDRETRY},
    };
    Robot robot;
    for (const auto& c : cases) {
        robot.Expect(Box("First line\nsecond line")
                         .Captioned("Robot at work")
                         .Icon(c.icon)
                         .Buttons(c.buttons)
                         .AnswerWith(c.answer));
        EXPECT_EQ(c.result, ShowBox("First line\nsecond line", c.style)) << c.answer << " of " << c.style;
    }
    EXPECT_TRUE(robot.WaitUntilMet(5000));
    EXPECT_THAT(robot.Complaints(), IsEmpty());
    EXPECT_EQ(std::size(cases), robot.Seen().size());
}

TEST(RobotTest, EveryDifferenceIsAComplaintAndTheAnswerIsGivenAllTheSame) {
    Robot robot;
    robot.Expect(Box("Sure?").Captioned("Other").Icon(BoxIcon::kError).Buttons({"No", "Yes"}).AnswerWith("Yes"));
    EXPECT_EQ(IDYES, ShowBox("Sure?", MB_YESNO | MB_ICONWARNING));
    EXPECT_THAT(
        robot.Complaints(),
        ElementsAre(HasSubstr("caption of the box \"Sure?\" was expected to be \"Other\" and is \"Robot at work\""),
                    HasSubstr("icon of the box \"Sure?\" was expected to be \"error icon\" and is \"warning icon\""),
                    HasSubstr("buttons of the box \"Sure?\" was expected to be \"No Yes\" and is \"Yes No\"")));
}

TEST(RobotTest, UnexpectedBoxesAreClosedAndUnmetExpectationsTold) {
    const struct {
        UINT style;
        int result;
    } cases[] = {{MB_OK, IDOK}, {MB_YESNO, IDNO}, {MB_OKCANCEL, IDCANCEL}, {MB_ABORTRETRYIGNORE, IDABORT}};
    Robot robot;
    for (const auto& c : cases)
        EXPECT_EQ(c.result, ShowBox("Surprise", c.style)) << c.style;
    robot.Expect(Box("Never shown").AnswerWith("OK"));
    EXPECT_EQ(IDOK, ShowBox("Another", MB_OK));
    const std::vector<std::string> complaints = robot.Complaints();
    ASSERT_EQ(std::size(cases) + 2, complaints.size());
    EXPECT_THAT(complaints.front(), HasSubstr("Nothing was expected any more, but there came the box \"Surprise\""));
    EXPECT_THAT(complaints[4], HasSubstr("Expected was the box \"Never shown\", but there came the box \"Another\""));
    EXPECT_THAT(complaints[5], HasSubstr("it never came: the box \"Never shown\""));
    EXPECT_FALSE(robot.WaitUntilMet(50));
    robot.Reset();
    EXPECT_THAT(robot.Complaints(), IsEmpty());
}

TEST(RobotTest, AnAnswerThatTheBoxDoesNotOfferIsAComplaint) {
    Robot robot;
    robot.Expect(Box("Choose").AnswerWith("Maybe"));
    EXPECT_EQ(IDNO, ShowBox("Choose", MB_YESNO));
    EXPECT_THAT(robot.Complaints(),
                ElementsAre(HasSubstr("there is no button \"Maybe\""), HasSubstr("Nothing was expected")));
}

TEST(RobotTest, WorksADialogThatStaysOpenUntilItIsSatisfied) {
    Robot robot;
    robot.Expect(Dialog("Code").Saying("User code").Shows(kCode, "SORV1").Limit(kCode, 10).Type(kCode, "").Press(IDOK));
    robot.Expect(Box("Code is empty").Icon(BoxIcon::kError).AnswerWith("OK"));
    robot.Expect(Dialog("Code").Shows(kCode, "").Type(kCode, "ABCDEFGHIJKLM").AnswerWith("OK"));
    CodeDialog dialog;
    EXPECT_EQ(IDOK, dialog.Run());
    EXPECT_EQ("ABCDEFGHIJ", dialog.code()) << "typing obeys the field's limit";
    EXPECT_TRUE(robot.WaitUntilMet(5000));
    EXPECT_THAT(robot.Complaints(), IsEmpty());
    const std::vector<SeenDialog> seen = robot.Seen();
    ASSERT_EQ(3u, seen.size());
    EXPECT_EQ(seen[0].window, seen[1].owner);
    EXPECT_FALSE(seen[1].ownerEnabled) << "a modal box disables its owner";
    EXPECT_EQ(IDOK, seen[0].focusId);
    EXPECT_TRUE(seen[0].buttons.at(0).isDefault);
    EXPECT_FALSE(seen[0].buttons.at(1).isDefault);
}

TEST(RobotTest, LeavesADialogByKeyOrFrame) {
    Robot robot;
    CodeDialog dialog;
    robot.Expect(Dialog("Code").Key(VK_ESCAPE));
    EXPECT_EQ(IDCANCEL, dialog.Run());
    robot.Expect(Dialog("Code").Close());
    EXPECT_EQ(IDCANCEL, dialog.Run());
    robot.Expect(Dialog("Code").Type(kCode, "KEY").Key(VK_RETURN));
    EXPECT_EQ(IDOK, dialog.Run());
    EXPECT_EQ("KEY", dialog.code());
    EXPECT_THAT(robot.Complaints(), IsEmpty());
}

class Window {
 public:
    explicit Window(const wchar_t* className)
        : handle_(CreateWindowExW(0, className, L"", WS_POPUP | WS_VISIBLE, 100, 100, 5, 5, nullptr, nullptr, nullptr,
                                  nullptr)) {}
    ~Window() { DestroyWindow(handle_); }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    HWND handle() const { return handle_; }

 private:
    HWND handle_;
};

TEST(RobotTest, NotesTheWatchedWindowAndLeavesDialogsWithoutControlsAlone) {
    const Window main(L"Static");
    const Window empty(L"#32770");
    Robot robot(main.handle());
    std::atomic<bool> looked{false};
    EnableWindow(main.handle(), FALSE);
    robot.Expect(Box("One").Look([&](const SeenDialog&) { looked = true; }).AnswerWith("OK"));
    ShowBox("One", MB_OK);
    EnableWindow(main.handle(), TRUE);
    robot.Expect(Box("Two").AnswerWith("OK"));
    ShowBox("Two", MB_OK);

    EXPECT_TRUE(looked);
    ASSERT_EQ(2u, robot.Seen().size());
    EXPECT_FALSE(robot.Seen()[0].watchedEnabled);
    EXPECT_TRUE(robot.Seen()[1].watchedEnabled);
    ASSERT_EQ(1u, robot.Waiting().size());
    EXPECT_EQ(empty.handle(), robot.Waiting()[0].window);
    EXPECT_THAT(robot.Complaints(), IsEmpty());
}

TEST(RobotTest, TakesAPictureOfTheSizeOfTheWindow) {
    char folder[MAX_PATH];
    GetTempPathA(sizeof folder, folder);
    const std::string file = std::string(folder) + "robot-" + std::to_string(GetCurrentProcessId()) + ".png";
    RECT frame{};
    Robot robot;
    robot.Expect(
        Dialog("Code").Look([&](const SeenDialog& seen) { frame = seen.rectangle; }).Screenshot(file).Press(IDOK));
    CodeDialog().Run();
    EXPECT_THAT(robot.Complaints(), IsEmpty());

    unsigned char head[24] = {};
    DWORD read = 0;
    HANDLE handle =
        CreateFileA(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, handle);
    ReadFile(handle, head, sizeof head, &read, nullptr);
    CloseHandle(handle);
    ASSERT_EQ(sizeof head, read);
    EXPECT_EQ("\x89PNG", std::string(head, head + 4));
    EXPECT_EQ(frame.right - frame.left, head[18] * 256 + head[19]);
    EXPECT_EQ(frame.bottom - frame.top, head[22] * 256 + head[23]);
}

}  // namespace
}  // namespace bench
