// Fixture for units that speak to the Klimora server: a running server of the given kind with a small project, and
// slices of the journal.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "BenchKlimora.h"
#include "gtest/gtest.h"

class KlimoraBench : public testing::Test {
 protected:
    ~KlimoraBench() override { bench::StopKlimora(); }

    void StartServer(const bench::KlimoraServer& server = {}) { bench::StartKlimora(server); }

    void OpenSample() {
        std::string error;
        ASSERT_TRUE(bench::OpenProject(SAMPLE_FOLDER "/office.xml", error)) << error;
    }

    // Journal lines that begin with `start`, without it.
    static std::vector<std::string> Calls(const std::string& start) {
        std::vector<std::string> calls;
        for (const std::string& line : bench::Journal()) {
            if (line.compare(0, start.size(), start) == 0) calls.push_back(line.substr(start.size()));
        }
        return calls;
    }
    // The text that reached the command line since the last call.
    static std::string Printed() {
        const std::string text = bench::Transcript();
        bench::ClearTranscript();
        return text;
    }
};
