// The classes that cross the border to the statistics library.
#include "PluginStat.h"

#include <thread>
#include <type_traits>

#include "gtest/gtest.h"

namespace {

std::string PluginStat::*const kFields[] = {
    &PluginStat::pluginName,      &PluginStat::pluginVersion,
    &PluginStat::vendorName,      &PluginStat::vendorId,
    &PluginStat::productLineName, &PluginStat::productLineKey,
    &PluginStat::product,         &PluginStat::productFamily,
    &PluginStat::cadPlatform,     &PluginStat::cadPlatformVersion,
    &PluginStat::discipline,      &PluginStat::deviceClass,
    &PluginStat::extra,           &PluginStat::action,
};

TEST(PluginStat, IsFourteenStringsInOrder) {
    const PluginStat record{};
    static_assert(sizeof(PluginStat) == 14 * sizeof(std::string));
    const char* base = reinterpret_cast<const char*>(&record);
    for (size_t i = 0; i < std::size(kFields); ++i) {
        EXPECT_EQ(reinterpret_cast<const char*>(&(record.*kFields[i])), base + i * sizeof(std::string)) << i;
        EXPECT_EQ(record.*kFields[i], "");
    }
}

TEST(PluginStat, CopiesAndMovesEveryField) {
    PluginStat record;
    for (size_t i = 0; i < std::size(kFields); ++i)
        record.*kFields[i] = std::string(40, static_cast<char>('a' + i));
    PluginStat copy(record), assigned, moved(PluginStat{record}), moveAssigned;
    assigned = copy;
    moveAssigned = PluginStat(copy);
    for (const PluginStat* other : {&copy, &assigned, &moved, &moveAssigned}) {
        for (auto field : kFields)
            EXPECT_EQ(other->*field, record.*field);
    }
}

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
