// Stand-in for the maker's configurator program: shows the silencers that fit the duct of the address and publishes the
// choice under the session identifier. Exit code 1 after an export, 0 when nothing was exported; what a real one does
// and what is assumed of it stands in docs/contracts/configurator.md.
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "CommandLine.h"
#include "MakerSite.h"
#include "ProductWindow.h"
#include "RequestTarget.h"
#include "Script.h"

namespace {

constexpr int kExported = 1;
constexpr int kNotExported = 0;
// A program that nobody terminates goes by itself after ten minutes, so that a broken test leaves none behind.
constexpr DWORD kLongestHang = 600000;

// Tells whoever waits for it that the program is up; the variable names an event of the waiting process.
void SignalReady() {
    const std::string name = Environment("SORVIK_BENCH_CONFIGURATOR_READY");
    if (name.empty()) return;
    if (const HANDLE ready = OpenEventA(EVENT_MODIFY_STATE, FALSE, name.c_str())) {
        SetEvent(ready);
        CloseHandle(ready);
    }
}

int Hang() {
    if (const HANDLE never = CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
        SignalReady();
        WaitForSingleObject(never, kLongestHang);
        CloseHandle(never);
    }
    return kNotExported;
}

[[noreturn]] void Crash() {
    // No box and no debugger: the process ends at once, and the caller sees the exit code of an access violation.
    SetUnhandledExceptionFilter([](EXCEPTION_POINTERS*) -> LONG { return EXCEPTION_EXECUTE_HANDLER; });
    RaiseException(EXCEPTION_ACCESS_VIOLATION, EXCEPTION_NONCONTINUABLE, 0, nullptr);
    ExitProcess(EXCEPTION_ACCESS_VIOLATION);
}

bool AllFit(const std::string& chosen, const std::vector<Product>& products) {
    for (const std::string& id : bench::SplitAtCommas(chosen))
        if (std::none_of(products.begin(), products.end(), [&](const Product& product) { return product.id == id; }))
            return false;
    return true;
}

int Choose(const CommandLine& line, const std::vector<Product>& products, const std::string& chosen) {
    std::string error;
    if (!AllFit(chosen, products)) {
        Record("failed", "No such product fits: " + chosen);
    } else if (!PublishChoice(line.address, chosen, error)) {
        Record("failed", error);
    } else {
        Record("chose", chosen);
        return kExported;
    }
    return kNotExported;
}

int Ask(const CommandLine& line, const std::vector<Product>& products) {
    const std::string chosen = AskForProduct(line, products, SignalReady);
    if (chosen.empty()) return kNotExported;
    Record("chose", chosen);
    return kExported;
}

int Run(const CommandLine& line) {
    const Script script = ReadScript();
    if (script.verb == "hang") return Hang();
    if (script.verb == "crash") Crash();
    if (script.verb == "exit") return std::atoi(script.object.c_str());

    std::vector<Product> products;
    std::string error;
    if (!FetchProducts(line.address, products, error)) {
        Record("failed", error);
        return kNotExported;
    }
    for (const Product& product : products)
        Record("fits", product.id);
    if (script.verb == "ask") return Ask(line, products);
    if (script.verb != "choose") return kNotExported;
    if (script.object != "first") return Choose(line, products, script.object);
    return Choose(line, products, products.empty() ? std::string() : products.front().id);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    const CommandLine line = ReadCommandLine(GetCommandLineW());
    Record("line", line.raw);
    for (const std::string& word : line.words)
        Record("word", word);
    int exitCode = kNotExported;
    if (line.refusal.empty())
        exitCode = Run(line);
    else
        Record("refused", line.refusal);
    Record("exit", std::to_string(exitCode));
    return exitCode;
}
