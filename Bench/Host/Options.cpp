#include "Options.h"

#include <algorithm>
#include <cctype>
#include <fstream>

namespace bench {
namespace {

std::string LowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

}  // namespace

std::string ReadOptions(const std::vector<std::string>& words, const std::string& programFolder, HostOptions& options) {
    const struct {
        const char* name;
        std::string HostOptions::*value;
    } withValue[] = {{"/i", &HostOptions::project},
                     {"/ld", &HostOptions::module},
                     {"/s", &HostOptions::script},
                     {"/catalogue", &HostOptions::catalogue},
                     {"/out", &HostOptions::outputFolder}};
    options = {};
    for (size_t i = 0; i < words.size(); ++i) {
        const std::string name = LowerCase(words[i]);
        const auto found = std::find_if(std::begin(withValue), std::end(withValue),
                                        [&](const auto& candidate) { return name == candidate.name; });
        if (found != std::end(withValue)) {
            if (i + 1 == words.size() || words[i + 1].empty()) return "The switch " + name + " needs a value.";
            options.*(found->value) = words[++i];
        } else if (name == "/interactive") {
            options.interactive = true;
        } else if (name == "/?" || name == "/help") {
            options.help = true;
        } else {
            return "The switch " + words[i] + " is not known. benchcad /? lists them all.";
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

std::string MissingFile(const HostOptions& options) {
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
    return "benchcad runs the module inside a stand-in for AutoCAD, with stand-ins for its other neighbours.\n"
           "\n"
           "  benchcad [/i PROJECT] [/ld MODULE] [/s SCRIPT] [/out FOLDER] [/catalogue FILE]\n"
           "  benchcad [/i PROJECT] [/ld MODULE] /interactive [/out FOLDER] [/catalogue FILE]\n"
           "\n"
           "  /i           Klimora project to open         (office.xml beside the program)\n"
           "  /ld          module to load                  (Sorvik_R24_x64.arx beside the program)\n"
           "  /s           script to run                   (sample.script beside the program)\n"
           "  /interactive commands from the keyboard, dialogs on the screen\n"
           "  /out         folder for what the run leaves  (bench-output)\n"
           "  /catalogue   the maker's catalogue           (catalogue.xml beside the program)\n"
           "\n"
           "Exit codes: 0 the run did all it should, 1 it did not, 2 wrong switches or files, 3 it hung, 4 it "
           "crashed.\n";
}

}  // namespace bench
