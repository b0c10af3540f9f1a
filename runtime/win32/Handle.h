// Owns platform handles. A handle is closed exactly once. An owner can be moved, but not copied.
#pragma once

#include <utility>

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// Owns a handle. The policy defines the type, the invalid value and the closing function.
template <typename Policy>
class UniqueHandle {
 public:
    using Type = typename Policy::Type;

    UniqueHandle() = default;
    explicit UniqueHandle(Type handle) noexcept : handle_(handle) {}
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.Release()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        if (this != &other) Reset(other.Release());
        return *this;
    }
    ~UniqueHandle() { Reset(); }

    Type Get() const noexcept { return handle_; }
    explicit operator bool() const noexcept { return handle_ != Policy::Invalid(); }
    Type Release() noexcept { return std::exchange(handle_, Policy::Invalid()); }
    void Reset(Type handle = Policy::Invalid()) noexcept {
        const Type old = std::exchange(handle_, handle);
        if (old != Policy::Invalid()) Policy::Close(old);
    }

 private:
    Type handle_ = Policy::Invalid();
};

struct KernelHandlePolicy {
    using Type = HANDLE;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { CloseHandle(handle); }
};
/// A handle of a mutex, section, event, process or thread.
using KernelHandle = UniqueHandle<KernelHandlePolicy>;

struct FileHandlePolicy {
    using Type = HANDLE;
    static Type Invalid() noexcept { return INVALID_HANDLE_VALUE; }
    static void Close(Type handle) noexcept { CloseHandle(handle); }
};
using FileHandle = UniqueHandle<FileHandlePolicy>;

struct FindHandlePolicy {
    using Type = HANDLE;
    static Type Invalid() noexcept { return INVALID_HANDLE_VALUE; }
    static void Close(Type handle) noexcept { FindClose(handle); }
};
using FindHandle = UniqueHandle<FindHandlePolicy>;

struct LibraryPolicy {
    using Type = HMODULE;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { FreeLibrary(handle); }
};
using Library = UniqueHandle<LibraryPolicy>;

struct GlobalMemoryPolicy {
    using Type = HGLOBAL;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { GlobalFree(handle); }
};
using GlobalMemory = UniqueHandle<GlobalMemoryPolicy>;

struct RegistryKeyPolicy {
    using Type = HKEY;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { RegCloseKey(handle); }
};
using RegistryKey = UniqueHandle<RegistryKeyPolicy>;

template <typename Object>
struct GdiObjectPolicy {
    using Type = Object;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { DeleteObject(handle); }
};
using GdiBrush = UniqueHandle<GdiObjectPolicy<HBRUSH>>;
using GdiFont = UniqueHandle<GdiObjectPolicy<HFONT>>;

struct MemoryContextPolicy {
    using Type = HDC;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { DeleteDC(handle); }
};
/// A device context in memory.
using MemoryContext = UniqueHandle<MemoryContextPolicy>;

struct IconPolicy {
    using Type = HICON;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type handle) noexcept { DestroyIcon(handle); }
};
using Icon = UniqueHandle<IconPolicy>;

}  // namespace runtime::win32
