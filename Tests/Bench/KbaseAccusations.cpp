// Broken contracts: what the library says about each, and that it does not do as it was told.
#include <functional>

#include "BenchControl.h"
#include "KbaseFixture.h"
#include "gmock/gmock.h"

using testing::ElementsAre;

namespace {

class KbaseAccusations : public KbaseTest {
 protected:
    KbaseAccusations() {
        OpenBoth();
        record_ = CreateSilencer("A");
    }

    ~KbaseAccusations() override {
        kbreleaserec(record_);
        CloseBoth();
    }

    // What was said, and no more of it.
    static std::vector<std::string> Said() {
        const std::vector<std::string> said = bench::Accusations();
        bench::ClearAccusations();
        return said;
    }

    KB_RECORD record_ = nullptr;
};

TEST_F(KbaseAccusations, ValuesThatDoNotFitTheDictionary) {
    const char bytes[1000] = "Sorvik";
    const struct {
        short attribute;
        const void* value;
        short count;
        const char* sentence;
    } cases[] = {
        {1999, bytes, 1, "kbinsertatt was called with the attribute 1999, which the dictionary does not know."},
        {9575, bytes, 6, "kbinsertatt was called with the attribute 9575, which the dictionary does not know."},
        {1503, nullptr, 6, "kbinsertatt was called for the attribute 1503 Manufacturer without a value."},
        {1503, bytes, 7,
         "kbinsertatt was called for the attribute 1503 Manufacturer with a length that counts a terminator."},
        {1525, bytes, 31, "kbinsertatt was called for the attribute 1525 KModelID with 31 bytes, not with 1 to 30."},
        {1503, bytes, -1,
         "kbinsertatt was called for the attribute 1503 Manufacturer with -1 bytes, not with 1 to 80."},
        {1650, bytes, 22,
         "kbinsertatt was called for the attribute 1650 AirDeviceDimData with 22 elements, not with 1 to 1."},
        {1654, bytes, 0, "kbinsertatt was called for the attribute 1654 dLw with 0 elements, not with 1 to 200."}};
    for (const auto& one : cases) {
        EXPECT_LT(Insert(record_, one.attribute, one.value, one.count), 0) << one.sentence;
        EXPECT_THAT(Said(), ElementsAre(one.sentence));
    }
    ASSERT_EQ(kbsaverec(database_, record_), 0);
    EXPECT_TRUE(Saved("A")->attributes.empty());
}

TEST_F(KbaseAccusations, HandlesThatAreNone) {
    KB_CLASSID wrongClass = {{5, 6}};
    KB_CLASSID id;
    KB_RECORD none = &id;
    const struct {
        std::function<void()> act;
        const char* sentence;
    } cases[] = {
        {[&] { ddk_classsymboltoID(1, "KMD", &id); },
         "ddk_classsymboltoID was called with 1, which is no open dictionary."},
        {[&] { ddk_releasedatabase(-1); }, "ddk_releasedatabase was called with -1, which is no open dictionary."},
        {[&] { ddk_releasedatabase(database_); },
         "ddk_releasedatabase was called with 1, which is no open dictionary."},
        {[&] { kbclosedatabase(dictionary_); }, "kbclosedatabase was called with 101, which is no open database."},
        {[&] { kbcreaterec(0, &silencers_, "B"); }, "kbcreaterec was called with 0, which is no open database."},
        {[&] { kbcreaterec(database_, &wrongClass, "B"); },
         "kbcreaterec was called with the class id 5 6, which its dictionary does not know."},
        {[&] { kbcreaterec(database_, nullptr, "B"); }, "kbcreaterec was called without a class id."},
        {[&] { kbcreaterec(database_, &silencers_, ""); }, "kbcreaterec was called without a key."},
        {[&] { kbdeleterec(7, &silencers_, "A"); }, "kbdeleterec was called with 7, which is no open database."},
        {[&] { kbfindrec(database_, "kmd", "A", 0); },
         "kbfindrec was called with the class 'kmd', which its dictionary does not know."},
        {[&] { Insert(none, 1503, "Sorvik", 6); }, "kbinsertatt was called with a pointer that is no open record."},
        {[&] { kbinsertatt(database_, nullptr, 1503, "Sorvik", 6); },
         "kbinsertatt was called without the address of a record."},
        {[&] { kbsaverec(database_, nullptr); }, "kbsaverec was called with a pointer that is no open record."},
        {[&] { kbreleaserec(none); }, "kbreleaserec was called with a pointer that is no open record."},
        {[&] { ddk_opendatabase(nullptr, 1, 0); }, "ddk_opendatabase was called without a dictionary path."},
        {[&] { kbopendatabase(dictionaryPath_.c_str(), "", 0); }, "kbopendatabase was called without a database path."},
        {[&] { kbsetwarningmode(2); }, "kbsetwarningmode was called with 2, which is neither on nor off."}};
    for (const auto& one : cases) {
        one.act();
        EXPECT_THAT(Said(), ElementsAre(one.sentence));
    }
}

TEST_F(KbaseAccusations, AnUnknownClassSymbolIsAnAnswerAndNoBreach) {
    KB_CLASSID id = {{-1, -1}};
    for (const char* symbol : {"", "dsilencertype", "dSilencerTyp"})
        EXPECT_EQ(ddk_classsymboltoID(dictionary_, symbol, &id), 0) << symbol;
    EXPECT_EQ(id.value[0], -1);
}

TEST_F(KbaseAccusations, SecondReleasesAndLateUses) {
    const KB_RECORD late = CreateSilencer("LATE");
    kbreleaserec(record_);
    kbreleaserec(record_);
    EXPECT_THAT(Said(), ElementsAre("kbreleaserec was called with a pointer that is no open record."));
    kbclosedatabase(database_);
    kbclosedatabase(database_);
    EXPECT_THAT(Said(), ElementsAre("kbclosedatabase was called with 1, which is no open database."));
    const KB_HANDLE again = kbopendatabase(dictionaryPath_.c_str(), databasePath_.c_str(), 0);
    EXPECT_LT(kbsaverec(again, late), 0);
    EXPECT_THAT(Said(),
                ElementsAre("kbsaverec was called with the record dSilencerType LATE after its database was closed."));
    kbreleaserec(late);
    EXPECT_THAT(
        Said(),
        ElementsAre("kbreleaserec was called with the record dSilencerType LATE after its database was closed."));
    record_ = nullptr;
    database_ = again;
}

TEST_F(KbaseAccusations, ARecordOfAnotherDatabaseIsRefused) {
    const KB_HANDLE other = kbopendatabase(dictionaryPath_.c_str(), databasePath_.c_str(), 0);
    EXPECT_LT(kbsaverec(other, record_), 0);
    EXPECT_THAT(Said(), ElementsAre("kbsaverec was called with a record of the database 1 and the handle 2."));
    kbclosedatabase(other);
}

}  // namespace
