// Owner of a handle: closes what it holds when it ends, moves but does not copy. One template serves every kind; a kind
// names the handle type, the value that stands for "none" and the closing call. Kinds of this file are those of Windows
// and the C runtime; a kind that one unit alone uses stands beside that unit. Closing never reports a failure.
#pragma once

#include <windows.h>

#include <cstdio>

template <class Kind>
class Owner {
 public:
    using Handle = typename Kind::Handle;

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
    explicit operator bool() const noexcept { return handle_ != Kind::None(); }

    // Gives the handle away without closing it.
    Handle release() noexcept {
        Handle handle = handle_;
        handle_ = Kind::None();
        return handle;
    }
    void reset(Handle handle = Kind::None()) noexcept {
        Handle old = handle_;
        handle_ = handle;
        if (old != Kind::None()) Kind::Close(old);
    }
    // For calls that hand a handle out through a pointer; what was held before is closed.
    Handle* put() noexcept {
        reset();
        return &handle_;
    }

 private:
    Handle handle_ = Kind::None();
};

// Process, thread, mutex, event.
struct KernelHandleKind {
    using Handle = HANDLE;
    static constexpr Handle None() noexcept { return nullptr; }
    static void Close(Handle handle) noexcept { CloseHandle(handle); }
};
using KernelHandle = Owner<KernelHandleKind>;

// Search begun with FindFirstFile.
struct FindHandleKind {
    using Handle = HANDLE;
    static Handle None() noexcept { return INVALID_HANDLE_VALUE; }
    static void Close(Handle handle) noexcept { FindClose(handle); }
};
using FindHandle = Owner<FindHandleKind>;

// Library loaded with LoadLibrary.
struct LibraryHandleKind {
    using Handle = HMODULE;
    static constexpr Handle None() noexcept { return nullptr; }
    static void Close(Handle handle) noexcept { FreeLibrary(handle); }
};
using LibraryHandle = Owner<LibraryHandleKind>;

// File of the C runtime.
struct StdioFileKind {
    using Handle = std::FILE*;
    static constexpr Handle None() noexcept { return nullptr; }
    static void Close(Handle handle) noexcept { std::fclose(handle); }
};
using StdioFile = Owner<StdioFileKind>;

// Global memory block.
struct GlobalMemoryKind {
    using Handle = HGLOBAL;
    static constexpr Handle None() noexcept { return nullptr; }
    static void Close(Handle handle) noexcept { GlobalFree(handle); }
};
using GlobalMemory = Owner<GlobalMemoryKind>;

// Lock of a global memory block: holds the block, not its memory. `data()` is null when the block could not be locked.
class GlobalLockGuard {
 public:
    explicit GlobalLockGuard(HGLOBAL block) noexcept : data_(block ? GlobalLock(block) : nullptr) {
        if (data_) locked_.reset(block);
    }
    void* data() const noexcept { return data_; }

 private:
    struct Kind {
        using Handle = HGLOBAL;
        static constexpr Handle None() noexcept { return nullptr; }
        static void Close(Handle handle) noexcept { GlobalUnlock(handle); }
    };
    void* data_;
    Owner<Kind> locked_;
};
