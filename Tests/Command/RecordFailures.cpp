// The record builder's ways out: each message of its table, what is closed afterwards, and what is written onto the
// device all the same.
#include "CommandBench.h"
#include "ResultText.h"

namespace {

using bench::Trouble;

class RecordFailures : public CommandBench {
 protected:
    // Chooses a silencer whose published result is this, and confirms the user code.
    void Publish(const std::string& result) {
        StartOver();
        TheWebServer().PublishInstead(result);
        ChoosesASilencer();
    }

    // The folder in which the run kept its files, as a database call names it.
    std::string WorkingFolder() const {
        for (const std::string& call : Calls("ddk_opendatabase '"))
            return call.substr(0, call.find("/output.ddk"));
        return "(unknown)";
    }

    static std::string Line(const std::string& text) {
        return Reported("AddDeviceToKlimoraProject",
                        "PlugIn/KL_Conn_DevicesData(418):KlConn::AddDeviceFromXMLToDatabase", text);
    }

    void ExpectFailed(const std::string& text) {
        EXPECT_NE(Printed().find(Line(text)), std::string::npos) << "expected " << Line(text) << "in " << Printed();
        EXPECT_EQ(CountOf("IKlimora200805::manageProductData"), 0u);
        ExpectNothingChanged();
    }
};

TEST_F(RecordFailures, EveryMessageAboutADevice) {
    const struct {
        DeviceText device;
        const char* text;
    } cases[] = {
        {DeviceText().Without("ID"), "Parameter 'ID' is not defined."},
        {DeviceText().Without("ProductCodeALL"), "Mandatory parameter 'ProductCodeALL' is not defined."},
        {DeviceText().Without("DescriptionGBR"), "Mandatory parameter 'DescriptionGBR' is not defined."},
        {DeviceText().With("DescriptionGBR", ""), "Mandatory parameter 'DescriptionGBR' is empty."},
        {DeviceText().Without("KModelID"), "Mandatory parameter 'KModelID' is not defined."},
        {DeviceText().With("KModelID", ""), "Mandatory parameter 'KModelID' is empty."},
        {DeviceText().With("KModelID", "abcdefghijklmnopqrstuvwxyz0123456789"),
         "Can't find kmodel ABCDEFGHIJKLMNOPQRSTUVWXYZ0123 in a database."},
        {DeviceText().Without("AirDeviceDimData"), "Parameter 'AirDeviceDimData' is not defined."},
        {DeviceText().Without("DpCurve"), "Parameter 'DpCurve' is not defined."},
        {DeviceText().Without("DpCurve").With("AirDeviceDimData", DeviceText::Dimensions("110")),
         "Parameter 'DpCurve' is not defined."},
        {DeviceText().With("AirDeviceDimData", DeviceText::Dimensions("20")), "Parameter 'aDpCurves' is not defined"},
        {DeviceText().With("AirDeviceDimData", DeviceText::Dimensions("120")), "Parameter 'aDpCurves' is not defined"},
        {DeviceText().Without("Shape"), "Parameter 'Shape' is not defined."},
    };
    for (const auto& c : cases) {
        Publish(ResultText(c.device.Text()));
        Run();
        ExpectFailed(c.text);
        EXPECT_EQ(CountOf("kbsaverec"), 0u) << c.text;
        EXPECT_EQ(CountOf("ddk_releasedatabase 1"), 1u) << c.text;
        EXPECT_EQ(CountOf("kbclosedatabase 1"), 1u) << c.text;
    }
}

TEST_F(RecordFailures, MissingPiecesAreNamedByTheXmlLibrary) {
    const struct {
        std::string result;
        const char* named;
    } cases[] = {
        {"<result>" + DeviceText().Text() + "</result>", "DdkFileUrl"},
        {std::string("<result><DdkFileUrl>") + kDictionaryUrl + "</DdkFileUrl>" + DeviceText().Text() + "</result>",
         "KpdFileUrl"},
        {"<result><DdkFileUrl/>" + DeviceText().Text() + "</result>", "DdkFileUrl"},
        {ResultText(DeviceText().With("ID", "").Text()), "<ID>"},
        {ResultText(DeviceText().With("ProductCodeALL", "").Text()), "<ProductCodeALL>"},
        {ResultText(DeviceText().With("kpdWeblink", "").Text()), "<kpdWeblink>"},
        {ResultText(DeviceText().With("MarketArea", "").Text()), "<MarketArea>"},
        {ResultText(DeviceText().With("AirDeviceDimData", "<Fnc>10</Fnc>").Text()), "<D1>"},
        {ResultText(DeviceText().With("DpCurve", "<Qv>1</Qv>").Text()), "<Dp>"},
        {ResultText(DeviceText().With("Shape", "").Text()), "<Shape>"},
        {ResultText(DeviceText().With("dLw", "<Lw63>1</Lw63>").Text()), "<Lw125>"},
    };
    for (const auto& c : cases) {
        Publish(c.result);
        Run();
        const std::string printed = Printed();
        const size_t line = printed.find("AddDeviceToKlimoraProject PlugIn/KL_Conn_DevicesData(418)");
        ASSERT_NE(line, std::string::npos) << c.named << printed;
        EXPECT_NE(printed.find(c.named, line), std::string::npos) << printed;
        ExpectNothingChanged();
    }
}

TEST_F(RecordFailures, DatabaseFilesThatCannotBeHad) {
    const struct {
        const char* path;
        std::string text;
    } cases[] = {{"/klimora/database/2.4/sorvik.ddk",
                  std::string("Can't download Klimora database dictionary ") + kDictionaryUrl},
                 {"/klimora/database/2.4/sorvik.kpd", std::string("Can't download Klimora database ") + kDatabaseUrl}};
    for (const auto& c : cases) {
        TheWebServer().Reset();
        Publish(ResultText(DeviceText().Text()));
        TheWebServer().SetTrouble(c.path, Trouble::kRefused);
        Run();
        ExpectFailed(c.text);
        // Nothing was opened; the handles' first value goes back to the library all the same.
        EXPECT_EQ(Calls("ddk_"), (std::vector<std::string>{"releasedatabase 0"}));
        EXPECT_EQ(CountOf("kbclosedatabase 0"), 1u);
    }
}

TEST_F(RecordFailures, DatabaseFilesThatAreNone) {
    Publish(ResultText(DeviceText().Text()));
    TheWebServer().SetTrouble("/klimora/database/2.4/sorvik.ddk", Trouble::kEmpty);
    Run();
    ExpectFailed("Can't open kbase database dictionary " + WorkingFolder() + "/output.ddk");
    EXPECT_EQ(CountOf("ddk_releasedatabase"), 0u) << "a negative handle is not open";
    EXPECT_EQ(CountOf("kbclosedatabase 0"), 1u);

    TheWebServer().Reset();
    Publish(ResultText(DeviceText().Text()));
    TheWebServer().SetTrouble("/klimora/database/2.4/sorvik.kpd", Trouble::kTruncated);
    Run();
    const std::string folder = WorkingFolder();
    ExpectFailed("Can't open kbase database " + folder + "/output.ddk " + folder + "/output.kpd");
    EXPECT_EQ(CountOf("ddk_releasedatabase 1"), 1u);
    EXPECT_EQ(CountOf("kbclosedatabase"), 0u);
}

TEST_F(RecordFailures, RefusalsOfTheDatabase) {
    const struct {
        const char* call;
        const char* text;
    } cases[] = {{"ddk_classsymboltoID", "Can't get device class id."},
                 {"kbcreaterec", "Can't create kbase record for device."},
                 {"kbsaverec", "Can'save device database record."}};
    for (const auto& c : cases) {
        Publish(ResultText(DeviceText().Text()));
        bench::FailCall(c.call, 1);
        Run();
        ExpectFailed(c.text);
    }
}

TEST_F(RecordFailures, FailedDeletionAndInsertionAreNotLookedAt) {
    Publish(ResultText(DeviceText().Text()));
    bench::FailCall("kbinsertatt", 3);
    bench::FailCall("kbdeleterec", 1);
    ConfirmsInsertion();
    Run();
    ExpectCommitted();
    EXPECT_EQ(CountOf("kbsaverec"), 1u);
}

TEST_F(RecordFailures, SecondDeviceFailsAfterTheFirstWasSaved) {
    Publish(ResultText(DeviceText().Text() + DeviceText().With("ID", "TEST-2").Without("Shape").Text()));
    Run();
    ExpectFailed("Parameter 'Shape' is not defined.");
    EXPECT_EQ(CountOf("kbsaverec"), 1u);
    EXPECT_EQ(CountOf("kbreleaserec"), 3u) << "two models, and the last record alone";
    ASSERT_EQ(Owed().size(), 1u) << "the first device's record is not released";
    TakeBackWhatIsOwed();
}

}  // namespace
