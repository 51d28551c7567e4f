#include "DiagnosticsFixture.h"

#include <regex>

#include "RecordedCalls.h"

namespace {

class DiagnosticsLogTest : public DiagnosticsTest {
 protected:
    DiagnosticsLogTest() {
        g_diagSettings->fatalBits = g_diagSettings->errorBits = RF_LOG;
        g_diagSettings->warningBits = g_diagSettings->infoBits = RF_LOG;
    }

    static DWORD WINAPI NameWithoutFolder(HMODULE, char* path, DWORD size) {
        lstrcpynA(path, "host.exe", static_cast<int>(size));
        return 8;
    }
    static std::string Opened(const std::string& path) { return "fopen \"" + path + "\" \"a+tc\"\n"; }
};

}  // namespace

TEST_F(DiagnosticsLogTest, StampsFrameTheLines) {
    EXPECT_EQ(OpenDebugLog(), 0);
    EXPECT_EQ(OpenDebugLog(), 0);
    ReportInfo("ready", nullptr, 0, nullptr);
    EXPECT_EQ(CloseDebugLog(), 0);
    EXPECT_EQ(CloseDebugLog(), 0);
    const std::string stamp = "[01]\\d/[0-3]\\d/\\d\\d [0-2]\\d:[0-5]\\d:[0-5]\\d\r\n";
    const std::regex whole("Start log " + stamp + "\"ready\"\r\n" + "Stop log " + stamp);
    EXPECT_TRUE(std::regex_match(ReadWholeFile(LogPath()), whole)) << ReadWholeFile(LogPath());
}

TEST_F(DiagnosticsLogTest, ErrorsReachTheFileAtOnceInformationWaits) {
    for (const auto report : {ReportFatal, static_cast<decltype(&ReportFatal)>(ReportError), ReportWarning}) {
        ReportInfo("first", nullptr, 0, nullptr);
        EXPECT_EQ(Raw(LogPath()).find("first"), std::string::npos);
        report("second", nullptr, 0, nullptr);
        EXPECT_NE(Raw(LogPath()).find("\"second\"\n"), std::string::npos);
        ReportInfo("third", nullptr, 0, nullptr);
        FlushDebugLog();
        EXPECT_NE(Raw(LogPath()).find("\"third\"\n"), std::string::npos);
        CloseDebugLog();
        std::remove(LogPath().c_str());
    }
}

TEST_F(DiagnosticsLogTest, OnlyAGrownLogRestartsEmpty) {
    for (const size_t size : {16384u, 16385u}) {
        CloseDebugLog();
        WriteWholeFile(LogPath(), std::string(size, 'x'));
        EXPECT_EQ(OpenDebugLog(), 0);
        CloseDebugLog();
        EXPECT_EQ(ReadWholeFile(LogPath()).find("Start log "), size == 16384 ? 16384u : 0u) << size;
    }
}

TEST_F(DiagnosticsLogTest, TemporaryFolderTakesTheLogWhenTheProgramsFolderRefuses) {
    RecordedCalls calls;
    calls.Give("fopen", std::fopen, nullptr, 0, 1);
    ReportError("elsewhere", nullptr, 0, nullptr);
    EXPECT_EQ(calls.Take(), Opened(LogPath()) + Opened(FallbackLogPath()));
    EXPECT_FALSE(Exists(LogPath()));
    EXPECT_EQ(ClosedLog(FallbackLogPath()), "Error  -    -  \"elsewhere\"\n");
}

TEST_F(DiagnosticsLogTest, NoFolderLeavesTheLogClosedAndTheNextReportTriesAgain) {
    {
        RecordedCalls calls;
        calls.Give("fopen", std::fopen, nullptr);
        ReportError("lost", nullptr, 0, nullptr);
        EXPECT_EQ(OpenDebugLog(), -1);
        EXPECT_EQ(calls.Take(),
                  Opened(LogPath()) + Opened(FallbackLogPath()) + Opened(LogPath()) + Opened(FallbackLogPath()));
        calls.Give("GetTempPathA", GetTempPathA, 0);
        EXPECT_EQ(OpenDebugLog(), -1);
        EXPECT_EQ(calls.Take(), Opened(LogPath()) + "GetTempPathA 0x103 &\n") << "not in the root of the drive";
    }
    ReportError("kept", nullptr, 0, nullptr);
    EXPECT_EQ(LogLines(), "Error  -    -  \"kept\"\n");
}

TEST_F(DiagnosticsLogTest, ProgramWithoutFolderUsesTheTemporaryOne) {
    RecordedCalls calls;
    calls.Record("GetModuleFileNameA", GetModuleFileNameA, NameWithoutFolder);
    ReportError("temporary", nullptr, 0, nullptr);
    EXPECT_EQ(ClosedLog(FallbackLogPath()), "Error  -    -  \"temporary\"\n");
    EXPECT_EQ(calls.Take(), "GetModuleFileNameA null & 0x103\n");
}

// The module's own log, in the program that it is loaded into: it lies beside that program, and is closed at unload.
TEST_F(DiagnosticsLogTest, TheModuleStopsItsLogWhenItIsUnloaded) {
    const TestFolder folder;
    const std::string copy = folder.file("Copy.arx");
    ASSERT_TRUE(CopyFileA("Sorvik_R24_x64.arx", copy.c_str(), TRUE));
    const HMODULE module = LoadLibraryA(copy.c_str());
    ASSERT_TRUE(module);
    const auto allocate =
        reinterpret_cast<void* (*)(uint32_t, HGLOBAL*)>(reinterpret_cast<void*>(GetProcAddress(module, "gwGmallocH")));
    ASSERT_TRUE(allocate);
    {
        const ImportPatch patch(
            "DebugBreak", +[] {}, module);
        EXPECT_EQ(allocate(1, nullptr), nullptr) << "and that is reported";
    }
    FreeLibrary(module);
    EXPECT_EQ(GetModuleHandleA("Copy.arx"), nullptr);
    const std::string log = Raw(LogPath());
    EXPECT_EQ(log.substr(0, 10), "Start log ");
    EXPECT_NE(log.find("\nStop log "), std::string::npos);
    EXPECT_FALSE(Exists(folder.file("pdbg_log.txt")));
}
