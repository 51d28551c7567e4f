// Project files: what is refused leaves the open project alone; and the sample project is a ventilation that could be.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "KlimoraClient.h"

namespace {

std::string Sample() {
    std::ifstream file(SORVIK_SAMPLE_FOLDER "/office.xml", std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

std::string With(std::string text, const std::string& from, const std::string& to) {
    const size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

double Number(const std::string& handle, const char* path) {
    return std::atof(bench::PartAttribute(handle, path).c_str());
}

struct Rectangle {
    double left, bottom, right, top;
};

// Ground plan of a duct that runs along one of the axes.
Rectangle Plan(const std::string& handle) {
    double x = 0, y = 0, z = 0, dx = 0, dy = 0;
    std::sscanf(bench::PartAttribute(handle, "/Part/Position/WCS").c_str(), "%lf %lf %lf", &x, &y, &z);
    std::sscanf(bench::PartAttribute(handle, "/Part/Direction/WCS").c_str(), "%lf %lf", &dx, &dy);
    const double length = Number(handle, "/Part/Length");
    const bool round = bench::PartAttribute(handle, "/Part/Shape/ID") == "0";
    const double half = Number(handle, round ? "/Part/Diameter" : "/Part/Width") / 2;
    const double x2 = x + dx * length, y2 = y + dy * length;
    const double sideways = dy != 0 ? half : 0, upwards = dx != 0 ? half : 0;
    return {std::min(x, x2) - sideways, std::min(y, y2) - upwards, std::max(x, x2) + sideways,
            std::max(y, y2) + upwards};
}

bool Overlap(const Rectangle& a, const Rectangle& b) {
    return a.left < b.right && b.left < a.right && a.bottom < b.top && b.bottom < a.top;
}

std::vector<std::string> Ducts() {
    std::vector<std::string> ducts;
    for (const std::string& handle : bench::PartHandles())
        if (bench::PartAttribute(handle, "/Part/Type/ID") == "68") ducts.push_back(handle);
    return ducts;
}

using KlimoraProjectFileTest = KlimoraBench;

TEST_F(KlimoraProjectFileTest, WhatIsNoProjectLeavesTheOpenOneAlone) {
    const std::string good = Sample();
    const struct {
        std::string xml;
        const char* reason;
    } cases[] = {
        {"", "Not a Klimora project"},
        {"office", "Not a Klimora project"},
        {good.substr(0, good.size() / 2), "Not a Klimora project"},
        {"<Other/>", "the root element is not KlimoraProject"},
        {"<KlimoraProject><dwg/><Project/></KlimoraProject>", "there is no element Parts"},
        {"<KlimoraProject><dwg><kpjfilename>a</kpjfilename></dwg><Project/><Parts/></KlimoraProject>",
         "it has no parts"},
        {With(good, "C:\\Projects\\Office\\office.kpj", ""), "it has no dwg/kpjfilename"},
        {With(good, "handle=\"2A4\"", "handle=\"duct 4\""), "a part has no hexadecimal handle"},
        {With(good, "handle=\"2A4\"", "handle=\"2A3\""), "handle 2A3 is there twice"},
        {With(good, "<Define>EWAPART_DUCT</Define>", ""), "Part 2A1 has no Type/Define"},
        {With(good, "<Length>8000</Length>", ""), "Part 2A1 has no number at Length"},
        {With(good, "3000 9000 2800", "3000 9000"), "Part 2A1 has no point at Position/WCS"},
        {With(good, "<Height>300</Height>", ""), "Part 2A1 has no number at Height"},
        {With(good, "<ConnectedTo>2A3</ConnectedTo>", "<ConnectedTo>3FF</ConnectedTo>"), "which is no part"},
        {With(good, "<ConnectedTo>2A3</ConnectedTo>", "<ConnectedTo>2B3</ConnectedTo>"),
         "which is not connected to it"},
        {With(good, "<System><ID>1</ID></System>", "<System><ID>9</ID></System>"), "system '9', which is not listed"},
        {With(good, "\"2A4\"", "\"900\""), "Handle 900 stands in the drawing already, as AcDbLine"},
    };
    bench::AddEntity({"900", "AcDbLine", "0"});
    const std::string before = bench::ProjectXml();
    for (const auto& c : cases) {
        std::string xml = c.xml;
        if (std::string(c.reason).find("900") != std::string::npos)
            xml = With(xml, "<ConnectedTo>2A4</ConnectedTo>", "<ConnectedTo>900</ConnectedTo>");
        std::string error = "untouched";
        EXPECT_FALSE(bench::OpenProjectText(xml, error)) << c.reason;
        EXPECT_NE(error.find(c.reason), std::string::npos) << error;
        EXPECT_EQ(bench::ProjectXml(), before) << c.reason;
        EXPECT_TRUE(InDrawing("2A4"));
    }
    std::string error;
    EXPECT_FALSE(bench::OpenProject("no-such-project.xml", error));
    EXPECT_EQ(error, "Cannot open no-such-project.xml.");
    bench::EraseEntity("900");
}

TEST_F(KlimoraProjectFileTest, ClosingLeavesADrawingWithoutAProject) {
    bench::CloseProject();
    EXPECT_EQ(Get("", "/dwg/kpjfilename").text, "");
    EXPECT_EQ(Get("", "/dwg/kpjfilename").result, 0);
    EXPECT_EQ(Get("", "Count(/Project/Ductwork/System)").result, -101);
    EXPECT_EQ(Get("2A1", "/Part/Type/ID").result, -101);
    EXPECT_TRUE(InDrawing("2A1"));  // the drawing stays, the project finds its entities again
    std::string error;
    EXPECT_TRUE(bench::OpenProjectText(Sample(), error)) << error;
    EXPECT_EQ(bench::Entities().size(), 30u);
}

TEST_F(KlimoraProjectFileTest, TheSavedProjectReadsBackAsItWas) {
    const std::string saved = bench::ProjectXml();
    std::string error;
    ASSERT_TRUE(bench::OpenProjectText(saved, error)) << error;
    EXPECT_EQ(bench::ProjectXml(), saved);
}

TEST_F(KlimoraProjectFileTest, SampleDuctsHaveAirSpeedsOfDuctsAndDoNotOverlap) {
    const std::vector<std::string> ducts = Ducts();
    EXPECT_EQ(ducts.size(), 14u);
    for (size_t i = 0; i < ducts.size(); ++i) {
        const bool round = bench::PartAttribute(ducts[i], "/Part/Shape/ID") == "0";
        const double diameter = Number(ducts[i], "/Part/Diameter");
        const double area = round ? 3.14159 * diameter * diameter / 4
                                  : Number(ducts[i], "/Part/Width") * Number(ducts[i], "/Part/Height");
        const double speed = Number(ducts[i], "/Part/qv_sizingflow/ls") * 1000 / area;  // l/s and mm2 give m/s
        EXPECT_GE(speed, 2) << ducts[i];
        EXPECT_LE(speed, 6) << ducts[i];
        const Rectangle plan = Plan(ducts[i]);
        EXPECT_TRUE(plan.left >= 0 && plan.bottom >= 0 && plan.right <= 30000 && plan.top <= 15000) << ducts[i];
        for (size_t j = 0; j < i; ++j)
            EXPECT_FALSE(Overlap(plan, Plan(ducts[j]))) << ducts[i] << " and " << ducts[j];
    }
}

TEST_F(KlimoraProjectFileTest, SampleBranchesShareTheirAirflow) {
    int branches = 0;
    for (const std::string& handle : bench::PartHandles()) {
        if (bench::PartAttribute(handle, "/Part/Type/ID") != "82") continue;
        ++branches;
        double flows[3] = {};
        for (int i = 0; i < 3; ++i) {
            const std::string path = "/Part/Connection[" + std::to_string(i) + "]/ConnectedTo";
            flows[i] = Number(bench::PartAttribute(handle, path), "/Part/qv_sizingflow/ls");
        }
        EXPECT_EQ(flows[0], flows[1] + flows[2]) << handle;
    }
    EXPECT_EQ(branches, 3);
}

}  // namespace
