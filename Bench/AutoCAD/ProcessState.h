// The state that AutoCAD has once per process. Documents, their objects and every allocated string or chain stay alive
// until StopAutoCAD, so that using a stale pointer is reported as a violation instead of crashing.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "Drawing.h"

namespace bench {

class DrawingDatabase;

struct Command {
    std::wstring group;
    std::wstring globalName;
    std::wstring localName;
    void (*function)() = nullptr;
    std::function<void()> foreign;
};

struct Module {
    std::wstring path;
    HMODULE handle = nullptr;
    bool locked = true;
};

struct ProcessState {
    DWORD mainThread = 0;
    HWND mainWindow = nullptr;

    std::wstring product = L"AutoCAD";
    int releaseMajor = 24;
    int releaseMinor = 1;

    // The one open drawing; null when none is. Databases of closed drawings are kept.
    DrawingDatabase* current = nullptr;
    std::wstring fileName;
    Handle lastPick = 0;

    std::vector<Command> commands;
    std::vector<std::unique_ptr<Module>> modules;
    std::string runningCommand;  // empty: idle
    std::string lastCommand;
    std::deque<std::wstring> queue;  // strings sent for execution
    std::wstring input;              // rest of the queued string being executed

    std::deque<Answer> answers;
    std::function<Answer(const std::string&)> user;

    std::string transcript;
    std::function<void(const std::string&)> echo;
};

ProcessState& TheProcess();
Drawing* CurrentDrawing();  // null when none is open

}  // namespace bench
