// Stand-in for the maker's configurator program: shows the silencers that fit the duct of the address and publishes the
// choice under the session identifier. Exit code 1 after an export, 0 when nothing was exported; what a real one does
// and what is assumed of it stands in docs/contracts/configurator.md.
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "CommandLine.h"
#include "MakerSite.h"
#include "ProductWindow.h"
#include "Recorder.h"
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
    for (size_t start = 0; start <= chosen.size();) {
        const size_t end = std::min(chosen.find(',', start), chosen.size());
        const std::string id = chosen.substr(start, end - start);
        if (std::none_of(products.begin(), products.end(), [&](const Product& product) { return product.id == id; }))
            return false;
        start = end + 1;
    }
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
    const Script script = ParseScript(Environment("SORVIK_BENCH_CONFIGURATOR"));
    if (script.act == Script::Act::kHang) return Hang();
    if (script.act == Script::Act::kCrash) Crash();
    if (script.act == Script::Act::kExit) return script.exitCode;

    std::vector<Product> products;
    std::string error;
    if (!FetchProducts(line.address, products, error)) {
        Record("failed", error);
        return kNotExported;
    }
    for (const Product& product : products)
        Record("fits", product.id);
    switch (script.act) {
        case Script::Act::kAsk:
            return Ask(line, products);
        case Script::Act::kChoose:
            return Choose(line, products, script.products);
        case Script::Act::kChooseFirst:
            return Choose(line, products, products.empty() ? std::string() : products.front().id);
        default:
            return kNotExported;
    }
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
