// Private data on the Windows clipboard: a text and bytes in one block under a registered format. Exported
// undecorated. Nothing is reported or thrown, failures are told by the results alone.
#pragma once

#include <windows.h>

#include <cstdint>

extern "C" {
// 1 when data of this format is on the clipboard, else 0.
int gwclip_has_data(const char* format) noexcept;

// Puts text and data (`size` bytes) on the clipboard, after emptying it when `emptyFirst`. 0; -1 when the format cannot
// be registered, -2 without memory or for a block beyond 4 GiB, -3 when the clipboard cannot be opened or emptied.
int gwclip_copy(HWND owner, const char* format, const char* text, const void* data, int32_t size,
                bool emptyFirst) noexcept;

// Reads the block back: its text, cut to `textSize` - 1 characters, and its data as a block that the caller frees with
// gwGfree; null without data. `dataSize` is what the block says. When there is no block, or one whose lengths do not
// agree with its size, text and `dataSize` are empty and the result null.
void* gwclip_paste(HWND owner, const char* format, char* text, int32_t textSize, int32_t* dataSize) noexcept;
}
