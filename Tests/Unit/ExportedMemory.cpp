#include "Util/ExportedMemory.h"

#include <cstdlib>

#include "DiagnosticsFixture.h"
#include "NoMemory.h"
#include "RecordedCalls.h"

namespace {

// Only allocations of this size fail.
constexpr size_t kRefused = 0x123457;

using ExportedMemoryTest = ErrorReportsTest;

}  // namespace

TEST_F(ExportedMemoryTest, KeepsTheContentOfGrowingBlocks) {
    GwMemory block(gwGmalloc(4, 10010));
    ASSERT_TRUE(block);
    std::memcpy(block.get(), "SORV", 4);
    void* grown = gwGrealloc(block.release(), 100000, 10011);
    ASSERT_TRUE(grown);
    EXPECT_EQ(std::memcmp(grown, "SORV", 4), 0);
    void* kept = gwGrealloc(grown, 0, 0);
    EXPECT_TRUE(kept) << "a block of size 0 is a block";
    EXPECT_EQ(gwGfree(kept), 0);
    EXPECT_EQ(gwGfree(nullptr), 0);
    const GwMemory fresh(gwGrealloc(nullptr, 16, 0));
    EXPECT_TRUE(fresh);
    EXPECT_EQ(LogLines(), "");
}

TEST_F(ExportedMemoryTest, ReportsFailedAllocationsExceptTheFirstThroughRealloc) {
    GwMemory old(gwGmalloc(3, 0));
    std::memcpy(old.get(), "old", 3);
    {
        const ImportPatch mallocPatch(
            "malloc", +[](size_t size) { return size == kRefused ? nullptr : std::calloc(1, size); });
        const ImportPatch reallocPatch(
            "realloc", +[](void*, size_t) { return static_cast<void*>(nullptr); });
        // There is no memory for the report either.
        const NoMemory noMemory;
        const void* const blocks[] = {gwGrealloc(nullptr, kRefused, 0), gwGmalloc(kRefused, 0),
                                      gwGrealloc(old.get(), kRefused, 0)};
        EXPECT_TRUE(!blocks[0] && !blocks[1] && !blocks[2]);
    }
    EXPECT_EQ(std::memcmp(old.get(), "old", 3), 0);
    EXPECT_EQ(LogLines(), Line("gwGmalloc", "(!ret) Can not allocate memory.", "Util/DlgFunc#29") +
                              Line("gwGrealloc", "(!ret) Can not allocate memory.", "Util/DlgFunc#41"));
}

TEST_F(ExportedMemoryTest, ReportsUnavailableGlobalBlocks) {
    RecordedCalls calls;
    calls.Return("GlobalAlloc", GlobalAlloc, nullptr, 0, 1);
    calls.Return("GlobalLock", GlobalLock, nullptr);
    for (int failing = 0; failing < 2; ++failing) {
        HGLOBAL handle = reinterpret_cast<HGLOBAL>(0x5A5A);
        EXPECT_EQ(gwGmallocH(10, &handle), nullptr);
        EXPECT_EQ(handle, nullptr);
    }
    EXPECT_EQ(gwGmallocH(10, nullptr), nullptr);
    const std::string line = Line("gwGmallocH", "Can not allocate memory.", "Util/DlgFunc#62");
    EXPECT_EQ(LogLines(), line + line + Line("gwGmallocH", "(!lphg) Can not allocate memory.", "Util/DlgFunc#56"));
}
