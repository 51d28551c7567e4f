// The private clipboard block, apart from the clipboard: a text and a run of bytes, little-endian, without padding.
//   offset 0, 2 bytes: text length L, signed        offset 2, L bytes: text without terminator
//   offset 2 + L, 4 bytes: data size D, signed      offset 6 + L, D bytes: data
// A length that is zero or negative stands for no bytes. Nothing is ever read or written outside the given sizes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

inline constexpr size_t kClipboardBlockFields = 6;  // bytes of the two lengths

// Size of the block; a negative data size needs no room.
size_t ClipboardBlockSize(std::string_view text, int32_t dataSize);
// Fills a zeroed block of that size. A text beyond 32767 bytes wraps its length field, and is left out when that
// becomes negative. Null data stands for zeros.
void ComposeClipboardBlock(void* block, std::string_view text, const void* data, int32_t dataSize);

struct ClipboardBlockView {
    std::string_view text;
    int32_t dataSize = 0;  // as it stands in the block, negative included
    const char* data = nullptr;
};
// Views into the block; all empty when its lengths point beyond its end.
ClipboardBlockView ParseClipboardBlock(const void* block, size_t size);
