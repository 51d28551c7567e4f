// The whole command once for every call that it makes to a neighbour, with that call failing. Whatever fails, the
// command ends by itself, ends its transaction exactly once, gives everything back, and leaves no folder, window or
// switch behind; a run that aborts has queued no insertion and left drawing and project alone.
#include "CommandBench.h"

namespace {

class EveryCallFails : public CommandBench {
 protected:
    // One run, and how many calls it made; boxes that the failure brings are closed by the robot, which may complain.
    int RunWithFailure(int ordinal) {
        UseServer({});
        StartOver();
        bench::ClearAnswers();
        bench::ClearStatisticsEvents();
        robot().Reset();
        bench::FailCall(ordinal);
        Picks("2A3");
        InTheConfigurator("choose SRC-250-900");
        ConfirmsInsertion();
        robot().Expect(bench::Dialog("Configurator").Press(IDOK));
        drawingBefore_ = bench::DrawingState();
        Run();
        const int calls = bench::CallCount();
        bench::ClearFailures();
        bench::ClearAnswers();
        robot().Reset();
        return calls;
    }

    std::string drawingBefore_;

    static std::string FailedCall(int ordinal) {
        int calls = 0;
        for (const std::string& line : bench::Journal()) {
            if (line.compare(0, 2, "--") != 0 && ++calls == ordinal) return line;
        }
        return "(no such call)";
    }
};

TEST_F(EveryCallFails, AndTheCommandStillEndsCleanly) {
    const int calls = RunWithFailure(0);
    ASSERT_GT(calls, 80);
    const std::string folders = TemporaryFolders();
    int committed = 0, aborted = 0;
    for (int ordinal = 1; ordinal <= calls; ++ordinal) {
        RunWithFailure(ordinal);
        SCOPED_TRACE("call " + std::to_string(ordinal) + " failed: " + FailedCall(ordinal));
        const size_t started = CountOf("AcTransactionManager::startTransaction") -
                               (FailedCall(ordinal) == "AcTransactionManager::startTransaction" ? 1 : 0);
        const size_t ended = CountOf("AcTransactionManager::endTransaction"),
                     abandoned = CountOf("AcTransactionManager::abortTransaction");
        EXPECT_EQ(ended + abandoned, started);
        if (abandoned > 0) {
            EXPECT_EQ(bench::DrawingState(), drawingBefore_);
        }
        EXPECT_EQ(TemporaryFolders(), folders);
        EXPECT_TRUE(IsWindowEnabled(bench::MainWindow()));
        EXPECT_TRUE(bench::Accusations().empty()) << testing::PrintToString(bench::Accusations());
        EXPECT_TRUE(Owed().empty()) << testing::PrintToString(Owed());
        bench::ClearAccusations();
        TakeBackWhatIsOwed();
        committed += static_cast<int>(ended);
        aborted += static_cast<int>(abandoned);
        if (HasFailure()) break;
    }
    EXPECT_GT(committed, 0);
    EXPECT_GT(aborted, 0);
}

}  // namespace
