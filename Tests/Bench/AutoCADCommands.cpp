// The fake command line: queued commands, prompts and selection, rejected requests, and what a module leaves behind.
#include "AutoCADFixture.h"

#include "accmd.h"
#include "actrans.h"

using bench::Answer;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class AutoCADCommands : public AutoCADTest {
 protected:
    static Acad::ErrorStatus Send(const wchar_t* text) {
        return acDocManager->sendStringToExecute(acDocManager->curDocument(), text, true, false, false);
    }
    int SelectOne() {
        const ACHAR* prompts[] = {L"\nSelect a duct:", L"\nRemove a duct:"};
        return acedSSGet(L"_:$:S", prompts, nullptr, nullptr, set_);
    }

    ads_name set_ = {};
};

void DoNothing() {}

}  // namespace

TEST_F(AutoCADCommands, RunsQueuedCommandsAfterTheRunningOne) {
    bench::AddForeignCommand("READS", [&] {
        wchar_t text[4] = L"xyz";
        EXPECT_EQ(acedGetString(1, L"Code: ", text, 4), RTNORM);
        EXPECT_STREQ(text, L"F 1");
        EXPECT_EQ(acedGetString(1, L"Code: ", text, 4), RTINPUTTRUNCATED);
        EXPECT_STREQ(text, L"too");
    });
    bench::AddForeignCommand("SENDS", [&] {
        EXPECT_EQ(Send(L"READS\nF 1\ntoo long\nREST\n"), Acad::eOk);
        EXPECT_FALSE(bench::RunCommand("READS"));
    });
    EXPECT_TRUE(bench::RunCommand("_sends"));
    EXPECT_EQ(bench::Transcript(),
              "\nCommand: _SENDS\n\nCommand: READS\nCode: F 1\nCode: too long\n\nCommand: REST\n"
              "Unknown command \"REST\".  Press F1 for help.\n");
    EXPECT_THAT(TakeViolations(), ElementsAre("The command READS was typed while SENDS was running."));
}

TEST_F(AutoCADCommands, RejectsBadRequests) {
    EXPECT_EQ(acDocManager->sendStringToExecute(nullptr, L"X\n"), Acad::eNoDocument);
    EXPECT_EQ(Send(L""), Acad::eInvalidInput);
    EXPECT_EQ(Send(L"NO END"), Acad::eInvalidInput);
    EXPECT_THAT(TakeViolations(), ElementsAre(HasSubstr("without a final blank or newline")));
    resbuf value = {};
    value.restype = RTSTR;
    EXPECT_EQ(acedSetVar(L"CMDECHO", &value), RTERROR);
    EXPECT_EQ(acedSetVar(L"DWGNAME", &value), RTERROR);
    AcEdCommandStack* stack = acedRegCmds;
    EXPECT_EQ(stack->addCommand(L"G", L"One", L"Uno", ACRX_CMD_MODAL, DoNothing), Acad::eOk);
    EXPECT_EQ(stack->addCommand(L"g", L"ONE", L"x", ACRX_CMD_MODAL, DoNothing), Acad::eDuplicateKey);
    EXPECT_EQ(stack->addCommand(L"G", L"Two", L"Two", ACRX_CMD_MODAL, nullptr), Acad::eInvalidInput);
    EXPECT_TRUE(bench::RunCommand("UNO"));
    EXPECT_THAT(bench::OutstandingResources(), ElementsAre("command group G"));
    EXPECT_EQ(stack->removeGroup(L"g"), Acad::eOk);
    EXPECT_EQ(stack->removeGroup(L"G"), Acad::eKeyNotFound);
    EXPECT_EQ(acrxSysRegistry()->remove(ACRX_COMMAND_DOCK), nullptr);
    EXPECT_THAT(TakeViolations(), ElementsAre(HasSubstr("must not be removed")));
}

TEST_F(AutoCADCommands, ReturnsNoSetForARejectedSelection) {
    for (const wchar_t* options : {L"Q", L":Z:S", L"_:S:", L"X", L""})
        EXPECT_EQ(acedSSGet(options, nullptr, nullptr, nullptr, set_), RTREJ);
    EXPECT_EQ(acedSSGet(L":$:S", nullptr, nullptr, nullptr, set_), RTREJ);
    const resbuf filter = {};
    EXPECT_EQ(acedSSGet(L":S", nullptr, nullptr, &filter, set_), RTREJ);
    const std::string erased = AddDuct();
    ASSERT_TRUE(bench::EraseEntity(erased));
    for (const std::string& handle : {std::string("FFFF"), erased}) {
        bench::QueueAnswer({Answer::kPick, handle});
        EXPECT_EQ(SelectOne(), RTERROR);
    }
    EXPECT_EQ(SelectOne(), RTCAN);
    EXPECT_THAT(TakeViolations(),
                ElementsAre(HasSubstr("without prompts"), HasSubstr("picked FFFF"), HasSubstr("picked " + erased),
                            "Nobody answered the prompt \"\nSelect a duct:\"."));
}

TEST_F(AutoCADCommands, ReportsMisuseOfASelectionSet) {
    bench::QueueAnswer({Answer::kPick, AddDuct()});
    EXPECT_EQ(SelectOne(), RTNORM);
    EXPECT_THAT(bench::OutstandingResources(), ElementsAre(HasSubstr("selection set")));
    ads_name name = {};
    EXPECT_EQ(acedSSName(set_, 1, name), RTERROR);
    EXPECT_EQ(acedSSFree(set_), RTNORM);
    EXPECT_EQ(acedSSFree(set_), RTERROR);
    EXPECT_EQ(acedSSName(set_, 0, name), RTERROR);
    EXPECT_EQ(acedSSFree(name), RTERROR);
    EXPECT_THAT(TakeViolations(),
                ElementsAre(HasSubstr("acedSSFree"), HasSubstr("acedSSName"), HasSubstr("not a selection set")));
}

TEST_F(AutoCADCommands, ReportsADisabledMainWindow) {
    EnableWindow(bench::MainWindow(), FALSE);
    bench::StopAutoCAD();
    EXPECT_THAT(TakeViolations(), ElementsAre(HasSubstr("still disabled")));
    bench::StartAutoCAD();
}

// The module is built from AutoCADProbe.cpp.
TEST_F(AutoCADCommands, ReportsLeftoversOfAModule) {
    ASSERT_EQ(acedArxLoad(L"bench_probe.arx"), RTNORM);
    EXPECT_EQ(acedArxUnload(L"bench_probe.arx"), RTNORM);
    EXPECT_THAT(TakeViolations(), ElementsAre(AllOf(HasSubstr("command Probe"), HasSubstr("still registered")),
                                              AllOf(HasSubstr("service PROBE"), HasSubstr("still registered"))));
    EXPECT_FALSE(bench::RunCommand("PROBE"));
    EXPECT_THAT(bench::OutstandingResources(), ElementsAre("command group PROBE_CMDS", "service PROBE"));
    bench::ClearOutstandingResources();
}
