// Connecting to the server: what is missing is told by the message of the first step that fails, and each step's
// failure leaves exactly the references that its clean-up leaves. Those stay owed, so the cases take them back
// themselves.
#include <ostream>

#include "KlimoraBench.h"
#include "Util/KLComUtils.h"
#include "Util/KlimComSrvImpl.h"

namespace {

struct MissingPiece {
    const char* what;
    void (*takeAway)(bench::KlimoraServer&);
    const char* message;
    std::vector<std::string> left;  // balance after the failed connection
};

void PrintTo(const MissingPiece& piece, std::ostream* stream) {
    *stream << piece.what;
}

const MissingPiece kMissingPieces[] = {
    {"DrawingNotInstalled",
     [](bench::KlimoraServer& s) { s.drawingInstalled = false; },
     "Could not find KlimComSrv.Drawing installed",
     {}},
    {"DrawingNotRunning",
     [](bench::KlimoraServer& s) { s.drawingRunning = false; },
     "Could not get running instance of KlimComSrv.Drawing",
     {}},
    {"NoDrawingInterface",
     [](bench::KlimoraServer& s) { s.hasDrawing = false; },
     "Could not find KLIMCOMSRVLib::IID_IDrawing",
     {}},
    {"KlimoraNotInstalled",
     [](bench::KlimoraServer& s) { s.klimoraInstalled = false; },
     "Could not find KlimComSrv.Klimora installed",
     {}},
    {"KlimoraNotRunning",
     [](bench::KlimoraServer& s) { s.klimoraRunning = false; },
     "Could not get running instance of KlimComSrv.Klimora",
     {}},
    {"No200805",
     [](bench::KlimoraServer& s) { s.has200805 = false; },
     "Could not find KLIMCOMSRVLib::IID_IKlimora200805",
     {"interface reference KlimComSrv.Klimora"}},
    {"No201011",
     [](bench::KlimoraServer& s) { s.has201011 = false; },
     "Could not find KLIMCOMSRVLib::IID_IKlimora201011",
     {"interface reference IKlimora200805", "interface reference KlimComSrv.Klimora"}},
};

class FailedConnection : public KlimoraBench, public testing::WithParamInterface<MissingPiece> {};

TEST_P(FailedConnection, ThrowsItsMessageAndLeavesItsReferences) {
    bench::KlimoraServer server;
    GetParam().takeAway(server);
    StartServer(server);
    const char* message = nullptr;
    try {
        KlimComSrvImpl connection;
    } catch (const char* text) {
        message = text;
    }
    EXPECT_STREQ(message, GetParam().message);
    EXPECT_EQ(bench::BenchBalance(), GetParam().left);
    bench::ClearBalance();

    KLComUtils utils;
    EXPECT_EQ(utils.Connect(), -1);
    EXPECT_EQ(Printed(), "") << "the message is the caller's to say";
    bench::ClearBalance();
}

INSTANTIATE_TEST_SUITE_P(Klimora, FailedConnection, testing::ValuesIn(kMissingPieces),
                         [](const testing::TestParamInfo<MissingPiece>& info) { return info.param.what; });

using Connection = KlimoraBench;

TEST_F(Connection, GivesEveryReferenceBackAndCanBeMadeAgain) {
    StartServer();
    for (int round = 0; round < 3; ++round) {
        KLComUtils utils;
        ASSERT_EQ(utils.Connect(), 0);
        EXPECT_EQ(
            bench::BenchBalance(),
            (std::vector<std::string>{"interface reference IDrawing", "interface reference IKlimora200805",
                                      "interface reference IKlimora201011", "interface reference IKlimoraLatest"}));
        EXPECT_EQ(utils.Disconnect(), 0);
        EXPECT_EQ(bench::BenchBalance(), std::vector<std::string>{});
        EXPECT_EQ(utils.Disconnect(), 0);
    }
}

TEST_F(Connection, OlderServerServesAllButCalculate) {
    bench::KlimoraServer server;
    server.hasLatest = false;
    StartServer(server);
    OpenSample();
    KlimComSrvImpl connection;
    EXPECT_EQ(connection.selectProduct("<SelectProduct/>"), 0);
    bench::ClearJournal();
    EXPECT_EQ(connection.calculate("<Calculate/>"), -1);
    EXPECT_TRUE(bench::Journal().empty()) << "nothing is sent without the interface";
}

TEST_F(Connection, EverythingFailsQuietlyWithoutOne) {
    KLComUtils utils;
    std::string value = "old";
    std::vector<KLComUtils::Record> records;
    EXPECT_EQ(utils.GetPartAtt("2A1", "/Part/Type/ID", value, false), -1);
    EXPECT_EQ(value, "");
    EXPECT_EQ(utils.SetPartAtt("2A1", "/Part/UserCode", "X", false), -1);
    EXPECT_EQ(utils.GetPartAttOrDefault("2A1", "/Part/Type/ID", 7), 7);
    EXPECT_EQ(utils.BinVariableSetData(1, "abc", 3), -1);
    EXPECT_EQ(utils.BinVariableFree(1), -1);
    EXPECT_EQ(utils.AddDeviceToKlimoraProject("a.kpd", nullptr, 0, "dSilencerType", "S1", "F", nullptr, nullptr), -1);
    EXPECT_FALSE(utils.CheckKlimoraProject(0));
    EXPECT_EQ(utils.GetAttributes("", "/Project/Ductwork/System", {"Name"}, records), -1);
    std::string first = "old", second = "old";
    utils.GetTwoConnectedParts("2A3", first, second, false);
    EXPECT_EQ(first + second, "");
    std::vector<std::string> parts;
    utils.GetAllConnectedParts("2A3", parts, false);
    EXPECT_EQ(utils.EraseParts("2A3"), -1);
    EXPECT_EQ(utils.GetPackageList("2A0", parts), -1);
    EXPECT_EQ(utils.SetPackageList("2A0", {"2A0"}), -1);
    EXPECT_TRUE(parts.empty());
    EXPECT_TRUE(utils.GetTransformationMatrix(AcDbObjectId()) == AcGeMatrix3d::kIdentity);
    EXPECT_EQ(utils.GetLastError(), "");
    bool keep = true, failures = false, all = true;
    utils.SetTrace(false, true, false);
    utils.GetTrace(&keep, &failures, &all);
    EXPECT_TRUE(keep && !failures && all) << "without a connection the flags stay";
    EXPECT_EQ(Printed(), "");
}

}  // namespace
