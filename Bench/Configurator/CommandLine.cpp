#include "CommandLine.h"

#include <windows.h>
#include <shellapi.h>

#include "BenchTexts.h"

namespace {

std::string Refusal(const std::vector<std::string>& words) {
    if (words.size() != 4) return "The command line has " + std::to_string(words.size()) + " words, not 4.";
    if (words[0] != "run") return "The verb is not run.";
    if (words[1] != "/SorvSIL") return "The command is not /SorvSIL.";
    if (words[2].compare(0, 7, "http://") != 0) return "The third word is not a web address.";
    if (words[3].empty()) return "The title is empty.";
    return {};
}

}  // namespace

CommandLine ReadCommandLine(const wchar_t* raw) {
    CommandLine line;
    line.raw = bench::Utf8(raw);
    int count = 0;
    if (wchar_t** words = CommandLineToArgvW(raw, &count)) {
        for (int i = 0; i < count; ++i)
            line.words.push_back(bench::Utf8(words[i]));
        if (count == 4) {
            line.address = line.words[2];
            line.title = words[3];
        }
        LocalFree(words);
    }
    line.refusal = Refusal(line.words);
    return line;
}
