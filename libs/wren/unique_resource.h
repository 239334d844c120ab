// Owning wrappers for what the system hands out: one move-only template, the close call in a traits type.
#pragma once
#include <windows.h>
#include <utility>

namespace wren {

template <typename Traits>
class UniqueResource {
public:
    using Handle = typename Traits::Handle;

    UniqueResource() = default;
    explicit UniqueResource(Handle handle) : handle_(handle) {}
    UniqueResource(const UniqueResource&) = delete;
    UniqueResource& operator=(const UniqueResource&) = delete;
    UniqueResource(UniqueResource&& other) noexcept : handle_(other.Release()) {}
    UniqueResource& operator=(UniqueResource&& other) noexcept {
        if (this != &other) Reset(other.Release());
        return *this;
    }
    ~UniqueResource() { Reset(); }

    Handle Get() const { return handle_; }
    explicit operator bool() const { return handle_ != Traits::Invalid(); }
    Handle Release() { return std::exchange(handle_, Traits::Invalid()); }
    void Reset(Handle handle = Traits::Invalid()) {
        if (handle_ != Traits::Invalid()) Traits::Close(handle_);
        handle_ = handle;
    }
    // For out-parameters of system calls: frees the current handle first.
    Handle* Put() {
        Reset();
        return &handle_;
    }

private:
    Handle handle_ = Traits::Invalid();
};

struct RegistryKeyTraits {
    using Handle = HKEY;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle key) { RegCloseKey(key); }
};

struct FontTraits {
    using Handle = HFONT;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle font) { DeleteObject(font); }
};

struct ModuleTraits {
    using Handle = HMODULE;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle module) { FreeLibrary(module); }
};

using UniqueRegistryKey = UniqueResource<RegistryKeyTraits>;
using UniqueFont = UniqueResource<FontTraits>;
using UniqueModule = UniqueResource<ModuleTraits>;

}  // namespace wren
