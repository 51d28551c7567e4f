// The lock that crosses the border to the statistics library; the record does so in every run that commits.
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
    other = mutex;  // leaves both as they are
    const HANDLE done = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    std::thread thread([&] {
        other.Acquire();
        other.Release();
        mutex.Acquire();
        SetEvent(done);
        mutex.Release();
    });
    mutex.Release();
    EXPECT_EQ(WaitForSingleObject(done, 50), static_cast<DWORD>(WAIT_TIMEOUT)) << "held twice, released once";
    mutex.Release();
    EXPECT_EQ(WaitForSingleObject(done, 10000), static_cast<DWORD>(WAIT_OBJECT_0));
    thread.join();
    CloseHandle(done);
}

}  // namespace
