// How typed and queued commands run. A text that is sent for execution waits until the running command has returned;
// its first word is a command, its further lines are what that command's prompts read.
#include <cstdio>

#include "AcTransactionManager.h"
#include "BenchControl.h"
#include "CommandLine.h"
#include "Session.h"
#include "Texts.h"

namespace bench {
namespace {

// Copied: a command may unload the module that it belongs to.
bool FindCommand(std::wstring name, Command& found) {
    while (!name.empty() && (name[0] == L'_' || name[0] == L'.'))
        name.erase(0, 1);
    for (const Command& command : TheSession().commands)
        if (SameName(command.globalName, name) || SameName(command.localName, name)) {
            found = command;
            return true;
        }
    return false;
}

// An exception that leaves a command ends AutoCAD; the stand-in says whose it was and ends as well.
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
    Session& session = TheSession();
    const std::string shown = Ansi(UpperCase(name));
    Print("\nCommand: " + shown + "\n");
    Command command;
    if (!FindCommand(name, command)) {
        Print("Unknown command \"" + shown + "\".  Press F1 for help.\n");
        return false;
    }
    session.runningCommand = Ansi(command.globalName);
    session.lastCommand = session.runningCommand;
    const size_t transactions = ActiveTransactions();
    Call(command);
    if (ActiveTransactions() > transactions)
        ReportViolation("The command " + session.runningCommand + " returned without ending its transaction.");
    session.runningCommand.clear();
    return true;
}

void RunQueue() {
    Session& session = TheSession();
    while (!session.queue.empty() || !session.input.empty()) {
        if (session.input.empty()) {
            session.input = session.queue.front();
            session.queue.pop_front();
        }
        std::wstring word;
        if (!TakeInput(true, word)) {
            session.input.clear();
        } else if (!word.empty()) {
            RunOne(word);
        } else if (!session.lastCommand.empty()) {
            RunOne(FromAnsi(session.lastCommand));  // an empty line repeats the last command
        }
    }
}

}  // namespace

bool RunCommand(const std::string& command) {
    if (!TheSession().runningCommand.empty()) {
        ReportViolation("The command " + command + " was typed while " + TheSession().runningCommand + " was running.");
        return false;
    }
    const bool known = RunOne(FromAnsi(command));
    RunQueue();
    return known;
}

}  // namespace bench
