// benchcad: see Options.h for its switches, Script.h for its scripts.
#include <windows.h>

#include <string>
#include <vector>

#include "CrashReport.h"
#include "InteractiveRun.h"
#include "Options.h"
#include "Output.h"
#include "Run.h"
#include "ScriptRun.h"

namespace {

std::string ProgramFolder() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string file = path;
    return file.substr(0, file.find_last_of('\\'));
}

// Stand-ins and module have folders of their own as the current one; what the user named stays what he meant.
std::string Absolute(const std::string& file) {
    if (file.empty()) return file;
    char path[MAX_PATH] = "";
    return GetFullPathNameA(file.c_str(), sizeof path, path, nullptr) ? path : file;
}

int Run(const std::vector<std::string>& words) {
    bench::HostOptions options;
    std::string problem = bench::ReadOptions(words, ProgramFolder(), options);
    if (problem.empty() && options.help) {
        bench::Say(bench::Usage());
        return bench::kAllWell;
    }
    for (std::string* file :
         {&options.project, &options.module, &options.script, &options.catalogue, &options.outputFolder})
        *file = Absolute(*file);
    if (problem.empty()) problem = bench::MissingFile(options);
    if (problem.empty()) problem = bench::MakeFolder(options.outputFolder);
    if (!problem.empty()) {
        bench::Say("benchcad: " + problem + "\n");
        return bench::kWrongUse;
    }
    return options.interactive ? bench::RunInteractively(options) : bench::RunScript(options);
}

}  // namespace

int main(int count, char** words) {
    bench::SetUpConsole();
    bench::ReportCrashes();
    const int code = Run(std::vector<std::string>(words + 1, words + count));
    // A thread may still wait for the keyboard; it must not keep the process.
    ExitProcess(static_cast<UINT>(code));
}
