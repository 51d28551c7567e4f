// Records on their way through Kbase640.dll into the file and back.
#include <cstdint>

#include "BenchControl.h"
#include "KbaseFixture.h"
#include "gmock/gmock.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using KbaseRecords = KbaseTest;

// 10, 200, 0, 16, 285, 0.1, 19.8 as the module packs them.
const char kDimensions[] = "\x0A\x00\xC8\x00\x00\x00\x00\x00\x80\x41\x00\x80\x8E\x43\xCD\xCC\xCC\x3D\x66\x66\x9E\x41";

TEST_F(KbaseRecords, BytesAndMeaningReachTheFile) {
    OpenBoth();
    const KB_RECORD record = CreateSilencer("SRC \"200\" å");
    const std::string text = "L\xC3\xA4nge 200\n\"x\"\\";
    const float points[] = {0, 71.25F, 4.9F, 0, 285, 79};
    const unsigned char losses[] = {3, 5, 10, 18, 30, 29, 19, 255};
    EXPECT_EQ(Insert(record, 9554, text.data(), static_cast<short>(text.size())), 0);
    EXPECT_EQ(Insert(record, 1507, "", 0), 0);
    EXPECT_EQ(Insert(record, 1650, kDimensions, 1), 0);
    EXPECT_EQ(Insert(record, 1652, points, 2), 0);
    EXPECT_EQ(Insert(record, 1654, losses, 1), 0);
    EXPECT_EQ(kbsaverec(database_, record), 0);
    kbreleaserec(record);
    CloseBoth();

    const bench::KbaseRecord* saved = Saved("SRC \"200\" å");
    ASSERT_TRUE(saved);
    EXPECT_EQ(saved->attributes.size(), 5u);
    EXPECT_EQ(bench::BytesOf(*saved, 9554), text);
    EXPECT_EQ(bench::BytesOf(*saved, 1650), std::string(kDimensions, 22));
    EXPECT_EQ(bench::BytesOf(*saved, 1652), std::string(reinterpret_cast<const char*>(points), 24));
    EXPECT_THAT(saved->attributes.at(1507).decoded, ElementsAre("\"\""));
    EXPECT_THAT(saved->attributes.at(1650).decoded,
                ElementsAre("Fnc=10 D1=200 D2=0 Qvmin=16 Qvmax=285 Dpmin=0.1 Dpmax=19.8"));
    EXPECT_THAT(saved->attributes.at(1652).decoded, ElementsAre("A=0 Qv=71.25 Dp=4.9", "A=0 Qv=285 Dp=79"));
    EXPECT_THAT(saved->attributes.at(1654).decoded,
                ElementsAre("Lw63=3 Lw125=5 Lw250=10 Lw500=18 Lw1000=30 Lw2000=29 Lw4000=19 Lw8000=255"));
    EXPECT_THAT(FileText(databasePath_), HasSubstr("record KMD \"SV-SRC-ROUND\""));
    EXPECT_TRUE(bench::BenchBalance().empty());
}

TEST_F(KbaseRecords, OnlySavedRecordsAreFoundAndDeletedOnesAreGone) {
    OpenBoth();
    const KB_RECORD record = CreateSilencer("SRC-200-600");
    EXPECT_FALSE(kbfindrec(database_, "dSilencerType", "SRC-200-600", 0));
    EXPECT_EQ(kbdeleterec(database_, &silencers_, "SRC-200-600"), -1);
    EXPECT_EQ(kbsaverec(database_, record), 0);
    kbreleaserec(record);
    EXPECT_TRUE(Saved("SRC-200-600"));
    EXPECT_FALSE(CreateSilencer("SRC-200-600")) << "a key was used twice";
    EXPECT_EQ(kbdeleterec(database_, &silencers_, "SRC-200-600"), 0);
    EXPECT_FALSE(Saved("SRC-200-600"));
    EXPECT_FALSE(kbfindrec(database_, "KMD", "sv-src-round", 0)) << "keys are compared letter by letter";
    const KB_RECORD model = kbfindrec(database_, "KMD", "SV-SRC-ROUND", 0);
    EXPECT_TRUE(model);
    kbreleaserec(model);
    CloseBoth();
    EXPECT_TRUE(bench::BenchBalance().empty());
}

TEST_F(KbaseRecords, EveryCallIsALineOfTheJournal) {
    kbsetwarningmode(0);
    OpenBoth();
    const std::int16_t zero = 0;
    kbdeleterec(database_, &silencers_, "A");
    const KB_RECORD record = CreateSilencer("A");
    Insert(record, 1503, "Sorvik", 6);
    Insert(record, 1150, &zero, 1);
    Insert(record, 1650, kDimensions, 1);
    kbsaverec(database_, record);
    kbreleaserec(record);
    kbreleaserec(nullptr);
    CloseBoth();
    const std::string paths = "'" + dictionaryPath_ + "' '" + databasePath_ + "'";
    EXPECT_THAT(bench::Journal(),
                ElementsAre("kbsetwarningmode 0", "ddk_opendatabase '" + dictionaryPath_ + "' 1 0 -> 101",
                            "kbopendatabase " + paths + " 0 -> 1", "ddk_classsymboltoID 101 'dSilencerType' -> 1",
                            "kbdeleterec 1 dSilencerType 'A' -> -1", "kbcreaterec 1 dSilencerType 'A' -> record",
                            "kbinsertatt 1503 count=6 'Sorvik' -> 0", "kbinsertatt 1150 count=1 2 bytes 0000 -> 0",
                            "kbinsertatt 1650 count=1 22 bytes 0A00C80000000000804100808E43CDCCCC3D66669E41 -> 0",
                            "kbsaverec 1 dSilencerType 'A' -> 0", "kbreleaserec dSilencerType 'A'", "kbreleaserec null",
                            "ddk_releasedatabase 101", "kbclosedatabase 1"));
}

TEST_F(KbaseRecords, ARecordThatIsNeverReleasedStaysOwed) {
    OpenBoth();
    const KB_RECORD first = CreateSilencer("FIRST");
    const KB_RECORD last = CreateSilencer("LAST");
    EXPECT_THAT(bench::BenchBalance(),
                ElementsAre("database 1", "dictionary 101", "record dSilencerType FIRST", "record dSilencerType LAST"));
    kbreleaserec(last);
    CloseBoth();
    EXPECT_THAT(bench::BenchBalance(), ElementsAre("record dSilencerType FIRST"));
    EXPECT_TRUE(first);
}

TEST_F(KbaseRecords, HandleZeroMayBeGivenBackWithoutHavingBeenOpened) {
    ddk_releasedatabase(0);
    kbclosedatabase(0);
    EXPECT_THAT(bench::Journal(), ElementsAre("ddk_releasedatabase 0", "kbclosedatabase 0"));
    EXPECT_TRUE(bench::Accusations().empty());
    OpenBoth();
    ddk_releasedatabase(0);
    EXPECT_THAT(bench::BenchBalance(), ElementsAre("database 1", "dictionary 101"));
    CloseBoth();
}

TEST_F(KbaseRecords, PlannedFailuresGiveEachFunctionsOwnFailureAndDoNothing) {
    const auto failed = [](const char* name) { bench::FailCall(name, 1); };
    failed("ddk_opendatabase");
    failed("kbopendatabase");
    EXPECT_EQ(ddk_opendatabase(dictionaryPath_.c_str(), 1, 0), -1);
    EXPECT_EQ(kbopendatabase(dictionaryPath_.c_str(), databasePath_.c_str(), 0), -1);
    EXPECT_TRUE(bench::BenchBalance().empty());
    bench::ClearFailures();
    OpenBoth();
    const KB_RECORD record = CreateSilencer("A");
    bench::ClearFailures();
    for (const char* name : {"ddk_classsymboltoID", "kbcreaterec", "kbdeleterec", "kbfindrec", "kbinsertatt"})
        failed(name);
    bench::FailCall("kbsaverec", 1, -77);
    KB_CLASSID id = {{-1, -1}};
    EXPECT_EQ(ddk_classsymboltoID(dictionary_, "dSilencerType", &id), 0);
    EXPECT_EQ(id.value[0], -1);
    EXPECT_FALSE(CreateSilencer("B"));
    EXPECT_LT(kbdeleterec(database_, &silencers_, "A"), 0);
    EXPECT_FALSE(kbfindrec(database_, "KMD", "SV-SRC-ROUND", 0));
    EXPECT_LT(Insert(record, 1503, "Sorvik", 6), 0);
    EXPECT_EQ(kbsaverec(database_, record), -77);
    EXPECT_FALSE(Saved("A"));
    kbreleaserec(record);
    CloseBoth();
    EXPECT_TRUE(bench::BenchBalance().empty());
}

}  // namespace
