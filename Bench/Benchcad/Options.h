// Command-line switches of benchcad: those of AutoCAD's console host and some of its own; Usage lists them. A switch
// begins with a slash, a dash or two dashes. Defaults are the files beside the program.
#pragma once

#include <string>
#include <vector>

namespace bench {

struct Options {
    std::string project;
    std::string module;
    std::string script;
    std::string catalogue;
    std::string outputFolder;
    bool interactive = false;
    bool help = false;
};

// `words` excludes the program's name; `programFolder` has no trailing separator. Returns an empty string on success,
// otherwise a sentence for the user. Does not access files.
std::string ReadOptions(const std::vector<std::string>& words, const std::string& programFolder, Options& options);

// Returns a sentence about the first missing file; empty when all exist.
std::string MissingFile(const Options& options);

std::string Usage();

}  // namespace bench
