// The configurator's result on its way into the session: downloads that fail, files that are no result, and the
// server's own errors and warnings.
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

TEST_F(Results, RequestAddressByteForByte) {
    ExpectNoProductExported();
    TheWebServer().PublishInstead("<x/>");
    Run();
    const std::string id = SessionId();
    ASSERT_EQ(id.find_first_not_of("0123456789ABCDEF"), std::string::npos);
    const auto gets = Calls("GET /klimora/export/");
    ASSERT_EQ(gets.size(), 1u);
    EXPECT_EQ(gets[0].substr(0, gets[0].find(" ->")), id + ".xml");
}

TEST_F(Results, RefusedDownload) {
    TheWebServer().SetTrouble(kExport, Trouble::kRefused);
    ExpectNoProductExported();
    Run();
    EXPECT_NE(Printed().find("Sorvik Klimora Cloud Plugin: Error DownloadFile: Can't open file from internet\n"),
              std::string::npos)
        << Printed();
    ExpectNothingChanged();
}

TEST_F(Results, FilesThatAreNoResult) {
    const struct {
        const char* what;
        const char* body;
    } cases[] = {{"not XML", "Service unavailable"},
                 {"no root", "<?xml version=\"1.0\"?><!-- nothing -->"},
                 {"broken off", "<result><device><ID>SRC-2"},
                 {"two ends", "<result></device></result>"}};
    for (const auto& c : cases) {
        StartOver();
        TheWebServer().PublishInstead(c.body);
        ExpectNoProductExported();
        Run();
        const std::string printed = Printed();
        EXPECT_NE(printed.find("Sorvik Klimora Cloud Plugin: Can't parse xml data "), std::string::npos)
            << c.what << printed;
        ExpectNothingChanged();
        Picks("2A3");
    }
    bench::ClearAnswers();
}

TEST_F(Results, TransfersThatBreakOffPassAsPartialFiles) {
    for (const Trouble trouble : {Trouble::kTruncated, Trouble::kReset, Trouble::kEmpty, Trouble::kNotFound}) {
        StartOver();
        TheWebServer().Reset();
        TheWebServer().SetTrouble(kExport, trouble);
        ExpectNoProductExported();
        Run();
        EXPECT_EQ(Printed().find("Error DownloadFile"), std::string::npos) << Printed();
        ExpectNothingChanged();
        Picks("2A3");
    }
    bench::ClearAnswers();
}

TEST_F(Results, StalledAndRedirectedTransfersArrive) {
    for (const Trouble trouble : {Trouble::kStalled, Trouble::kRedirected}) {
        StartOver();
        TheWebServer().Reset();
        TheWebServer().SetTrouble(kExport, trouble);
        CancelsTheDialog();
        Run();
        ExpectNothingChanged();
        Picks("2A3");
    }
    bench::ClearAnswers();
}

TEST_F(Results, NoDevice) {
    TheWebServer().PublishInstead("<result><error/><warning/></result>");
    ExpectNoProductExported();
    Run();
    EXPECT_NE(Printed().find("\nSorvik Klimora Cloud Plugin: Can not find product data in output.xml"),
              std::string::npos);
    ExpectNothingChanged();
}

TEST_F(Results, ErrorFromTheServer) {
    TheWebServer().PublishWith("error", "The product was withdrawn.");
    MeetsBox("The product was withdrawn.", BoxIcon::kError, {"OK"}, "OK");
    ExpectNoProductExported();
    Run();
    ExpectNothingChanged();
    ASSERT_EQ(robot().Seen().size(), 2u);
    EXPECT_EQ(robot().Seen()[0].owner, bench::MainWindow());
}

TEST_F(Results, WarningDeclined) {
    TheWebServer().PublishWith("warning", "Airflow above range.");
    MeetsBox("Airflow above range.\nContinue?", BoxIcon::kWarning, {"Yes", "No"}, "No");
    ExpectNoProductExported();
    Run();
    ExpectNothingChanged();
}

TEST_F(Results, WarningAccepted) {
    TheWebServer().PublishWith("warning", "Airflow above range.");
    MeetsBox("Airflow above range.\nContinue?", BoxIcon::kWarning, {"Yes", "No"}, "Yes");
    CancelsTheDialog();
    Run();
    ExpectNothingChanged();
}

TEST_F(Results, ErrorAndWarningShowBothBoxes) {
    for (const char* answer : {"Yes", "No"}) {
        StartOver();
        TheWebServer().PublishWith("error", "Out of stock.");
        TheWebServer().PublishWith("warning", "Airflow above range.");
        MeetsBox("Out of stock.", BoxIcon::kError, {"OK"}, "OK");
        MeetsBox("Airflow above range.\nContinue?", BoxIcon::kWarning, {"Yes", "No"}, answer);
        ExpectNoProductExported();
        Run();
        ExpectNothingChanged();
        Picks("2A3");
    }
    bench::ClearAnswers();
}

}  // namespace
