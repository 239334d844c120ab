// Owning wrappers for the few handles the process list keeps: menus it builds and its refresh thread.
#pragma once
#include <windows.h>

#include <utility>

namespace proclist {

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
        const Type old = std::exchange(value_, value);
        if (old != Traits::Invalid()) Traits::Close(old);
    }

private:
    Type value_ = Traits::Invalid();
};

struct MenuTraits {
    using Type = HMENU;
    static Type Invalid() { return nullptr; }
    static void Close(Type menu) { DestroyMenu(menu); }
};

struct KernelHandleTraits {
    using Type = HANDLE;
    static Type Invalid() { return nullptr; }
    static void Close(Type handle) { CloseHandle(handle); }
};

using UniqueMenu = UniqueHandle<MenuTraits>;
using UniqueKernelHandle = UniqueHandle<KernelHandleTraits>;

}  // namespace proclist
