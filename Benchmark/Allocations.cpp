#include <cstdlib>
#include <new>

#include "Table.h"

long long allocations = 0;

// All other forms of operator new and delete call these.
void* operator new(std::size_t size) {
    ++allocations;
    if (void* const block = std::malloc(size)) return block;
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
