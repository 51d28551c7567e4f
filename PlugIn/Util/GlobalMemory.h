// Memory that crosses the module's border: blocks of the C runtime heap, and global memory for the clipboard. The
// functions are exported undecorated; whoever receives a block frees it with gwGfree. A failed allocation gives null
// and, but for the first allocation through gwGrealloc, a report. `tag` is a number by which callers tell their blocks
// apart; it has no effect. Nothing is ever thrown.
#pragma once

#include <windows.h>

#include <cstdint>

#include "Lib/Handles.h"

extern "C" {
void* gwGmalloc(uint32_t size, int32_t tag) noexcept;
// A null block is allocated anew. On failure the old block stays valid.
void* gwGrealloc(void* block, uint32_t size, int32_t tag) noexcept;
// Takes null; always 0.
int gwGfree(void* block) noexcept;
// Movable, zero-filled global memory of `size` bytes: its handle through `handle`, its locked address as the result.
// The caller unlocks and frees. On failure both are null.
void* gwGmallocH(uint32_t size, HGLOBAL* handle) noexcept;
}

using GwMemory = Owner<void*, gwGfree>;
