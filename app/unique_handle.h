// Owning wrappers for what the system hands out: one template, the invalid value and the release
// function in a traits type. Move-only, so a handle is never released twice.
#pragma once
#include <windows.h>

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
    explicit operator bool() const noexcept { return value_ != Traits::Invalid(); }
    Type Release() noexcept { return std::exchange(value_, Traits::Invalid()); }
    void Reset(Type value = Traits::Invalid()) noexcept {
        Type old = std::exchange(value_, value);
        if (old != Traits::Invalid()) Traits::Close(old);
    }
    // For out-parameters: releases the current value first.
    Type* Put() noexcept {
        Reset();
        return &value_;
    }

private:
    Type value_ = Traits::Invalid();
};

struct HandleTraits {
    using Type = HANDLE;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type h) noexcept { CloseHandle(h); }
};
struct RegKeyTraits {
    using Type = HKEY;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type h) noexcept { RegCloseKey(h); }
};
struct MenuTraits {
    using Type = HMENU;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type h) noexcept { DestroyMenu(h); }
};
struct IconTraits {
    using Type = HICON;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type h) noexcept { DestroyIcon(h); }
};
struct GdiObjectTraits {
    using Type = HGDIOBJ;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type h) noexcept { DeleteObject(h); }
};

using UniqueHandle = UniqueResource<HandleTraits>;
using UniqueRegKey = UniqueResource<RegKeyTraits>;
using UniqueMenu = UniqueResource<MenuTraits>;
using UniqueIcon = UniqueResource<IconTraits>;
using UniqueGdiObject = UniqueResource<GdiObjectTraits>;

}  // namespace lmvx
