// What the test programs begin with. They read the sample and leave their files in the current folder, which must be
// the one where they lie.
#pragma once

#include <windows.h>

#include <cstdio>
#include <string>

#include "CrashReport.h"
#include "gtest/gtest.h"

inline constexpr int kWrongUse = 2;

// A temporary folder for this program alone, so that the programs do not see each other's files.
inline void UseOwnTemporaryFolder(const std::string& programName) {
    char folder[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, folder);
    const std::string own = folder + programName + "-files";
    CreateDirectoryA(own.c_str(), nullptr);
    SetEnvironmentVariableA("TMP", own.c_str());
    SetEnvironmentVariableA("TEMP", own.c_str());
}

// False, after a sentence for the user, when the program was started elsewhere than in its folder.
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

// As RUN_ALL_TESTS; a filter that fits no case is a wrong use, not a success.
inline int RunTests() {
    const int failed = RUN_ALL_TESTS();
    if (testing::UnitTest::GetInstance()->test_to_run_count() > 0) return failed;
    std::printf("no case fits --gtest_filter=%s\n", testing::GTEST_FLAG(filter).c_str());
    return kWrongUse;
}
