// Switches of the bench host, as AutoCAD's own console host has them, with some of our own; Usage lists them. A switch
// begins with a slash, a dash or two dashes. What is left out is taken from the files that lie beside the program.
#pragma once

#include <string>
#include <vector>

namespace bench {

struct HostOptions {
    std::string project;
    std::string module;
    std::string script;
    std::string catalogue;
    std::string outputFolder;
    bool interactive = false;
    bool help = false;
};

// `words` without the program's name; `programFolder` without a trailing separator. An empty text on success, otherwise
// one sentence for the user. Files are not looked at.
std::string ReadOptions(const std::vector<std::string>& words, const std::string& programFolder, HostOptions& options);

// The first file that is missing, as a sentence; empty when all are there.
std::string MissingFile(const HostOptions& options);

std::string Usage();

}  // namespace bench
