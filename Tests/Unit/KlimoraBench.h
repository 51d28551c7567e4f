// Fixtures for units that call the Klimora server: a running server of the given kind with a small project, excerpts of
// the call log, and the utility class connected to the server.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "BenchKlimora.h"
#include "Util/KLComUtils.h"
#include "gtest/gtest.h"

class KlimoraBench : public testing::Test {
 protected:
    ~KlimoraBench() override { bench::StopKlimora(); }

    void StartServer(const bench::KlimoraServer& server = {}) { bench::StartKlimora(server); }

    void OpenSample() {
        std::string error;
        ASSERT_TRUE(bench::OpenProject(SAMPLE_FOLDER "/office.xml", error)) << error;
    }

    // Lines of the call log that begin with `start`, without it.
    static std::vector<std::string> Calls(const std::string& start) {
        std::vector<std::string> calls;
        for (const std::string& line : bench::CallLog()) {
            if (line.compare(0, start.size(), start) == 0) calls.push_back(line.substr(start.size()));
        }
        return calls;
    }
    // The text that `work` throws, or "(nothing)".
    template <class Work>
    static std::string Thrown(Work work) {
        try {
            work();
        } catch (const char* text) {
            return text;
        } catch (const std::string& text) {
            return text;
        }
        return "(nothing)";
    }
    // The text that was printed since the last call.
    static std::string Printed() {
        const std::string text = bench::Transcript();
        bench::ClearTranscript();
        return text;
    }
};

class ConnectedBench : public KlimoraBench {
 protected:
    void Start(long version = 20120600) {
        bench::KlimoraServer server;
        server.version = version;
        StartServer(server);
        OpenSample();
        ASSERT_EQ(utils_.Connect(), 0);
        bench::ClearCallLog();
    }

    // What ReportException prints; `place`: source under PlugIn/Util, line and function.
    static std::string Report(const std::string& message, const std::string& place, const std::string& text) {
        return "\nSorvik Klimora Cloud Plugin: " + message + " PlugIn/Util/" + place + " " + text + "\n";
    }

    KLComUtils utils_;
};
