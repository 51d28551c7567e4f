#include <windows.h>

#include "Output.h"

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace bench {
namespace {

using ToUnixPath = char*(__cdecl*)(const wchar_t* path);

// Returns null on Windows.
ToUnixPath WineToUnixPath() {
    return reinterpret_cast<ToUnixPath>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("kernel32.dll"), "wine_get_unix_file_name")));
}

}  // namespace

std::string MakeFolder(const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (std::filesystem::is_directory(folder, error)) return {};
    return "The folder " + folder + " cannot be created.";
}

std::string WriteText(const std::string& file, const std::string& text) {
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream << text;
    stream.flush();
    return stream ? std::string() : "The file " + file + " cannot be written.";
}

void SetUpConsole() {
    SetConsoleOutputCP(CP_UTF8);
    if (WineToUnixPath()) _setmode(_fileno(stdout), _O_BINARY);
}

void Say(const std::string& text) {
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
}

std::string DisplayPath(const std::string& path) {
    const ToUnixPath toUnixPath = WineToUnixPath();
    char* const unixPath = toUnixPath ? toUnixPath(std::filesystem::absolute(path).c_str()) : nullptr;
    if (!unixPath) return path;
    std::string shown = unixPath;
    HeapFree(GetProcessHeap(), 0, unixPath);
    return shown;
}

}  // namespace bench
