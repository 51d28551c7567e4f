// A successful run.
#include "CommandBench.h"
#include "Unit/ImportPatch.h"
#include "Unit/TestFiles.h"
#include "kbase.h"

namespace {

using Success = CommandBench;

// whole-run.txt lists the calls.
TEST_F(Success, MakesEveryCallInOrder) {
    bench::SetProduct("AutoCAD Mechanical", 24, 2);
    bench::SetSystemVariable("CMDECHO", "7");
    ChoosesASilencer();
    ConfirmsInsertion();
    Run();
    bench::SetProduct("AutoCAD", 24, 1);
    EXPECT_EQ(MaskedCallLog(), ReadWholeFile(WHOLE_RUN));
    EXPECT_TRUE(bench::StatisticsEvents().at(0).sent);
    EXPECT_EQ(Printed().find(kName), std::string::npos) << "a successful run prints nothing";
    EXPECT_EQ(bench::PartAttribute("", "/Project/KPDClass[dSilencerType]/Part[1]/Usercode"), "SORV2");
}

// From the dialog's OK to the queued command.
TEST_F(Success, ShowsTheWaitCursorWhileAddingTheProduct) {
    static int waiting;
    static decltype(&kbsaverec) save;
    waiting = 0;
    const ImportPatch patch(
        "kbsaverec",
        +[](KB_HANDLE database, KB_RECORD record) {
            waiting += GetCursor() == LoadCursorA(nullptr, MAKEINTRESOURCEA(32514));
            return save(database, record);
        },
        GetModuleHandleA("Sorvik_R24_x64.arx"));
    save = patch.original<decltype(kbsaverec)>();
    SetCursor(LoadCursorA(nullptr, MAKEINTRESOURCEA(32512)));
    ChoosesASilencer();
    ConfirmsInsertion();
    Run();
    EXPECT_EQ(waiting, 1);
    EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, MAKEINTRESOURCEA(32512)));
}

}  // namespace
