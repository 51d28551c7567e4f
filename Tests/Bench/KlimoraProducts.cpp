// Adding products to the project from product files that the record database library made.
#include <fstream>
#include <iterator>

#include "KlimoraClient.h"
#include "kbase.h"

namespace {

constexpr long kBadCommand = -110, kBadValue = -105, kUnknown = -120, kFile = -121, kVariable = -130;
constexpr char kPart[] = "/Project/KPDClass[dSilencerType]/Part";

class KlimoraProductsTest : public KlimoraBench {
 protected:
    void SetUp() override {
        KlimoraBench::SetUp();
        CopyFileA(SORVIK_SAMPLE_FOLDER "/sorvik.ddk", "klimora-test.ddk", FALSE);
        CopyFileA(SORVIK_SAMPLE_FOLDER "/sorvik.kpd", "klimora-test.kpd", FALSE);
        AddRecord("SRC-250-900", "SRC 250 900");
        AddRecord("A & B", "A and B");
    }
    void TearDown() override {
        DeleteFileA("klimora-test.ddk");
        DeleteFileA("klimora-test.kpd");
        KlimoraBench::TearDown();
    }

    static void AddRecord(const char* key, const std::string& code, const std::string& parameters = "") {
        const bench::Quiet quiet;
        const KB_HANDLE dictionary = ddk_opendatabase("klimora-test.ddk", 1, 0);
        const KB_HANDLE database = kbopendatabase("klimora-test.ddk", "klimora-test.kpd", 0);
        KB_CLASSID classId = {};
        ASSERT_NE(ddk_classsymboltoID(dictionary, "dSilencerType", &classId), 0);
        KB_RECORD record = kbcreaterec(database, &classId, key);
        ASSERT_NE(record, nullptr);
        ASSERT_GE(kbinsertatt(database, &record, 1562, code.c_str(), static_cast<short>(code.size())), 0);
        ASSERT_GE(kbinsertatt(database, &record, 1507, parameters.c_str(), static_cast<short>(parameters.size())), 0);
        ASSERT_GE(kbsaverec(database, record), 0);
        kbreleaserec(record);
        kbclosedatabase(database);
        ddk_releasedatabase(dictionary);
    }

    static std::string Add(const std::string& key, const std::string& userCode, const std::string& more = "",
                           const std::string& source = "<Filename>klimora-test.kpd</Filename>") {
        return "<ManageProductData><Function><Name>Add</Name></Function><KPD>" + source +
               "</KPD><KPDClass><Name>dSilencerType</Name></KPDClass><Usercode>" + userCode +
               "</Usercode><Productfamilykey>" + key + "</Productfamilykey>" + more + "</ManageProductData>";
    }
    std::string Value(int product, const char* name) {
        return Get("", std::string(kPart) + "[" + std::to_string(product) + "]/" + name).text;
    }
    std::string Products() { return Get("", std::string("Count(") + kPart + ")").text; }
};

TEST_F(KlimoraProductsTest, AnAddedProductStandsInTheListOfItsClass) {
    bench::ClearJournal();
    EXPECT_EQ(Manage(Add("SRC-250-900", "SORV2")).result, 0) << ErrorText();
    EXPECT_EQ(bench::Journal().front(), "IKlimora200805::manageProductData " + Add("SRC-250-900", "SORV2") + " -> 0");
    EXPECT_EQ(Products(), "2");
    EXPECT_EQ(Value(1, "UserCode") + " " + Value(1, "ProductCode") + " " + Value(1, "ProductKey") + " " +
                  Value(1, "ProductFamilyKey"),
              "SORV2 SRC 250 900 SRC-250-900 SRC-250-900");
    EXPECT_EQ(Manage(Add("A &amp; B", "S&lt;3", "<Productkey>SRC-250-900</Productkey><Note>own</Note>")).result, 0);
    EXPECT_EQ(Value(2, "UserCode") + " " + Value(2, "ProductFamilyKey") + " " + Value(2, "ProductKey") + " " +
                  Value(2, "Note"),
              "S<3 A & B SRC-250-900 own");
}

TEST_F(KlimoraProductsTest, CodeAndLengthComeFromTheRecord) {
    AddRecord("SRR-1", "SRR 400x200", "XL=5;L=1000;W=400");
    AddRecord("SRR-2", "SRR 500x250", "L=long");
    for (const char* key : {"SRR-1", "SRR-2"})
        EXPECT_EQ(Manage(Add(key, key)).result, 0) << ErrorText();
    EXPECT_EQ(Value(1, "ProductCode") + " " + Value(1, "Length"), "SRR 400x200 1000");
    EXPECT_EQ(Value(2, "ProductCode") + " " + Value(2, "Length"), "SRR 500x250 ");
    EXPECT_EQ(Manage(Add("SRC-250-900", "SRR-1", "<Productkey>SRR-2</Productkey>")).result, 0);
    EXPECT_EQ(Value(1, "ProductCode"), "SRR 500x250") << "the product key names the product";
}

TEST_F(KlimoraProductsTest, TheSameUserCodeReplacesTheProductAndItsPartsFollow) {
    EXPECT_EQ(Manage(Add("SRC-250-900", "SORV1")).result, 0) << ErrorText();
    EXPECT_EQ(Products(), "1");
    EXPECT_EQ(Value(0, "ProductKey"), "SRC-250-900");
    EXPECT_EQ(Get("2AE", "/Part/ProductFamilyKey").text, "SRC-250-900");
}

TEST_F(KlimoraProductsTest, AnUnknownKeyIsRefusedAndNothingChanges) {
    const std::string before = bench::ProjectXml();
    EXPECT_EQ(Manage(Add("SRC-999", "SORV2")).result, kUnknown);
    EXPECT_EQ(ErrorText(), "Product SRC-999 was not found in klimora-test.kpd");
    EXPECT_EQ(Manage(Add("SRC-250-900", "SORV1", "<Productkey>SRC-999</Productkey>")).result, kUnknown);
    DeleteFileA("klimora-test.ddk");
    EXPECT_EQ(Manage(Add("SRC-250-900", "SORV2")).result, kFile);
    EXPECT_EQ(bench::ProjectXml(), before);
}

TEST_F(KlimoraProductsTest, CommandsThatAreNotAsClientsSendThemAreRefused) {
    const std::string good = Add("SRC-250-900", "SORV2");
    const auto with = [&](const std::string& from, const std::string& to) {
        std::string text = good;
        return text.replace(text.find(from), from.size(), to);
    };
    const struct {
        std::string command;
        long result;
    } cases[] = {
        {good.substr(0, good.size() - 2), kBadCommand},
        {good + good, kBadCommand},
        {with("<Usercode>SORV2", "<Usercode>S&2"), kBadCommand},
        {with("<Usercode>SORV2", "<Usercode>S<2"), kBadCommand},
        {with("<Usercode>", "<Usercode x=\"1\">"), kBadCommand},
        {with("SORV2", ""), kBadCommand},
        {with("<Usercode>SORV2</Usercode>", ""), kBadCommand},
        {with("<KPD><Filename>klimora-test.kpd</Filename></KPD>", ""), kBadCommand},
        {with("<Filename>klimora-test.kpd</Filename>", "<binvar>1</binvar>"), kVariable},
        {with("</KPD>", "</KPD><Colour>red</Colour>"), kBadCommand},
        {with("</Productfamilykey>", "</Productfamilykey><Usercode>SORV3</Usercode>"), kBadCommand},
        {with("Add", "Remove"), kBadCommand},
        {with("dSilencerType", "dsilencerType"), kBadCommand},
        {with("SORV2", "SORV2345678"), kBadValue},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Manage(c.command).result, c.result) << c.command;
        EXPECT_NE(ErrorText(), "");
        EXPECT_EQ(Products(), "1") << c.command;
    }
}

TEST_F(KlimoraProductsTest, ProductDataFromABinaryVariableNeedAKnownDictionary) {
    std::ifstream file("klimora-test.kpd", std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    std::string hex;
    for (unsigned char byte : bytes) {
        hex += "0123456789ABCDEF"[byte / 16];
        hex += "0123456789ABCDEF"[byte % 16];
    }
    SetSize(4, static_cast<long>(bytes.size()));
    SetData(4, 0, hex);
    const std::string command = Add("SRC-250-900", "SORV3", "", "<binvar>4</binvar>");
    EXPECT_EQ(Manage(command).result, kFile);
    EXPECT_EQ(Manage(Add("SRC-250-900", "SORV2")).result, 0);
    EXPECT_EQ(Manage(command).result, 0) << ErrorText();
    EXPECT_EQ(Value(2, "UserCode"), "SORV3");
    EXPECT_EQ(Free(4), 0);
}

}  // namespace
