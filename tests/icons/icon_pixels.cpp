#include "icon_pixels.h"

namespace {

struct ScreenDcDeleter {
    void operator()(HDC dc) const { ReleaseDC(nullptr, dc); }
};
using ScreenDc = std::unique_ptr<std::remove_pointer_t<HDC>, ScreenDcDeleter>;

const void* LockedResource(HRSRC found) {
    HGLOBAL loaded = found ? LoadResource(nullptr, found) : nullptr;
    return loaded ? LockResource(loaded) : nullptr;
}

}  // namespace

UniqueIcon LoadIconResource(int id, int size) {
    return UniqueIcon(static_cast<HICON>(
        LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
}

IconPixels ReadIconPixels(HICON icon) {
    ICONINFO info{};
    if (!GetIconInfo(icon, &info))
        return {};
    // GetIconInfo hands over copies of both bitmaps; they are ours to delete.
    const UniqueBitmap colour(info.hbmColor);
    const UniqueBitmap mask(info.hbmMask);
    BITMAP bitmap{};
    if (!colour || !GetObjectW(colour.get(), sizeof(bitmap), &bitmap))
        return {};

    IconPixels pixels;
    pixels.width = bitmap.bmWidth;
    pixels.height = bitmap.bmHeight;
    pixels.argb.resize(static_cast<size_t>(pixels.width) * pixels.height);
    BITMAPINFO request{};
    request.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    request.bmiHeader.biWidth = pixels.width;
    request.bmiHeader.biHeight = -pixels.height;  // top-down
    request.bmiHeader.biPlanes = 1;
    request.bmiHeader.biBitCount = 32;
    request.bmiHeader.biCompression = BI_RGB;
    const ScreenDc dc(GetDC(nullptr));
    if (!dc || GetDIBits(dc.get(), colour.get(), 0, static_cast<UINT>(pixels.height), pixels.argb.data(), &request,
                         DIB_RGB_COLORS) != pixels.height)
        return {};
    return pixels;
}

int NativeImageWidth(int id, int size) {
    const auto* directory = static_cast<const BYTE*>(
        LockedResource(FindResourceW(nullptr, MAKEINTRESOURCEW(id), MAKEINTRESOURCEW(14))));  // RT_GROUP_ICON
    if (!directory)
        return 0;
    const int imageId = LookupIconIdFromDirectoryEx(const_cast<BYTE*>(directory), TRUE, size, size, LR_DEFAULTCOLOR);
    const auto* header = static_cast<const BITMAPINFOHEADER*>(
        LockedResource(FindResourceW(nullptr, MAKEINTRESOURCEW(imageId), MAKEINTRESOURCEW(3))));  // RT_ICON
    return header ? header->biWidth : 0;
}
