// Every icon id of icon_ids.h, loaded from this program's resources the way the program loads them, and read
// back pixel for pixel.
#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "icon_id_names.h"

namespace {

constexpr int kSizes[] = {16, 32};

// Top-down rows of 0xAARRGGBB values; empty when the icon cannot be loaded or read.
using IconPixels = std::vector<uint32_t>;

IconPixels Pixels(int id, int size) {
    HICON icon = static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), IMAGE_ICON, size,
                                               size, LR_DEFAULTCOLOR));
    ICONINFO info{};
    if (!icon || !GetIconInfo(icon, &info)) return {};
    // GetIconInfo hands over copies of both bitmaps; they are ours to delete.
    BITMAP bitmap{};
    IconPixels pixels;
    if (info.hbmColor && GetObjectW(info.hbmColor, sizeof(bitmap), &bitmap)) {
        pixels.resize(static_cast<size_t>(bitmap.bmWidth) * bitmap.bmHeight);
        BITMAPINFO request{{sizeof(BITMAPINFOHEADER), bitmap.bmWidth, -bitmap.bmHeight, 1, 32, BI_RGB}};
        HDC dc = GetDC(nullptr);
        if (GetDIBits(dc, info.hbmColor, 0, static_cast<UINT>(bitmap.bmHeight), pixels.data(), &request,
                      DIB_RGB_COLORS) != bitmap.bmHeight)
            pixels.clear();
        ReleaseDC(nullptr, dc);
    }
    DeleteObject(info.hbmColor);
    DeleteObject(info.hbmMask);
    DestroyIcon(icon);
    return pixels;
}

// Width of the image that the icon group offers for an exact size request, or 0 when none.
int NativeImageWidth(int id, int size) {
    const auto locked = [](int name, int type) -> BYTE* {
        HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(name), MAKEINTRESOURCEW(type));
        HGLOBAL loaded = found ? LoadResource(nullptr, found) : nullptr;
        return loaded ? static_cast<BYTE*>(LockResource(loaded)) : nullptr;
    };
    BYTE* directory = locked(id, 14);   // RT_GROUP_ICON
    if (!directory) return 0;
    const auto* header = reinterpret_cast<const BITMAPINFOHEADER*>(
        locked(LookupIconIdFromDirectoryEx(directory, TRUE, size, size, LR_DEFAULTCOLOR), 3));   // RT_ICON
    return header ? header->biWidth : 0;
}

uint32_t Alpha(uint32_t argb) { return argb >> 24; }

// Strongly coloured, opaque: the filled part of a level meter, not its grey panel.
bool IsVivid(uint32_t argb) {
    const int r = (argb >> 16) & 0xFF, g = (argb >> 8) & 0xFF, b = argb & 0xFF;
    return Alpha(argb) == 255 && std::max({r, g, b}) - std::min({r, g, b}) > 80;
}

// Its own image at both sizes, more than one opaque colour, and edges smoothed with real alpha.
TEST(IconResources, EveryIconHasItsOwnColouredImageWithSmoothEdgesAtBothSizes) {
    for (const auto& icon : kIconIds) {
        for (int size : kSizes) {
            SCOPED_TRACE(std::string(icon.name) + " at " + std::to_string(size) + " px");
            EXPECT_EQ(NativeImageWidth(icon.id, size), size) << "no image of its own";
            const IconPixels pixels = Pixels(icon.id, size);
            std::set<uint32_t> opaqueColours;
            bool transparent = false, partial = false;
            for (uint32_t p : pixels) {
                if (Alpha(p) == 255) opaqueColours.insert(p & 0xFFFFFF);
                transparent = transparent || Alpha(p) == 0;
                partial = partial || (Alpha(p) > 0 && Alpha(p) < 255);
            }
            EXPECT_GT(opaqueColours.size(), 1u) << "blank or one flat colour";
            EXPECT_TRUE(transparent) << "fills its whole square";
            EXPECT_TRUE(partial) << "has no anti-aliased edge";
        }
    }
}

TEST(IconResources, DifferentMeaningsHaveDifferentPictures) {
    for (int size : kSizes) {
        std::map<std::string, IconPixels> pictures;
        for (const auto& icon : kIconIds) pictures[icon.name] = Pixels(icon.id, size);
        for (auto a = pictures.begin(); a != pictures.end(); ++a) {
            for (auto b = std::next(a); b != pictures.end(); ++b)
                EXPECT_FALSE(a->second == b->second) << a->first << " and " << b->first << " look the same at " << size;
        }
    }
}

TEST(IconResources, CpuLevelPicturesFillUpWithTheLevel) {
    std::map<int, int> levelIds;
    const std::string prefix = "IDI_CPU_LEVEL_";
    for (const auto& icon : kIconIds) {
        if (const std::string name = icon.name; name.rfind(prefix, 0) == 0)
            levelIds[std::stoi(name.substr(prefix.size()))] = icon.id;
    }
    ASSERT_EQ(levelIds.size(), 11u);
    ASSERT_EQ(levelIds.begin()->first, 0);
    ASSERT_EQ(levelIds.rbegin()->first, 10);
    for (int size : kSizes) {
        long previous = -1;
        for (const auto& [level, id] : levelIds) {
            const IconPixels pixels = Pixels(id, size);
            const long filled = std::count_if(pixels.begin(), pixels.end(), IsVivid);
            if (level == 0)
                EXPECT_EQ(filled, 0) << "level 0 at " << size << " px shows a filled meter";
            else
                EXPECT_GT(filled, previous) << "level " << level << " at " << size << " px";
            previous = filled;
        }
    }
}

}  // namespace
