#include "contact_sheet.h"

#include <cstdint>

namespace icongen {
namespace {

constexpr int kZoom = 4;
constexpr int kGap = 8;
constexpr uint8_t kLight = 0xF4;
constexpr uint8_t kDark = 0x26;

class Sheet {
public:
    Sheet(int width, int height) : width_(width), height_(height), rgb_(static_cast<size_t>(width) * height * 3, 0x80) {}

    void Background(int left, int top, int size, uint8_t grey) {
        for (int y = top; y < top + size; ++y)
            for (int x = left; x < left + size; ++x)
                Set(x, y, grey, grey, grey);
    }

    // Composites the icon over its own background square, each pixel drawn zoom x zoom.
    void Place(const Image& image, int left, int top, int zoom, uint8_t ground) {
        Background(left, top, image.size * zoom, ground);
        for (int y = 0; y < image.size * zoom; ++y) {
            for (int x = 0; x < image.size * zoom; ++x) {
                const uint8_t* p = &image.bgra[(static_cast<size_t>(y / zoom) * image.size + x / zoom) * 4];
                const int a = p[3];
                const auto over = [&](int c) { return static_cast<uint8_t>((c * a + ground * (255 - a)) / 255); };
                Set(left + x, top + y, over(p[2]), over(p[1]), over(p[0]));
            }
        }
    }

    std::string ToPpm() const {
        std::string out = "P6\n" + std::to_string(width_) + " " + std::to_string(height_) + "\n255\n";
        out.append(reinterpret_cast<const char*>(rgb_.data()), rgb_.size());
        return out;
    }

private:
    void Set(int x, int y, uint8_t r, uint8_t g, uint8_t b) {
        uint8_t* p = &rgb_[(static_cast<size_t>(y) * width_ + x) * 3];
        p[0] = r;
        p[1] = g;
        p[2] = b;
    }

    int width_;
    int height_;
    std::vector<uint8_t> rgb_;
};

}  // namespace

std::string RenderContactSheet(const std::vector<SheetIcon>& icons, int columns) {
    // Cell: 32 px zoomed on light and dark, 16 px zoomed on light above dark, then a row at true size.
    const int large = 32 * kZoom;
    const int small = 16 * kZoom;
    const int cellWidth = large * 2 + small + kGap * 4;
    const int cellHeight = large + 32 + kGap * 3;
    const int rows = (static_cast<int>(icons.size()) + columns - 1) / columns;
    Sheet sheet(cellWidth * columns, cellHeight * rows);
    for (size_t i = 0; i < icons.size(); ++i) {
        const int left = static_cast<int>(i) % columns * cellWidth + kGap;
        const int top = static_cast<int>(i) / columns * cellHeight + kGap;
        sheet.Place(icons[i].large, left, top, kZoom, kLight);
        sheet.Place(icons[i].large, left + large + kGap, top, kZoom, kDark);
        sheet.Place(icons[i].small, left + 2 * (large + kGap), top, kZoom, kLight);
        sheet.Place(icons[i].small, left + 2 * (large + kGap), top + small, kZoom, kDark);
        const int trueTop = top + large + kGap;
        sheet.Place(icons[i].large, left, trueTop, 1, kLight);
        sheet.Place(icons[i].large, left + 32 + kGap, trueTop, 1, kDark);
        sheet.Place(icons[i].small, left + 2 * (32 + kGap), trueTop, 1, kLight);
        sheet.Place(icons[i].small, left + 2 * (32 + kGap) + 16 + kGap, trueTop, 1, kDark);
    }
    return sheet.ToPpm();
}

}  // namespace icongen
