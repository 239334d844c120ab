// A supersampled drawing surface for one icon size. Shapes are evaluated at several points per
// pixel and averaged down, which gives anti-aliased edges and real alpha.
#pragma once

#include <cstdint>
#include <vector>

#include "geometry.h"

namespace icongen {

struct Colour {
    float r = 0, g = 0, b = 0, a = 1;  // straight (not premultiplied), 0..1
};

Colour Rgb(unsigned hex, float alpha = 1.0f);
Colour Mix(Colour a, Colour b, float t);
Colour Darker(Colour c, float amount);
Colour Lighter(Colour c, float amount);

// A vertical gradient in icon units; a flat colour when top and bottom agree.
struct Paint {
    Colour top;
    Colour bottom;
    float topY = 0;
    float bottomY = 32;

    Paint(Colour flat) : top(flat), bottom(flat) {}  // NOLINT: a colour is a flat paint
    Paint(Colour t, Colour b, float y0, float y1) : top(t), bottom(b), topY(y0), bottomY(y1) {}
    Colour At(float y) const;
};

// Finished pixels, top-down rows of B, G, R, A bytes (straight alpha).
struct Image {
    int size = 0;
    std::vector<uint8_t> bgra;
};

class Canvas {
public:
    explicit Canvas(int pixels, int supersample = 5);

    int Pixels() const { return pixels_; }
    bool IsSmall() const { return pixels_ <= 16; }
    // Icon units covered by one output pixel: 1 at 32 x 32, 2 at 16 x 16.
    float Px() const { return 32.0f / static_cast<float>(pixels_); }

    void Fill(const Shape& shape, const Paint& paint);
    // Fill with a one-pixel inner outline, so the picture reads on light and dark backgrounds.
    void FillOutlined(const Shape& shape, const Paint& paint, Colour outline);
    // Punches transparency, e.g. a gap around a badge.
    void Erase(const Shape& shape);

    Image Resolve() const;

private:
    template <typename Blend>
    void ForEachSample(const Shape& shape, Blend blend);

    int pixels_;
    int supersample_;
    int side_;
    std::vector<Colour> premultiplied_;
};

}  // namespace icongen
