#include "Util/ExportedMemory.h"

#include <algorithm>
#include <cstdlib>

#include "Lib/Diagnostics.h"

namespace {

constexpr char kSource[] = "PlugIn/Util/DlgFunc";
constexpr char kNoMemory[] = "Can not allocate memory.";

}  // namespace

void* gwGmalloc(uint32_t size, int32_t) noexcept {
    void* block = std::malloc(size);
    VerifyOrReport(!block, "!ret", kNoMemory, kSource, 29, "gwGmalloc");
    return block;
}

void* gwGrealloc(void* block, uint32_t size, int32_t) noexcept {
    if (!block) return std::malloc(size);
    // realloc to 0 bytes would free the block and return null, which looks like a failure that keeps it.
    void* grown = std::realloc(block, std::max<uint32_t>(size, 1));
    VerifyOrReport(!grown, "!ret", kNoMemory, kSource, 41, "gwGrealloc");
    return grown;
}

int gwGfree(void* block) noexcept {
    std::free(block);
    return 0;
}

void* gwGmallocH(uint32_t size, HGLOBAL* handle) noexcept {
    if (VerifyOrReport(!handle, "!lphg", kNoMemory, kSource, 56, "gwGmallocH")) return nullptr;
    *handle = nullptr;
    GlobalMemory block(GlobalAlloc(GHND, size));
    void* data = block ? GlobalLock(block.get()) : nullptr;
    if (data)
        *handle = block.release();
    else
        ReportErrorAndBreak(kNoMemory, kSource, 62, "gwGmallocH");
    return data;
}
