// Which products the server offers for a duct, and with what figures.
#include "BenchAutoCAD.h"
#include "BenchKlimora.h"
#include "Catalogue.h"
#include "Figures.h"
#include "RequestTarget.h"
#include "WebServer.h"
#include "WebServerClient.h"
#include "BenchControl.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const char kSession[] = "0F1E2D3C4B5A69788796A5B4C3D2E1F0";

std::vector<std::string> Fitting(const bench::Duct& duct) {
    std::vector<std::string> ids;
    for (const bench::Silencer& silencer : bench::ReadCatalogue(SORVIK_CATALOGUE).silencers)
        if (bench::Fits(silencer, duct)) ids.push_back(silencer.id);
    return ids;
}

TEST(WebServerProducts, FitByShapeSizeAndAirflow) {
    EXPECT_THAT(Fitting({200, 0, 0, 120}), ElementsAre("SRC-200-600", "SRC-200-900", "SRK-200-900", "SRX-200-1000"));
    EXPECT_THAT(Fitting({160, 0, 0, 0}), ElementsAre("SRC-160-600", "SRX-160-1000"));
    EXPECT_THAT(Fitting({160, 0, 0, 180}), ElementsAre("SRC-160-600", "SRX-160-1000"));
    EXPECT_THAT(Fitting({160, 0, 0, 180.1}), ElementsAre());
    EXPECT_THAT(Fitting({160, 0, 0, 9.9}), ElementsAre());
    EXPECT_THAT(Fitting({0, 600, 300, 500}), ElementsAre("SRR-600x300-1250"));
    EXPECT_THAT(Fitting({0, 300, 600, 500}), ElementsAre()) << "a rectangular silencer is not turned";
    EXPECT_THAT(Fitting({400, 400, 200, 0}), ElementsAre("SRC-400-1200", "SRR-400x200-1000"));
    EXPECT_THAT(Fitting({0, 0, 0, 100}), ElementsAre());
}

TEST(WebServerProducts, EveryDuctOfAirHasASilencer) {
    std::string error;
    bench::StartAutoCAD();
    bench::NewDrawing("office.dwg");
    ASSERT_TRUE(bench::OpenProject(SORVIK_SAMPLE_FOLDER "/office.xml", error)) << error;
    int ducts = 0;
    for (const std::string& part : bench::PartHandles()) {
        const auto number = [&](const char* path) { return std::atof(bench::PartAttribute(part, path).c_str()); };
        if (number("/Part/Type/ID") != 68 || number("/Part/System/Type/ID") > 3) continue;
        const bench::Duct duct{number("/Part/Diameter"), number("/Part/Width"), number("/Part/Height"),
                               number("/Part/qv_sizingflow/ls")};
        EXPECT_FALSE(Fitting(duct).empty()) << part;
        ++ducts;
    }
    EXPECT_GT(ducts, 10);
    bench::CloseProject();
    bench::StopAutoCAD();
}

TEST(WebServerProducts, PressureDropFollowsTheSilencersOwnCurve) {
    const bench::Catalogue catalogue = bench::ReadCatalogue(SORVIK_CATALOGUE);
    const struct {
        const char* id;
        double airflow;
        double pressureDrop;
    } cases[] = {{"SRC-200-600", 171, 7.1},       {"SRC-200-600", 85.5, 7.1 / 4}, {"SRC-200-600", 0, 0},
                 {"SRK-200-900", 142.5, 19.8},    {"SRK-200-900", 285, 79},       {"SRK-200-900", 570, 316},
                 {"SRK-200-900", 178.125, 30.86}, {"SRR-600x300-1250", 0, 0}};
    for (const auto& one : cases) {
        const bench::Silencer* silencer = catalogue.Find(one.id);
        ASSERT_TRUE(silencer) << one.id;
        EXPECT_NEAR(bench::PressureDrop(*silencer, one.airflow), one.pressureDrop, 0.05)
            << one.id << " " << one.airflow;
    }
    // Without a curve the flow noise points carry the pressure drop.
    const bench::Silencer* flexible = catalogue.Find("SRX-200-1000");
    ASSERT_TRUE(flexible);
    EXPECT_NEAR(bench::PressureDrop(*flexible, 285), std::stod(flexible->flowNoise.back().dp), 0.001);
}

TEST(WebServerProducts, ThePageCarriesTheFiguresAtTheDuctsAirflow) {
    bench::WebServer server(SORVIK_CATALOGUE);
    server.UseAsProxy();
    const std::string request = std::string("/klimora?action=ljudprog&klsid=") + kSession;
    const Fetched page = Fetch(request + "&diameter=200&airflow=171");
    EXPECT_EQ(page.status, 200u);
    EXPECT_THAT(page.body, HasSubstr("<product id=\"SRC-200-600\" code=\"SRC 200 600\" length=\"600\" "
                                     "pressureDrop=\"7.1\" attenuation250=\"10\" />"));
    EXPECT_THAT(Fetch(request + "&width=400&height=200&airflow=300").body, HasSubstr("SRR-400x200-1000"));
    EXPECT_EQ(Fetch(request + "&diameter=205").body.find("<product "), std::string::npos);
    EXPECT_EQ(Fetch(std::string("/klimora?action=sound&klsid=") + kSession).status, 400u);
    EXPECT_EQ(Fetch("/klimora?action=ljudprog&diameter=200").status, 400u);
    bench::ResetBench();
}

TEST(WebServerProducts, SessionIdentifiersAreThirtyTwoUpperCaseDigits) {
    EXPECT_TRUE(bench::IsSessionIdentifier(kSession));
    for (const char* wrong :
         {"", "0F1E2D3C4B5A69788796A5B4C3D2E1F", "0F1E2D3C4B5A69788796A5B4C3D2E1F00",
          "0f1e2d3c4b5a69788796a5b4c3d2e1f0", "0F1E2D3C4B5A69788796A5B4C3D2E1FG", "0F1E2D3C4B5A6978 796A5B4C3D2E1F0"})
        EXPECT_FALSE(bench::IsSessionIdentifier(wrong)) << wrong;
}

TEST(WebServerProducts, TargetsInOriginAndAbsoluteForm) {
    const struct {
        const char* target;
        const char* path;
        const char* text;
        const char* a;
    } cases[] = {{"/p/q.xml", "/p/q.xml", "/p/q.xml", ""},
                 {"http://h:80/p?a=1&b=2", "/p", "/p?a=1&b=2", "1"},
                 {"http://h", "/", "/", ""},
                 {"/p?u=http://x/&a=%41%2", "/p", "/p?u=http://x/&a=%41%2", "A%2"},
                 {"/p?aa=1&a=", "/p", "/p?aa=1&a=", ""}};
    for (const auto& one : cases) {
        const bench::RequestTarget target = bench::ParseRequestTarget(one.target);
        EXPECT_EQ(target.path, one.path) << one.target;
        EXPECT_EQ(target.text(), one.text);
        EXPECT_EQ(target.Value("a"), one.a) << one.target;
    }
}

TEST(WebServerProducts, ABrokenCatalogueIsSaidToBeOne) {
    EXPECT_THROW(bench::WebServer("no such catalogue.xml"), std::runtime_error);
    const std::string path = "broken_catalogue.xml";
    const std::string files = "<dictionary file='a' path='/a'/><database file='b' path='/b'/>";
    for (const std::string& text :
         {std::string("<catalogue>"), std::string("<list/>"), std::string("<catalogue/>"),
          "<catalogue>" + files + "<series name='A' shape='0'/></catalogue>",
          "<catalogue>" + files +
              "<series name='A' shape='0' model='m'><silencer id='1' code='c' fnc='10' d1='1' d2='0' "
              "length='1'><insertionLoss lw='1 2 3'/></silencer></series></catalogue>"}) {
        std::ofstream(path, std::ios::trunc) << text;
        EXPECT_THROW(bench::ReadCatalogue(path), std::runtime_error) << text;
    }
    std::remove(path.c_str());
}

}  // namespace
