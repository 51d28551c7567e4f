// What the AutoCAD stand-in has once in a process. The document, its objects and every text or chain handed out stay
// allocated until StopAutoCAD, so that a pointer used too late is recognised and accused instead of crashing.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "HostDrawing.h"

class AcDbImpDatabase;

namespace bench {

struct Command {
    std::wstring group;
    std::wstring globalName;
    std::wstring localName;
    long flags = 0;
    void (*function)() = nullptr;
    std::function<void()> foreign;
};

struct Module {
    std::wstring path;
    HMODULE handle = nullptr;
    bool locked = true;
    bool mdiAware = false;
};

struct Session {
    DWORD mainThread = 0;
    HWND mainWindow = nullptr;

    std::wstring product = L"AutoCAD";
    int releaseMajor = 24;
    int releaseMinor = 1;

    // The one open drawing; null when none is. Databases of closed drawings are kept.
    AcDbImpDatabase* current = nullptr;
    std::wstring fileName;
    Handle lastPick = 0;
    std::vector<Handle> previousSelection;

    std::vector<Command> commands;
    std::vector<std::unique_ptr<Module>> modules;
    std::string runningCommand;  // empty: idle
    std::string lastCommand;
    std::deque<std::wstring> queue;  // texts sent for execution
    std::wstring input;              // rest of the queued text that is being worked off

    std::deque<Answer> answers;
    std::function<Answer(const std::string&)> user;
    std::vector<std::wstring> keywords;  // of acedInitGet, for the next prompt

    std::string transcript;
    std::function<void(const std::string&)> echo;
};

Session& TheSession();
Drawing* CurrentDrawing();  // null when none is open

// Command line.
void Print(const std::string& text);
// Prints the prompt, takes the next answer and shows it. Accuses and escapes when nobody answers.
Answer Ask(const std::string& prompt);
// The whole keyword of acedInitGet for what was typed: all of it, or its capital letters alone. Empty: none.
std::wstring KeywordFor(const std::wstring& typed);
// One line (or, with blanks ending it too, one word) of the queued text; false when there is none.
bool TakeInput(bool blankEnds, std::wstring& line);

// Parts of starting and stopping, each in the file of its concept.
void OpenMainWindow();
void CloseMainWindow();
void ShowFileName();
void ResetSystemVariables();
void UnloadAllModules();
void SendToModules(int message);
void OpenDatabase();
void CloseDatabase();
void ForgetTransactions();
void ClearServices();
void WatchForCrashes();

}  // namespace bench
