// The main job.
#include "CommandBench.h"
#include "Unit/TestFiles.h"

namespace {

using Success = CommandBench;

// They stand in whole-run.txt.
TEST_F(Success, EveryCallInItsOrder) {
    bench::SetProduct("AutoCAD Mechanical", 24, 2);
    bench::SetSystemVariable("CMDECHO", "7");
    ChoosesASilencer();
    ConfirmsInsertion();
    Run();
    bench::SetProduct("AutoCAD", 24, 1);
    EXPECT_EQ(MaskedJournal(), ReadWholeFile(WHOLE_RUN));
    EXPECT_TRUE(bench::StatisticsEvents().at(0).sent);
    EXPECT_EQ(Printed().find(kName), std::string::npos) << "a good run says nothing of its own";
    EXPECT_EQ(bench::PartAttribute("", "/Project/KPDClass[dSilencerType]/Part[1]/Usercode"), "SORV2");
}

}  // namespace
