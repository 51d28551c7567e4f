#include "Util/Clipboard.h"

#include <cstring>

#include "Lib/Handles.h"
#include "Lib/Text.h"
#include "Util/ClipboardBlock.h"
#include "Util/ExportedMemory.h"

namespace {

class ClipboardGuard {
 public:
    explicit ClipboardGuard(HWND owner) : open_(OpenClipboard(owner) != FALSE) {}
    ~ClipboardGuard() {
        if (open_) CloseClipboard();
    }
    ClipboardGuard(const ClipboardGuard&) = delete;
    ClipboardGuard& operator=(const ClipboardGuard&) = delete;
    explicit operator bool() const { return open_; }

 private:
    bool open_;
};

// Returns 0 when the format cannot be registered.
UINT RegisteredFormat(const char* name) {
    return name ? RegisterClipboardFormatA(name) : 0;
}

}  // namespace

int gwclip_has_data(const char* format) noexcept {
    const UINT number = RegisteredFormat(format);
    return number != 0 && IsClipboardFormatAvailable(number) ? 1 : 0;
}

int gwclip_copy(HWND owner, const char* format, const char* text, const void* data, int32_t size,
                bool emptyFirst) noexcept {
    const UINT number = RegisteredFormat(format);
    if (!number) return -1;
    const size_t blockSize = ClipboardBlockSize(OrEmpty(text), size);
    if (blockSize > UINT32_MAX) return -2;
    HGLOBAL handle = nullptr;
    void* block = gwGmallocH(static_cast<uint32_t>(blockSize), &handle);
    if (!block) return -2;
    GlobalMemory memory(handle);
    Owner<HGLOBAL, GlobalUnlock> lock(handle);
    ComposeClipboardBlock(block, OrEmpty(text), data, size);
    lock.reset();

    const ClipboardGuard clipboard(owner);
    if (!clipboard) return -3;
    if (emptyFirst && !EmptyClipboard()) return -3;
    // On success the clipboard owns the block.
    if (SetClipboardData(number, handle)) memory.release();
    return 0;
}

void* gwclip_paste(HWND owner, const char* format, char* text, int32_t textSize, int32_t* dataSize) noexcept {
    const bool textWanted = text && textSize > 0;
    if (textWanted) *text = '\0';
    if (dataSize) *dataSize = 0;
    const UINT number = RegisteredFormat(format);
    if (!number || !IsClipboardFormatAvailable(number)) return nullptr;
    const ClipboardGuard clipboard(owner);
    if (!clipboard) return nullptr;
    const HGLOBAL handle = GetClipboardData(number);
    const GlobalLockGuard lock(handle);
    if (!lock.data()) return nullptr;

    const ClipboardBlockView view = ParseClipboardBlock(lock.data(), GlobalSize(handle));
    if (textWanted) CopyTruncated(text, static_cast<size_t>(textSize), view.text);
    if (dataSize) *dataSize = view.dataSize;
    if (view.dataSize < 1) return nullptr;
    void* data = gwGmalloc(static_cast<uint32_t>(view.dataSize), 0);
    if (data) std::memcpy(data, view.data, static_cast<size_t>(view.dataSize));
    return data;
}
