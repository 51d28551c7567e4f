// The session apart from a whole run: what only a maintainer's result or another caller can bring about.
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <stdexcept>

#include "BenchStatistics.h"
#include "ConfiguratorDialog.h"
#include "ImportPatch.h"
#include "KL_Conn.h"
#include "KL_Conn_SorvSilencer.h"
#include "KlimoraBench.h"
#include "Robot.h"
#include "adsdef.h"

namespace {

// Sessions begun and ended with OLE.
int oleBegun = 0, oleEnded = 0;
HRESULT oleAnswer = S_OK;
HRESULT WINAPI BeginOle(LPVOID) {
    ++oleBegun;
    return oleAnswer;
}
void WINAPI EndOle() {
    ++oleEnded;
}

// What a program is started with. It does not start.
struct Started {
    std::string program, commandLine;
    bool inherits;
    DWORD flags;
    bool plain;  // neither security, environment nor folder of its own, start-up information zeroed
} started;
BOOL WINAPI RecordStart(LPCSTR program, LPSTR commandLine, LPSECURITY_ATTRIBUTES process, LPSECURITY_ATTRIBUTES thread,
                        BOOL inherits, DWORD flags, LPVOID environment, LPCSTR folder, LPSTARTUPINFOA startup,
                        LPPROCESS_INFORMATION) {
    STARTUPINFOA zeroed = {};
    zeroed.cb = sizeof zeroed;
    started = {program, commandLine, inherits != FALSE, flags,
               !process && !thread && !environment && !folder && std::memcmp(startup, &zeroed, sizeof zeroed) == 0};
    return FALSE;
}

// Neighbours that throw, as nothing in the session does by itself.
int ThrowInsteadOfAccess(const char*, int) {
    throw std::runtime_error("no access");
}
int ThrowInsteadOfPick(const wchar_t*, const void*, const void*, const resbuf*, int64_t*) {
    throw std::runtime_error("no pick");
}
std::string printed;
int linesPrinted = 0;
// The first line fails; the second is kept. The module prints every line as one text.
int ThrowAtFirst(const wchar_t* format, ...) {
    if (linesPrinted++ == 0) throw std::runtime_error("no print");
    va_list arguments;
    va_start(arguments, format);
    for (const wchar_t* text = va_arg(arguments, const wchar_t*); *text; ++text)
        printed += static_cast<char>(*text);
    va_end(arguments);
    return 0;
}

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

TEST_F(Session, OleEndsOnlyWhatItBegan) {
    const ImportPatch begin("OleInitialize", BeginOle), end("OleUninitialize", EndOle);
    for (const HRESULT answer : {S_OK, S_FALSE, static_cast<HRESULT>(RPC_E_CHANGED_MODE)}) {
        oleBegun = oleEnded = 0;
        oleAnswer = answer;
        {
            KlConn session;
            ASSERT_EQ(session.Initialize(), 0);
            EXPECT_EQ(oleBegun, 1);
            EXPECT_EQ(oleEnded, 0);
        }
        EXPECT_EQ(oleEnded, SUCCEEDED(answer) ? 1 : 0) << answer;
    }
}

TEST_F(Session, QueuedCommandHasItsLimit) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    // Klimora passes what it does not know with a positive code.
    for (const int call : {1, 2})
        bench::FailCall("IKlimora200805::manageProductData", call, 3);
    const auto queue = [&](const std::string& key) {
        bench::ClearJournal();
        EXPECT_EQ(Take(session, "<r><device KPDClassName='dSilencerType' ProductFamilyKey='" + key +
                                    "' UserCode='0123456789'/></r>"),
                  0);
        session.InstallSilencer();
        const std::vector<std::string> queued = Calls("AcApDocManager::sendStringToExecute ");
        return queued.size() == 1 ? queued[0].substr(0, queued[0].find(" activate")) : "(not one)";
    };
    const std::string fits(1002, 'k'), tooLong(1003, 'k');
    EXPECT_EQ(queue(fits), "KLIMSILX\\n" + fits + "\\n0123456789\\n") << "1023 characters";
    EXPECT_TRUE(bench::Accusations().empty());
    EXPECT_EQ(queue(tooLong), "KLIMSILX\\n" + tooLong + "\\n0123456789");
    EXPECT_EQ(bench::Accusations().size(), 1u) << "AutoCAD wants the end of its line";
    bench::ClearAccusations();
}

TEST_F(Session, ConfiguratorIsStartedPlainly) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    const ImportPatch patch("CreateProcessA", RecordStart);
    Printed();
    EXPECT_EQ(session.LaunchConfigurator("CAD.exe", "SorvSIL", "http://x?\"y\"", "A title"), -1);
    char module[MAX_PATH] = "";
    GetModuleFileNameA(GetModuleHandleA("Sorvik_R24_x64.arx"), module, MAX_PATH);
    const std::string path = module;
    EXPECT_EQ(started.program, path.substr(0, path.rfind('\\')) + "\\CAD.exe");
    EXPECT_EQ(started.commandLine, "run /SorvSIL \"http://x?\"y\"\" \"A title\"");
    EXPECT_FALSE(started.inherits);
    EXPECT_EQ(started.flags, static_cast<DWORD>(CREATE_DEFAULT_ERROR_MODE));
    EXPECT_TRUE(started.plain);
    EXPECT_EQ(Printed(), "\nSorvik Klimora Cloud Plugin: Can not execute " + started.program + ".\n");
}

TEST_F(Session, UserCodeIsWrittenTwice) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    ASSERT_EQ(Take(session, "<r><device/></r>"), 0);
    bench::Robot robot;
    robot.Expect(bench::Dialog("Configurator").Type(1102, "SORV1").Press(IDOK));
    robot.Expect(bench::Box("User code is already in use.\nDo you want to replace existing product?").AnswerWith("No"));
    robot.Expect(bench::Dialog("Configurator").Press(IDCANCEL));
    EXPECT_EQ(ShowUserCodeDialog(nullptr, session), -1);
    EXPECT_EQ(session.CurrentDevice()->ToString(), "<device><UserCode>SORV1</UserCode></device>")
        << "the element has the code before the question";
    robot.Expect(bench::Dialog("Configurator").Type(1102, "HALL").Press(IDOK));
    EXPECT_EQ(ShowUserCodeDialog(nullptr, session), 0);
    EXPECT_EQ(session.CurrentDevice()->ToString(), "<device UserCode=\"HALL\"><UserCode>HALL</UserCode></device>");
    EXPECT_TRUE(robot.Complaints().empty()) << robot.Complaints().front();
}

TEST_F(Session, UnexpectedFailuresAreToldWhereTheyHappen) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    Printed();
    const std::string head = "\nSorvik Klimora Cloud Plugin: ";
    {
        const ImportPatch patch("_access", ThrowInsteadOfAccess);
        EXPECT_EQ(session.GetResultsFromConfigurator("http://x"), -1);
    }
    EXPECT_EQ(Printed(), head +
                             "Failed to get results from webserver. PlugIn/KL_Conn(359):"
                             "KlConn::GetResultsFromConfigurator no access\n");
    printed.clear();
    linesPrinted = 0;
    {
        // The first line, that there is no device, cannot be printed.
        const ImportPatch patch("_Z10acutPrintfPKwz", ThrowAtFirst);
        EXPECT_EQ(Take(session, "<r/>"), -1);
    }
    EXPECT_EQ(printed, head +
                           "Failed to get results from configurator. PlugIn/KL_Conn(398):"
                           "KlConn::GetResultsFromConfigurator no print\n");
}

TEST_F(Session, TheCommandLetsNothingOut) {
    bench::ClearJournal();
    Printed();
    {
        const ImportPatch patch("_Z9acedSSGetPKwPKvS2_PK6resbufPx", ThrowInsteadOfPick);
        SorvSilencer();
    }
    EXPECT_EQ(Printed(),
              "\nSorvik Klimora Cloud Plugin: SorvSilencer PlugIn/KL_Conn_SorvSilencer(246):SorvSilencer no pick\n");
    EXPECT_EQ(Calls("AcTransactionManager::abortTransaction").size(), 1u);
}

}  // namespace
