#include "HeapCheck.h"

#include <cstdlib>
#include <cstring>
#include <unordered_map>

namespace {

constexpr unsigned char kGuard[16] = {0xB5, 0x5B, 0xB5, 0x5B, 0xB5, 0x5B, 0xB5, 0x5B,
                                      0xB5, 0x5B, 0xB5, 0x5B, 0xB5, 0x5B, 0xB5, 0x5B};

struct Block {
    size_t size;
    bool released;
};
std::unordered_map<void*, Block> blocks;
std::vector<std::string> errors;

unsigned char* Bytes(void* block) {
    return static_cast<unsigned char*>(block);
}

void CheckGuard(void* block, const Block& known) {
    if (std::memcmp(Bytes(block) + known.size, kGuard, sizeof kGuard) != 0)
        errors.push_back("A block of " + std::to_string(known.size) + " bytes was written beyond its end.");
}

// The runtime frees blocks that were allocated before the check began.
void Free(void* block) {
    const auto found = blocks.find(block);
    if (!block || found == blocks.end()) return std::free(block);
    if (found->second.released) {
        errors.push_back("A block of " + std::to_string(found->second.size) + " bytes was released twice.");
        return;
    }
    CheckGuard(block, found->second);
    std::memset(block, 0xDD, found->second.size);
    found->second.released = true;
}

void* Reallocate(void* block, size_t size) {
    const auto found = blocks.find(block);
    if (block && found == blocks.end()) return std::realloc(block, size);
    void* const grown = HeapCheck::Allocate(size);
    if (!grown || !block) return grown;
    std::memcpy(grown, block, found->second.size < size ? found->second.size : size);
    Free(block);
    return grown;
}

}  // namespace

HeapCheck::HeapCheck(HMODULE module)
    : malloc_("malloc", Allocate, module), realloc_("realloc", Reallocate, module), free_("free", Free, module) {}

HeapCheck::~HeapCheck() {
    TakeErrors();
}

void* HeapCheck::Allocate(size_t size) {
    void* const block = std::malloc(size + sizeof kGuard);
    if (!block) return nullptr;
    std::memcpy(Bytes(block) + size, kGuard, sizeof kGuard);
    blocks[block] = {size, false};
    return block;
}

std::vector<std::string> HeapCheck::TakeErrors() {
    for (auto at = blocks.begin(); at != blocks.end();) {
        if (!at->second.released) CheckGuard(at->first, at->second);
        if (at->second.released) std::free(at->first);
        at = at->second.released ? blocks.erase(at) : std::next(at);
    }
    return std::exchange(errors, {});
}
