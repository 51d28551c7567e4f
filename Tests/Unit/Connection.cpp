// Connecting to the server: the message names the first step that fails. A failed connection leaves the references of
// its earlier steps outstanding, so the case clears them itself.
#include "KlimoraBench.h"
#include "Util/KlimComSrvImpl.h"

namespace {

using Connection = KlimoraBench;
using Server = bench::KlimoraServer;

TEST_F(Connection, ReportsEachMissingPieceAndKeepsItsReferences) {
    using Resources = std::vector<std::string>;
    const std::tuple<bool Server::*, const char*, Resources> cases[] = {
        {&Server::drawingInstalled, "Could not find KlimComSrv.Drawing installed", {}},
        {&Server::drawingRunning, "Could not get running instance of KlimComSrv.Drawing", {}},
        {&Server::hasDrawing, "Could not find KLIMCOMSRVLib::IID_IDrawing", {}},
        {&Server::klimoraInstalled, "Could not find KlimComSrv.Klimora installed", {}},
        {&Server::klimoraRunning, "Could not get running instance of KlimComSrv.Klimora", {}},
        {&Server::has200805, "Could not find KLIMCOMSRVLib::IID_IKlimora200805",
         Resources{"interface reference KlimComSrv.Klimora"}},
        {&Server::has201011, "Could not find KLIMCOMSRVLib::IID_IKlimora201011",
         Resources{"interface reference IKlimora200805", "interface reference KlimComSrv.Klimora"}},
    };
    for (const auto& [piece, message, outstanding] : cases) {
        Server server;
        server.*piece = false;
        StartServer(server);
        EXPECT_EQ(Thrown([] { const KlimComSrvImpl connection; }), message);
        EXPECT_EQ(bench::OutstandingResources(), outstanding) << message;
        bench::ClearOutstandingResources();
        EXPECT_EQ(KLComUtils().Connect(), -1);
        EXPECT_EQ(Printed(), "") << "the caller prints the message";
        bench::ClearOutstandingResources();
        bench::StopKlimora();
    }
}

TEST_F(Connection, ConnectsAgainAfterDisconnecting) {
    StartServer();
    KLComUtils utils;
    for (const size_t references : {4u, 0u, 0u, 4u, 0u}) {
        EXPECT_EQ(references ? utils.Connect() : utils.Disconnect(), 0);
        EXPECT_EQ(bench::OutstandingResources().size(), references);
    }
}

TEST_F(Connection, FailsSilentlyWhenNotConnected) {
    KLComUtils utils;
    std::string value = "old";
    std::vector<KLComUtils::Record> records;
    EXPECT_EQ(utils.GetPartAtt("2A1", "/Part/Type/ID", value, false), -1);
    EXPECT_EQ(value, "");
    EXPECT_EQ(utils.SetPartAtt("2A1", "/Part/UserCode", "X", false), -1);
    EXPECT_EQ(utils.GetPartAttOrDefault("2A1", "/Part/Type/ID", 7), 7);
    EXPECT_EQ(utils.GetAttributes("", "/Project/Ductwork/System", {"Name"}, records), -1);
    EXPECT_EQ(utils.BinVariableSetData(1, "abc", 3), -1);
    EXPECT_EQ(utils.BinVariableFree(1), -1);
    EXPECT_EQ(utils.AddDeviceToKlimoraProject({"dSilencerType", "S1", "F", "a.kpd"}), -1);
    EXPECT_FALSE(utils.CheckKlimoraProject(0));
    utils.SetNoProjectFileAccessCheck(true);
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
    EXPECT_TRUE(keep && !failures && all) << "without a connection the flags do not change";
    EXPECT_EQ(Printed(), "");
    EXPECT_TRUE(bench::CallLog().empty());
}

}  // namespace
