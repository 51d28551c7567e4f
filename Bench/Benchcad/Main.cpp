// benchcad: Options.h describes its switches, Script.h its scripts.
#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

#include "BenchControl.h"
#include "Options.h"
#include "Output.h"
#include "Run.h"

namespace {

std::string ProgramFolder() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string file = path;
    return file.substr(0, file.find_last_of('\\'));
}

// Fakes and module may change the current folder, so relative paths from the user are resolved at the start.
std::string Absolute(const std::string& file) {
    return file.empty() ? file : std::filesystem::absolute(file).string();
}

int Run(const std::vector<std::string>& words) {
    bench::Options options;
    std::string problem = bench::ReadOptions(words, ProgramFolder(), options);
    if (problem.empty() && options.help) {
        bench::Say(bench::Usage());
        return bench::kSuccess;
    }
    for (std::string* file :
         {&options.project, &options.module, &options.script, &options.catalogue, &options.outputFolder})
        *file = Absolute(*file);
    if (problem.empty()) problem = bench::MissingFile(options);
    if (problem.empty()) problem = bench::MakeFolder(options.outputFolder);
    if (!problem.empty()) {
        bench::Say("benchcad: " + problem + "\n");
        return bench::kUsageError;
    }
    return options.interactive ? bench::RunInteractively(options) : bench::RunScript(options);
}

}  // namespace

int main(int count, char** words) {
    bench::SetUpConsole();
    bench::ReportCrashes();
    const int code = Run(std::vector<std::string>(words + 1, words + count));
    // ExitProcess, because a thread may still wait for the keyboard.
    ExitProcess(static_cast<UINT>(code));
}
