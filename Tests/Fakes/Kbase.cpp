// The fake record database: saving a record to the file, and the contract violations that it reports.
#include <windows.h>

#include <functional>

#include "FakeFixture.h"
#include "KbaseDictionary.h"
#include "KbaseFile.h"
#include "Unit/TestFiles.h"
#include "kbase.h"

using testing::ElementsAre;

namespace {

constexpr char kDictionary[] = "kbase-test.ddk";
constexpr char kDatabase[] = "kbase-test.kpd";

// Opens copies of the sample's files, with an unsaved record "A".
class KbaseLibrary : public FakeTest {
 protected:
    KbaseLibrary() {
        CopyFileA(SORVIK_SAMPLE_FOLDER "/sorvik.ddk", kDictionary, FALSE);
        CopyFileA(SORVIK_SAMPLE_FOLDER "/sorvik.kpd", kDatabase, FALSE);
        dictionary_ = ddk_opendatabase(kDictionary, 1, 0);
        database_ = kbopendatabase(kDictionary, kDatabase, 0);
        EXPECT_NE(ddk_classsymboltoID(dictionary_, "dSilencerType", &silencers_), 0);
        record_ = Create("A");
    }
    ~KbaseLibrary() override {
        kbreleaserec(record_);
        ddk_releasedatabase(dictionary_);
        kbclosedatabase(database_);
        DeleteFileA(kDictionary);
        DeleteFileA(kDatabase);
    }

    KB_RECORD Create(const char* key) { return kbcreaterec(database_, &silencers_, key); }
    short Insert(KB_RECORD record, short attribute, const void* value, short count) {
        return kbinsertatt(database_, &record, attribute, value, count);
    }
    static bench::KbaseFile Saved() {
        bench::KbaseFile file;
        EXPECT_TRUE(file.Read(kDatabase));
        return file;
    }

    KB_HANDLE dictionary_ = -1;
    KB_HANDLE database_ = -1;
    KB_CLASSID silencers_ = {{-1, -1}};
    KB_RECORD record_ = nullptr;
};

TEST_F(KbaseLibrary, WritesTheBytesOfASavedRecordAndTheirMeaning) {
    const char dimensions[] =
        "\x0A\x00\xC8\x00\x00\x00\x00\x00\x80\x41\x00\x80\x8E\x43\xCD\xCC\xCC\x3D\x66\x66\x9E\x41";
    const unsigned char losses[] = {3, 5, 10, 18, 30, 29, 19, 255, 0, 1, 2, 3, 4, 5, 6, 7};
    const std::string before = ReadWholeFile(kDatabase);
    EXPECT_EQ(Insert(record_, 1650, dimensions, 1) + Insert(record_, 1654, losses, 2), 0);
    EXPECT_EQ(Insert(record_, 1507, "", 0) + Insert(record_, 1503, "S\xC3\xB6rvik\n", 8), 0);
    EXPECT_EQ(ReadWholeFile(kDatabase), before);
    EXPECT_EQ(kbsaverec(database_, record_), 0);
    const KB_RECORD quoted = Create("B \"2\"");
    EXPECT_EQ(kbsaverec(database_, quoted), 0);
    kbreleaserec(quoted);

    const bench::KbaseFile saved = Saved();
    EXPECT_EQ(saved.records().size(), 6u);
    ASSERT_TRUE(saved.Find("dSilencerType", "A") && saved.Find("dSilencerType", "B \"2\""));
    const bench::KbaseRecord& record = *saved.Find("dSilencerType", "A");
    EXPECT_EQ(record.BytesOf(1650), std::string(dimensions, 22));
    EXPECT_EQ(record.BytesOf(1503), "S\xC3\xB6rvik\n");
    EXPECT_THAT(record.attributes.at(1503).decoded, ElementsAre("S\xC3\xB6rvik\\n"));
    EXPECT_THAT(record.attributes.at(1507).decoded, ElementsAre(""));
    EXPECT_THAT(record.attributes.at(1650).decoded,
                ElementsAre("Fnc=10 D1=200 D2=0 Qvmin=16 Qvmax=285 Dpmin=0.1 Dpmax=19.8"));
    EXPECT_THAT(record.attributes.at(1654).decoded,
                ElementsAre("Lw63=3 Lw125=5 Lw250=10 Lw500=18 Lw1000=30 Lw2000=29 Lw4000=19 Lw8000=255",
                            "Lw63=0 Lw125=1 Lw250=2 Lw500=3 Lw1000=4 Lw2000=5 Lw4000=6 Lw8000=7"));
}

TEST_F(KbaseLibrary, KeepsTheRestOfTheFileWhenReplacingAndDeleting) {
    const std::string before = ReadWholeFile(kDatabase);
    EXPECT_EQ(kbsaverec(database_, record_), 0);
    EXPECT_FALSE(Create("A")) << "a key that exists";
    EXPECT_EQ(Insert(record_, 1503, "Sorvik", 6), 0);
    EXPECT_EQ(kbsaverec(database_, record_), 0);
    EXPECT_EQ(Saved().Find("dSilencerType", "A")->BytesOf(1503), "Sorvik");
    EXPECT_EQ(kbdeleterec(database_, &silencers_, "A"), 0);
    EXPECT_EQ(kbdeleterec(database_, &silencers_, "A"), -1);
    EXPECT_EQ(ReadWholeFile(kDatabase), before);
    const HANDLE owner = CreateFileA(kDatabase, GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(kbsaverec(database_, record_), -2) << "a locked file";
    CloseHandle(owner);
}

TEST_F(KbaseLibrary, ReportsValuesThatDoNotFitTheDictionary) {
    const char bytes[1000] = "Sorvik";
    const struct {
        short attribute;
        const void* value;
        short count;
        const char* sentence;
    } cases[] = {
        {1999, bytes, 1, "kbinsertatt was called with the attribute 1999, which the dictionary does not know."},
        {1503, nullptr, 6, "kbinsertatt was called for the attribute 1503 Manufacturer without a value."},
        {1503, bytes, 7,
         "kbinsertatt was called for the attribute 1503 Manufacturer with a length that counts a terminator."},
        {1525, bytes, 31, "kbinsertatt was called for the attribute 1525 KModelID with 31 bytes, not with 1 to 30."},
        {1650, bytes, 22,
         "kbinsertatt was called for the attribute 1650 AirDeviceDimData with 22 elements, not with 1 to 1."},
        {1654, bytes, 0, "kbinsertatt was called for the attribute 1654 dLw with 0 elements, not with 1 to 200."}};
    for (const auto& one : cases) {
        EXPECT_LT(Insert(record_, one.attribute, one.value, one.count), 0) << one.sentence;
        EXPECT_THAT(TakeViolations(), ElementsAre(one.sentence));
    }
    ASSERT_EQ(kbsaverec(database_, record_), 0);
    EXPECT_TRUE(Saved().Find("dSilencerType", "A")->attributes.empty());
}

TEST_F(KbaseLibrary, ReportsInvalidHandlesAndArguments) {
    KB_CLASSID id = {{5, 6}};
    KB_RECORD none = &id;
    const struct {
        std::function<void()> act;
        const char* sentence;
    } cases[] = {
        {[&] { ddk_opendatabase(nullptr, 1, 0); }, "ddk_opendatabase was called without a dictionary path."},
        {[&] { ddk_opendatabase("", 1, 0); }, "ddk_opendatabase was called without a dictionary path."},
        {[&] { ddk_opendatabase("none", 0, 0); },
         "ddk_opendatabase was called with mode 0 and flags 0, not with 1 and 0."},
        {[&] { ddk_classsymboltoID(1, "KMD", &id); },
         "ddk_classsymboltoID was called with 1, which is not an open dictionary."},
        {[&] { ddk_classsymboltoID(dictionary_, "KMD", nullptr); },
         "ddk_classsymboltoID was called without a class symbol or a place for the class id."},
        {[&] { ddk_releasedatabase(-1); }, "ddk_releasedatabase was called with -1, which is not an open dictionary."},
        {[&] { kbopendatabase(kDictionary, "", 0); }, "kbopendatabase was called without a database path."},
        {[&] { kbclosedatabase(dictionary_); }, "kbclosedatabase was called with 101, which is not an open database."},
        {[&] { kbcreaterec(0, &silencers_, "B"); }, "kbcreaterec was called with 0, which is not an open database."},
        {[&] { kbcreaterec(database_, &id, "B"); },
         "kbcreaterec was called with the class id 5 6, which its dictionary does not know."},
        {[&] { kbcreaterec(database_, nullptr, "B"); }, "kbcreaterec was called without a class id."},
        {[&] { kbcreaterec(database_, &silencers_, ""); }, "kbcreaterec was called without a key."},
        {[&] { kbdeleterec(7, &silencers_, "A"); }, "kbdeleterec was called with 7, which is not an open database."},
        {[&] { kbfindrec(database_, "kmd", "A", 0); },
         "kbfindrec was called with the class 'kmd', which its dictionary does not know."},
        {[&] { kbfindrec(database_, "KMD", "A", 1); },
         "kbfindrec was called with mode 0 and flags 1, not with 0 and 0."},
        {[&] { Insert(none, 1503, "Sorvik", 6); }, "kbinsertatt was called with a pointer that is not an open record."},
        {[&] { kbinsertatt(database_, nullptr, 1503, "Sorvik", 6); },
         "kbinsertatt was called without the address of a record."},
        {[&] { kbsaverec(database_, nullptr); }, "kbsaverec was called with a pointer that is not an open record."},
        {[&] { kbreleaserec(none); }, "kbreleaserec was called with a pointer that is not an open record."},
        {[&] { kbsetwarningmode(2); }, "kbsetwarningmode was called with 2, which is neither on nor off."}};
    for (const auto& one : cases) {
        one.act();
        EXPECT_THAT(TakeViolations(), ElementsAre(one.sentence));
    }
}

TEST_F(KbaseLibrary, ReportsSecondReleasesLateUsesAndForeignRecords) {
    const KB_HANDLE other = kbopendatabase(kDictionary, kDatabase, 0);
    EXPECT_LT(kbsaverec(other, record_), 0);
    EXPECT_THAT(TakeViolations(),
                ElementsAre("kbsaverec was called with a record of the database 1 and the handle 2."));
    kbclosedatabase(other);
    const KB_RECORD late = Create("LATE");
    kbreleaserec(record_);
    kbreleaserec(record_);
    EXPECT_THAT(TakeViolations(), ElementsAre("kbreleaserec was called with a pointer that is not an open record."));
    kbclosedatabase(database_);
    kbclosedatabase(database_);
    EXPECT_THAT(TakeViolations(), ElementsAre("kbclosedatabase was called with 1, which is not an open database."));
    EXPECT_THAT(bench::OutstandingResources(), ElementsAre("dictionary 101", "record dSilencerType LATE"));
    database_ = kbopendatabase(kDictionary, kDatabase, 0);
    EXPECT_LT(kbsaverec(database_, late), 0);
    kbreleaserec(late);
    EXPECT_THAT(
        TakeViolations(),
        ElementsAre("kbsaverec was called with the record dSilencerType LATE after its database was closed.",
                    "kbreleaserec was called with the record dSilencerType LATE after its database was closed."));
    record_ = nullptr;
}

}  // namespace
