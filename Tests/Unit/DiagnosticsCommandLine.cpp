#include "DrawingFixture.h"

#include <adscodes.h>
#include <cwchar>
#include <stdexcept>

#include "ImportPatch.h"
#include "Lib/CommandLine.h"
#include "Lib/ExceptionReport.h"
#include "NoMemory.h"
#include "ticpp.h"

namespace {

// what() differs from m_details, which is to be reported.
struct DetailedException : ticpp::Exception {
    DetailedException() : ticpp::Exception("details") {}
    const char* what() const noexcept override { return "what"; }
};

using DiagnosticsCommandLine = DrawingTest;

}  // namespace

TEST_F(DiagnosticsCommandLine, PrintsFormattedTextOnce) {
    EXPECT_EQ(PrintCommandLine("\n%s: %d%% of %s\n", "Sorvik", 50, "%s %d"), RTNORM);
    EXPECT_EQ(bench::Transcript(), "\nSorvik: 50% of %s %d\n");
    bench::ClearTranscript();
    EXPECT_EQ(PrintCommandLine("%s|", std::string(8191, 'x').c_str()), RTNORM);
    EXPECT_EQ(bench::Transcript(), std::string(8191, 'x'));
    bench::ClearFaults();
    bench::FailCall("acutPrintf", 1, RTERROR);
    EXPECT_EQ(PrintCommandLine("lost"), RTERROR);
    bench::ClearTranscript();
    const ImportPatch widening(
        "MultiByteToWideChar", +[](UINT codePage, DWORD, const char*, int, wchar_t* wide, int size) {
            return std::swprintf(wide, static_cast<size_t>(size), L"code page %u", codePage) + 1;
        });
    PrintCommandLine("\xE4");
    EXPECT_EQ(bench::Transcript(), "code page 0") << "the ANSI code page";
}

TEST_F(DiagnosticsCommandLine, ReportsExceptionsByKind) {
    const std::string head = "\nSorvik Klimora Cloud Plugin: It failed. PlugIn/Unit(11300):Unit::Work";
    const struct {
        void (*raise)();
        const char* text;
    } cases[] = {
        {[] { throw DetailedException(); }, " details\n"},
        {[] { throw std::runtime_error("100%s"); }, " 100%s\n"},
        {[] { throw std::string("a string"); }, " a string\n"},
        {[] { throw "plain"; }, " plain\n"},
        {[] { throw static_cast<const char*>(nullptr); }, " \n"},
        {[] { throw 42; }, "\n"},
    };
    for (const auto& one : cases) {
        bench::ClearTranscript();
        try {
            one.raise();
        } catch (...) {
            const NoMemory noMemory;
            ReportException("It failed.", "PlugIn/Unit", 11300, "Unit::Work");
        }
        EXPECT_EQ(bench::Transcript(), head + one.text);
    }
    const ImportPatch patch(
        "acutPrintf", +[](const wchar_t*) -> int { throw 1; });
    try {
        throw "plain";
    } catch (...) {
        ReportException("It failed.", "PlugIn/Unit", 1, "Unit::Work");
    }
}
