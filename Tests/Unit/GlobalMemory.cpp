#include "Util/GlobalMemory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "DiagnosticsFixture.h"
#include "ImportPatch.h"

namespace {

// Only a block of this size is refused: everything else of the process allocates as ever.
constexpr size_t kRefusedSize = 0x123457;

void* (*realMalloc)(size_t) = nullptr;
void* (*realRealloc)(void*, size_t) = nullptr;

void* RefusingMalloc(size_t size) {
    return size == kRefusedSize ? nullptr : realMalloc(size);
}
void* RefusingRealloc(void* block, size_t size) {
    return size == kRefusedSize ? nullptr : realRealloc(block, size);
}
void* WINAPI NoLock(HGLOBAL) {
    return nullptr;
}
int freed = 0;
HGLOBAL WINAPI CountFree(HGLOBAL block) {
    ++freed;
    return LocalFree(block);
}

class GlobalMemoryTest : public DiagnosticsTest {
 protected:
    GlobalMemoryTest() { g_diagSettings->errorBits = RF_LOG | RF_FUNCTION | RF_FILELINE; }
    static std::string Line(const std::string& function, const std::string& message, int line) {
        return "Error  -  " + function + "(...)  -  \"" + message + "\"  -  PlugIn/Util/DlgFunc#" +
               std::to_string(line) + "\n";
    }
};

}  // namespace

TEST_F(GlobalMemoryTest, BlocksGrowWithTheirContent) {
    GwMemory block(gwGmalloc(4, 10010));
    ASSERT_TRUE(block);
    std::memcpy(block.get(), "SORV", 4);
    void* grown = gwGrealloc(block.release(), 100000, 10011);
    ASSERT_TRUE(grown);
    EXPECT_EQ(std::memcmp(grown, "SORV", 4), 0);
    void* kept = gwGrealloc(grown, 0, 0);
    EXPECT_TRUE(kept) << "a block of no size is a block all the same";
    EXPECT_EQ(gwGfree(kept), 0);
    EXPECT_EQ(gwGfree(nullptr), 0);
    GwMemory fresh(gwGrealloc(nullptr, 16, 0));
    EXPECT_TRUE(fresh);
    EXPECT_EQ(LogLines(), "");
}

TEST_F(GlobalMemoryTest, FailedAllocationsAreReportedButForTheFirstThroughRealloc) {
    GwMemory old(gwGmalloc(3, 0));
    std::memcpy(old.get(), "old", 3);
    {
        // The patches allocate themselves, so the originals are known before the first stands.
        const HMODULE runtime = GetModuleHandleA("msvcrt.dll");
        realMalloc = reinterpret_cast<void* (*)(size_t)>(reinterpret_cast<void*>(GetProcAddress(runtime, "malloc")));
        realRealloc =
            reinterpret_cast<void* (*)(void*, size_t)>(reinterpret_cast<void*>(GetProcAddress(runtime, "realloc")));
        const ImportPatch mallocPatch("malloc", RefusingMalloc);
        const ImportPatch reallocPatch("realloc", RefusingRealloc);
        EXPECT_EQ(gwGrealloc(nullptr, kRefusedSize, 0), nullptr);
        EXPECT_EQ(gwGmalloc(kRefusedSize, 0), nullptr);
        EXPECT_EQ(gwGrealloc(old.get(), kRefusedSize, 0), nullptr);
    }
    EXPECT_EQ(std::memcmp(old.get(), "old", 3), 0);
    EXPECT_EQ(LogLines(), Line("gwGmalloc", "(!ret) Can not allocate memory.", 29) +
                              Line("gwGrealloc", "(!ret) Can not allocate memory.", 41));
}

TEST_F(GlobalMemoryTest, GlobalBlocksAreZeroedMovableAndLocked) {
    HGLOBAL handle = nullptr;
    auto* data = static_cast<char*>(gwGmallocH(1000, &handle));
    ASSERT_TRUE(data);
    const GlobalMemory owned(handle);
    EXPECT_EQ(std::string(data, 1000), std::string(1000, '\0'));
    EXPECT_NE(static_cast<void*>(handle), static_cast<void*>(data)) << "a fixed block is its own handle";
    EXPECT_EQ(GlobalFlags(handle) & GMEM_LOCKCOUNT, 1u);
    EXPECT_GE(GlobalSize(handle), 1000u);
    GlobalUnlock(handle);
}

TEST_F(GlobalMemoryTest, GlobalBlocksThatCannotBeHadLeaveNothing) {
    HGLOBAL handle = reinterpret_cast<HGLOBAL>(0x5A5A);
    freed = 0;
    {
        const ImportPatch lock("GlobalLock", NoLock);
        const ImportPatch free("GlobalFree", CountFree);
        EXPECT_EQ(gwGmallocH(10, &handle), nullptr);
    }
    EXPECT_EQ(handle, nullptr);
    EXPECT_EQ(freed, 1);
    EXPECT_EQ(gwGmallocH(10, nullptr), nullptr);
    EXPECT_EQ(LogLines(), Line("gwGmallocH", "Can not allocate memory.", 62) +
                              Line("gwGmallocH", "(!lphg) Can not allocate memory.", 56));
}
