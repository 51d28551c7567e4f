// Start of the test programs. They read the sample from the current folder and write their files there. It must be the
// folder of the program.
#pragma once

#include <windows.h>

#include <cstdio>
#include <string>

#include "BenchControl.h"
#include "gtest/gtest.h"

inline constexpr int kWrongUse = 2;

// Sets a separate temporary folder, so that the programs do not find each other's files.
inline void UseOwnTemporaryFolder(const std::string& programName) {
    char folder[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, folder);
    const std::string own = folder + programName + "-files";
    CreateDirectoryA(own.c_str(), nullptr);
    SetEnvironmentVariableA("TMP", own.c_str());
    SetEnvironmentVariableA("TEMP", own.c_str());
}

// Returns false, after printing a message, when the program was not started in its folder.
inline bool BeginTests() {
    bench::ReportCrashes();
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string program = path;
    const size_t folder = program.find_last_of('\\');
    if (GetFileAttributesA(program.c_str() + folder + 1) != INVALID_FILE_ATTRIBUTES) {
        UseOwnTemporaryFolder(program.substr(folder + 1));
        return true;
    }
    std::printf("%s must be started in its own folder.\n", path);
    return false;
}

// Like RUN_ALL_TESTS, but returns kWrongUse when the filter matches no case.
inline int RunTests() {
    const int failed = RUN_ALL_TESTS();
    if (testing::UnitTest::GetInstance()->test_to_run_count() > 0) return failed;
    std::printf("no case matches --gtest_filter=%s\n", testing::GTEST_FLAG(filter).c_str());
    return kWrongUse;
}
