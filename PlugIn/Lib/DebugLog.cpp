#include "Lib/DebugLog.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "Lib/Handles.h"

namespace {

constexpr DWORD kPathLimit = 259;
constexpr long kSizeLimit = 16384;

StdioFile debugLog;

// A folder's path, empty when there is none, with space for the log's name.
struct Path {
    char text[kPathLimit + 16] = "";
};

Path TemporaryFolder() noexcept {
    Path folder;
    const DWORD length = GetTempPathA(kPathLimit, folder.text);
    return length > 0 && length <= kPathLimit ? folder : Path();
}

// Folder of the host process's executable, not of this module.
Path HostFolder() noexcept {
    Path path;
    GetModuleFileNameA(nullptr, path.text, kPathLimit);
    char* const backslash = std::strrchr(path.text, '\\');
    if (!backslash) return TemporaryFolder();
    *backslash = '\0';
    return path;
}

bool Open(const Path& path) noexcept {
    // Append mode, text mode, and every flush writes to the disk.
    debugLog.reset(std::fopen(path.text, "a+tc"));
    return static_cast<bool>(debugLog);
}

// Appends the log's name to the folder's path and opens the log there. The temporary folder's path already ends in a
// backslash; the doubled one is harmless and stays.
bool OpenIn(Path& folder) noexcept {
    if (!*folder.text) return false;
    std::strcat(folder.text, "\\pdbg_log.txt");
    return Open(folder);
}

long SizeOfOpenLog() noexcept {
    std::fseek(debugLog.get(), 0, SEEK_END);
    const long size = std::ftell(debugLog.get());
    std::fseek(debugLog.get(), 0, SEEK_SET);
    return size;
}

void WriteStamp(const char* event) noexcept {
    char date[9] = "";
    char time[9] = "";
    _strdate(date);
    _strtime(time);
    std::fprintf(debugLog.get(), "%s log %s %s\n", event, date, time);
}

// Declared after the log, so that its exit routine runs before the log's destructor.
const struct ExitRegistration {
    ExitRegistration() {
        std::atexit([] { CloseDebugLog(); });
    }
} exitRegistration;

}  // namespace

int OpenDebugLog() noexcept {
    if (debugLog) return 0;
    Path path = HostFolder();
    if (!OpenIn(path)) {
        path = TemporaryFolder();
        if (!OpenIn(path)) return -1;
    }
    if (SizeOfOpenLog() > kSizeLimit) {
        debugLog.reset();
        std::remove(path.text);
        if (!Open(path)) return -1;
    }
    WriteStamp("Start");
    return 0;
}

int CloseDebugLog() noexcept {
    if (debugLog) {
        WriteStamp("Stop");
        FlushDebugLog();
        debugLog.reset();
    }
    return 0;
}

void FlushDebugLog() noexcept {
    if (debugLog) std::fflush(debugLog.get());
}

void WriteDebugLog(const char* text) noexcept {
    if (OpenDebugLog() == 0) std::fputs(text, debugLog.get());
}
