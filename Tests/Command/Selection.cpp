// The first steps of the command: no Klimora, the prompt, and what is taken from a pick. The configurator is cancelled,
// so every run here ends without a trace.
#include <fstream>
#include <iterator>

#include "CommandBench.h"

namespace {

using bench::BoxIcon;

constexpr char kNotStarted[] = "\nSorvik Klimora Cloud Plugin: Can not start application, Klimora is not loaded.\n";

class Selection : public CommandBench {
 protected:
    // The sample project with the first `found` in its text replaced.
    void ReopenWith(const std::string& found, const std::string& replacement) {
        std::ifstream sample("office.xml");
        std::string project((std::istreambuf_iterator<char>(sample)), std::istreambuf_iterator<char>()), error;
        const size_t at = project.find(found);
        ASSERT_NE(at, std::string::npos);
        project.replace(at, found.size(), replacement);
        bench::NewDrawing("Office.dwg");
        ASSERT_TRUE(bench::OpenProjectText(project, error)) << error;
    }

    // The query of the address with which the configurator was opened.
    std::string AskedFor() const {
        const std::string record = ConfiguratorRecord();
        const std::string start = WEB_SERVER "/klimora?action=ljudprog&klsid=";
        const size_t at = record.find(start);
        if (at == std::string::npos) return "(not asked)";
        const size_t from = at + start.size() + 32;
        return record.substr(from, record.find('"', from) - from);
    }
};

TEST_F(Selection, KlimoraNotRunning) {
    bench::KlimoraServer server;
    server.klimoraRunning = false;
    UseServer(server);
    Run();
    EXPECT_NE(Printed().find(kNotStarted), std::string::npos);
    EXPECT_EQ(CountOf("acedSSGet"), 0u);
    ExpectNothingChanged();
}

TEST_F(Selection, OldServer) {
    bench::KlimoraServer server;
    server.version = 20091199;
    UseServer(server);
    MeetsBox("Klimora version 20091200 or newer is required.", BoxIcon::kWarning, {"OK"}, "OK");
    Run();
    EXPECT_NE(Printed().find("\nSorvik Klimora Cloud Plugin: Klimora version 20091200 or newer is required.\n" +
                             std::string(kNotStarted)),
              std::string::npos)
        << Printed();
    ExpectNothingChanged();
}

TEST_F(Selection, NoProject) {
    bench::CloseProject();
    MeetsBox("Klimora project is not open. Please, open Klimora project.", BoxIcon::kWarning, {"OK"}, "OK");
    Run();
    EXPECT_NE(Printed().find(kNotStarted), std::string::npos);
    ExpectNothingChanged();
    // AutoCAD's own use of OLE has survived: the next run gets as far as the project again.
    MeetsBox("Klimora project is not open. Please, open Klimora project.", BoxIcon::kWarning, {"OK"}, "OK");
    bench::RunCommand("SorvSIL");
}

TEST_F(Selection, EscapeEndsWithoutAWord) {
    PressesEscape();
    Run();
    EXPECT_EQ(Printed().find(kName), std::string::npos) << Printed();
    EXPECT_TRUE(ConfiguratorRecord().empty());
    ExpectNothingChanged();
}

TEST_F(Selection, UnsuitablePicksRepeatThePromptSilently) {
    const std::string line = bench::AddEntity({"", "AcDbLine", "0"});
    for (const std::string& unsuitable : {std::string("2A4"), std::string("2A0"), line})
        Picks(unsuitable);
    Picks("2A3");
    Run();
    EXPECT_EQ(CountOf("acedSSGet"), 4u);
    EXPECT_EQ(Printed().find(kName), std::string::npos) << Printed();
    EXPECT_EQ(AskedFor(), "&diameter=250&airflow=200");
    ExpectNothingChanged();
}

TEST_F(Selection, DuctsOfAirSystemsAloneAreTaken) {
    for (const auto& [id, prompts] : {std::pair{"-1", 2}, {"0", 1}, {"1", 1}, {"2", 1}, {"3", 1}, {"4", 2}}) {
        ReopenWith("<Name>Supply air</Name><Type><ID>0", std::string("<Name>Supply air</Name><Type><ID>") + id);
        Picks("2A3");
        if (prompts == 2) PressesEscape();
        StartOver();
        Run();
        EXPECT_EQ(CountOf("acedSSGet"), static_cast<size_t>(prompts)) << id;
        ExpectNothingChanged();
    }
}

TEST_F(Selection, RectangularDuct) {
    Picks("2A5");
    Run();
    EXPECT_EQ(AskedFor(), "&width=400&height=250&airflow=400");
    ExpectNothingChanged();
}

TEST_F(Selection, BendAndBranchStandForTheirDuct) {
    Picks("2AA");  // type 69 between 2A9 and 2AB
    Run();
    EXPECT_EQ(AskedFor(), "&diameter=315&airflow=270");
    EXPECT_EQ(CountOf("IKlimora200805::getPartAtt '2A9' '/part/diameter'"), 1u) << "the first duct in connection order";
    ExpectNothingChanged();
    Picks("2A2");  // type 82, its first duct is 2A1
    StartOver();
    bench::RunCommand("SorvSIL");
    EXPECT_EQ(AskedFor(), "&width=500&height=300&airflow=600");
}

TEST_F(Selection, BendWithoutDuctIsNotTaken) {
    std::string alone;
    for (const std::string& part : bench::PartHandles()) {
        if (bench::PartAttribute(part, "/part/type/id") != "69") continue;
        bool hasDuct = false;
        const int count = std::atoi(bench::PartAttribute(part, "Count(/Part/Connection)").c_str());
        for (int i = 0; i < count; ++i) {
            const std::string other =
                bench::PartAttribute(part, "/Part/Connection[" + std::to_string(i) + "]/ConnectedTo");
            hasDuct = hasDuct || bench::PartAttribute(other, "/part/type/id") == "68";
        }
        if (!hasDuct) alone = part;
    }
    ASSERT_FALSE(alone.empty());
    Picks(alone);
    PressesEscape();
    Run();
    EXPECT_EQ(CountOf("acedSSGet"), 2u);
    ExpectNothingChanged();
}

TEST_F(Selection, ZeroSizesAreLeftOut) {
    const struct {
        const char *diameter, *asked;
    } cases[] = {{"0", ""}, {"0.0000001", ""}, {"0.00000011", "&diameter=0.00000011"}};
    for (const auto& [diameter, asked] : cases) {
        ReopenWith("<Diameter>250</Diameter>", std::string("<Diameter>") + diameter + "</Diameter>");
        Picks("2A3");
        StartOver();
        Run();
        EXPECT_EQ(AskedFor(), std::string(asked) + "&airflow=200") << diameter;
        ExpectNothingChanged();
    }
}

TEST_F(Selection, FailedSizeQueryEndsTheCommandQuietly) {
    Picks("2A3");
    // project check, system type, two part types, shape: the sixth query is for the diameter
    bench::FailCall("IKlimora200805::getPartAtt", 6, -9);
    Run();
    ASSERT_EQ(CountOf("IKlimora200805::getPartAtt '2A3' '/part/diameter' -> -9"), 1u);
    EXPECT_EQ(CountOf("acedSSGet"), 1u);
    EXPECT_EQ(Printed().find(kName), std::string::npos);
    EXPECT_TRUE(ConfiguratorRecord().empty());
    ExpectNothingChanged();
}

TEST_F(Selection, TraceIsSilentDuringTheSelectionAndBackAfterIt) {
    Picks("2A4");
    Picks("2A3");
    bench::FailCall("IKlimora200805::getPartAtt", 2, 5);   // during the selection
    bench::FailCall("IKlimora200805::getPartAtt", 11, 6);  // the first silencer of the project
    Run();
    EXPECT_EQ(Printed().find("=5 "), std::string::npos);
    EXPECT_NE(Printed().find("KlimComSrvImpl::getPartAtt:('', '"), std::string::npos) << Printed();
    EXPECT_NE(Printed().find("=6 IKlimora200805::getPartAtt was planned to fail.\n"), std::string::npos) << Printed();
    ExpectNothingChanged();
}

}  // namespace
