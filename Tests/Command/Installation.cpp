// The last step: Klimora refuses the product, another class, and a command that cannot be queued.
#include "CommandBench.h"
#include "ResultText.h"

namespace {

class Installation : public CommandBench {
 protected:
    Installation() { ChoosesASilencer(); }

    static std::string Line(const std::string& text) {
        return Reported("InstallSilencer", "PlugIn/KL_Conn(573):KlConn::InstallSilencer", text);
    }
};

TEST_F(Installation, KlimoraRefusesTheProduct) {
    bench::FailCall("IKlimora200805::manageProductData", 1, -5);
    Run();
    const std::string printed = Printed();
    const std::string error = "IKlimora200805::manageProductData was planned to fail.";
    EXPECT_NE(
        printed.find(Reported("Failed to add device to Klimora project.",
                              "PlugIn/Util/KLComUtils_Project(115):KLComUtils::AddDeviceToKlimoraProject",
                              "Can not add device to Klimora project " + error) +
                     Line("Can not add device to Klimora project. Product SRC-250-900 is not found in the selected "
                          "database.")),
        std::string::npos)
        << printed;
    EXPECT_NE(printed.find("KlimComSrvImpl::manageProductData:('<ManageProductData>"), std::string::npos)
        << "the failed call is traced";
    EXPECT_EQ(CountOf("AcApDocManager::sendStringToExecute"), 0u);
    ExpectNothingChanged();
}

TEST_F(Installation, ProductThatIsNotInTheFile) {
    // The record is not written, so Klimora does not find it in the file by itself.
    bench::FailCall("kbsaverec", 1, 0);
    Run();
    EXPECT_NE(
        Printed().find(Line("Can not add device to Klimora project. Product SRC-250-900 is not found in the selected "
                            "database.")),
        std::string::npos)
        << Printed();
    ExpectNothingChanged();
}

TEST_F(Installation, PositiveAnswerIsNoFailure) {
    bench::FailCall("IKlimora200805::manageProductData", 1, 3);
    Run();
    EXPECT_EQ(CountOf("AcApDocManager::sendStringToExecute"), 1u);
    ExpectCommitted();
    EXPECT_NE(bench::Transcript().find("KLIMSILX"), std::string::npos)
        << "Klimora itself says that it has no such product";
}

TEST_F(Installation, QueueingFails) {
    bench::FailCall("AcApDocManager::sendStringToExecute", 1);
    Run();
    EXPECT_EQ(bench::SystemVariable("CMDECHO"), "1");
    EXPECT_EQ(CountOf("AcTransactionManager::abortTransaction"), 1u);
    ASSERT_EQ(bench::StatisticsEvents().size(), 1u) << "the event is recorded whatever became of the queueing";
    EXPECT_TRUE(bench::StatisticsEvents()[0].sent);
    EXPECT_EQ(CountOf("KLIMSILX"), 0u);
}

TEST_F(Installation, EchoIsBackBeforeTheQueuedCommandRuns) {
    ConfirmsInsertion();
    bench::SetSystemVariable("CMDECHO", "7");
    Run();
    const std::vector<std::string> journal = bench::Journal();
    std::vector<std::string> order;
    for (const std::string& line : journal) {
        for (const char* name : {"acedGetVar CMDECHO", "acedSetVar CMDECHO", "AcApDocManager::sendStringToExecute"}) {
            if (line.compare(0, std::string(name).size(), name) == 0) order.push_back(line.substr(0, line.find(" ->")));
        }
    }
    ASSERT_EQ(order.size(), 4u) << testing::PrintToString(order);
    EXPECT_EQ(order[0], "acedGetVar CMDECHO");
    EXPECT_EQ(order[1], "acedSetVar CMDECHO 0");
    EXPECT_EQ(order[2],
              "AcApDocManager::sendStringToExecute KLIMSILX\\nSRC-250-900\\nSORV2\\n activate=1 wrapUp=0 echo=0");
    EXPECT_EQ(order[3], "acedSetVar CMDECHO 7");
    ExpectCommitted();
}

}  // namespace
