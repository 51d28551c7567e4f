// Attribute calls: how paths are answered, what may be set, and the rules of binary variables.
#include "KlimoraClient.h"

namespace {

constexpr long kNoPart = -102, kNoAttribute = -103, kBadPath = -104, kBadValue = -105, kReadOnly = -106;
constexpr long kBadCommand = -110, kVariable = -130;

using KlimoraAttributesTest = KlimoraBench;

TEST_F(KlimoraAttributesTest, PathsAreAnsweredFromTheProject) {
    const struct {
        const char* part;
        const char* path;
        const char* value;  // null: refused
        long result;
    } cases[] = {
        {"", "/dwg/kpjfilename", "C:\\Projects\\Office\\office.kpj", 0},
        {"", "/DWG/flag/NOPRJFILEACCESSCHECK", "0", 0},
        {"", "Count(/Project/KPDClass[dSilencerType]/Part)", "1", 0},
        {"", "/Project/KPDClass[dSilencerType]/Part[0]/Usercode", "SORV1", 0},
        {"", "/project/kpdclass[dsilencertype]/part[0]/PRODUCTCODE", "SRC 400 1200", 0},
        {"", "Count(/Project/KPDClass[dSupplyType]/Part)", "0", 0},
        {"", "Count(/Project/Ductwork/System)", "5", 0},
        {"", "/Project/Ductwork/System[4]/Type/ID", "7", 0},
        {"", "/Project/Ductwork/System/Name", "Supply air", 0},
        {"2A1", "/Part/Type/ID", "68", 0},
        {"2a1", "/part/type/define", "EWAPART_DUCT", 0},
        {"2A1", "/part/system/type/id", "0", 0},
        {"2BB", "/part/system/type/id", "7", 0},
        {"2A3", "/part/qv_sizingflow/ls", "200", 0},
        {"2A2", "Count(/Part/Connection)", "3", 0},
        {"2A2", "count(/part/connection)", "3", 0},
        {"2A2", "/Part/Connection[2]/ConnectedTo", "2A3", 0},
        {"2BD", "/Part/Connection[1]/ConnectedTo", "0", 0},
        {"2A1", "/Part/Position/WCS", "3000 9000 2800", 0},
        {"2A0", "/Part/Package/PartList", "2A0 2B8 2BA", 0},
        {"2B8", "/part/package/mainpart", "2A0", 0},
        {"2A0", "/Part/Geometry/Source[0]/Block/Name", "LB01-UNIT", 0},
        {"2A1", "/part/diameter", nullptr, kNoAttribute},
        {"2A2", "/Part/Connection[3]/ConnectedTo", nullptr, kNoAttribute},
        {"2A2", "/Part/Connection[0]", nullptr, kNoAttribute},
        {"2A1", "/Project/Ductwork/System[0]/ID", nullptr, kNoAttribute},
        {"", "/Part/Type/ID", nullptr, kNoAttribute},
        {"", "/Project/KPDClass[dSilencerType]/Part[1]/Usercode", nullptr, kNoAttribute},
        {"7FF", "/Part/Type/ID", nullptr, kNoPart},
        {"7FF", "Count(/Part/Connection)", nullptr, kNoPart},
        {"2A1", "part/type/id", nullptr, kBadPath},
        {"2A1", "/Part//ID", nullptr, kBadPath},
        {"2A1", "/Part/Connection[]/ConnectedTo", nullptr, kBadPath},
        {"2A1", "/Part/Connection[0/ConnectedTo", nullptr, kBadPath},
        {"2A1", "Count(/Part/Connection", nullptr, kBadPath},
        {"2A1", "", nullptr, kBadPath},
    };
    for (const auto& c : cases) {
        const Answered answered = Get(c.part, c.path);
        EXPECT_EQ(answered.call, S_OK) << c.path;
        EXPECT_EQ(answered.result, c.result) << c.path;
        EXPECT_EQ(answered.text, c.value ? c.value : "") << c.path;
        EXPECT_EQ(ErrorText().empty(), c.value != nullptr) << c.path;
    }
}

TEST_F(KlimoraAttributesTest, SettingIsHeldToWhatClientsMayWrite) {
    const struct {
        const char* part;
        const char* path;
        const char* value;
        long result;
    } cases[] = {
        {"", "/dwg/flag/noPrjFileAccessCheck", "1", 0},
        {"2A1", "/part/width", "450", 0},
        {"2A0", "/Part/Package/PartList", "2A0 2B8", 0},
        {"2A4", "/Part/Geometry/Source[0]/Block/Name", "GRILLE", 0},
        {"2A4", "/Part/Geometry/Source[0]/KModel/Params", "L=900;D=250", 0},
        {"2A4", "/Part/Geometry/Linetypedef[0]", "<Linetypedef><Linetype id=\"1\"/></Linetypedef>", 0},
        {"", "/dwg/flag/noPrjFileAccessCheck", "2", kBadValue},
        {"", "/dwg/kpjfilename", "other.kpj", kReadOnly},
        {"2A1", "/Part/Type/ID", "69", kReadOnly},
        {"2A1", "Count(/Part/Connection)", "3", kReadOnly},
        {"2A1", "/Part/Colour", "red", kNoAttribute},
        {"2A4", "/Part/Geometry/Source[2]/Block/Name", "GRILLE", kNoAttribute},
        {"2A4", "/Part/Geometry/Linetypedef[0]", "<Linetypedef><Linetype></Linetypedef>", kBadCommand},
        {"2A0", "/Part/Package/PartList", "2A0;2B8", kBadValue},
        {"7FF", "/part/width", "450", kNoPart},
        {"2A4", "/Part/Geometry/Source[0]/gm_model/binvar", "1", kVariable},
    };
    for (const auto& c : cases) {
        const std::string before = Get(c.part, c.path).text;
        EXPECT_EQ(Set(c.part, c.path, c.value).result, c.result) << c.path << " = " << c.value;
        EXPECT_EQ(ErrorText().empty(), c.result == 0) << c.path;
        EXPECT_EQ(Get(c.part, c.path).text, c.result == 0 ? c.value : before) << c.path;
    }
}

TEST_F(KlimoraAttributesTest, NumbersAndPointsAreTheTextsOfTheProject) {
    const auto klimora = ConnectKlimora();
    double x = 77, y = 77, z = 77;
    long result = 77;
    EXPECT_EQ(klimora->getPartAttPoint(SentText("2A3"), SentText("/Part/Position/WCS"), &x, &y, &z, &result), S_OK);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(x + y * 10 + z * 100, 11300 + 92500 + 280000);
    klimora->setPartAttPoint(SentText("2A3"), SentText("/Part/Position/WCS"), 1.5, -2, 0, &result);
    EXPECT_EQ(Get("2A3", "/Part/Position/WCS").text, "1.5 -2 0");
    klimora->setPartAttDouble(SentText("2A3"), SentText("/part/diameter"), 317.25, &result);
    klimora->getPartAttDouble(SentText("2A3"), SentText("/part/diameter"), &x, &result);
    EXPECT_EQ(x, 317.25);
    klimora->getPartAttDouble(SentText("2A3"), SentText("/Part/Type/Define"), &x, &result);
    EXPECT_EQ(result, kBadValue);
    klimora->getPartAttPoint(SentText("2A3"), SentText("/part/diameter"), &x, &y, &z, &result);
    EXPECT_EQ(result, kBadValue);
}

TEST_F(KlimoraAttributesTest, ABinaryVariableIsSetTakenAndFreed) {
    EXPECT_EQ(SetSize(1, 3), 0);
    EXPECT_EQ(bench::BenchBalance(), std::vector<std::string>{"binary variable 1"});
    EXPECT_EQ(SetData(1, 0, "00FF"), 0);
    EXPECT_EQ(SetData(1, 2, "41"), 0);
    EXPECT_EQ(bench::BinaryVariable(1), std::string("\0\xFF"
                                                    "A",
                                                    3));
    EXPECT_EQ(Set("2A4", "/Part/Geometry/Source[0]/gm_model/binvar", "1").result, 0);
    EXPECT_EQ(Free(1), 0);
    EXPECT_EQ(bench::BinaryVariable(1), "");
    EXPECT_EQ(Get("2A4", "/Part/Geometry/Source[0]/gm_model/data").text, "00FF41");
}

TEST_F(KlimoraAttributesTest, BrokenUseOfABinaryVariableIsRefusedAndAccused) {
    EXPECT_EQ(SetData(1, 0, "00"), kVariable);
    EXPECT_EQ(SetSize(1, 2), 0);
    EXPECT_EQ(SetData(1, 1, "0041"), kVariable);
    EXPECT_EQ(SetData(1, -1, "00"), kVariable);
    EXPECT_EQ(SetData(1, 0, "ff"), kVariable);
    EXPECT_EQ(SetData(1, 0, "F"), kVariable);
    EXPECT_EQ(SetData(1, 0, "FF"), 0);
    EXPECT_EQ(Set("2A4", "/Part/Geometry/Source[0]/KModel/binvar", "1").result, kVariable);
    EXPECT_EQ(TakeAccusations(),
              (std::vector<std::string>{"Binary variable 1 was sent data before its size was set.",
                                        "Binary variable 1 was sent data beyond its size of 2.",
                                        "Binary variable 1 was sent data beyond its size of 2.",
                                        "Binary variable 1 was sent data that are not upper-case hexadecimal digits.",
                                        "Binary variable 1 was sent an odd number of hexadecimal digits, or none.",
                                        "Binary variable 1 was used before all of its bytes were sent."}));
    EXPECT_EQ(Free(1), 0);
    EXPECT_EQ(Free(1), kVariable);  // refused, but no broken contract
    EXPECT_EQ(SetSize(2, 0), kVariable);
}

}  // namespace
