// Loading an icon resource and reading back its pixels through GetIconInfo and GetDIBits.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <type_traits>
#include <vector>

struct IconDeleter {
    void operator()(HICON icon) const { DestroyIcon(icon); }
};
using UniqueIcon = std::unique_ptr<std::remove_pointer_t<HICON>, IconDeleter>;

struct GdiObjectDeleter {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
using UniqueBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, GdiObjectDeleter>;

// Top-down rows of 0xAARRGGBB values.
struct IconPixels {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> argb;

    bool operator==(const IconPixels&) const = default;
};

UniqueIcon LoadIconResource(int id, int size);
// Empty (width 0) when the icon has no colour bitmap or its bits cannot be read.
IconPixels ReadIconPixels(HICON icon);
// Width of the image that the icon group offers for an exact size request, or 0 when none.
int NativeImageWidth(int id, int size);
