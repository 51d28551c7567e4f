#include <windows.h>

#include "DebugLog.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

#include "FormatText.h"
#include "Handles.h"

namespace {

constexpr DWORD kPathLimit = 259;
constexpr long kSizeLimit = 16384;
// Append, text, and every flush reaches the disk.
constexpr char kMode[] = "a+tc";

StdioFile debugLog;

std::string TemporaryFolder() {
    char path[kPathLimit + 1] = "";
    return GetTempPathA(kPathLimit, path) ? path : "";
}

// Folder of the host process's executable, not of this module.
std::string LogFolder() {
    char path[kPathLimit + 1] = "";
    GetModuleFileNameA(nullptr, path, kPathLimit);
    const std::string executable = path;
    const size_t backslash = executable.rfind('\\');
    return backslash == std::string::npos ? TemporaryFolder() : executable.substr(0, backslash);
}

// A temporary folder ends in a backslash already; the doubled one is harmless and stays.
std::string LogPath(const std::string& folder) {
    return folder + "\\pdbg_log.txt";
}

long SizeOfOpenLog() {
    std::fseek(debugLog.get(), 0, SEEK_END);
    const long size = std::ftell(debugLog.get());
    std::fseek(debugLog.get(), 0, SEEK_SET);
    return size;
}

void WriteStamp(const char* format) {
    char date[9] = "";
    char time[9] = "";
    _strdate(date);
    _strtime(time);
    std::fputs((FormatString(format, date) + FormatString("%s\n", time)).c_str(), debugLog.get());
}

void CloseAtExit() {
    try {
        CloseDebugLog();
    } catch (...) {
        // Nobody is left to be told.
    }
}

// Declared after the log, so that its exit routine runs before the log's own destructor.
const struct ExitRegistration {
    ExitRegistration() { std::atexit(CloseAtExit); }
} exitRegistration;

}  // namespace

int OpenDebugLog() {
    if (debugLog) return 0;
    std::string path = LogPath(LogFolder());
    debugLog.reset(std::fopen(path.c_str(), kMode));
    if (!debugLog) {
        path = LogPath(TemporaryFolder());
        debugLog.reset(std::fopen(path.c_str(), kMode));
    }
    if (debugLog && SizeOfOpenLog() > kSizeLimit) {
        debugLog.reset();
        std::remove(path.c_str());
        debugLog.reset(std::fopen(path.c_str(), kMode));
    }
    if (!debugLog) return -1;
    WriteStamp("Start log %s ");
    return 0;
}

int CloseDebugLog() {
    if (debugLog) {
        WriteStamp("Stop log %s ");
        FlushDebugLog();
        debugLog.reset();
    }
    return 0;
}

void FlushDebugLog() {
    if (debugLog) std::fflush(debugLog.get());
}

void WriteDebugLog(const char* line) {
    if (OpenDebugLog() == 0) std::fputs(FormatOwnText(line).c_str(), debugLog.get());
}
