// The last step in a whole run: Klimora rejects the product or replaces one, or there is no record to add.
#include "CommandBench.h"

namespace {

using Installation = CommandBench;

TEST_F(Installation, ReportsAProductThatKlimoraRejects) {
    ChoosesASilencer();
    bench::FailCall("IKlimora200805::manageProductData", 1, -5);
    Run();
    const std::string printed = Printed();
    EXPECT_NE(printed.find("\nSorvik Klimora Cloud Plugin: Failed to add device to Klimora project. "
                           "PlugIn/Util/KLComUtils_Project(115):KLComUtils::AddDeviceToKlimoraProject Can not add "
                           "device to Klimora project IKlimora200805::manageProductData failed by injection.\n"
                           "\nSorvik Klimora Cloud Plugin: InstallSilencer PlugIn/KL_Conn(573):KlConn::InstallSilencer "
                           "Can not add device to Klimora project. Product SRC-250-900 is not found in the selected "
                           "database.\n"),
              std::string::npos)
        << printed;
    EXPECT_NE(printed.find("KlimComSrvImpl::manageProductData:('<ManageProductData>"), std::string::npos)
        << "the failed call is traced";
    EXPECT_EQ(CountOf("AcApDocManager::sendStringToExecute"), 0u);
    ExpectNothingChanged();
}

TEST_F(Installation, AddsNothingWithoutARecord) {
    ChoosesASilencer();
    bench::FailCall("kbsaverec", 1);
    Run();
    EXPECT_NE(Printed().find("Can'save device database record."), std::string::npos) << Printed();
    EXPECT_EQ(CountOf("IKlimora200805::manageProductData") + CountOf("AcApDocManager::sendStringToExecute"), 0u);
    ExpectNothingChanged();
}

TEST_F(Installation, ReplacesTheProductAndItsDrawnSilencersOnYes) {
    Picks("2A3");
    InTheConfigurator("choose SRC-250-900");
    robot().Expect(bench::Dialog("Configurator").Type(1102, "SORV1").Press(IDOK));
    robot().Expect(
        bench::Box("User code is already in use.\nDo you want to replace existing product?").AnswerWith("Yes"));
    ConfirmsInsertion();
    Run();
    ExpectCommitted();
    EXPECT_EQ(bench::PartAttribute("", "Count(/Project/KPDClass[dSilencerType]/Part)"), "1");
    for (const char* silencer : {"2AE", "206"}) {
        EXPECT_EQ(bench::PartAttribute(silencer, "/Part/UserCode"), "SORV1") << silencer;
        EXPECT_EQ(bench::PartAttribute(silencer, "/Part/ProductFamilyKey"), "SRC-250-900") << silencer;
    }
    EXPECT_EQ(bench::PartAttribute("2AE", "/Part/Length"), "1200") << "the drawn length does not change";
}

}  // namespace
