// Exported for other modules.
// Private data on the Windows clipboard: a text and bytes in one block under a registered format. The functions are
// exported undecorated. They neither report nor throw; only their results show a failure.
#pragma once

#include <windows.h>

#include <cstdint>

extern "C" {
// Returns 1 when the clipboard has data of this format, else 0.
int gwclip_has_data(const char* format) noexcept;

// Puts text and data (`size` bytes) on the clipboard; empties it before if `emptyFirst`. Returns 0; -1 when the format
// cannot be registered, -2 when memory runs out or the block exceeds 4 GiB, -3 when the clipboard cannot be opened or
// emptied.
int gwclip_copy(HWND owner, const char* format, const char* text, const void* data, int32_t size,
                bool emptyFirst) noexcept;

// Copies the block's text, truncated to `textSize` - 1 characters, stores the block's own data size in `dataSize`, and
// returns the data, which the caller frees with gwGfree, or null when there is none. Without a block, or when its
// lengths exceed its size, the text is empty, `dataSize` 0 and the result null.
void* gwclip_paste(HWND owner, const char* format, char* text, int32_t textSize, int32_t* dataSize) noexcept;
}
