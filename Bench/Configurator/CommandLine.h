// The command line of the configurator, exactly as its caller made it: run /SorvSIL "address" "title", with the verb as
// the first word and no program name before it. The program understands this form and no other.
#pragma once

#include <string>
#include <vector>

struct CommandLine {
    std::string raw;  // UTF-8
    std::vector<std::string> words;
    std::string address;
    std::wstring title;
    std::string refusal;  // empty when the line was understood
};

CommandLine ReadCommandLine(const wchar_t* raw);
