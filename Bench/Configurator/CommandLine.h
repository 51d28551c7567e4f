// Parses the configurator's command line: run /SorvSIL "address" "title", with the verb as the first word and no
// program name before it. No other form is accepted.
#pragma once

#include <string>
#include <vector>

struct CommandLine {
    std::string raw;  // UTF-8
    std::vector<std::string> words;
    std::string address;
    std::wstring title;
    std::string refusal;  // empty when the line is valid
};

CommandLine ReadCommandLine(const wchar_t* raw);
