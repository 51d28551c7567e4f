// Reading and writing real numbers, and the module's independence of the locale.
#include "Lib/Numbers.h"

#include <clocale>
#include <cmath>
#include <limits>

#include "AirDeviceData.h"
#include "DrawingFixture.h"
#include "Lib/FormatText.h"
#include "SessionBench.h"
#include "Util/ArxHandles.h"
#include "Util/DlgFunc_Text.h"
#include "Util/KLUtils_Text.h"
#include "Util/KlimComSrvImpl.h"
#include "Util/XData.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Numbers, ReadsLikeTheRuntimeInTheCLocale) {
    const struct {
        const char* text;
        double value;
        int length;  // 0 when there is no number
    } cases[] = {{"25.5 440", 25.5, 4},
                 {" \t\n\v\f\r+.5x", 0.5, 9},
                 {"-2,5", -2, 2},
                 {"1e3", 1000, 3},
                 {"1e", 1, 1},
                 {"1e+", 1, 1},
                 {"-0x1.8P+1z", -3, 9},
                 {"0x1Ep-9999", 0, 10},
                 {"0xAp9999", kInfinity, 8},
                 {"0x", 0, 1},
                 {"0xg", 0, 1},
                 {"-INF", -kInfinity, 4},
                 {"1e400", kInfinity, 5},
                 {"-1E+400", -kInfinity, 7},
                 {"1e-400", 0, 6},
                 {"4.9e-324", 4.9e-324, 8},
                 {"", 0, 0},
                 {" ", 0, 0},
                 {"--1", 0, 0},
                 {"+-1", 0, 0},
                 {",5", 0, 0},
                 {".", 0, 0}};
    for (const auto& c : cases) {
        double value = -99;
        EXPECT_EQ(ReadReal(c.text, value) - c.text, c.length) << c.text;
        EXPECT_EQ(value, c.length ? c.value : -99) << c.text;
        EXPECT_EQ(ToReal(c.text), c.value) << c.text;
    }
    double value = 0;
    ReadReal("nan", value);
    EXPECT_TRUE(std::isnan(value));
    const std::string large = std::string(400, '9'), small = "0." + std::string(400, '0') + "1";
    EXPECT_EQ(ToReal(large.c_str()), kInfinity);
    EXPECT_EQ(ToReal(small.c_str()), 0);
    float single = 0;
    ReadReal("16777217.0000001", single);
    EXPECT_EQ(single, 16777218.0f) << "rounded once, not first to a double";
    ReadReal("1e39", single);
    EXPECT_EQ(single, std::numeric_limits<float>::infinity());
}

TEST(Numbers, WritesLikeTheRuntimeInTheCLocale) {
    EXPECT_EQ(RealText(2.5), "2.500000");
    EXPECT_EQ(RealText(2.5, 0), "2") << "rounded to even";
    EXPECT_EQ(RealText(-1e-9), "-0.000000");
    EXPECT_EQ(RealText(1.0 / 3, 20), "0.33333333333333331483");
    EXPECT_EQ(RealText(1, -1), "1.000000");
    EXPECT_EQ(RealText(std::nan("")), "nan");
    EXPECT_EQ(RealText(-kInfinity), "-inf");
    EXPECT_EQ(RealText(-1e308).size(), 317u);
    EXPECT_EQ(RealText(-1e308).substr(0, 20), "-1000000000000000010");
    EXPECT_EQ(RealText(1, 10000), "1." + std::string(8190, '0'));
    char buffer[] = "########";
    EXPECT_EQ(WriteReal(buffer, 8, 9.75, 6), 8u);
    EXPECT_EQ(std::string(buffer), "9.750000");
    EXPECT_EQ(WriteReal(buffer, 7, 9.75, 6), 0u);
}

// Another plug-in may have set a locale with a decimal comma.
class CommaLocale : public SessionBench {
 protected:
    ~CommaLocale() override { std::setlocale(LC_ALL, "C"); }
    static void Begin() { ASSERT_NE(std::setlocale(LC_ALL, "German"), nullptr); }
};

TEST_F(CommaLocale, ChangesNoNumberOfTheRecordOrTheDuct) {
    OpenSampleWith(">200<", ">0.5<");
    Begin();
    ticpp::Document document;
    document.Parse("<p><Qv>25.5</Qv><Dp>440.9</Dp></p>");
    const PressureDropPoint point = ReadPressureDropPoint(*document.FirstChildElement());
    EXPECT_EQ(point.qv, 25.5f);
    EXPECT_EQ(point.dp, 440.9f);
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    bench::QueueAnswer({bench::Answer::kPick, "2A3"});
    EXPECT_EQ(session.SelectDuct(), 0);
    EXPECT_EQ(session.Root()->FirstChildElement("duct")->GetAttribute("airflow_ls"), "0.5");
    EXPECT_EQ(session.GetPartAttReal("2A3", "/part/qv_sizingflow/ls", true), 0.5);
}

TEST_F(CommaLocale, ChangesNoNumberForTheServer) {
    Begin();
    KLComUtils utils;
    ASSERT_EQ(utils.Connect(), 0);
    bench::ClearCallLog();
    utils.CreateManifold({1, 0}, {AcGePoint3d(1.5, -2000, 0.25), AcGeVector3d(0, 1, 0), AcGeVector3d(0, 0, 1)}, "");
    const std::vector<std::string> calls = Calls("IKlimora200805::createPart ");
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_NE(calls[0].find("<WCS>1.500000 -2000.000000 0.250000</WCS>"), std::string::npos) << calls[0];
    KlimComSrvImpl server;
    server.setTrace({true, false, false});
    server.setPartAttDouble("2A3", "/Part/Nothing", 1.5);
    EXPECT_NE(server.lastTrace().find("'2A3', '/Part/Nothing', 1.500000)="), std::string::npos) << server.lastTrace();
}

TEST_F(CommaLocale, ChangesNoNumberInTheDrawing) {
    Begin();
    OpenObject<AcDbObject> object;
    ASSERT_EQ(object.Open(IdOf(bench::AddEntity({"", "EwaDuct", "0"})), AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(SetXDataPoint(object.get(), "SORV", "P", 1, 2.5, -3, 3), 0);
    EXPECT_EQ(SetXDataFloat(object.get(), "SORV", "F", 2.25f, 2), 0);
    EXPECT_EQ(SetXDataDouble(object.get(), "SORV", "D", 0.125, 3), 0);
    char text[32] = "";
    GetXDataString(object.get(), "SORV", "P", text, sizeof text);
    EXPECT_STREQ(text, "1.000,2.500,-3.000");
    double x = 9, y = 9, z = 9, real = 9;
    float single = 9;
    EXPECT_EQ(GetXDataPoint(object.get(), "SORV", "P", x, y, z), 1);
    EXPECT_EQ(GetXDataFloat(object.get(), "SORV", "F", single), 1);
    EXPECT_EQ(GetXDataDouble(object.get(), "SORV", "D", real), 1);
    EXPECT_EQ(std::vector<double>({x, y, z, single, real}), std::vector<double>({1, 2.5, -3, 2.25, 0.125}));
}

TEST_F(CommaLocale, ChangesNoNumberInATextOrAField) {
    Begin();
    double numbers[2] = {};
    EXPECT_EQ(KLUtils::ParseNumbers("1.5 -2.5", numbers, 2), 2);
    EXPECT_EQ(KLUtils::FormatNumbers(numbers, 2, 2), "1.50 -2.50");
    char text[] = "2.9";
    EXPECT_FALSE(ClampNumberText(text, 2.5, 3));
    EXPECT_STREQ(text, "2.9");
}

}  // namespace
