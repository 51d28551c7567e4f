// Runs typed and queued commands. A string sent for execution waits until the running command has returned; its first
// word is a command, and the command's prompts read its further lines.
#include <cstdio>

#include "Application.h"
#include "BenchControl.h"
#include "CommandLine.h"
#include "ProcessState.h"
#include "Texts.h"

namespace bench {
namespace {

// Takes a copy, because a command may unload its own module.
bool FindCommand(std::wstring name, Command& found) {
    while (!name.empty() && (name[0] == L'_' || name[0] == L'.'))
        name.erase(0, 1);
    for (const Command& command : TheProcess().commands)
        if (SameName(command.globalName, name) || SameName(command.localName, name)) {
            found = command;
            return true;
        }
    return false;
}

// An exception that escapes from a command ends AutoCAD; the fake names the command and ends too.
void Call(const Command& command) {
    try {
        if (command.foreign)
            command.foreign();
        else
            command.function();
    } catch (...) {
        std::fprintf(stderr, "bench: an exception left the command %s.\n", Ansi(command.globalName).c_str());
        std::fflush(stderr);
        RaiseException(STATUS_NONCONTINUABLE_EXCEPTION, EXCEPTION_NONCONTINUABLE, 0, nullptr);
    }
}

bool RunOne(const std::wstring& name) {
    ProcessState& process = TheProcess();
    const std::string shown = Ansi(UpperCase(name));
    PrintText("\nCommand: " + shown + "\n");
    Command command;
    if (!FindCommand(name, command)) {
        PrintText("Unknown command \"" + shown + "\".  Press F1 for help.\n");
        return false;
    }
    process.runningCommand = Ansi(command.globalName);
    process.lastCommand = process.runningCommand;
    const size_t transactions = ActiveTransactions();
    Call(command);
    if (ActiveTransactions() > transactions)
        ReportViolation("The command " + process.runningCommand + " returned without ending its transaction.");
    process.runningCommand.clear();
    return true;
}

void RunQueue() {
    ProcessState& process = TheProcess();
    while (!process.queue.empty() || !process.input.empty()) {
        if (process.input.empty()) {
            process.input = process.queue.front();
            process.queue.pop_front();
        }
        std::wstring word;
        if (!TakeInput(true, word)) {
            process.input.clear();
        } else if (!word.empty()) {
            RunOne(word);
        } else if (!process.lastCommand.empty()) {
            RunOne(FromAnsi(process.lastCommand));  // an empty line repeats the last command
        }
    }
}

}  // namespace

bool RunCommand(const std::string& command) {
    if (!TheProcess().runningCommand.empty()) {
        ReportViolation("The command " + command + " was typed while " + TheProcess().runningCommand + " was running.");
        return false;
    }
    const bool known = RunOne(FromAnsi(command));
    RunQueue();
    return known;
}

}  // namespace bench
