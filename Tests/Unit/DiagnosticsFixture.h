// Fixture of the diagnostics tests: removes the log before and after a case, restores the settings, and reads the log
// without its stamps. The log is beside this program's executable.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "Lib/DebugLog.h"
#include "Lib/Diagnostics.h"
#include "TestFiles.h"

class DiagnosticsTest : public testing::Test {
 protected:
    DiagnosticsTest() : saved_(*g_diagSettings) { RemoveLogs(); }
    ~DiagnosticsTest() override {
        RemoveLogs();
        *g_diagSettings = saved_;
    }

    static std::string LogPath() {
        char path[MAX_PATH] = "";
        GetModuleFileNameA(nullptr, path, MAX_PATH);
        const std::string executable = path;
        return executable.substr(0, executable.rfind('\\')) + "\\pdbg_log.txt";
    }
    static std::string FallbackLogPath() {
        char path[MAX_PATH] = "";
        GetTempPathA(MAX_PATH, path);
        return std::string(path) + "\\pdbg_log.txt";
    }
    // Closes the log. Returns the lines between the start stamp and the stop stamp, with "\n" line ends.
    static std::string ClosedLog(const std::string& path) {
        CloseDebugLog();
        std::string text = Raw(path);
        if (text.empty()) return text;
        text.erase(0, text.find('\n') + 1);
        return text.substr(0, text.rfind("Stop log "));
    }
    static std::string LogLines() { return ClosedLog(LogPath()); }
    static std::string Raw(const std::string& path) {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }

 private:
    static void RemoveLogs() {
        CloseDebugLog();
        std::remove(LogPath().c_str());
        std::remove(FallbackLogPath().c_str());
    }

    const DiagSettings saved_;
};

// Errors go to the log with function and place.
class ErrorReportsTest : public DiagnosticsTest {
 protected:
    ErrorReportsTest() { g_diagSettings->errorBits = RF_LOG | RF_FUNCTION | RF_FILELINE; }

    // `place` without its folder: "Util/PDialog#49".
    static std::string Line(const std::string& function, const std::string& message, const std::string& place) {
        return "Error  -  " + function + "(...)  -  \"" + message + "\"  -  PlugIn/" + place + "\n";
    }
};
