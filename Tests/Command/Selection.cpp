// Runs that end before there is a result: no transaction, no usable Klimora, nothing picked, nothing exported.
#include "CommandBench.h"

namespace {

using bench::BoxIcon;

constexpr char kNotStarted[] = "\nSorvik Klimora Cloud Plugin: Can not start application, Klimora is not loaded.\n";

using Selection = CommandBench;

TEST_F(Selection, ChangesNothingWithoutATransaction) {
    bench::FailCall("AcTransactionManager::startTransaction", 1);
    Run();
    EXPECT_EQ(bench::CallLog(),
              (std::vector<std::string>{"AcApDocManager::curDocument", "AcApDocument::transactionManager",
                                        "AcTransactionManager::startTransaction",
                                        "acutPrintf \\nSorvik Klimora Cloud Plugin: Can not start a transaction in the "
                                        "drawing.\\n"}));
}

TEST_F(Selection, EndsSilentlyWhenTheConfiguratorIsCancelled) {
    Picks("2A3");
    InTheConfigurator("cancel");
    Run();
    EXPECT_EQ(CountOf("GET /klimora/export/"), 0u);
    EXPECT_EQ(Printed().find(kName), std::string::npos) << Printed();
    ExpectNothingChanged();
}

TEST_F(Selection, ReportsAMissingOldOrClosedKlimora) {
    bench::KlimoraServer stopped, old;
    stopped.klimoraRunning = false;
    old.version = 20091199;
    const std::string tooOld = "Klimora version 20091200 or newer is required.";
    const std::string notOpen = "Klimora project is not open. Please, open Klimora project.";
    const std::pair<bench::KlimoraServer, std::string> cases[] = {{stopped, ""}, {old, tooOld}, {{}, notOpen}};
    for (const auto& [server, warning] : cases) {
        UseServer(server);
        StartOver();
        if (warning == notOpen) bench::CloseProject();
        if (!warning.empty()) MeetsBox(warning, BoxIcon::kWarning, {"OK"}, "OK");
        Run();
        const std::string expected = warning.empty() ? "" : "\n" + std::string(kName) + ": " + warning + "\n";
        EXPECT_EQ(Printed(), "\n" + expected + kNotStarted) << "after the end of AutoCAD's line";
        EXPECT_EQ(CountOf("acedSSGet"), 0u);
        ExpectNothingChanged();
    }
    // AutoCAD's own use of OLE still works: the next run reaches the project check again.
    MeetsBox(notOpen, BoxIcon::kWarning, {"OK"}, "OK");
    bench::RunCommand("SorvSIL");
}

TEST_F(Selection, EndsSilentlyOnEscape) {
    PressesEscape();
    Run();
    EXPECT_EQ(Printed().find(kName), std::string::npos) << Printed();
    EXPECT_TRUE(ConfiguratorRecord().empty());
    ExpectNothingChanged();
}

}  // namespace
