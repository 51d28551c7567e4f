// Test program of the module's units: one fake AutoCAD with a new drawing for each case, and the real module loaded
// (not started) beside the linked units. A contract violation or an outstanding resource fails the case. A case that
// leaves one on purpose clears it itself.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <new>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "NoMemory.h"
#include "TestProgram.h"
#include "gtest/gtest.h"

namespace {

class BenchWatch : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        bench::ResetBench();
        bench::NewDrawing("Drawing1.dwg");
        bench::ClearAnswers();
        bench::ClearTranscript();
    }
    void OnTestEnd(const testing::TestInfo&) override {
        for (const std::string& sentence : bench::Violations())
            ADD_FAILURE() << "contract violation: " << sentence;
        for (const std::string& resource : bench::OutstandingResources())
            ADD_FAILURE() << "outstanding: " << resource;
    }
};

}  // namespace

// The other forms of allocation call these.
void* operator new(std::size_t size) {
    const bool fails = NoMemory::thread == GetCurrentThreadId();
    NoMemory::failed += fails;
    void* const block = fails ? nullptr : std::malloc(size ? size : 1);
    if (!block) throw std::bad_alloc();
    return block;
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!BeginTests()) return kWrongUse;
    if (!LoadLibraryA("Sorvik_R24_x64.arx")) {
        std::fprintf(stderr, "Sorvik_R24_x64.arx cannot be loaded: error %lu\n", GetLastError());
        return kWrongUse;
    }
    bench::StartAutoCAD();
    testing::UnitTest::GetInstance()->listeners().Append(new BenchWatch);
    const int result = RunTests();
    bench::StopAutoCAD();
    return result;
}
