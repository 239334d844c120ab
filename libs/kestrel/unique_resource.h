// Owning wrappers for what the system hands out: the invalid value and the release call live in traits.
#pragma once
#include <windows.h>
#include <commctrl.h>
#include <utility>

namespace kestrel::detail {

template <typename Traits>
class UniqueResource {
public:
    using Type = typename Traits::Type;

    UniqueResource() = default;
    explicit UniqueResource(Type value) : value_(value) {}
    ~UniqueResource() { Reset(); }
    UniqueResource(const UniqueResource&) = delete;
    UniqueResource& operator=(const UniqueResource&) = delete;
    UniqueResource(UniqueResource&& other) noexcept : value_(other.Release()) {}
    UniqueResource& operator=(UniqueResource&& other) noexcept {
        if (this != &other) Reset(other.Release());
        return *this;
    }

    Type Get() const { return value_; }
    bool IsValid() const { return value_ != Traits::Invalid(); }
    explicit operator bool() const { return IsValid(); }
    Type Release() { return std::exchange(value_, Traits::Invalid()); }
    void Reset(Type value = Traits::Invalid()) {
        Type old = std::exchange(value_, value);
        if (old != Traits::Invalid()) Traits::Close(old);
    }

private:
    Type value_ = Traits::Invalid();
};

struct HandleTraits {
    using Type = HANDLE;
    static Type Invalid() { return nullptr; }
    static void Close(Type value) { CloseHandle(value); }
};

struct IconTraits {
    using Type = HICON;
    static Type Invalid() { return nullptr; }
    static void Close(Type value) { DestroyIcon(value); }
};

struct ImageListTraits {
    using Type = HIMAGELIST;
    static Type Invalid() { return nullptr; }
    static void Close(Type value) { ImageList_Destroy(value); }
};

struct LocalMemoryTraits {
    using Type = HLOCAL;
    static Type Invalid() { return nullptr; }
    static void Close(Type value) { LocalFree(value); }
};

using UniqueHandle = UniqueResource<HandleTraits>;   // process, thread and token handles
using UniqueIcon = UniqueResource<IconTraits>;
using UniqueImageList = UniqueResource<ImageListTraits>;
using UniqueLocalMemory = UniqueResource<LocalMemoryTraits>;

}  // namespace kestrel::detail
