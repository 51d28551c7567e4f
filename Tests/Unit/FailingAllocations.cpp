#include "FailingAllocations.h"

#include <windows.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<DWORD> failingThread = 0;
int left = 0;
int refusals = 0;

}  // namespace

FailingAllocations::FailingAllocations(int granted) {
    left = granted;
    refusals = 0;
    failingThread = GetCurrentThreadId();
}

FailingAllocations::~FailingAllocations() {
    failingThread = 0;
}

int FailingAllocations::refused() const {
    return refusals;
}

// The program's other forms of allocation end in this one.
void* operator new(std::size_t size) {
    const bool refused = failingThread == GetCurrentThreadId() && left-- <= 0;
    if (refused) ++refusals;
    void* const block = refused ? nullptr : std::malloc(size ? size : 1);
    if (!block) throw std::bad_alloc();
    return block;
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
