// Many runs in one process, with and without faults: no resource may grow with their number.
#include <windows.h>

#include <algorithm>
#include <cstdlib>

#include "SweepBench.h"

namespace {

constexpr int kRuns = 3000;
constexpr int kWarmUp = 300;
constexpr int kRunsPerCheck = 300;
constexpr long kSpareHandles = 10;  // WinINet opens and closes its own

long blocks = 0;  // of memory that the module has allocated

void* Counted(void* block) {
    if (block) ++blocks;
    return block;
}
void* Allocate(size_t size) {
    return Counted(std::malloc(size));
}
void* AllocateZeroes(size_t count, size_t size) {
    return Counted(std::calloc(count, size));
}
void* Reallocate(void* old, size_t size) {
    return old ? std::realloc(old, size) : Allocate(size);
}
void Free(void* block) {
    if (block) --blocks;
    std::free(block);
}

// Counts this process's handles in the system's list, because Wine's GetProcessHandleCount always returns 0.
long KernelHandles() {
    struct Handle {
        void* object;
        ULONG_PTR process, value;
        ULONG others[4];
    };
    struct List {
        ULONG_PTR count, reserved;
        Handle handles[20000];
    };
    using Query = LONG WINAPI(int, void*, ULONG, ULONG*);
    const FARPROC query = GetProcAddress(GetModuleHandleA("ntdll"), "NtQuerySystemInformation");
    const auto list = std::make_unique<List>();
    constexpr int kAllHandles = 64;
    reinterpret_cast<Query*>(reinterpret_cast<void*>(query))(kAllHandles, list.get(), sizeof *list, nullptr);
    return static_cast<long>(std::count_if(list->handles, list->handles + list->count, [](const Handle& handle) {
        return handle.process == GetCurrentProcessId();
    }));
}

// Returns the highest of many new handles of a kind. New handles fill the free places, so it grows with leaked ones.
template <class Handle>
long Highest(Handle (*make)(), BOOL(WINAPI* destroy)(Handle)) {
    std::vector<Handle> handles(500);
    std::generate(handles.begin(), handles.end(), make);
    long highest = 0;
    for (const Handle handle : handles) {
        highest = std::max<long>(highest, LOWORD(reinterpret_cast<ULONG_PTR>(handle)));
        destroy(handle);
    }
    return highest;
}

long Windows() {
    long count = 0;
    EnumThreadWindows(
        GetCurrentThreadId(), [](HWND, LPARAM count) -> BOOL { return ++*reinterpret_cast<long*>(count) > 0; },
        reinterpret_cast<LPARAM>(&count));
    return count;
}

class Soak : public SweepBench {
 protected:
    std::string Holdings() {
        const long pens = Highest<HGDIOBJ>([]() -> HGDIOBJ { return CreatePen(PS_SOLID, 1, 0); }, DeleteObject);
        const long menus = Highest<HMENU>(CreateMenu, DestroyMenu);
        return "blocks of memory " + std::to_string(blocks) + ", GDI objects up to " + std::to_string(pens) +
               ", USER objects up to " + std::to_string(menus) + ", windows " + std::to_string(Windows()) + ", files " +
               TemporaryFolders();
    }

    ImportPatch allocate_{"malloc", Allocate, module()};
    ImportPatch allocateZeroes_{"calloc", AllocateZeroes, module()};
    ImportPatch reallocate_{"realloc", Reallocate, module()};
    ImportPatch free_{"free", Free, module()};
};

TEST_F(Soak, KeepsResourceUseConstant) {
    const std::vector<bench::InjectedFault> failures = EveryCall();
    std::string holdings;
    long handles = 0;
    for (int run = 1; run <= kRuns; ++run) {
        if (run % 2 == 0) Arm(failures[static_cast<size_t>(run / 2) % failures.size()]);
        RunHealthily();
        Disarm();
        ForgetOutstanding();
        Reopen();
        if (run < kWarmUp || run % kRunsPerCheck != 0) continue;
        const std::string now = Holdings();
        if (holdings.empty()) {
            holdings = now;
            handles = KernelHandles();
        }
        ASSERT_LE(KernelHandles(), handles + kSpareHandles) << "kernel handles after " << run << " runs";
        ASSERT_EQ(now, holdings) << "after " << run << " runs";
    }
    std::printf("%s, kernel handles %ld\n", holdings.c_str(), KernelHandles());
}

}  // namespace
