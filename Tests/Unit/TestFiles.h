// Files of the tests: reading and writing whole files, and a temporary folder that the destructor deletes.
#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

inline std::string ReadWholeFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

inline void WriteWholeFile(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << content;
}

inline bool Exists(const std::string& path) {
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// With a trailing backslash.
inline std::string TemporaryFolder() {
    char path[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, path);
    return path;
}

class TestFolder {
 public:
    TestFolder() {
        // Skips folders that an earlier run has left.
        int number = 0;
        do
            path_ = TemporaryFolder() + "sorvik-unit-" + std::to_string(++number);
        while (!CreateDirectoryA(path_.c_str(), nullptr) && GetLastError() == ERROR_ALREADY_EXISTS);
    }
    ~TestFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    // Without a trailing backslash.
    const std::string& path() const { return path_; }
    std::string file(const std::string& name) const { return path_ + "\\" + name; }

 private:
    std::string path_;
};
