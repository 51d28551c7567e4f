// The command line: order of queued commands, prompts that read queued lines, and what the transcript shows.
#include "AutoCADFixture.h"

#include "accmd.h"
#include "acdocman.h"

using bench::Answer;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class AutoCADCommands : public AutoCADTest {
 protected:
    Acad::ErrorStatus Send(const wchar_t* text) {
        return acDocManager->sendStringToExecute(Document(), text, true, false, false);
    }
    // What acedGetString read, or the code in brackets.
    static std::string Read(const wchar_t* prompt, int cronly = 1) {
        wchar_t text[32] = L"poison";
        const int code = acedGetString(cronly, prompt, text);
        return code == RTNORM ? Narrowed(text) : "[" + std::to_string(code) + "]";
    }
    // The same for several prompts, in their order.
    static std::string ReadAll(const std::vector<std::pair<const wchar_t*, int>>& prompts) {
        std::string all;
        for (const auto& [prompt, cronly] : prompts)
            all += (all.empty() ? "" : "|") + Read(prompt, cronly);
        return all;
    }
};

int timesRun = 0;
void CountRun() {
    ++timesRun;
}

}  // namespace

TEST_F(AutoCADCommands, QueuedCommandsRunAfterTheRunningOneReturned) {
    std::vector<std::string> order;
    bench::AddForeignCommand("KLIMSILX", [&] { order.push_back(ReadAll({{L"Family: ", 1}, {L"Code: ", 1}})); });
    bench::AddForeignCommand("AFTER", [&] { order.push_back("after"); });
    RunAs("SORVSIL", [&] {
        EXPECT_EQ(Send(L"KLIMSILX\nF 1\nSORV1\n"), Acad::eOk);
        EXPECT_EQ(Send(L"AFTER\n"), Acad::eOk);
        EXPECT_FALSE(acDocManager->isApplicationContext());
        order.push_back("returned");
    });
    EXPECT_THAT(order, ElementsAre("returned", "F 1|SORV1", "after"));
    EXPECT_EQ(bench::Transcript(),
              "\nCommand: SORVSIL\n\nCommand: KLIMSILX\nFamily: F 1\nCode: SORV1\n\nCommand: AFTER\n");
    EXPECT_THAT(bench::Journal(), testing::Contains("AcApDocManager::sendStringToExecute KLIMSILX\\nF 1\\nSORV1\\n "
                                                    "activate=1 wrapUp=0 echo=0 -> 0"));
    bench::RemoveForeignCommand("KLIMSILX");
    bench::RemoveForeignCommand("AFTER");
}

TEST_F(AutoCADCommands, LineBreakInAQueuedValueBecomesACommandOfItsOwn) {
    std::string read;
    bench::AddForeignCommand("KLIMSILX", [&] { read = ReadAll({{L"Family: ", 1}, {L"Code: ", 1}}); });
    RunAs("SORVSIL", [&] { Send(L"KLIMSILX\nF\n1\nSORV1\n"); });
    EXPECT_EQ(read, "F|1");
    EXPECT_THAT(bench::Transcript(), HasSubstr("Unknown command \"SORV1\".  Press F1 for help.\n"));
    bench::RemoveForeignCommand("KLIMSILX");
}

TEST_F(AutoCADCommands, PromptsFallBackToTheUserAndTheEmptyLineRepeats) {
    std::vector<std::string> read;
    bench::AddForeignCommand("ASK", [&] { read.push_back(Read(L"Name: ")); });
    bench::QueueAnswer({Answer::kText, "two words"});
    bench::QueueAnswer({Answer::kEscape, ""});
    bench::QueueAnswer({Answer::kEnter, ""});
    bench::RunCommand("_ask");
    bench::RunCommand("ASK");
    RunAs("SENDS", [&] { Send(L"ASK\n"); });
    EXPECT_THAT(read, ElementsAre("two words", "[-5002]", ""));
    int runs = 0;
    RunAs("REPEATED", [&] {
        if (++runs == 1) Send(L"\n");
    });
    EXPECT_EQ(runs, 2);
    EXPECT_THAT(bench::Transcript(), HasSubstr("Command: REPEATED\n\nCommand: REPEATED\n"));
    bench::RemoveForeignCommand("ASK");
}

TEST_F(AutoCADCommands, WordsEndWithBlanksOnlyWhereTheCallerSaysSo) {
    std::string words;
    bench::AddForeignCommand("WORDS", [&] { words = ReadAll({{L"", 0}, {L"", 0}, {L"", 1}}); });
    RunAs("SENDS", [&] { Send(L"WORDS a b c d\n"); });
    EXPECT_EQ(words, "a|b|c d");
    wchar_t narrow[4];
    bench::QueueAnswer({Answer::kText, "too long"});
    EXPECT_EQ(acedGetString(1, L"", narrow), RTINPUTTRUNCATED);
    EXPECT_STREQ(narrow, L"too");
    bench::RemoveForeignCommand("WORDS");
}

TEST_F(AutoCADCommands, BadRequestsAreRefused) {
    EXPECT_EQ(acDocManager->sendStringToExecute(nullptr, L"X\n"), Acad::eNoDocument);
    EXPECT_EQ(Send(nullptr), Acad::eInvalidInput);
    EXPECT_EQ(Send(L"NO END"), Acad::eInvalidInput);
    EXPECT_THAT(TakeAccusations(), ElementsAre(HasSubstr("without a blank or newline at its end")));
    bench::FailCall("AcApDocManager::sendStringToExecute", 4, Acad::eNoDocument);
    EXPECT_EQ(Send(L"X\n"), Acad::eNoDocument);
    bench::CloseDrawing();
    EXPECT_EQ(acDocManager->curDocument(), nullptr);
}

TEST_F(AutoCADCommands, StackIsBlindToCaseAndCountsGroups) {
    timesRun = 0;
    AcEdCommandStack* stack = acedRegCmds;
    EXPECT_EQ(stack->addCommand(L"G", L"One", L"Uno", ACRX_CMD_MODAL, CountRun), Acad::eOk);
    EXPECT_EQ(stack->addCommand(L"g", L"ONE", L"x", ACRX_CMD_MODAL, CountRun), Acad::eDuplicateKey);
    EXPECT_EQ(stack->addCommand(L"G", L"Two", L"Two", ACRX_CMD_MODAL, nullptr), Acad::eInvalidInput);
    EXPECT_TRUE(bench::RunCommand("one"));
    EXPECT_TRUE(bench::RunCommand("UNO"));
    EXPECT_EQ(timesRun, 2);
    EXPECT_THAT(bench::BenchBalance(), ElementsAre("command group G"));
    EXPECT_EQ(stack->removeGroup(L"g"), Acad::eOk);
    EXPECT_EQ(stack->removeGroup(L"G"), Acad::eKeyNotFound);
    EXPECT_FALSE(bench::RunCommand("One"));
}

TEST_F(AutoCADCommands, PrintfTakesWideTexts) {
    std::string echoed;
    bench::SetEcho([&](const std::string& text) { echoed += text; });
    EXPECT_EQ(acutPrintf(L"\n%s: %d of 100%%\n", L"wide", 7), RTNORM);
    EXPECT_EQ(echoed, "\nwide: 7 of 100%\n");
    EXPECT_EQ(bench::Transcript(), echoed);
    EXPECT_THAT(bench::Journal(), ElementsAre("acutPrintf \\nwide: 7 of 100%\\n"));
    bench::FailCall("acutPrintf", 2);
    EXPECT_EQ(acutPrintf(L"lost"), RTERROR);
    EXPECT_EQ(bench::Transcript(), echoed);
}

TEST_F(AutoCADCommands, MainWindowWakesAWaitingThread) {
    ASSERT_TRUE(IsWindowVisible(bench::MainWindow()));
    EXPECT_EQ(adsw_acadMainWnd(), bench::MainWindow());
    MSG message = {};
    const DWORD end = GetTickCount() + 5000;
    bool ticked = false;
    while (!ticked && GetTickCount() < end && MsgWaitForMultipleObjects(0, nullptr, FALSE, 5000, QS_ALLINPUT) == 0)
        while (!ticked && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            ticked = message.message == WM_TIMER && message.hwnd == bench::MainWindow();
            DispatchMessageW(&message);
        }
    EXPECT_TRUE(ticked);
    EnableWindow(bench::MainWindow(), FALSE);
    bench::StopAutoCAD();
    EXPECT_THAT(TakeAccusations(), ElementsAre(HasSubstr("still disabled")));
    bench::StartAutoCAD();
}
