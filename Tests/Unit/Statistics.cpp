// The lock that is part of the statistics library's interface. Whole runs check the record.
#include "PluginStat.h"

#include <windows.h>

#include <thread>
#include <type_traits>

#include "gtest/gtest.h"

namespace {

TEST(PMutex, KeepsAnotherThreadOutUntilReleased) {
    static_assert(!std::is_copy_constructible_v<PMutex>);
    PMutex mutex, other;
    mutex.Acquire();
    mutex.Acquire();
    other = mutex;  // changes neither
    const HANDLE done = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    std::thread thread([&] {
        other.Acquire();
        other.Release();
        mutex.Acquire();
        SetEvent(done);
        mutex.Release();
    });
    mutex.Release();
    EXPECT_EQ(WaitForSingleObject(done, 50), static_cast<DWORD>(WAIT_TIMEOUT)) << "acquired twice, released once";
    mutex.Release();
    EXPECT_EQ(WaitForSingleObject(done, 10000), static_cast<DWORD>(WAIT_OBJECT_0));
    thread.join();
    CloseHandle(done);
}

}  // namespace
