#include "DrawingFixture.h"

#include <gtest/gtest.h>

#include <exception>
#include <stdexcept>
#include <string>

#include <adscodes.h>

#include "Lib/CommandLine.h"
#include "Lib/ExceptionReport.h"
#include "ticpp.h"

namespace {

class SilentException : public std::exception {
 public:
    const char* what() const noexcept override { return nullptr; }
};

// What the library's text would be without m_details.
class DetailedException : public ticpp::Exception {
 public:
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
    bench::ClearFailures();
    bench::FailCall("acutPrintf", 1, RTERROR);
    EXPECT_EQ(PrintCommandLine("lost"), RTERROR);
}

TEST_F(DiagnosticsCommandLine, ExceptionsAreToldByKind) {
    const std::string head = "\nSorvik Klimora Cloud Plugin: It failed. PlugIn/Unit(12):Unit::Work";
    const struct {
        void (*raise)();
        const char* text;
    } cases[] = {
        {[] { throw DetailedException(); }, " details\n"},
        {[] { throw std::runtime_error("100%s"); }, " 100%s\n"},
        {[] { throw SilentException(); }, " \n"},
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
            ReportException("It failed.", "PlugIn/Unit", 12, "Unit::Work");
        }
        EXPECT_EQ(bench::Transcript(), head + one.text);
    }
}
