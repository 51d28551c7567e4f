#include "Automation.h"

#include <windows.h>

#include <fstream>

Instruction ReadInstruction() {
    const std::string text = Environment("SORVIK_BENCH_CONFIGURATOR");
    const size_t blank = text.find(' ');
    return {text.substr(0, blank), blank == std::string::npos ? std::string() : text.substr(blank + 1)};
}

std::string Environment(const char* name) {
    char value[1024] = "";
    const DWORD length = GetEnvironmentVariableA(name, value, sizeof value);
    return length < sizeof value ? std::string(value, length) : std::string();
}

void Record(const std::string& what, const std::string& text) {
    const std::string path = Environment("SORVIK_BENCH_CONFIGURATOR_RECORD");
    if (path.empty()) return;
    std::ofstream file(path, std::ios::binary | std::ios::app);
    file << what << ' ' << text << '\n';
}
