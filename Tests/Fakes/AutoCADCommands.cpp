// The violations that the fake command line reports, and what a module leaves behind.
#include "AutoCADFixture.h"

#include "accmd.h"
#include "acdocman.h"

using bench::Answer;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class AutoCADCommands : public AutoCADTest {
 protected:
    int SelectOne() {
        const ACHAR* prompts[] = {L"\nSelect a duct:", L"\nRemove a duct:"};
        return acedSSGet(L"_:$:S", prompts, nullptr, nullptr, set_);
    }

    ads_name set_ = {};
};

}  // namespace

TEST_F(AutoCADCommands, ReportsACommandTypedWhileAnotherRuns) {
    bench::AddForeignCommand("OUTER", [] { EXPECT_FALSE(bench::RunCommand("INNER")); });
    EXPECT_TRUE(bench::RunCommand("OUTER"));
    EXPECT_THAT(TakeViolations(), ElementsAre("The command INNER was typed while OUTER was running."));
}

TEST_F(AutoCADCommands, ReportsBadRequests) {
    EXPECT_EQ(acDocManager->sendStringToExecute(acDocManager->curDocument(), L"NO END"), Acad::eInvalidInput);
    EXPECT_EQ(acrxSysRegistry()->remove(ACRX_COMMAND_DOCK), nullptr);
    EXPECT_THAT(TakeViolations(),
                ElementsAre(HasSubstr("without a final blank or newline"), HasSubstr("must not be removed")));
}

TEST_F(AutoCADCommands, ReportsBadSelections) {
    EXPECT_EQ(acedSSGet(L":$:S", nullptr, nullptr, nullptr, set_), RTREJ);
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

TEST_F(AutoCADCommands, ReportsMisuseOfSelectionSets) {
    bench::QueueAnswer({Answer::kPick, AddDuct()});
    ASSERT_EQ(SelectOne(), RTNORM);
    EXPECT_THAT(bench::OutstandingResources(), ElementsAre("selection set 1"));
    EXPECT_EQ(acedSSFree(set_), RTNORM);
    EXPECT_EQ(acedSSFree(set_), RTERROR);
    ads_name name = {};
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
