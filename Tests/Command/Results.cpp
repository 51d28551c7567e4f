// What a run does with the outcome of fetching the result; the outcomes themselves are the session's.
#include "CommandBench.h"

namespace {

using bench::BoxIcon;
using bench::Trouble;

constexpr char kExport[] = "/klimora/export/";

class Results : public CommandBench {
 protected:
    Results() {
        Picks("2A3");
        InTheConfigurator("choose SRC-250-900");
    }
};

TEST_F(Results, AnyFailureShowsNoProductExported) {
    const struct {
        Trouble trouble;
        const char* printed;
    } cases[] = {
        {Trouble::kRefused, "Sorvik Klimora Cloud Plugin: Error DownloadFile: Can't open file from internet\n"},
        // Transfers that break off count as complete: the parser finds out.
        {Trouble::kTruncated, "Sorvik Klimora Cloud Plugin: Can't parse xml data "},
        {Trouble::kReset, "Sorvik Klimora Cloud Plugin: Can't parse xml data "},
        {Trouble::kNotFound, "Sorvik Klimora Cloud Plugin: Can't parse xml data "}};
    for (const auto& c : cases) {
        StartOver();
        TheWebServer().Reset();
        TheWebServer().SetTrouble(kExport, c.trouble);
        ExpectNoProductExported();
        Run();
        EXPECT_NE(Printed().find(c.printed), std::string::npos) << Printed();
        ExpectNothingChanged();
        Picks("2A3");
    }
    StartOver();
    TheWebServer().Reset();
    TheWebServer().PublishWith("error", "The product was withdrawn.");
    MeetsBox("The product was withdrawn.", BoxIcon::kError, {"OK"}, "OK");
    ExpectNoProductExported();
    Run();
    ExpectNothingChanged();
    EXPECT_EQ(robot().Seen().back().owner, bench::MainWindow());
}

TEST_F(Results, CancelledDialogEndsTheCommand) {
    TheWebServer().PublishWith("warning", "Airflow above range.");
    MeetsBox("Airflow above range.\nContinue?", BoxIcon::kWarning, {"Yes", "No"}, "Yes");
    robot().Expect(bench::Dialog("Configurator").Press(IDCANCEL));
    Run();
    EXPECT_EQ(CountOf("ddk_opendatabase"), 0u);
    ExpectNothingChanged();
}

}  // namespace
