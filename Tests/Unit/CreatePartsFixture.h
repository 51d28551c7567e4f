// Fixture of the tests that create parts: a placement whose numbers all differ, and a log of what the server receives,
// what the user reads, and what is returned. TearDown compares the log with the case's section of created-parts.txt.
#pragma once

#include <sstream>

#include "KlimoraBench.h"
#include "TestFiles.h"

class CreatePartsTest : public ConnectedBench {
 protected:
    void TearDown() override {
        const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
        const std::string head = std::string("-- ") + test->name() + "\n", all = ReadWholeFile(CREATED_PARTS);
        const size_t from = all.find(head), next = all.find("\n-- ", from);
        const std::string section = from == std::string::npos ? "" : all.substr(from, next - from);
        EXPECT_EQ(log_.empty() ? "" : head + log_, section);
    }

    static PartPlacement Placement() {
        return {AcGePoint3d(1.5, -2000, 1.0 / 3), AcGeVector3d(0, 1, 0), AcGeVector3d(0, 0, 1)};
    }

    // Logs the calls with these names that an operation made, and its result. Clears the injected faults.
    template <class Result>
    void Log(const Result& result, const char* names = "IKlimora*|acutPrintf*") {
        LogCalls(names);
        std::ostringstream line;
        line << "returns [" << result << "]\n";
        log_ += line.str();
    }
    // Without the report, which another log has.
    template <class Result>
    void LogServerCalls(const Result& result) {
        Log(result, "IKlimora*");
    }
    // Only the command of a part.
    void LogCommand(const std::string& /*handle*/) { LogCalls("IKlimora200805::createPart*"); }
    // Only the report of a part that was not created.
    void LogReport(const std::string& handle) {
        EXPECT_EQ(handle, "");
        LogCalls("acutPrintf*");
    }

    std::string log_;

 private:
    void LogCalls(const char* names) {
        for (const std::string& call : bench::CallLog())
            if (bench::NameFits(call, names) && call.find("::getVersion ") == std::string::npos) log_ += call + "\n";
        bench::ClearCallLog();
        bench::ClearFaults();
    }
};
