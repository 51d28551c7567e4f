// The steps of a session apart from a whole run: start and end, and the handling of results.
#include <cstring>
#include <optional>
#include <stdexcept>

#include <windows.h>
#include <wininet.h>

#include "ImportPatch.h"
#include "KL_Conn_SorvSilencer.h"
#include "Lib/Diagnostics.h"
#include "RecordedCalls.h"
#include "SessionBench.h"
#include "adsdef.h"

namespace {

std::optional<ImportPatch> failedPrint;
int FailToPrint(const wchar_t*, ...) {
    failedPrint.reset();
    throw std::runtime_error("no print");
}

using Session = SessionBench;

TEST_F(Session, StartsWithItsOwnIdentifierAndFolder) {
    RecordedCalls calls;
    calls.Record("GetTempFileNameA", GetTempFileNameA, [](LPCSTR folder, LPCSTR, UINT, LPSTR name) {
        std::strcpy(name, (std::string(folder) + std::string(180, 'S')).c_str());
        return 1u;
    });
    std::string folder = TemporaryFolder() + std::string(180, 'S');
    // Left by a failed run.
    SetFileAttributesA((folder + "/output.xml").c_str(), FILE_ATTRIBUTE_NORMAL);
    std::filesystem::remove_all(folder);
    for (const auto& [tick, id] : {std::pair{12345u, "827CCB0EEA8A706C4C34A16891F84E7B"},
                                   {0xFFFFFFFFu, "6BB61E3B7BCE0931DA574D19D1D82C88"}}) {  // of "12345" and "-1"
        calls.Return("GetTickCount", GetTickCount, tick);
        SetReportLevels(0x3386, 0x3182, 0x3182, 0x3181);
        KlConn session;
        EXPECT_EQ(g_diagSettings->fatalBits, 0x1081u);
        EXPECT_EQ(g_diagSettings->errorBits, 0x1081u);
        EXPECT_EQ(g_diagSettings->warningBits, 0x3080u);
        EXPECT_EQ(g_diagSettings->infoBits, 0x0080u);
        ASSERT_EQ(session.Initialize(), 0);
        EXPECT_EQ(session.SessionId(), id);
        EXPECT_EQ(session.Root()->ToString(), "<SorvikKlimora />");
        EXPECT_EQ(session.CurrentDevice(), nullptr);
        EXPECT_EQ(calls.Take(), "GetTickCount\nGetTempFileNameA \"" + TemporaryFolder() + "\" \"Sorvik\" 0x0 &\n");
        bool trace[] = {false, false, true};
        session.GetTrace(&trace[0], &trace[1], &trace[2]);
        EXPECT_TRUE(trace[0] && trace[1] && !trace[2]);
        folder = session.WorkingFolder();
        EXPECT_EQ(folder, TemporaryFolder() + std::string(180, 'S'));
        WriteWholeFile(folder + "/output.xml", "x");
        SetFileAttributesA((folder + "/output.xml").c_str(), FILE_ATTRIBUTE_READONLY);
        session.Shutdown();
        EXPECT_FALSE(Exists(folder));
        EXPECT_EQ(session.WorkingFolder(), "");
        session.Shutdown();
    }
    EXPECT_EQ(Calls("KlimoraPluginsStatisticsWrapper::CloseStatistics").size(), 2u);
}

TEST_F(Session, ReportsMissingFolder) {
    const std::string head =
        "Failed to initialize application. Klimora is not loaded. "
        "PlugIn/KL_Conn(175):KlConn::Initialize ";
    RecordedCalls calls;
    calls.Return("GetTickCount", GetTickCount, 1);
    KlConn session;
    calls.Return("GetTempFileNameA", GetTempFileNameA, 0, 0, 1);
    EXPECT_EQ(session.Initialize(), -1);
    EXPECT_EQ(Printed(), Line(head + "Can't get a name for the temporary folder."));
    for (const DWORD length : {MAX_PATH, 5000}) {
        const DWORD path = length;
        calls.Return("GetTempPathA", GetTempPathA, path, 0, 1);
        EXPECT_EQ(session.Initialize(), -1);
        EXPECT_EQ(Printed(), Line(head + "The temporary folder's path is too long."));
    }
    const std::string id = session.SessionId();
    calls.Return("GetTickCount", GetTickCount, 2);
    calls.Return("CreateDirectoryA", CreateDirectoryA, FALSE);
    EXPECT_EQ(session.Initialize(), -1);
    EXPECT_EQ(session.SessionId(), id);
    EXPECT_EQ(Printed().find(Line(head + "Can't create temporary folder " + TemporaryFolder() + "Sor").substr(0, 150)),
              0u);
    EXPECT_EQ(session.WorkingFolder(), "");
}

TEST_F(Session, UsesATemporaryFolderWithoutAModuleFolder) {
    std::string folder;
    {
        RecordedCalls calls;
        calls.Return("GetModuleFileNameA", GetModuleFileNameA, 0);
        KlConn session;
        ASSERT_EQ(session.Initialize(), 0);
        folder = session.WorkingFolder();
        EXPECT_EQ(folder.find(TemporaryFolder() + "Sor"), 0u) << folder;
        EXPECT_TRUE(Exists(folder));
    }
    EXPECT_FALSE(Exists(folder));
}

TEST_F(Session, BalancesOleBeforeDisconnecting) {
    for (const HRESULT result : {S_OK, S_FALSE, static_cast<HRESULT>(RPC_E_CHANGED_MODE)}) {
        RecordedCalls calls;
        calls.Return("OleInitialize", OleInitialize, result);
        calls.Record("OleUninitialize", OleUninitialize, [] { EXPECT_GT(bench::OutstandingResources().size(), 1u); });
        KlConn session;
        ASSERT_EQ(session.Initialize(), 0);
        session.Shutdown();
        EXPECT_EQ(bench::OutstandingResources().size(), 1u) << "only the statistics object remains";
        EXPECT_EQ(calls.Take(), FAILED(result) ? "OleInitialize null\n" : "OleInitialize null\nOleUninitialize\n");
    }
}

TEST_F(Session, WritesTheProjectsLists) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    EXPECT_EQ(session.ExportExistingDevices(nullptr, "SorvSIL"), -1);
    EXPECT_EQ(session.ExportExistingDevices(session.Root(), "sorvsil"), -1);
    EXPECT_EQ(session.ExportDuctworkSystems(nullptr), -1);
    bench::FailCall("IKlimora200805::getPartAtt", 3, -9);
    ticpp::Element other("other");
    EXPECT_EQ(session.ExportExistingDevices(&other, "SorvSIL"), -1) << "an unreadable code";
    EXPECT_EQ(other.ToString(), "<other><SilencerDevices /></other>");
    EXPECT_EQ(session.ExportExistingDevices(session.Root(), "SorvSIL"), 0);
    EXPECT_EQ(session.ExportDuctworkSystems(session.Root()), 0);
    const ticpp::Element* silencer = session.Root()->FirstChildElement("SilencerDevices")->FirstChildElement();
    EXPECT_EQ(silencer->ToString(),
              "<SilencerDevice ProductCode=\"SRC 400 1200\" ProductKey=\"SRC-400-1200\" "
              "UserCode=\"SORV1\" />");
    const ticpp::Element* system = session.Root()->FirstChildElement("DuctworkSystems")->FirstChildElement();
    EXPECT_EQ(system->ToString(), "<System ID=\"1\" Name=\"Supply air\" Type_ID=\"0\" UserCode=\"LB01-SUP\" />");
}

TEST_F(Session, ReturnsTheCodeOfEachResult) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    const std::string file = session.WorkingFolder() + "/output.xml", error = "<error>Out of stock.</error>",
                      warning = "<warning>Airflow.</warning>",
                      unreadable = "Sorvik Klimora Cloud Plugin: Can't parse xml data " + file + ": ";
    std::string deep;
    while (deep.size() < 3 * 201)
        deep += "<a>";
    const std::string title = "Sorvik Klimora Cloud Plugin",
                      errorBox = "MessageBoxA main \"Out of stock.\" \"" + title + "\" 0x10\n",
                      question = "MessageBoxA main \"Airflow.\nContinue?\" \"" + title + "\" 0x34\n";
    const struct {
        std::string xml;
        int answer;  // to the warning
        int result;
        std::string boxes, printed;
    } cases[] = {
        {"<r><error/><warning/><device/></r>", IDYES, 0, "", ""},
        {"<r>" + warning + "<device/></r>", IDYES, 0, question, ""},
        {"<r>" + warning + "<device/></r>", IDNO, -5, question, ""},
        {"<r>" + warning + "<device/></r>", 0, -5, question, ""},  // a failed message box does not mean yes
        {"<r>" + error + "<device/></r>", IDYES, -6, errorBox, ""},
        {"<r>" + error + warning + "</r>", IDYES, -6, errorBox + question, ""},
        {"<r>" + error + warning + "</r>", IDNO, -5, errorBox + question, ""},
        {"<r><x/></r>", IDYES, -1, "", "\nSorvik Klimora Cloud Plugin: Can not find product data in output.xml"},
        {"<r><error>" + std::string(2000, 'e') + "</error></r>", IDYES, -6,
         "MessageBoxA main \"" + std::string(2000, 'e') + "\" \"" + title + "\" 0x10\n", ""},
        {"<r><warning>" + std::string(2001, 'w') + "</warning><device/></r>", IDYES, 0,
         "MessageBoxA main \"" + std::string(2000, 'w') + " \x85\nContinue?\" \"" + title + "\" 0x34\n", ""},
        {"no xml", IDYES, -2, "", unreadable + "Error document empty..\n"},
        {"<!-- no root -->", IDYES, -2, "",
         "Sorvik Klimora Cloud Plugin: Can't parse xml data The document has no child element.\n"},
        {"<r><device></r>", IDYES, -2, "", unreadable + "Error reading end tag. (line 1, column 12).\n"},
        {deep, IDYES, -2, "", unreadable + "More than 200 levels of elements (line 1, column 601).\n"},
    };
    for (const auto& c : cases) {
        RecordedCalls calls;
        calls.Return("MessageBoxA", MessageBoxA, c.answer);
        calls.Name(bench::MainWindow(), "main");
        Printed();
        EXPECT_EQ(Take(session, c.xml), c.result) << c.xml;
        EXPECT_EQ(Printed(), c.printed);
        EXPECT_EQ(calls.Take(), c.boxes);
    }
    DeleteFileA(file.c_str());
    EXPECT_EQ(session.GetResultsFromConfigurator(nullptr), -2);
    EXPECT_EQ(Printed(), unreadable + "Failed to open file.\n");
    ASSERT_EQ(Take(session, "<r n='1'><device/><device n='2'/></r>"), 0);
    EXPECT_EQ(session.Root()->GetAttribute("n"), "1") << "the session has the document's root";
    EXPECT_EQ(session.CurrentDevice(), session.Root()->FirstChildElement());
}

TEST_F(Session, ReadsALocalResultWithoutDownloading) {
    const std::string folder = "Sorvik", file = folder + "/output.xml";
    CreateDirectoryA(folder.c_str(), nullptr);
    {
        KlConn session;
        ASSERT_EQ(session.Initialize(), 0);
        EXPECT_EQ(session.WorkingFolder().substr(session.WorkingFolder().rfind('\\')), "\\bin/Sorvik");
        WriteWholeFile(file, "<r><device/></r>");
        Printed();
        EXPECT_EQ(session.GetResultsFromConfigurator("http://x"), 0);
        EXPECT_EQ(Printed(), "Sorvik Klimora Cloud Plugin: Local data used.\n");
        EXPECT_NE(session.CurrentDevice(), nullptr);
        EXPECT_EQ(session.Initialize(), 0);
        EXPECT_EQ(session.CurrentDevice(), nullptr);
        WriteWholeFile(file, "<r>");
        EXPECT_EQ(session.GetResultsFromConfigurator("http://x"), -2);
        EXPECT_EQ(ReadWholeFile(file), "<r>");
        DeleteFileA(file.c_str());
        Printed();
        RecordedCalls calls;
        calls.Return("InternetGetConnectedState", InternetGetConnectedState, FALSE);
        EXPECT_EQ(session.GetResultsFromConfigurator("http://x"), -1);
        EXPECT_EQ(Printed().find("Sorvik Klimora Cloud Plugin: Error DownloadFile: There is no connection"), 0u);
    }
    DeleteFileA(file.c_str());
    EXPECT_TRUE(RemoveDirectoryA(folder.c_str())) << "the folder was deleted";
}

TEST_F(Session, InstallsOnlyASilencerWithItsKeys) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    bench::ClearCallLog();
    EXPECT_EQ(session.InstallSilencer(), -1) << "no device";
    EXPECT_EQ(session.AddDeviceFromXMLToDatabase("SorvSIL"), -1);
    EXPECT_EQ(Printed(), "");
    for (const char* className : {"dSupplyType", "dsilencertype", ""}) {
        ASSERT_EQ(Take(session, std::string("<r><device KPDClassName='") + className + "' ProductFamilyKey='F'/></r>"),
                  0);
        EXPECT_EQ(session.InstallSilencer(), -1);
        EXPECT_EQ(Printed(), Line(std::string("Unsupported device class '") + className + "'"));
    }
    ASSERT_EQ(Take(session, "<r><device ProductFamilyKey='F'/></r>"), 0);
    EXPECT_EQ(session.InstallSilencer(), -1);
    EXPECT_EQ(Printed(), Line("Unsupported device class ''"));
    for (const char* key : {"UserCode", "ProductFamilyKey"}) {
        ASSERT_EQ(Take(session, std::string("<r><device KPDClassName='dSilencerType' ") + key + "='S'/></r>"), 0);
        EXPECT_EQ(session.InstallSilencer(), -1);
        EXPECT_EQ(Printed().find("\nSorvik Klimora Cloud Plugin: InstallSilencer "
                                 "PlugIn/KL_Conn(573):KlConn::InstallSilencer "),
                  0u);
    }
    EXPECT_EQ(bench::CallLog().size(), 6u) << "nothing but six lines is printed";
}

TEST_F(Session, RejectsKeysAndCodesThatBreakTheCommand) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    const std::string longest(1002, 'k');
    const struct {
        std::string key, code;
        bool accepted;
    } cases[] = {{longest, "0123456789", true},  // 1023 characters
                 {longest + "k", "0123456789", false},
                 {"K&#10;X", "S", false},
                 {"K", "S&#13;", false},
                 {"K&#12;", "S", false},
                 {"K&#9;", "S", false},
                 {"K", "S&#127;", false},
                 {"K \xC3\x81", "\xC3\xB6", true},
                 {"(K", "S", false},
                 {"K !X", "S", false},
                 {"K", "S 'X", false},
                 {"K(1)!'", "-S'", true},
                 {"K", "\xC4K1", true}};
    for (const auto& c : cases) {
        bench::ClearCallLog();
        bench::ClearFaults();
        bench::FailCall("IKlimora200805::manageProductData", 1, 3);  // a positive code is not a failure
        Printed();
        ASSERT_EQ(Take(session, "<?xml version='1.0'?><r><device KPDClassName='dSilencerType' ProductFamilyKey=\"" +
                                    c.key + "\" UserCode=\"" + c.code + "\"/></r>"),
                  0);
        EXPECT_EQ(session.InstallSilencer(), c.accepted ? 0 : -1) << c.key;
        const size_t times = c.accepted ? 1 : 0;
        EXPECT_EQ(Calls("IKlimora200805::manageProductData ").size(), times);
        const std::vector<std::string> queued = Calls("AcApDocManager::sendStringToExecute ");
        EXPECT_EQ(queued.size(), times);
        if (c.code == "\xC4K1") {
            EXPECT_EQ(queued.at(0).find("KLIMSILX\\nK\\n\xC4K1\\n"), 0u)
                << queued.at(0) << " is not in the code page of Windows";
        }
        EXPECT_EQ(Calls("KlimoraPluginsStatisticsWrapper::AddInsertStatistics ").size(), times);
        EXPECT_EQ(
            Printed().find(Line("Product not added: its key and user code do not make one command of Klimora's.")),
            c.accepted ? std::string::npos : 0u);
    }
}

TEST_F(Session, ReportsAFailedInsertionAndSucceedsWithoutStatistics) {
    const std::string head = "\nSorvik Klimora Cloud Plugin: ",
                      notInserted = head +
                                    "Product K is in the project, but was not inserted. Type KLIMSILX, the product and "
                                    "its user code S, or run SorvSIL again and replace it.\n",
                      place = head + "InstallSilencer PlugIn/KL_Conn(573):KlConn::InstallSilencer ";
    {
        KlConn session;
        ASSERT_EQ(session.Initialize(), 0);
        const auto install = [&](const char* failing) {
            bench::ClearFaults();
            bench::FailCall("IKlimora200805::manageProductData", 1, 3);
            if (failing) bench::FailCall(failing, 1);
            EXPECT_EQ(Take(session, "<r><device KPDClassName='dSilencerType' ProductFamilyKey='K' UserCode='S'/></r>"),
                      0);
            Printed();
            bench::ClearStatisticsEvents();
            return session.InstallSilencer();
        };
        for (const char* failing : {"AcApDocManager::curDocument", "AcApDocManager::sendStringToExecute"}) {
            EXPECT_EQ(install(failing), -1);
            EXPECT_EQ(bench::SystemVariable("CMDECHO"), "1") << failing;
            EXPECT_NE(Printed().find(notInserted), std::string::npos) << failing;
            ASSERT_EQ(bench::StatisticsEvents().size(), 1u);
            EXPECT_TRUE(bench::StatisticsEvents()[0].sent);
        }
        {
            const ImportPatch patch(
                "acDocManagerPtr", +[]() -> void* { throw std::runtime_error("no documents"); });
            EXPECT_EQ(install(nullptr), -1);
            const std::string printedText = Printed();
            EXPECT_NE(printedText.find(place + "no documents\n" + notInserted), std::string::npos) << printedText;
        }
        {
            const auto convert = MultiByteToWideChar;
            RecordedCalls calls;
            calls.Record("MultiByteToWideChar", MultiByteToWideChar,
                         [convert](UINT page, DWORD flags, LPCCH text, int size, LPWSTR wide, int wideSize) {
                             if (std::strncmp(text, "KLIMSILX", 8) != 0)
                                 return convert(page, flags, text, size, wide, wideSize);
                             EXPECT_EQ(bench::SystemVariable("CMDECHO"), "0");
                             throw std::runtime_error("no queue");
                         });
            EXPECT_EQ(install(nullptr), -1);
            EXPECT_EQ(bench::SystemVariable("CMDECHO"), "1") << "restored after an exception";
            EXPECT_NE(Printed().find(place + "no queue\n" + notInserted), std::string::npos);
        }
        const ImportPatch patch(
            "AddInsertStatistics", +[](KlimoraPluginsStatisticsWrapper*, const wchar_t*, PluginStat*) {
                throw std::runtime_error("no event");
            });
        EXPECT_EQ(install(nullptr), 0);
        EXPECT_NE(Printed().find(place + "no event\n"), std::string::npos);
        const ImportPatch close(
            "CloseStatistics", +[](KlimoraPluginsStatisticsWrapper*) { throw std::runtime_error("no end"); });
        session.Shutdown();
        EXPECT_EQ(Printed(), head + "Failed to close the statistics. PlugIn/KL_Conn(204):KlConn::Shutdown no end\n");
    }
    bench::ClearViolations();  // the patched CloseStatistics did not reach the object
}

TEST_F(Session, ReportsUnexpectedFailuresWithTheirPlace) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    Printed();
    {
        const ImportPatch patch(
            "_access", +[](const char*, int) -> int { throw std::runtime_error("no access"); });
        EXPECT_EQ(session.GetResultsFromConfigurator("http://x"), -1);
    }
    EXPECT_EQ(
        Printed(),
        Line("Failed to get results from webserver. PlugIn/KL_Conn(359):KlConn::GetResultsFromConfigurator no access"));
    // Printing the first line, that there is no device, fails.
    failedPrint.emplace("acutPrintf", FailToPrint);
    EXPECT_EQ(Take(session, "<r/>"), -1);
    EXPECT_EQ(Printed(), Line("Failed to get results from configurator. "
                              "PlugIn/KL_Conn(398):KlConn::GetResultsFromConfigurator no print"));
}

TEST_F(Session, CatchesEveryExceptionOfTheCommand) {
    bench::ClearCallLog();
    Printed();
    {
        const ImportPatch patch(
            "acedSSGet", +[](const wchar_t*, const void*, const void*, const resbuf*, int64_t*) -> int {
                throw std::runtime_error("no pick");
            });
        SorvSilencer();
    }
    EXPECT_EQ(Printed(), Line("SorvSilencer PlugIn/KL_Conn_SorvSilencer(246):SorvSilencer no pick"));
    EXPECT_EQ(Calls("AcTransactionManager::abortTransaction").size(), 1u);
}

}  // namespace
