// Owning wrappers for what the system hands out, shared by the program and its libraries: one
// move-only template, with the invalid value and the release call in a traits type per kind of
// handle. A leak in a process manager shows in its own handle and GDI columns.
#pragma once
#include <windows.h>
#include <commctrl.h>

#include <utility>

namespace lmvx {

template <typename Traits>
class UniqueResource {
public:
    using Type = typename Traits::Type;

    UniqueResource() noexcept = default;
    explicit UniqueResource(Type value) noexcept : value_(value) {}
    ~UniqueResource() { Reset(); }
    UniqueResource(UniqueResource&& other) noexcept : value_(other.Release()) {}
    UniqueResource& operator=(UniqueResource&& other) noexcept {
        if (this != &other) Reset(other.Release());
        return *this;
    }
    UniqueResource(const UniqueResource&) = delete;
    UniqueResource& operator=(const UniqueResource&) = delete;

    Type Get() const noexcept { return value_; }
    bool IsValid() const noexcept { return value_ != Traits::Invalid(); }
    explicit operator bool() const noexcept { return IsValid(); }
    Type Release() noexcept { return std::exchange(value_, Traits::Invalid()); }
    void Reset(Type value = Traits::Invalid()) noexcept {
        Type old = std::exchange(value_, value);
        if (old != Traits::Invalid()) Traits::Close(old);
    }
    // For out-parameters of system calls: releases the current value first.
    Type* Put() noexcept {
        Reset();
        return &value_;
    }

private:
    Type value_ = Traits::Invalid();
};

// Process, thread, token, event and mapping handles.
struct HandleTraits {
    using Type = HANDLE;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type value) noexcept { CloseHandle(value); }
};
// Files and tool-help snapshots, whose invalid value is INVALID_HANDLE_VALUE.
struct FileHandleTraits {
    using Type = HANDLE;
    static Type Invalid() noexcept { return INVALID_HANDLE_VALUE; }
    static void Close(Type value) noexcept { CloseHandle(value); }
};
struct RegKeyTraits {
    using Type = HKEY;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type value) noexcept { RegCloseKey(value); }
};
struct MenuTraits {
    using Type = HMENU;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type value) noexcept { DestroyMenu(value); }
};
struct IconTraits {
    using Type = HICON;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type value) noexcept { DestroyIcon(value); }
};
struct GdiObjectTraits {
    using Type = HGDIOBJ;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type value) noexcept { DeleteObject(value); }
};
struct FontTraits {
    using Type = HFONT;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type value) noexcept { DeleteObject(value); }
};
struct BitmapTraits {
    using Type = HBITMAP;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type value) noexcept { DeleteObject(value); }
};
// Memory DCs from CreateCompatibleDC (window DCs are released, not deleted, and have no wrapper here).
struct MemoryDcTraits {
    using Type = HDC;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type value) noexcept { DeleteDC(value); }
};
struct ImageListTraits {
    using Type = HIMAGELIST;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type value) noexcept { ImageList_Destroy(value); }
};
struct ModuleTraits {
    using Type = HMODULE;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type value) noexcept { FreeLibrary(value); }
};
struct WindowTraits {
    using Type = HWND;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type value) noexcept { DestroyWindow(value); }
};
struct LocalMemoryTraits {
    using Type = HLOCAL;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type value) noexcept { LocalFree(value); }
};

using UniqueHandle = UniqueResource<HandleTraits>;
using UniqueFileHandle = UniqueResource<FileHandleTraits>;
using UniqueRegKey = UniqueResource<RegKeyTraits>;
using UniqueMenu = UniqueResource<MenuTraits>;
using UniqueIcon = UniqueResource<IconTraits>;
using UniqueGdiObject = UniqueResource<GdiObjectTraits>;
using UniqueFont = UniqueResource<FontTraits>;
using UniqueBitmap = UniqueResource<BitmapTraits>;
using UniqueMemoryDc = UniqueResource<MemoryDcTraits>;
using UniqueImageList = UniqueResource<ImageListTraits>;
using UniqueModule = UniqueResource<ModuleTraits>;
using UniqueWindow = UniqueResource<WindowTraits>;
using UniqueLocalMemory = UniqueResource<LocalMemoryTraits>;

}  // namespace lmvx
