#include "DiagnosticsFixture.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <regex>
#include <string>
#include <vector>

#include "ImportPatch.h"

namespace {

using OpenFunction = FILE*(const char*, const char*);

OpenFunction* realOpen = nullptr;
int refusals = 0;
std::vector<std::string> opened;

// Refuses the first `refusals` calls.
FILE* RefusingOpen(const char* path, const char* mode) {
    opened.push_back(std::string(path) + "|" + mode);
    return static_cast<int>(opened.size()) <= refusals ? nullptr : realOpen(path, mode);
}

class DiagnosticsLogTest : public DiagnosticsTest {
 protected:
    DiagnosticsLogTest() {
        g_diagSettings->errorBits = RF_LOG;
        g_diagSettings->infoBits = RF_LOG;
    }
    static void Refuse(int calls) {
        refusals = calls;
        opened.clear();
    }
};

DWORD WINAPI NameWithoutFolder(HMODULE, char* path, DWORD size) {
    lstrcpynA(path, "host.exe", static_cast<int>(size));
    return 8;
}

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
    ReportInfo("first", nullptr, 0, nullptr);
    EXPECT_EQ(Raw(LogPath()).find("first"), std::string::npos);
    ReportError("second", nullptr, 0, nullptr);
    EXPECT_NE(Raw(LogPath()).find("\"first\"\nError  -    -  \"second\"\n"), std::string::npos);
    ReportInfo("third", nullptr, 0, nullptr);
    FlushDebugLog();
    EXPECT_NE(Raw(LogPath()).find("\"third\"\n"), std::string::npos);
}

TEST_F(DiagnosticsLogTest, GrownLogRestartsEmpty) {
    for (const size_t size : {16384u, 16385u}) {
        CloseDebugLog();
        WriteWholeFile(LogPath(), std::string(size, 'x'));
        EXPECT_EQ(OpenDebugLog(), 0);
        CloseDebugLog();
        const std::string text = ReadWholeFile(LogPath());
        const size_t start = text.find("Start log ");
        EXPECT_EQ(start, size == 16384 ? 16384u : 0u) << size;
    }
}

TEST_F(DiagnosticsLogTest, OldLinesStay) {
    WriteWholeFile(LogPath(), "old\r\n");
    ReportError("new", nullptr, 0, nullptr);
    CloseDebugLog();
    EXPECT_EQ(ReadWholeFile(LogPath()).substr(0, 15), "old\r\nStart log ");
}

TEST_F(DiagnosticsLogTest, TemporaryFolderTakesTheLogWhenTheProgramsFolderRefuses) {
    const ImportPatch patch("fopen", RefusingOpen);
    realOpen = patch.original<OpenFunction>();
    Refuse(1);
    ReportError("elsewhere", nullptr, 0, nullptr);
    EXPECT_EQ(opened, (std::vector<std::string>{LogPath() + "|a+tc", FallbackLogPath() + "|a+tc"}));
    EXPECT_FALSE(Exists(LogPath()));
    EXPECT_EQ(ClosedLog(FallbackLogPath()), "Error  -    -  \"elsewhere\"\n");
}

TEST_F(DiagnosticsLogTest, NoFolderLeavesTheLogClosedAndTheNextReportTriesAgain) {
    const ImportPatch patch("fopen", RefusingOpen);
    realOpen = patch.original<OpenFunction>();
    Refuse(2);
    ReportError("lost", nullptr, 0, nullptr);
    EXPECT_EQ(opened.size(), 2u);
    Refuse(2);
    EXPECT_EQ(OpenDebugLog(), -1);
    Refuse(0);
    ReportError("kept", nullptr, 0, nullptr);
    EXPECT_EQ(LogLines(), "Error  -    -  \"kept\"\n");
}

TEST_F(DiagnosticsLogTest, RestartThatFailsLeavesTheLogClosed) {
    WriteWholeFile(LogPath(), std::string(20000, 'x'));
    static int calls;
    calls = 0;
    const ImportPatch patch(
        "fopen",
        +[](const char* path, const char* mode) -> FILE* { return ++calls == 2 ? nullptr : realOpen(path, mode); });
    realOpen = patch.original<OpenFunction>();
    EXPECT_EQ(OpenDebugLog(), -1);
    EXPECT_EQ(OpenDebugLog(), 0);
}

TEST_F(DiagnosticsLogTest, ProgramWithoutFolderUsesTheTemporaryOne) {
    const ImportPatch patch("GetModuleFileNameA", NameWithoutFolder);
    ReportError("temporary", nullptr, 0, nullptr);
    EXPECT_EQ(ClosedLog(FallbackLogPath()), "Error  -    -  \"temporary\"\n");
}
