// While it lives, `operator new` of the test program refuses this thread everything. What the case itself needs it
// makes before. Other threads, the C runtime's own heap and other modules of the process are not touched. One at a
// time.
#pragma once

#include <windows.h>

#include <atomic>

struct NoMemory {
    NoMemory() {
        refused = 0;
        thread = GetCurrentThreadId();
    }
    ~NoMemory() { thread = 0; }
    NoMemory(const NoMemory&) = delete;
    NoMemory& operator=(const NoMemory&) = delete;

    static inline std::atomic<DWORD> thread = 0;
    static inline std::atomic<int> refused = 0;  // allocations so far
};
