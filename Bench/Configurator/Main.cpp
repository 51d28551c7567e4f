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
#include "RequestTarget.h"
#include "Script.h"

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
    const Script script = ReadScript();
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
