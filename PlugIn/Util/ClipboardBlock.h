// Exported for other modules.
// Layout of the private clipboard block: a text and a run of bytes, little-endian, without padding.
//   offset 0, 2 bytes: text length L, signed        offset 2, L bytes: text without terminator
//   offset 2 + L, 4 bytes: data size D, signed      offset 6 + L, D bytes: data
// A length of zero or below means no bytes. The functions stay within the given sizes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

inline constexpr size_t kClipboardBlockFields = 6;  // bytes of the two lengths

// Returns the size of the block; a negative data size counts as 0.
size_t ClipboardBlockSize(std::string_view text, int32_t dataSize);
// Fills a zeroed block of that size. The length of a text beyond 32767 bytes wraps; if it wraps to a negative number,
// the text is left out. Null data leaves the zeros.
void ComposeClipboardBlock(void* block, std::string_view text, const void* data, int32_t dataSize);

struct ClipboardBlockView {
    std::string_view text;
    int32_t dataSize = 0;  // as stored in the block, possibly negative
    const char* data = nullptr;
};
// Returns views into the block, all empty when its lengths exceed its size.
ClipboardBlockView ParseClipboardBlock(const void* block, size_t size);
