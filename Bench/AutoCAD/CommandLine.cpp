// The command line: what it shows, and how typed and queued commands run. A text that is sent for execution waits until
// the running command has returned; its first word is a command, its further lines are what that command's prompts
// read.
#include <cstdio>
#include <cstdlib>
#include <cwchar>

#include "HostCall.h"
#include "HostSession.h"
#include "HostTransactions.h"
#include "acedads.h"
#include "acutads.h"
#include "adscodes.h"

namespace bench {

void Print(const std::string& text) {
    TheSession().transcript += text;
    if (TheSession().echo) TheSession().echo(text);
}

bool TakeInput(bool blankEnds, std::wstring& line) {
    std::wstring& input = TheSession().input;
    const size_t end = input.find_first_of(blankEnds ? L" \n" : L"\n");
    if (end == std::wstring::npos) return false;
    line = input.substr(0, end);
    input.erase(0, end + 1);
    return true;
}

namespace {

// Copied: a command may unload the module that it belongs to.
bool FindCommand(std::wstring name, Command& found) {
    while (!name.empty() && (name[0] == L'_' || name[0] == L'.' || name[0] == L'\''))
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
        std::fprintf(stderr, "bench: an exception left the command %s.\n", Narrow(command.globalName).c_str());
        std::fflush(stderr);
        std::abort();
    }
}

bool RunOne(const std::wstring& name) {
    Session& session = TheSession();
    const std::string shown = Narrow(UpperCase(name));
    Print("\nCommand: " + shown + "\n");
    Command command;
    if (!FindCommand(name, command)) {
        Print("Unknown command \"" + shown + "\".  Press F1 for help.\n");
        return false;
    }
    session.runningCommand = Narrow(command.globalName);
    session.lastCommand = session.runningCommand;
    session.keywords.clear();
    const int transactions = ActiveTransactions();
    Call(command);
    if (ActiveTransactions() > transactions)
        Accuse("The command " + session.runningCommand + " returned without ending its transaction.");
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
            RunOne(Wide(session.lastCommand));  // an empty line repeats the last command
        }
    }
}

std::string Formatted(const ACHAR* format, va_list arguments) {
    va_list counted;
    va_copy(counted, arguments);
    // The C runtime's own wide family: %s is a wide text, as AutoCAD takes it.
    const int length = _vscwprintf(format, counted);
    va_end(counted);
    if (length <= 0) return {};
    std::wstring text(static_cast<size_t>(length) + 1, L'\0');
    _vsnwprintf(text.data(), text.size(), format, arguments);
    text.resize(static_cast<size_t>(length));
    return Narrow(text);
}

constexpr UINT kCrashExitCode = 70;
LPTOP_LEVEL_EXCEPTION_FILTER previousFilter = nullptr;

LONG WINAPI ReportCrash(EXCEPTION_POINTERS* what) {
    const void* address = what->ExceptionRecord->ExceptionAddress;
    HMODULE module = nullptr;
    char path[MAX_PATH] = "?";
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<const wchar_t*>(address), &module);
    if (module != nullptr) GetModuleFileNameA(module, path, MAX_PATH);
    const std::string& command = TheSession().runningCommand;
    std::fprintf(
        stderr, "bench: crash 0x%08lX at %s+0x%llX in %s%s.\n", what->ExceptionRecord->ExceptionCode, path,
        static_cast<unsigned long long>(static_cast<const char*>(address) - reinterpret_cast<const char*>(module)),
        command.empty() ? "no command" : "the command ", command.c_str());
    std::fflush(nullptr);  // what a test had printed is wanted too
    // Whoever watched before may report too; a search that went on would end in a debugger that nobody answers.
    if (previousFilter != nullptr) previousFilter(what);
    TerminateProcess(GetCurrentProcess(), kCrashExitCode);
    return EXCEPTION_EXECUTE_HANDLER;
}

}  // namespace

void WatchForCrashes() {
    const LPTOP_LEVEL_EXCEPTION_FILTER replaced = SetUnhandledExceptionFilter(ReportCrash);
    if (replaced != ReportCrash) previousFilter = replaced;
}

bool RunCommand(const std::string& command) {
    if (!TheSession().runningCommand.empty()) {
        Accuse("The command " + command + " was typed while " + TheSession().runningCommand + " was running.");
        return false;
    }
    const bool known = RunOne(Wide(command));
    RunQueue();
    return known;
}

std::string Transcript() {
    return TheSession().transcript;
}
void ClearTranscript() {
    TheSession().transcript.clear();
}
void SetEcho(std::function<void(const std::string&)> echo) {
    TheSession().echo = std::move(echo);
}
void PrintText(const std::string& text) {
    Print(text);
}

}  // namespace bench

using bench::HostCall;

int acutPrintf(const ACHAR* format, ...) {
    std::string text;
    if (format != nullptr) {
        va_list arguments;
        va_start(arguments, format);
        text = bench::Formatted(format, arguments);
        va_end(arguments);
    }
    HostCall call("acutPrintf", text);
    if (call.fails()) return call.failed(RTERROR);
    if (format == nullptr) return call.done(RTERROR);
    bench::Print(text);
    return RTNORM;
}

int acedPrompt(const ACHAR* str) {
    HostCall call("acedPrompt", bench::Narrow(str));
    if (call.fails()) return call.failed(RTERROR);
    bench::Print(bench::Narrow(str));
    return call.done(RTNORM);
}
