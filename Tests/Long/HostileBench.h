// A run of the command against a server that does not mean well, and what holds after any of them. What takes most of a
// run's time is left out: a process that ended before stands in for the configurator's program, boxes are answered as
// soon as they are asked for, and the dialog ends with OK before it opens.
#pragma once

#include <cstdlib>
#include <utility>

#include "CommandBench.h"
#include "RequestTarget.h"
#include "Unit/ImportPatch.h"

class HostileBench : public CommandBench {
 protected:
    HostileBench() {
        STARTUPINFOA startup = {};
        char line[] = "cmd /c exit 1";
        CreateProcessA(nullptr, line, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &ended_);
        EXPECT_EQ(WaitForSingleObject(ended_.hProcess, 60000), WAIT_OBJECT_0);
    }
    ~HostileBench() override { bench::ClearAnswers(); }

    // The user does what leads to a product, whatever comes. True when the command committed.
    bool RunsCleanly() {
        std::string reason;
        if (std::exchange(committed_, false)) {
            bench::NewDrawing("Office.dwg");
            EXPECT_TRUE(bench::OpenProject("office.xml", reason)) << reason;
        }
        StartOver();
        bench::ClearAnswers();
        boxes_.clear();
        Picks("2A3");
        ConfirmsInsertion();
        const std::string folders = TemporaryFolders();
        const ULONGLONG start = GetTickCount64();
        Run();
        EXPECT_LT(GetTickCount64() - start, 20000u);
        committed_ = CountOf("AcTransactionManager::endTransaction") > 0;
        if (committed_)
            ExpectCommitted();
        else
            ExpectNothingChanged();
        EXPECT_TRUE(committed_ || Told().find(kName) != std::string::npos) << "the user was not told";
        EXPECT_EQ(TemporaryFolders(), folders);
        EXPECT_EQ(Owed(), std::vector<std::string>{});
        TakeBackWhatIsOwed();
        // What does not fit into a record is the record database's to refuse.
        for (const std::string& sentence : bench::Accusations())
            EXPECT_EQ(sentence.find("kbinsertatt was called for the attribute "), 0u) << sentence;
        bench::ClearAccusations();
        return committed_;
    }
    // After a run with the usual answers.
    std::string GoodResult() {
        EXPECT_TRUE(RunsCleanly());
        const std::string path = Calls("GET /klimora/export/").at(0);
        return Published("/klimora/export/" + path.substr(0, path.find(' ')));
    }
    static std::string Published(const std::string& path) {
        return TheWebServer().Answer("GET", bench::ParseRequestTarget(path), bench::Trouble::kNone).body;
    }
    // Cases are numbered from 1; with a number in SORVIK_CASE, that one alone is run.
    static bool IsWanted(int number) {
        const char* const only = std::getenv("SORVIK_CASE");
        return !only || std::atoi(only) == number;
    }
    static std::string OnceMore(int number) {
        return "\nonce more: SORVIK_CASE=" + std::to_string(number) + " ./test long -R " +
               testing::UnitTest::GetInstance()->current_test_info()->test_suite_name();
    }
    // What the user saw: the command line, and captions and texts of boxes.
    std::string Told() const { return Printed() + boxes_; }

 private:
    static HANDLE Duplicate(HANDLE handle) {
        HANDLE duplicate = nullptr;
        DuplicateHandle(GetCurrentProcess(), handle, GetCurrentProcess(), &duplicate, 0, FALSE, DUPLICATE_SAME_ACCESS);
        return duplicate;
    }
    static BOOL WINAPI Launch(LPCSTR, LPSTR line, LPSECURITY_ATTRIBUTES, LPSECURITY_ATTRIBUTES, BOOL, DWORD, LPVOID,
                              LPCSTR, LPSTARTUPINFOA, LPPROCESS_INFORMATION started) {
        const std::string words = line, session = words.substr(words.find("klsid=") + 6, 32);
        const auto choice = bench::ParseRequestTarget("/klimora/choose?product=SRC-250-900&klsid=" + session);
        TheWebServer().Answer("POST", choice, bench::Trouble::kNone);
        *started = {Duplicate(ended_.hProcess), Duplicate(ended_.hThread), 0, 0};
        return TRUE;
    }
    static int WINAPI AnswerBox(HWND, LPCSTR text, LPCSTR caption, UINT type) {
        boxes_ += "[" + std::string(caption) + ": " + text + "]";
        return type & MB_YESNO ? IDYES : IDOK;
    }
    static INT_PTR WINAPI AnswerDialog(HINSTANCE, LPCSTR, HWND, DLGPROC, LPARAM) { return IDOK; }

    static inline PROCESS_INFORMATION ended_;
    static inline std::string boxes_;
    const HMODULE module_ = GetModuleHandleA("Sorvik_R24_x64.arx");
    const ImportPatch launch_{"CreateProcessA", Launch, module_};
    const ImportPatch box_{"MessageBoxA", AnswerBox, module_};
    const ImportPatch dialog_{"DialogBoxParamA", AnswerDialog, module_};
    bool committed_ = false;
};
