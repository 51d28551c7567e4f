#include "Output.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace bench {

std::string MakeFolder(const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (std::filesystem::is_directory(folder, error)) return {};
    return "The folder " + folder + " cannot be made.";
}

std::string WriteText(const std::string& file, const std::string& text) {
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream << text;
    stream.flush();
    return stream ? std::string() : "The file " + file + " cannot be written.";
}

std::string JoinLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

void Say(const std::string& text) {
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
}

}  // namespace bench
