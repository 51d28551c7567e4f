// Owner of a handle: closes the handle in its destructor, moves but does not copy. A kind of handle is an alias that
// names the handle's type, the function that closes it, and the value that stands for "no handle". This file has the
// kinds of Windows and the C runtime; a kind that only one unit uses stands in that unit. Closing reports no failure
// and keeps the thread's last error.
#pragma once

#include <windows.h>

#include <cstdio>
#include <type_traits>

// `None` is a value, or a function that returns it where the value is not a constant expression.
template <class HandleType, auto Close, auto None = nullptr>
class Owner {
 public:
    using Handle = HandleType;

    Owner() noexcept = default;
    explicit Owner(Handle handle) noexcept : handle_(handle) {}
    Owner(Owner&& other) noexcept : handle_(other.release()) {}
    Owner& operator=(Owner&& other) noexcept {
        if (this != &other) reset(other.release());
        return *this;
    }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;
    ~Owner() { reset(); }

    Handle get() const noexcept { return handle_; }
    explicit operator bool() const noexcept { return handle_ != NoHandle(); }

    // Returns the handle without closing it; the caller owns it.
    Handle release() noexcept {
        Handle handle = handle_;
        handle_ = NoHandle();
        return handle;
    }
    void reset(Handle handle = NoHandle()) noexcept {
        Handle old = handle_;
        handle_ = handle;
        if (old == NoHandle()) return;
        const DWORD lastError = GetLastError();
        Close(old);
        SetLastError(lastError);
    }
    // Returns where a call may write a handle, after closing the one held so far.
    Handle* put() noexcept {
        reset();
        return &handle_;
    }

 private:
    static constexpr Handle NoHandle() noexcept {
        if constexpr (std::is_invocable_v<decltype(None)>)
            return None();
        else
            return None;
    }

    Handle handle_ = NoHandle();
};

// Process, thread, mutex, event.
using KernelHandle = Owner<HANDLE, CloseHandle>;

inline HANDLE NoFindHandle() noexcept {
    return INVALID_HANDLE_VALUE;
}
// Search started with FindFirstFile.
using FindHandle = Owner<HANDLE, FindClose, NoFindHandle>;

// File of the C runtime.
using StdioFile = Owner<std::FILE*, std::fclose>;

// Global memory block.
using GlobalMemory = Owner<HGLOBAL, GlobalFree>;

// Lock of a global memory block; the block stays its owner's. `data()` is null when the block could not be locked.
class GlobalLockGuard {
 public:
    explicit GlobalLockGuard(HGLOBAL block) noexcept : data_(block ? GlobalLock(block) : nullptr) {
        if (data_) locked_.reset(block);
    }
    void* data() const noexcept { return data_; }

 private:
    void* data_;
    Owner<HGLOBAL, GlobalUnlock> locked_;
};
