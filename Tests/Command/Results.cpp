// Whole runs that end after a successful or failed download of the result. The tests of the session check each outcome.
#include "CommandBench.h"
#include "RequestTarget.h"

namespace {

using bench::BoxIcon;
using bench::ServerFault;

constexpr char kExport[] = "/klimora/export/";

class Results : public CommandBench {
 protected:
    Results() {
        Picks("2A3");
        InTheConfigurator("choose SRC-250-900");
    }
};

TEST_F(Results, ShowsNoProductExportedOnAnyFailure) {
    const struct {
        ServerFault fault;
        const char* printed;
    } cases[] = {
        {ServerFault::kRefused, "Sorvik Klimora Cloud Plugin: Error DownloadFile: Can't open file from internet\n"},
        // A transfer that breaks off counts as complete, so the parser reports it.
        {ServerFault::kTruncated, "Sorvik Klimora Cloud Plugin: Can't parse xml data "},
        {ServerFault::kReset, "Sorvik Klimora Cloud Plugin: Can't parse xml data "},
        {ServerFault::kNotFound, "Sorvik Klimora Cloud Plugin: Can't parse xml data "}};
    for (const auto& c : cases) {
        StartOver();
        TheWebServer().Reset();
        TheWebServer().SetFault(kExport, c.fault);
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

TEST_F(Results, EndsWhenTheDialogIsCancelled) {
    TheWebServer().PublishWith("warning", "Airflow above range.");
    MeetsBox("Airflow above range.\nContinue?", BoxIcon::kWarning, {"Yes", "No"}, "Yes");
    robot().Expect(bench::Dialog("Configurator").Press(IDCANCEL));
    Run();
    EXPECT_EQ(CountOf("ddk_opendatabase"), 0u);
    ExpectNothingChanged();
}

// The user confirms a code for the first device; the last one is installed.
TEST_F(Results, RequiresAConfirmedOrFreeCodeForAFurtherDevice) {
    const auto answer = [](const char* method, const char* target) {
        return TheWebServer().Answer(method, bench::ParseRequestTarget(target), ServerFault::kNone).body;
    };
    answer("POST", "/klimora/choose?klsid=0123456789ABCDEF0123456789ABCDEF&product=SRC-250-900");
    const std::string one = answer("GET", "/klimora/export/0123456789ABCDEF0123456789ABCDEF.xml");
    const size_t from = one.find("<device"), end = one.find("</device>") + 9;
    const struct {
        const char *attribute, *typed, *installed;  // `installed` is empty when the device is rejected
    } cases[] = {{"", "AB1", "SORV2"},
                 {" UserCode=\"FREE\"", "AB1", "FREE"},
                 {" UserCode=\"ELEVENCHARS\"", "AB1", ""},
                 {" UserCode=\"SORV1\"", "AB1", ""},
                 {" UserCode=\"SORV1\"", "SORV1", "SORV1"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.attribute + std::string(" ") + c.typed);
        UseServer({});
        StartOver();
        std::string second = one.substr(from, end - from);
        TheWebServer().PublishInstead(std::string(one).insert(end, second.insert(7, c.attribute)));
        robot().Expect(bench::Dialog("Configurator").Type(1102, c.typed).Press(IDOK));
        if (c.typed == std::string("SORV1")) {
            robot().Expect(
                bench::Box("User code is already in use.\nDo you want to replace existing product?").AnswerWith("Yes"));
        }
        if (*c.installed) ConfirmsInsertion();
        Run();
        const std::vector<std::string> queued = Calls("AcApDocManager::sendStringToExecute ");
        if (*c.installed) {
            ExpectCommitted();
            ASSERT_EQ(queued.size(), 1u);
            EXPECT_NE(queued[0].find(std::string("\\n") + c.installed + "\\n"), std::string::npos) << queued[0];
        } else {
            EXPECT_NE(Printed().find("was not confirmed, and is in use or too long.\n"), std::string::npos)
                << Printed();
            EXPECT_EQ(queued.size() + CountOf("IKlimora200805::manageProductData"), 0u);
            ExpectNothingChanged();
        }
        EXPECT_EQ(Outstanding(), std::vector<std::string>{"record dSilencerType SRC-250-900"})
            << "the first device's record is not released";
        ForgetOutstanding();
        Picks("2A3");
    }
    bench::ClearAnswers();
}

}  // namespace
