// The session apart from a whole run: what only a maintainer's result or another caller can bring about.
#include <cstdio>
#include <fstream>

#include "BenchStatistics.h"
#include "KL_Conn.h"
#include "KlimoraBench.h"

namespace {

class Session : public KlimoraBench {
 protected:
    Session() {
        StartServer();
        OpenSample();
        bench::ClearStatisticsEvents();
    }

    static std::string FileOf(const KlConn& session) { return session.WorkingFolder() + "/output.xml"; }

    // Gives the session a result as the configurator would have left it.
    static int Take(KlConn& session, const std::string& xml) {
        std::ofstream(FileOf(session), std::ios::binary) << xml;
        return session.GetResultsFromConfigurator(nullptr);
    }
};

TEST_F(Session, OtherDeviceClassInstallsNothing) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    for (const char* className : {"dSupplyType", "dsilencertype", ""}) {
        bench::ClearJournal();
        Printed();
        ASSERT_EQ(Take(session, std::string("<r><device KPDClassName='") + className +
                                    "' ProductFamilyKey='F' UserCode='S'/></r>"),
                  0);
        EXPECT_EQ(session.InstallSilencer(), -1);
        EXPECT_EQ(Printed(),
                  std::string("\nSorvik Klimora Cloud Plugin: Unsupported device class '") + className + "'\n");
        EXPECT_TRUE(Calls("IKlimora200805::").empty());
        EXPECT_TRUE(bench::StatisticsEvents().empty());
    }
}

TEST_F(Session, MissingKeysAreReported) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    ASSERT_EQ(Take(session, "<r><device KPDClassName='dSilencerType' UserCode='S'/></r>"), 0);
    EXPECT_EQ(session.InstallSilencer(), -1);
    EXPECT_NE(Printed().find("InstallSilencer PlugIn/KL_Conn(573):KlConn::InstallSilencer "), std::string::npos);
}

TEST_F(Session, WithoutADeviceNothingIsDone) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    bench::ClearJournal();
    EXPECT_EQ(session.InstallSilencer(), -1);
    EXPECT_EQ(session.AddDeviceFromXMLToDatabase("SorvSIL"), -1);
    EXPECT_TRUE(bench::Journal().empty());
    EXPECT_EQ(Printed(), "");
}

TEST_F(Session, LaunchNeedsItsFourWords) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    bench::ClearJournal();
    const char* words[] = {"CAD_Connection_UI_x64.exe", "SorvSIL", "http://x", "title"};
    for (int missing = 0; missing < 4; ++missing) {
        for (const char* instead : {static_cast<const char*>(nullptr), ""}) {
            const char* given[4] = {words[0], words[1], words[2], words[3]};
            given[missing] = instead;
            EXPECT_EQ(session.LaunchConfigurator(given[0], given[1], given[2], given[3]), -1) << missing;
        }
    }
    EXPECT_TRUE(bench::Journal().empty());
    EXPECT_EQ(Printed(), "");
}

TEST_F(Session, AddressNeedsADuct) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    EXPECT_THROW(session.ConfiguratorAddress(), ticpp::Exception);
    ticpp::Element* duct = session.Root()->InsertEndChild(ticpp::Element("duct"));
    const std::string start = SORVIK_WEB_SERVER "/klimora?action=ljudprog&klsid=" + session.SessionId();
    EXPECT_EQ(session.ConfiguratorAddress(), start);
    duct->SetAttribute("airflow_ls", "1 \"2\"&3");
    duct->SetAttribute("diameter_mm", "250.0");
    EXPECT_EQ(session.ConfiguratorAddress(), start + "&diameter=250.0&airflow=1 \"2\"&3") << "nothing is encoded";
    EXPECT_EQ(session.ResultAddress(), SORVIK_WEB_SERVER "/klimora/export/" + session.SessionId() + ".xml");
}

TEST_F(Session, ListsOfTheProject) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    EXPECT_EQ(session.ExportExistingDevices(nullptr, "SorvSIL"), -1);
    EXPECT_EQ(session.ExportExistingDevices(session.Root(), "sorvsil"), -1);
    EXPECT_EQ(session.ExportDuctworkSystems(nullptr), -1);
    EXPECT_EQ(session.ExportExistingDevices(session.Root(), "SorvSIL"), 0);
    EXPECT_EQ(session.ExportDuctworkSystems(session.Root()), 0);
    const ticpp::Element* silencer = session.Root()->FirstChildElement("SilencerDevices")->FirstChildElement();
    EXPECT_EQ(silencer->ToString(),
              "<SilencerDevice ProductCode=\"SRC 400 1200\" ProductKey=\"SRC-400-1200\" "
              "UserCode=\"SORV1\" />");
    const ticpp::Element* system = session.Root()->FirstChildElement("DuctworkSystems")->FirstChildElement();
    EXPECT_EQ(system->ToString(), "<System ID=\"1\" Name=\"Supply air\" Type_ID=\"0\" UserCode=\"LB01-SUP\" />");
}

TEST_F(Session, CodesOfAClass) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    EXPECT_EQ(session.ProposeUserCode("dSilencerType", ""), "SORV2");
    EXPECT_EQ(session.ProposeUserCode("dSilencerType", "-A"), "SORV1-A");
    EXPECT_EQ(session.ProposeUserCode("dSupplyType", ""), "SORV1") << "a class without products";
    EXPECT_TRUE(session.IsUserCodeInUse("dSilencerType", "SORV1"));
    EXPECT_FALSE(session.IsUserCodeInUse("dSilencerType", "sorv1"));
}

TEST_F(Session, FolderAndIdentifierAreItsOwn) {
    std::string folder, id;
    {
        KlConn session;
        ASSERT_EQ(session.Initialize(), 0);
        folder = session.WorkingFolder();
        id = session.SessionId();
        EXPECT_EQ(id.size(), 32u);
        EXPECT_EQ(id.find_first_not_of("0123456789ABCDEF"), std::string::npos);
        EXPECT_NE(GetFileAttributesA(folder.c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0u);
        CreateDirectoryA((folder + "/deep").c_str(), nullptr);
        std::ofstream(folder + "/deep/file") << "x";
        SetFileAttributesA((folder + "/deep/file").c_str(), FILE_ATTRIBUTE_READONLY);
        EXPECT_EQ(session.Root()->Value(), "SorvikKlimora");
        session.Shutdown();
        EXPECT_EQ(GetFileAttributesA(folder.c_str()), INVALID_FILE_ATTRIBUTES);
        session.Shutdown();
    }
    EXPECT_EQ(Calls("KlimoraPluginsStatisticsWrapper::CloseStatistics").size(), 1u);
}

}  // namespace
