// Files that cannot be used, as broken downloads leave them, and files that can although they look odd.
#include <windows.h>

#include "BenchControl.h"
#include "BenchTexts.h"
#include "KbaseDictionary.h"
#include "KbaseFixture.h"
#include "KbaseText.h"

namespace {

using KbaseFiles = KbaseTest;

const char kErrorPage[] = "<html><head><title>404</title></head><body>The page was not found.</body></html>\n";

TEST_F(KbaseFiles, ACutFileIsRefusedWhereverItIsCut) {
    const std::string database = SampleText("sorvik.kpd");
    const std::string dictionary = SampleText("sorvik.ddk");
    ASSERT_GT(database.size(), 1024u);
    for (size_t size = 0; size + 1 < database.size(); size += 97) {
        WriteFileText(databasePath_, database.substr(0, size));
        EXPECT_EQ(kbopendatabase(dictionaryPath_.c_str(), databasePath_.c_str(), 0), -2) << size;
    }
    for (size_t size = 0; size + 1 < dictionary.size(); size += 97) {
        WriteFileText(dictionaryPath_, dictionary.substr(0, size));
        EXPECT_LT(ddk_opendatabase(dictionaryPath_.c_str(), 1, 0), 0) << size;
        EXPECT_EQ(kbopendatabase(dictionaryPath_.c_str(), databasePath_.c_str(), 0), -1) << size;
    }
    EXPECT_TRUE(bench::BenchBalance().empty());
}

TEST_F(KbaseFiles, UnusableDatabases) {
    const std::string begin = "Kbase database 1\n";
    const std::string end = "end of database\n";
    const std::string record = "record KMD \"A\"\n  2001 ModelName\n    hex 41\n    is  \"A\"\nend\n";
    ASSERT_NE(kbopendatabase(dictionaryPath_.c_str(), databasePath_.c_str(), 0), -2);
    kbclosedatabase(1);
    const struct {
        const char* what;
        std::string text;
    } cases[] = {{"an error page", kErrorPage},
                 {"a dictionary", SampleText("sorvik.ddk")},
                 {"a class that the dictionary does not know", begin + "record KMX \"A\"\nend\n" + end},
                 {"an odd number of digits", begin + "record KMD \"A\"\n  2001 ModelName\n    hex 414\nend\n" + end},
                 {"no digits", begin + "record KMD \"A\"\n  2001 ModelName\n    hex 4G\nend\n" + end},
                 {"bytes of no attribute", begin + "record KMD \"A\"\n    hex 41\nend\n" + end},
                 {"one attribute twice", begin + "record KMD \"A\"\n  2001 N\n  2001 N\nend\n" + end},
                 {"one key twice", begin + record + record + end},
                 {"a key without quotes", begin + "record KMD A\nend\n" + end},
                 {"something after its end", begin + record + end + record}};
    for (const auto& one : cases) {
        WriteFileText(databasePath_, one.text);
        EXPECT_EQ(kbopendatabase(dictionaryPath_.c_str(), databasePath_.c_str(), 0), -2) << one.what;
    }
    EXPECT_EQ(kbopendatabase(dictionaryPath_.c_str(), "no such file", 0), -2);
}

TEST_F(KbaseFiles, UnusableDictionaries) {
    const std::string begin = "Kbase dictionary 1\n";
    const std::string end = "end of dictionary\n";
    const struct {
        const char* what;
        std::string text;
    } cases[] = {{"an error page", kErrorPage},
                 {"a database", SampleText("sorvik.kpd")},
                 {"a class without its id", begin + "class KMD 87\n" + end},
                 {"one class twice", begin + "class KMD 87 1\nclass KMD 88 1\n" + end},
                 {"an unknown form", begin + "attribute 1503 number 1 80 Manufacturer\n" + end},
                 {"an unknown field type", begin + "attribute 1651 binary 1 1 DpCurve Qv:f64\n" + end},
                 {"a layout without fields", begin + "attribute 1651 binary 1 1 DpCurve\n" + end},
                 {"more at least than at most", begin + "attribute 1503 text 2 1 Manufacturer\n" + end},
                 {"one number twice", begin + "attribute 1 text 1 1 A\nattribute 1 text 1 1 B\n" + end}};
    for (const auto& one : cases) {
        WriteFileText(dictionaryPath_, one.text);
        EXPECT_LT(ddk_opendatabase(dictionaryPath_.c_str(), 1, 0), 0) << one.what;
    }
    EXPECT_LT(ddk_opendatabase("no such file", 1, 0), 0);
}

TEST_F(KbaseFiles, OtherLineEndsAndEmptyLinesAtTheEndDoNotMatter) {
    std::string database = SampleText("sorvik.kpd");
    for (size_t at = database.find('\n'); at != std::string::npos; at = database.find('\n', at + 2))
        database.replace(at, 1, "\r\n");
    WriteFileText(databasePath_, database + std::string(5000, '\n'));
    WriteFileText(dictionaryPath_, SampleText("sorvik.ddk") + "\n\n# comment\n");
    EXPECT_EQ(kbopendatabase(dictionaryPath_.c_str(), databasePath_.c_str(), 0), 1);
    kbclosedatabase(1);
}

TEST_F(KbaseFiles, TheSampleDatabaseIsWrittenAsTheLibraryWritesIt) {
    std::vector<bench::KbaseRecord> records;
    bench::KbaseDictionary dictionary;
    std::string error;
    ASSERT_TRUE(bench::ReadKbaseDatabase(databasePath_, records, error)) << error;
    ASSERT_TRUE(dictionary.Read(dictionaryPath_, error)) << error;
    for (bench::KbaseRecord& record : records)
        for (auto& [number, attribute] : record.attributes) {
            const bench::KbaseAttributeForm* form = dictionary.FindAttribute(number);
            ASSERT_TRUE(form) << number;
            EXPECT_EQ(attribute.name, form->name);
            attribute.decoded = form->Decode(attribute.bytes);
        }
    ASSERT_TRUE(bench::WriteKbaseDatabase(databasePath_, records, error)) << error;
    EXPECT_EQ(FileText(databasePath_), SampleText("sorvik.kpd"));
}

TEST_F(KbaseFiles, EveryByteSurvivesTheSpellings) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    std::string back;
    ASSERT_TRUE(bench::FromHex(bench::Hex(all), back));
    EXPECT_EQ(back, all);
    ASSERT_TRUE(bench::FromEscaped(bench::Escaped(all), back));
    EXPECT_EQ(back, all);
    for (const char* broken : {"\"", "\"a", "a\"", "\"a\"b\"", "\"\\\"", "\"\\x4\"", "\"\\xZZ\""})
        EXPECT_FALSE(bench::FromEscaped(broken, back)) << broken;
    EXPECT_EQ(bench::Words(bench::Escaped("a \\\" b") + " c").size(), 2u);
}

TEST_F(KbaseFiles, ADatabaseThatCannotBeWrittenFailsTheSave) {
    OpenBoth();
    const KB_RECORD record = CreateSilencer("A");
    const HANDLE owner = CreateFileA(databasePath_.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(owner, INVALID_HANDLE_VALUE);
    EXPECT_EQ(kbsaverec(database_, record), -2);
    CloseHandle(owner);
    EXPECT_FALSE(Saved("A"));
    kbreleaserec(record);
    CloseBoth();
}

}  // namespace
