// Start of the test programs. They read the sample from the current folder and write their files there. It must be the
// folder of the program. They share the module's log in that folder, so they take turns.
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

// Waits at most four minutes for another test program to end.
inline bool TakeTurn() {
    const HANDLE turn = CreateMutexA(nullptr, FALSE, "sorvik-test-programs");  // owned until the process ends
    DWORD wait = WaitForSingleObject(turn, 0);
    if (wait == WAIT_TIMEOUT) {
        std::printf("waiting for another test program to end\n");
        std::fflush(stdout);
        wait = WaitForSingleObject(turn, 240000);
    }
    return wait == WAIT_OBJECT_0 || wait == WAIT_ABANDONED;
}

// Returns false, after printing a message, when the program was not started in its folder or another one does not end.
inline bool BeginTests() {
    bench::ReportCrashes();
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string program = path;
    const size_t folder = program.find_last_of('\\');
    if (GetFileAttributesA(program.c_str() + folder + 1) != INVALID_FILE_ATTRIBUTES) {
        UseOwnTemporaryFolder(program.substr(folder + 1));
        if (TakeTurn()) return true;
        std::printf("another test program is running\n");
        return false;
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
