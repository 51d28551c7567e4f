// While an object exists, `operator new` of the test program fails on this thread. A case allocates what it needs
// before. Other threads, the C runtime's own heap and other modules of the process are not affected. One at a time.
#pragma once

#include <windows.h>

#include <atomic>

struct NoMemory {
    NoMemory() {
        failed = 0;
        thread = GetCurrentThreadId();
    }
    ~NoMemory() { thread = 0; }
    NoMemory(const NoMemory&) = delete;
    NoMemory& operator=(const NoMemory&) = delete;

    static inline std::atomic<DWORD> thread = 0;
    static inline std::atomic<int> failed = 0;  // allocations so far
};
