#include "Util/ClipboardBlock.h"

#include <algorithm>
#include <cstring>

size_t ClipboardBlockSize(std::string_view text, int32_t dataSize) {
    return kClipboardBlockFields + text.size() + static_cast<size_t>(std::max(dataSize, 0));
}

void ComposeClipboardBlock(void* block, std::string_view text, const void* data, int32_t dataSize) {
    char* at = static_cast<char*>(block);
    const int16_t length = static_cast<int16_t>(text.size());
    std::memcpy(at, &length, sizeof length);
    at += sizeof length;
    if (length > 0) {
        std::memcpy(at, text.data(), static_cast<size_t>(length));
        at += length;
    }
    std::memcpy(at, &dataSize, sizeof dataSize);
    at += sizeof dataSize;
    if (dataSize > 0 && data) std::memcpy(at, data, static_cast<size_t>(dataSize));
}

ClipboardBlockView ParseClipboardBlock(const void* block, size_t size) {
    if (size < kClipboardBlockFields) return {};
    const char* at = static_cast<const char*>(block);
    int16_t length = 0;
    std::memcpy(&length, at, sizeof length);
    at += sizeof length;
    const size_t textSize = static_cast<size_t>(std::max<int16_t>(length, 0));
    if (textSize > size - kClipboardBlockFields) return {};
    ClipboardBlockView view;
    view.text = std::string_view(at, textSize);
    at += textSize;
    std::memcpy(&view.dataSize, at, sizeof view.dataSize);
    if (view.dataSize <= 0) return view;
    if (static_cast<size_t>(view.dataSize) > size - kClipboardBlockFields - textSize) return {};
    view.data = at + sizeof view.dataSize;
    return view;
}
