#include "DiagnosticsFixture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "ImportPatch.h"

namespace {

enum Severity { kFatal, kError, kWarning, kInfo };

uint32_t ReportWith(Severity severity, uint32_t bits, const char* message, const char* function = "Unit::Work") {
    g_diagSettings->fatalBits = g_diagSettings->errorBits = bits;
    g_diagSettings->warningBits = g_diagSettings->infoBits = bits;
    switch (severity) {
        case kFatal:
            return ReportFatal(message, "PlugIn/Lib/Unit", 42, function);
        case kError:
            return ReportError(message, "PlugIn/Lib/Unit", 42, function);
        case kWarning:
            return ReportWarning(message, "PlugIn/Lib/Unit", 42, function);
        default:
            return ReportInfo(message, "PlugIn/Lib/Unit", 42, function);
    }
}

std::vector<std::string> boxes;

int WINAPI RecordBox(HWND owner, const char* text, const char* caption, UINT type) {
    boxes.push_back(std::string(owner ? "owned " : "") + caption + "|" + text + "|" + std::to_string(type));
    return IDOK;
}

int breaks = 0;
void WINAPI CountBreak() {
    ++breaks;
}

}  // namespace

TEST_F(DiagnosticsTest, ComposedLines) {
    const struct {
        Severity severity;
        uint32_t bits;
        const char* message;
        const char* function;
        const char* line;
    } cases[] = {
        {kError, 0x1081, "no root", "Unit::Work", "Error  -    -  \"no root\"  -  PlugIn/Lib/Unit#42\n"},
        {kFatal, 0x1081, "no root", "Unit::Work", "Fatal Error  -    -  \"no root\"  -  PlugIn/Lib/Unit#42\n"},
        {kWarning, 0x3080, "odd", "Unit::Work", "Warning  -  Unit::Work(...)  -  \"odd\"  -  PlugIn/Lib/Unit#42\n"},
        {kInfo, 0x0080, "ready", "Unit::Work", "\"ready\"\n"},
        {kInfo, 0x2080, "ready", "Unit::Work", "Unit::Work(...)  -  \"ready\"\n"},
        {kInfo, 0x3080, "ready", nullptr, "(...)  -  \"ready\"  -  PlugIn/Lib/Unit#42\n"},
        {kInfo, 0x0080, "", "Unit::Work", "\n"},
        {kError, 0x0080, nullptr, "Unit::Work", "Error  -  \n"},
        {kError, 0x2080, nullptr, "Unit::Work", "Error  -  Unit::Work(...)\n"},
        // The line is its own format, without arguments.
        {kInfo, 0x0080, "100%% of %d, %s", "Unit::Work", "\"100% of %d, %s\"\n"},
    };
    std::string expected;
    for (const auto& one : cases) {
        EXPECT_EQ(ReportWith(one.severity, one.bits, one.message, one.function), one.bits);
        expected += one.line;
    }
    EXPECT_EQ(LogLines(), expected);
}

TEST_F(DiagnosticsTest, OnlyTheLogBitWritesTheLog) {
    for (const uint32_t bits : {0x0001u, 0x0002u, 0x0004u, 0x0100u, 0x1000u, 0x2000u, 0x00C0u}) {
        EXPECT_EQ(ReportWith(kError, bits, "quiet"), bits);
        EXPECT_FALSE(Exists(LogPath())) << std::hex << bits;
    }
}

TEST_F(DiagnosticsTest, StandardOutputCarriesTheLine) {
    testing::internal::CaptureStdout();
    ReportWith(kError, 0x1400, "50%% done, %n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Error  -    -  \"50% done, %n\"  -  PlugIn/Lib/Unit#42\n");
    testing::internal::CaptureStdout();
    ReportWith(kError, 0x1440, "silent");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(DiagnosticsTest, MessageBoxHasRowsOfItsOwn) {
    const ImportPatch patch("MessageBoxA", RecordBox);
    boxes.clear();
    ReportWith(kFatal, 0x3200, "no %d root");
    ReportWith(kWarning, 0x1200, "");
    ReportWith(kInfo, 0x0200, "ready");
    ReportWith(kError, 0x0240, "silent");
    EXPECT_EQ(boxes, (std::vector<std::string>{
                         "Fatal Error|Details\t:  no %d root\nFunction\t:  Unit::Work(...)\nFile\t:  PlugIn/Lib/Unit\n"
                         "Line\t:  42|0",
                         "Warning|\nFile\t:  PlugIn/Lib/Unit\nLine\t:  42|0",
                         "|Details\t:  ready|0",
                     }));
}

TEST_F(DiagnosticsTest, HandlersGetTheContextEvenWhenSilent) {
    std::string called;
    SetReportHandlers(
        &called, [](void* context) { *static_cast<std::string*>(context) += "fatal "; },
        [](void* context) { *static_cast<std::string*>(context) += "error "; },
        [](void* context) { *static_cast<std::string*>(context) += "warning "; });
    for (const Severity severity : {kInfo, kWarning, kError, kFatal})
        ReportWith(severity, RF_SILENT, "quiet");
    EXPECT_EQ(called, "warning error fatal ");
}

TEST_F(DiagnosticsTest, LevelsTakeOnlyKnownBits) {
    const struct {
        uint32_t given, stored;
    } cases[] = {{0, 0x3182},      {0x0008, 0x3182}, {0x0030, 0x3182},          {0x0800, 0x3182},
                 {0x0081, 0x0081}, {0x088A, 0x0082}, {0xFFFFFFFFu, 0x000037C7}, {0x1000, 0x1000}};
    for (const auto& one : cases) {
        SetReportLevels(0x3182, 0x3182, 0x3182, 0x3182);
        uint32_t DiagSettings::*const words[] = {&DiagSettings::fatalBits, &DiagSettings::errorBits,
                                                 &DiagSettings::warningBits, &DiagSettings::infoBits};
        for (int i = 0; i < 4; ++i) {
            SetReportLevels(i == 0 ? one.given : 0, i == 1 ? one.given : 0, i == 2 ? one.given : 0,
                            i == 3 ? one.given : 0);
            for (int j = 0; j < 4; ++j) {
                EXPECT_EQ(g_diagSettings->*words[j], j <= i ? one.stored : 0x3182u) << i << j << " " << one.given;
            }
        }
    }
}

TEST_F(DiagnosticsTest, LevelsAtLoad) {
    const DiagSettings fresh;
    EXPECT_EQ(fresh.fatalBits, 0x3386u);
    EXPECT_EQ(fresh.errorBits, 0x3182u);
    EXPECT_EQ(fresh.warningBits, 0x3182u);
    EXPECT_EQ(fresh.infoBits, 0x3181u);
}

TEST_F(DiagnosticsTest, FailedConditionIsReportedAndBrokenUpon) {
    const ImportPatch patch("DebugBreak", CountBreak);
    breaks = 0;
    g_diagSettings->errorBits = 0x0080;
    EXPECT_FALSE(VerifyOrReport(false, "!ret", "Can not allocate memory.", "PlugIn/Lib/Unit", 1, "Work"));
    EXPECT_TRUE(VerifyOrReport(true, "!ret", "Can not allocate memory.", "PlugIn/Lib/Unit", 1, "Work"));
    EXPECT_EQ(breaks, 0);
    g_diagSettings->errorBits = 0x0082;
    EXPECT_TRUE(VerifyOrReport(true, "x < 0", nullptr, "PlugIn/Lib/Unit", 1, "Work"));
    EXPECT_EQ(breaks, 1);
    EXPECT_EQ(ReportErrorAndBreak(std::string("text"), "PlugIn/Lib/Unit", 1, "Work"), 0x0082u);
    EXPECT_EQ(breaks, 2);
    EXPECT_EQ(LogLines(),
              "Error  -    -  \"(!ret) Can not allocate memory.\"\nError  -    -  \"(x < 0) \"\n"
              "Error  -    -  \"text\"\n");
}
