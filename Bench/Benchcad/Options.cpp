#include "Options.h"

#include <algorithm>
#include <cctype>
#include <fstream>

namespace bench {
namespace {

// Returns "out" for "--Out", "-out" and "/out"; empty when the word is not a switch.
std::string SwitchName(const std::string& word) {
    if (word.empty() || (word[0] != '/' && word[0] != '-')) return {};
    std::string name = word.substr(word.compare(0, 2, "--") == 0 ? 2 : 1);
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
    return name;
}

}  // namespace

std::string ReadOptions(const std::vector<std::string>& words, const std::string& programFolder, Options& options) {
    const struct {
        const char* name;
        std::string Options::*value;
    } withValue[] = {{"i", &Options::project},
                     {"ld", &Options::module},
                     {"s", &Options::script},
                     {"catalogue", &Options::catalogue},
                     {"out", &Options::outputFolder}};
    options = {};
    for (size_t i = 0; i < words.size(); ++i) {
        const std::string name = SwitchName(words[i]);
        const auto found = std::find_if(std::begin(withValue), std::end(withValue),
                                        [&](const auto& candidate) { return name == candidate.name; });
        if (found != std::end(withValue)) {
            if (i + 1 == words.size() || words[i + 1].empty()) return "The switch " + words[i] + " needs a value.";
            options.*(found->value) = words[++i];
        } else if (name == "interactive") {
            options.interactive = true;
        } else if (name == "help" || name == "h" || name == "?") {
            options.help = true;
        } else {
            return "The switch " + words[i] + " is not known. --help lists them all.";
        }
    }
    if (options.interactive && !options.script.empty()) return "A run is either interactive or has a script, not both.";
    const auto takeFrom = [&](std::string& value, const char* file) {
        if (value.empty()) value = programFolder + "\\" + file;
    };
    takeFrom(options.project, "office.xml");
    takeFrom(options.module, "Sorvik_R24_x64.arx");
    takeFrom(options.catalogue, "catalogue.xml");
    if (!options.interactive) takeFrom(options.script, "sample.script");
    if (options.outputFolder.empty()) options.outputFolder = "bench-output";
    return {};
}

std::string MissingFile(const Options& options) {
    const struct {
        const char* what;
        const std::string& file;
    } needed[] = {{"project", options.project},
                  {"module", options.module},
                  {"script", options.script},
                  {"catalogue", options.catalogue}};
    for (const auto& entry : needed)
        if (!entry.file.empty() && !std::ifstream(entry.file, std::ios::binary))
            return std::string("The ") + entry.what + " " + entry.file + " cannot be opened.";
    return {};
}

std::string Usage() {
    return "benchcad runs the module inside a fake AutoCAD, with fakes of its other dependencies.\n"
           "\n"
           "  --interactive       you are the user: commands at the keyboard, dialogs and configurator on the screen\n"
           "  --s SCRIPT          the user's answers               (sample.script beside the program)\n"
           "  --i PROJECT         the Klimora project to open      (office.xml beside the program)\n"
           "  --ld MODULE         the module to load               (Sorvik_R24_x64.arx beside the program)\n"
           "  --catalogue FILE    the manufacturer's catalogue     (catalogue.xml beside the program)\n"
           "  --out FOLDER        folder for the output files\n"
           "  --help, -h          this list\n"
           "\n"
           "A slash works like dashes. Exit codes: 0 success, 1 failure, 2 wrong switches\n"
           "or files, 3 it hung, 4 it crashed.\n";
}

}  // namespace bench
