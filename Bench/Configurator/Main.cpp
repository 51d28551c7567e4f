// Simulator of the manufacturer's configurator program: shows the silencers that fit the duct in the address and
// publishes the choice under the session identifier. Exits with 1 after an export, otherwise 0.
// docs/contracts/configurator.md states what is known and what is assumed about the real program.
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "Automation.h"
#include "CommandLine.h"
#include "ManufacturerSite.h"
#include "ProductWindow.h"
#include "RequestTarget.h"

namespace {

constexpr int kExported = 1;
constexpr int kNotExported = 0;

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
    const std::string chosen = AskForProduct(line, products);
    if (chosen.empty()) return kNotExported;
    Record("chose", chosen);
    return kExported;
}

int Run(const CommandLine& line) {
    const Instruction instruction = ReadInstruction();
    std::vector<Product> products;
    std::string error;
    if (!FetchProducts(line.address, products, error)) {
        Record("failed", error);
        return kNotExported;
    }
    for (const Product& product : products)
        Record("fits", product.id);
    if (instruction.verb == "ask") return Ask(line, products);
    if (instruction.verb != "choose") return kNotExported;
    if (instruction.object != "first") return Choose(line, products, instruction.object);
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
