#include "DiagnosticsFixture.h"

#include <cctype>
#include <cstdio>

#include "NoMemory.h"
#include "RecordedCalls.h"

namespace {

using Reporter = uint32_t (*)(const char* message, const char* file, int line, const char* function);
constexpr Reporter kError = ReportError;

uint32_t ReportWith(Reporter report, uint32_t bits, const char* message, const char* function = "Unit::Work") {
    SetReportLevels(bits, bits, bits, bits);
    return report(message, "PlugIn/Lib/Unit", 42, function);
}

// Every report goes only to the log.
class DiagnosticsLogTest : public DiagnosticsTest {
 protected:
    DiagnosticsLogTest() { SetReportLevels(RF_LOG, RF_LOG, RF_LOG, RF_LOG); }

    static DWORD WINAPI NameWithoutFolder(HMODULE, char* path, DWORD size) {
        lstrcpynA(path, "host.exe", static_cast<int>(size));
        return 8;
    }
    static std::string Opened(const std::string& path) { return "fopen \"" + path + "\" \"a+tc\"\n"; }
};

}  // namespace

TEST_F(DiagnosticsTest, WritesComposedLines) {
    const struct {
        Reporter report;
        uint32_t bits;
        const char *message, *function, *line;
    } cases[] = {
        {kError, 0x1081, "no root", "Unit::Work", "Error  -    -  \"no root\"  -  PlugIn/Lib/Unit#42\n"},
        {ReportFatal, 0x1080, "no root", "Unit::Work", "Fatal Error  -    -  \"no root\"  -  PlugIn/Lib/Unit#42\n"},
        {ReportWarning, 0x3080, "odd", "Unit::Work",
         "Warning  -  Unit::Work(...)  -  \"odd\"  -  PlugIn/Lib/Unit#42\n"},
        {ReportInfo, 0x0080, "ready", "Unit::Work", "\"ready\"\n"},
        {ReportInfo, 0x3080, "ready", nullptr, "(...)  -  \"ready\"  -  PlugIn/Lib/Unit#42\n"},
        {ReportInfo, 0x0080, "", "Unit::Work", "\n"},
        {kError, 0x2080, nullptr, "Unit::Work", "Error  -  Unit::Work(...)\n"},
        // The line is its own format, without arguments.
        {ReportInfo, 0x0080, "100%% of %d, %s", "Unit::Work", "\"100% of %d, %s\"\n"},
    };
    std::string expected;
    for (const auto& one : cases) {
        EXPECT_EQ(ReportWith(one.report, one.bits, one.message, one.function), one.bits);
        expected += one.line;
    }
    EXPECT_EQ(LogLines(), expected);
}

TEST_F(DiagnosticsTest, PrintsTheLineToStandardOutput) {
    testing::internal::CaptureStdout();
    ReportWith(kError, 0x1440, "silent");
    ReportWith(kError, 0x1400, "50%% done, %n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Error  -    -  \"50% done, %n\"  -  PlugIn/Lib/Unit#42\n");
    EXPECT_FALSE(Exists(LogPath()));
}

TEST_F(DiagnosticsTest, ShowsRowsInAMessageBox) {
    RecordedCalls calls;
    calls.Return("MessageBoxA", MessageBoxA, IDOK);
    ReportWith(ReportFatal, 0x3200, "no %d root");
    ReportWith(ReportWarning, 0x1200, "");
    ReportWith(ReportInfo, 0x0200, "ready");
    ReportWith(kError, 0x0240, "silent");
    EXPECT_EQ(calls.Take(),
              "MessageBoxA null \"Details\t:  no %d root\nFunction\t:  Unit::Work(...)\nFile\t:  PlugIn/Lib/Unit\n"
              "Line\t:  42\" \"Fatal Error\" 0x0\n"
              "MessageBoxA null \"\nFile\t:  PlugIn/Lib/Unit\nLine\t:  42\" \"Warning\" 0x0\n"
              "MessageBoxA null \"Details\t:  ready\" \"\" 0x0\n");
}

TEST_F(DiagnosticsTest, CallsHandlersEvenWhenSilentAndThenFlushesTheLog) {
    OpenDebugLog();
    std::string called;
    RecordedCalls calls;
    calls.Record("fflush", std::fflush, [&](FILE*) {
        called += "flush ";
        return 0;
    });
    SetReportHandlers(
        &called, [](void* context) { *static_cast<std::string*>(context) += "fatal "; },
        [](void* context) {
            *static_cast<std::string*>(context) += "error ";
            SetReportLevels(0, 0x1000, 0, 0);
            throw 1;
        },
        [](void* context) { *static_cast<std::string*>(context) += "warning "; });
    for (const Reporter report : {Reporter{ReportInfo}, Reporter{ReportWarning}, kError, Reporter{ReportFatal}}) {
        EXPECT_EQ(ReportWith(report, RF_SILENT, "quiet"), report == kError ? 0x1000u : 0x40u)
            << "the levels are read again after the handler";
    }
    EXPECT_EQ(called, "warning flush error flush fatal flush ");
}

TEST_F(DiagnosticsTest, IgnoresUnknownLevelBits) {
    const DiagSettings fresh;
    const auto words = [](const DiagSettings& s) {
        return std::vector<uint32_t>{s.fatalBits, s.errorBits, s.warningBits, s.infoBits};
    };
    EXPECT_EQ(words(fresh), (std::vector<uint32_t>{0x3386, 0x3182, 0x3182, 0x3181}));
    *g_diagSettings = fresh;
    SetReportLevels(0, 0x0008, 0x0030, 0x0800);
    EXPECT_EQ(words(*g_diagSettings), words(fresh));
    SetReportLevels(0x0081, 0x088A, 0xFFFFFFFF, 0x1000);
    EXPECT_EQ(words(*g_diagSettings), (std::vector<uint32_t>{0x0081, 0x0082, 0x37C7, 0x1000}));
}

TEST_F(DiagnosticsTest, ReportsAFailedConditionAndBreaks) {
    RecordedCalls calls;
    calls.Record("DebugBreak", DebugBreak, [] {});
    BOOL debugged = TRUE;
    calls.Record("IsDebuggerPresent", IsDebuggerPresent, [&] { return debugged; });
    g_diagSettings->errorBits = 0x0080;
    EXPECT_FALSE(VerifyOrReport(false, "!ret", "Can not allocate memory.", "PlugIn/Lib/Unit", 1, "Work"));
    EXPECT_TRUE(VerifyOrReport(true, "!ret", "Can not allocate memory.", "PlugIn/Lib/Unit", 1, "Work"));
    EXPECT_EQ(calls.Take(), "");
    g_diagSettings->errorBits = 0x0082;
    EXPECT_TRUE(VerifyOrReport(true, "x < 0", nullptr, "PlugIn/Lib/Unit", 1, "Work"));
    EXPECT_EQ(ReportErrorAndBreak(std::string("text"), "PlugIn/Lib/Unit", 1, "Work"), 0x0082u);
    EXPECT_EQ(calls.Take(), "IsDebuggerPresent\nDebugBreak\nIsDebuggerPresent\nDebugBreak\n");
    debugged = FALSE;
    EXPECT_EQ(ReportErrorAndBreak("alone", "PlugIn/Lib/Unit", 1, "Work"), 0x0082u);
    EXPECT_EQ(calls.Take(), "IsDebuggerPresent\n") << "without a debugger, a break would end AutoCAD";
    EXPECT_EQ(LogLines(),
              "Error  -    -  \"(!ret) Can not allocate memory.\"\nError  -    -  \"(x < 0) \"\n"
              "Error  -    -  \"text\"\nError  -    -  \"alone\"\n");
}

TEST_F(DiagnosticsTest, WritesReportsWithoutMemory) {
    const std::string longText(9000, 'x');
    testing::internal::CaptureStdout();
    const ImportPatch patch(
        "MessageBoxA", +[](HWND, const char*, const char*, UINT) { return int{IDOK}; });
    {
        const NoMemory noMemory;
        ReportWith(kError, 0x3680, "no memory");
        VerifyOrReport(true, "!ret", "none", nullptr, 1, nullptr);
        ReportWith(kError, 0x0080, longText.c_str());
        FlushDebugLog();
        CloseDebugLog();
        EXPECT_EQ(NoMemory::failed, 0);
    }
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(LogLines(),
              "Error  -  Unit::Work(...)  -  \"no memory\"  -  PlugIn/Lib/Unit#42\n"
              "Error  -  (...)  -  \"(!ret) none\"  -  #1\n" +
                  ("Error  -    -  \"" + longText).substr(0, 8191));
}

TEST_F(DiagnosticsLogTest, WritesStampsAroundTheLines) {
    EXPECT_EQ(OpenDebugLog(), 0);
    EXPECT_EQ(OpenDebugLog(), 0);
    ReportInfo("ready", nullptr, 0, nullptr);
    EXPECT_EQ(CloseDebugLog(), 0);
    EXPECT_EQ(CloseDebugLog(), 0);
    SYSTEMTIME now;
    GetLocalTime(&now);
    char today[16] = "";
    std::snprintf(today, sizeof today, "%02d/%02d/%02d ", now.wMonth, now.wDay, now.wYear % 100);
    std::string log = ReadWholeFile(LogPath());
    for (size_t at = log.find(today); at != std::string::npos; at = log.find(today))
        log.replace(at, 9, "today ");
    for (char& c : log)
        c = std::isdigit(static_cast<unsigned char>(c)) ? '9' : c;
    EXPECT_EQ(log, "Start log today 99:99:99\r\n\"ready\"\r\nStop log today 99:99:99\r\n");
}

TEST_F(DiagnosticsLogTest, RestartsOnlyALargeLog) {
    for (const size_t size : {16384u, 16385u}) {
        CloseDebugLog();
        WriteWholeFile(LogPath(), std::string(size, 'x'));
        EXPECT_EQ(OpenDebugLog(), 0);
        CloseDebugLog();
        EXPECT_EQ(ReadWholeFile(LogPath()).find("Start log "), size == 16384 ? 16384u : 0u) << size;
    }
}

TEST_F(DiagnosticsLogTest, FallsBackToTheTemporaryFolder) {
    RecordedCalls calls;
    calls.Return("fopen", std::fopen, nullptr, 0, 1);
    ReportError("refused", nullptr, 0, nullptr);
    EXPECT_EQ(calls.Take(), Opened(LogPath()) + Opened(FallbackLogPath()));
    EXPECT_FALSE(Exists(LogPath()));
    EXPECT_EQ(ClosedLog(FallbackLogPath()), "Error  -    -  \"refused\"\n");
    std::remove(FallbackLogPath().c_str());
    calls.Take();  // ClosedLog has read the log
    calls.Record("GetModuleFileNameA", GetModuleFileNameA, NameWithoutFolder);
    ReportError("no folder", nullptr, 0, nullptr);
    EXPECT_EQ(calls.Take(), "GetModuleFileNameA null & 0x103\n" + Opened(FallbackLogPath()));
    EXPECT_EQ(ClosedLog(FallbackLogPath()), "Error  -    -  \"no folder\"\n");
}

TEST_F(DiagnosticsLogTest, StaysClosedWithoutAFolderAndRetriesAtTheNextReport) {
    {
        RecordedCalls calls;
        calls.Return("fopen", std::fopen, nullptr);
        ReportError("lost", nullptr, 0, nullptr);
        EXPECT_EQ(OpenDebugLog(), -1);
        EXPECT_EQ(calls.Take(),
                  Opened(LogPath()) + Opened(FallbackLogPath()) + Opened(LogPath()) + Opened(FallbackLogPath()));
        calls.Return("GetTempPathA", GetTempPathA, 0);
        EXPECT_EQ(OpenDebugLog(), -1);
        EXPECT_EQ(calls.Take(), Opened(LogPath()) + "GetTempPathA 0x103 &\n")
            << "the log must not be in the root of the drive";
    }
    ReportError("kept", nullptr, 0, nullptr);
    EXPECT_EQ(LogLines(), "Error  -    -  \"kept\"\n");
}

// The log of a loaded module is beside the program that loads it, and is closed at unload.
TEST_F(DiagnosticsLogTest, ClosesTheLogWhenTheModuleIsUnloaded) {
    const TestFolder folder;
    const std::string copy = folder.file("Copy.arx");
    ASSERT_TRUE(CopyFileA("Sorvik_R24_x64.arx", copy.c_str(), TRUE));
    const HMODULE module = LoadLibraryA(copy.c_str());
    ASSERT_TRUE(module);
    const auto allocate =
        reinterpret_cast<void* (*)(uint32_t, HGLOBAL*)>(reinterpret_cast<void*>(GetProcAddress(module, "gwGmallocH")));
    ASSERT_TRUE(allocate);
    EXPECT_EQ(allocate(1, nullptr), nullptr) << "the failure is reported";
    FreeLibrary(module);
    EXPECT_EQ(GetModuleHandleA("Copy.arx"), nullptr);
    const std::string log = Raw(LogPath());
    EXPECT_EQ(log.substr(0, 10), "Start log ");
    EXPECT_NE(log.find("\nStop log "), std::string::npos);
    EXPECT_FALSE(Exists(folder.file("pdbg_log.txt")));
}
