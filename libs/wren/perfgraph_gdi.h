// Owning wrappers for the GDI objects a history graph draws with. Each one is counted while it lives, so
// that a leak shows in GetPerfGraphGdiObjectCount() even where GetGuiResources reports nothing.
#pragma once
#include <windows.h>

#include <utility>

namespace wren::detail {

void NoteGdiObjectCreated();
void NoteGdiObjectFreed(bool freed);

template <typename Handle, BOOL (*Free)(Handle)>
class CountedGdiHandle {
public:
    CountedGdiHandle() = default;
    explicit CountedGdiHandle(Handle handle) : handle_(handle) {
        if (handle_) NoteGdiObjectCreated();
    }
    CountedGdiHandle(const CountedGdiHandle&) = delete;
    CountedGdiHandle& operator=(const CountedGdiHandle&) = delete;
    CountedGdiHandle(CountedGdiHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    CountedGdiHandle& operator=(CountedGdiHandle&& other) noexcept {
        if (this != &other) {
            Reset();
            handle_ = std::exchange(other.handle_, nullptr);
        }
        return *this;
    }
    ~CountedGdiHandle() { Reset(); }

    Handle Get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }
    void Reset() {
        if (handle_) NoteGdiObjectFreed(Free(std::exchange(handle_, nullptr)) != FALSE);
    }
    void Swap(CountedGdiHandle& other) noexcept { std::swap(handle_, other.handle_); }

private:
    Handle handle_ = nullptr;
};

inline BOOL FreeGdiObject(HGDIOBJ object) { return DeleteObject(object); }
inline BOOL FreeMemoryDC(HDC dc) { return DeleteDC(dc); }

using UniqueGdiObject = CountedGdiHandle<HGDIOBJ, FreeGdiObject>;
using UniqueMemoryDC = CountedGdiHandle<HDC, FreeMemoryDC>;

// A window's DC from GetDC, released to its window.
class WindowDC {
public:
    WindowDC() = default;
    explicit WindowDC(HWND window) : window_(window), dc_(window ? GetDC(window) : nullptr) {
        if (dc_) NoteGdiObjectCreated();
    }
    WindowDC(const WindowDC&) = delete;
    WindowDC& operator=(const WindowDC&) = delete;
    WindowDC(WindowDC&& other) noexcept
        : window_(std::exchange(other.window_, nullptr)), dc_(std::exchange(other.dc_, nullptr)) {}
    WindowDC& operator=(WindowDC&& other) noexcept {
        if (this != &other) {
            Reset();
            window_ = std::exchange(other.window_, nullptr);
            dc_ = std::exchange(other.dc_, nullptr);
        }
        return *this;
    }
    ~WindowDC() { Reset(); }

    HDC Get() const { return dc_; }
    void Reset() {
        if (dc_) NoteGdiObjectFreed(ReleaseDC(window_, std::exchange(dc_, nullptr)) != 0);
        window_ = nullptr;
    }

private:
    HWND window_ = nullptr;
    HDC dc_ = nullptr;
};

// Selects an object into a DC and puts the previous one back when it ends.
class SelectionGuard {
public:
    SelectionGuard() = default;
    SelectionGuard(HDC dc, HGDIOBJ object) : dc_(dc), previous_(dc && object ? SelectObject(dc, object) : nullptr) {}
    SelectionGuard(const SelectionGuard&) = delete;
    SelectionGuard& operator=(const SelectionGuard&) = delete;
    SelectionGuard(SelectionGuard&& other) noexcept
        : dc_(std::exchange(other.dc_, nullptr)), previous_(std::exchange(other.previous_, nullptr)) {}
    SelectionGuard& operator=(SelectionGuard&& other) noexcept {
        if (this != &other) {
            Reset();
            dc_ = std::exchange(other.dc_, nullptr);
            previous_ = std::exchange(other.previous_, nullptr);
        }
        return *this;
    }
    ~SelectionGuard() { Reset(); }

    void Reset() {
        if (dc_ && previous_) SelectObject(dc_, previous_);
        dc_ = nullptr;
        previous_ = nullptr;
    }

private:
    HDC dc_ = nullptr;
    HGDIOBJ previous_ = nullptr;
};

}  // namespace wren::detail
