// Exported for other modules, and used in this one. Memory that crosses module borders: blocks of the C runtime heap,
// and global memory for the clipboard. The functions are exported undecorated and never throw. The receiver of a block
// frees it with gwGfree. A failed allocation returns null and is reported, except for a null block passed to
// gwGrealloc. `tag` is the caller's mark and has no effect.
#pragma once

#include <windows.h>

#include <cstdint>

#include "Lib/Handles.h"

extern "C" {
void* gwGmalloc(uint32_t size, int32_t tag) noexcept;
// Allocates when `block` is null. On failure the old block stays valid.
void* gwGrealloc(void* block, uint32_t size, int32_t tag) noexcept;
// Accepts null. Always returns 0.
int gwGfree(void* block) noexcept;
// Allocates movable, zero-filled global memory of `size` bytes and locks it. Stores its handle in `handle` and returns
// its address, both null on failure. The caller unlocks and frees it.
void* gwGmallocH(uint32_t size, HGLOBAL* handle) noexcept;
}

using GwMemory = Owner<void*, gwGfree>;
