// The whole command once for every call that it makes to a neighbour, with that call failing: whatever fails, the
// command ends by itself, says so, leaves nothing behind, and the next one is as if nothing had been.
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
    EXPECT_EQ(LearnHealthyRun(), "") << "the configurator's program does more than its stand-in";
    const std::vector<bench::InjectedFault> calls = EveryCall();
    ASSERT_GT(calls.size(), 80u);
    for (size_t i = 0; i < calls.size(); ++i) {
        // Of a row of calls of one name the first and the last are enough.
        const bool isWithinRow =
            i > 0 && i + 1 < calls.size() && calls[i - 1].name == calls[i].name && calls[i + 1].name == calls[i].name;
        if (!isWithinRow) Plant(calls[i]);
    }
}

// The sweep's own eyes: what a worse module would leave behind or keep from the user.
TEST_F(FaultSweep, DetectsWhatARunLeavesBehind) {
    const bench::InjectedFault failure = {"kbsaverec", 1, {}};
    EXPECT_EQ(ProblemsWith(failure), std::vector<std::string>{});
    const struct {
        std::function<void()> left;
        const char* noticed;
    } cases[] = {
        {[] { bench::SetSystemVariable("CMDECHO", "0"); }, "left something: expected '-- CMDECHO 1'"},
        {[] { EnableWindow(bench::MainWindow(), FALSE); }, "left something: expected '-- main window enabled'"},
        {[] { bench::EraseEntity("2A4"); }, "left something"},
        {[] { bench::CloseProject(); }, "left something"},
        {[] { bench::TrackAcquire("open object", "2A3"); }, "Still owed: open object 2A3."},
        {[] { bench::ReportViolation("It was closed twice."); }, "Accusation: It was closed twice."},
        {[] { bench::SetProduct("AutoCAD LT", 24, 1); }, "not like a healthy one: expected 'KlimoraPluginsStatistics"}};
    for (const auto& c : cases) {
        afterRun_ = c.left;
        const std::string wrong = testing::PrintToString(ProblemsWith(failure));
        EXPECT_NE(wrong.find(c.noticed), std::string::npos) << c.noticed << "\n" << wrong;
        bench::SetSystemVariable("CMDECHO", "1");
        EnableWindow(bench::MainWindow(), TRUE);
        bench::SetProduct("AutoCAD", 24, 1);
    }
}

TEST_F(FaultSweep, DetectsSilence) {
    afterRun_ = bench::ClearTranscript;
    EXPECT_EQ(ProblemsWith({"kbsaverec", 1, {}}), std::vector<std::string>{"It said nothing to the user."});
}

}  // namespace
