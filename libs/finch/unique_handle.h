// Owning wrapper for the handles the system hands out: one template, one traits type per kind of handle.
#pragma once
#include <windows.h>
#include <utility>

namespace finch {

template <typename Traits>
class UniqueHandle {
public:
    using Type = typename Traits::Type;

    UniqueHandle() = default;
    explicit UniqueHandle(Type value) : value_(value) {}
    ~UniqueHandle() { Reset(); }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    UniqueHandle(UniqueHandle&& other) noexcept : value_(other.Release()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        if (this != &other) Reset(other.Release());
        return *this;
    }

    Type Get() const { return value_; }
    explicit operator bool() const { return value_ != Traits::Invalid(); }
    Type Release() { return std::exchange(value_, Traits::Invalid()); }
    void Reset(Type value = Traits::Invalid()) {
        Type old = std::exchange(value_, value);
        if (old != Traits::Invalid()) Traits::Close(old);
    }

private:
    Type value_ = Traits::Invalid();
};

struct FontTraits {
    using Type = HFONT;
    static Type Invalid() { return nullptr; }
    static void Close(Type value) { DeleteObject(value); }
};

struct ModuleTraits {
    using Type = HMODULE;
    static Type Invalid() { return nullptr; }
    static void Close(Type value) { FreeLibrary(value); }
};

struct WindowTraits {
    using Type = HWND;
    static Type Invalid() { return nullptr; }
    static void Close(Type value) { DestroyWindow(value); }
};

struct MenuTraits {
    using Type = HMENU;
    static Type Invalid() { return nullptr; }
    static void Close(Type value) { DestroyMenu(value); }
};

struct KernelHandleTraits {
    using Type = HANDLE;
    static Type Invalid() { return nullptr; }
    static void Close(Type value) { CloseHandle(value); }
};

using UniqueFont = UniqueHandle<FontTraits>;
using UniqueModule = UniqueHandle<ModuleTraits>;
using UniqueWindow = UniqueHandle<WindowTraits>;
using UniqueMenu = UniqueHandle<MenuTraits>;
using UniqueKernelHandle = UniqueHandle<KernelHandleTraits>;

}  // namespace finch
