// Runs the whole command once for every call that it makes to another component, with that call failing. In each case
// the command must end, report the failure and leave nothing behind, and the next run must equal a healthy one.
#include <cstdio>
#include <functional>

#include "SweepBench.h"

namespace {

class FaultSweep : public SweepBench {
 protected:
    void AfterRun() override {
        if (afterRun_) afterRun_();
    }
    std::function<void()> afterRun_;
};

TEST_F(FaultSweep, SurvivesAnyFailedCall) {
    EXPECT_EQ(LearnHealthyRun(), "") << "the configurator program does more than its replacement";
    const std::vector<bench::InjectedFault> calls = EveryCall();
    ASSERT_GT(calls.size(), 80u);
    for (size_t i = 0; i < calls.size(); ++i) {
        // Of a row of calls of one name the first and the last are enough.
        const bool isWithinRow =
            i > 0 && i + 1 < calls.size() && calls[i - 1].name == calls[i].name && calls[i + 1].name == calls[i].name;
        if (!isWithinRow) Plant(calls[i]);
    }
    std::printf("%d failures planted\n", planted());
}

// Checks the sweep itself with faults that a defective module could have.
TEST_F(FaultSweep, DetectsWhatARunLeavesBehind) {
    const bench::InjectedFault failure = {"kbsaverec", 1, {}};
    EXPECT_EQ(ProblemsWith(failure), std::vector<std::string>{});
    const struct {
        std::function<void()> leave;
        const char* problem;
    } cases[] = {
        {[] { bench::SetSystemVariable("CMDECHO", "0"); }, "left something: expected '-- CMDECHO 1'"},
        {[] { EnableWindow(bench::MainWindow(), FALSE); }, "left something: expected '-- main window enabled'"},
        {[] { bench::EraseEntity("2A4"); }, "left something"},
        {[] { bench::CloseProject(); }, "left something"},
        {[] { bench::TrackAcquire("open object", "2A3"); }, "Outstanding: open object 2A3."},
        {[] { bench::ReportViolation("It was closed twice."); }, "Contract violation: It was closed twice."},
        {[] { bench::SetProduct("AutoCAD LT", 24, 1); }, "not like a healthy one: expected 'KlimoraPluginsStatistics"}};
    for (const auto& c : cases) {
        afterRun_ = c.leave;
        const std::string problems = testing::PrintToString(ProblemsWith(failure));
        EXPECT_NE(problems.find(c.problem), std::string::npos) << c.problem << "\n" << problems;
        bench::SetSystemVariable("CMDECHO", "1");
        EnableWindow(bench::MainWindow(), TRUE);
        bench::SetProduct("AutoCAD", 24, 1);
    }
}

TEST_F(FaultSweep, DetectsSilence) {
    afterRun_ = bench::ClearTranscript;
    EXPECT_EQ(ProblemsWith({"kbsaverec", 1, {}}), std::vector<std::string>{"It reported nothing to the user."});
}

}  // namespace
