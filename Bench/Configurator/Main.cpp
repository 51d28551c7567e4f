// Simulator of the manufacturer's configurator program: shows the silencers that fit the duct in the address and
// publishes the choice under the session identifier. Exits with 1 after an export, otherwise 0.
// The command line is run /SorvSIL "address" "title", with no program name before it; any other is refused.
// docs/contracts/configurator.md states what is known and what is assumed about the real program.
#include <windows.h>
#include <shellapi.h>

#include <algorithm>
#include <string>
#include <vector>

#include "Automation.h"
#include "BenchTexts.h"
#include "ManufacturerSite.h"
#include "ProductWindow.h"

namespace {

constexpr int kExported = 1;
constexpr int kNotExported = 0;

std::vector<std::string> WordsOf(const wchar_t* line) {
    std::vector<std::string> words;
    int count = 0;
    wchar_t** const parsed = CommandLineToArgvW(line, &count);
    for (int i = 0; i < count; ++i)
        words.push_back(bench::Utf8(parsed[i]));
    LocalFree(parsed);
    return words;
}

// Returns an empty string for a valid command line.
std::string Refusal(const std::vector<std::string>& words) {
    if (words.size() != 4) return "The command line has " + std::to_string(words.size()) + " words, not 4.";
    if (words[0] != "run") return "The verb is not run.";
    if (words[1] != "/SorvSIL") return "The command is not /SorvSIL.";
    if (words[2].compare(0, 7, "http://") != 0) return "The third word is not a web address.";
    return words[3].empty() ? "The title is empty." : "";
}

bool AllFit(const std::string& chosen, const std::vector<Product>& products) {
    for (const std::string& id : bench::Split(chosen, ','))
        if (std::none_of(products.begin(), products.end(), [&](const Product& product) { return product.id == id; }))
            return false;
    return true;
}

int Choose(const std::string& address, const std::vector<Product>& products, const std::string& chosen) {
    std::string error;
    if (!AllFit(chosen, products)) {
        Record("failed", "No such product fits: " + chosen);
    } else if (!PublishChoice(address, chosen, error)) {
        Record("failed", error);
    } else {
        Record("chose", chosen);
        return kExported;
    }
    return kNotExported;
}

int Run(const std::string& address, const std::string& title) {
    const Instruction instruction = ReadInstruction();
    std::vector<Product> products;
    std::string error;
    if (!FetchProducts(address, products, error)) {
        Record("failed", error);
        return kNotExported;
    }
    for (const Product& product : products)
        Record("fits", product.id);
    if (instruction.verb == "ask") {
        const std::string chosen = AskForProduct(address, title, products);
        if (chosen.empty()) return kNotExported;
        Record("chose", chosen);
        return kExported;
    }
    if (instruction.verb != "choose") return kNotExported;
    if (instruction.object != "first") return Choose(address, products, instruction.object);
    return Choose(address, products, products.empty() ? std::string() : products.front().id);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    const std::vector<std::string> words = WordsOf(GetCommandLineW());
    Record("line", bench::Utf8(GetCommandLineW()));
    for (const std::string& word : words)
        Record("word", word);
    int exitCode = kNotExported;
    const std::string refusal = Refusal(words);
    if (refusal.empty())
        exitCode = Run(words[2], words[3]);
    else
        Record("refused", refusal);
    Record("exit", std::to_string(exitCode));
    return exitCode;
}
