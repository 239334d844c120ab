#include "canvas.h"

#include <algorithm>
#include <cmath>

namespace icongen {

Colour Rgb(unsigned hex, float alpha) {
    return {((hex >> 16) & 0xFF) / 255.0f, ((hex >> 8) & 0xFF) / 255.0f, (hex & 0xFF) / 255.0f, alpha};
}

Colour Mix(Colour a, Colour b, float t) {
    return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t, a.a + (b.a - a.a) * t};
}

Colour Darker(Colour c, float amount) { return Mix(c, Colour{0, 0, 0, c.a}, amount); }
Colour Lighter(Colour c, float amount) { return Mix(c, Colour{1, 1, 1, c.a}, amount); }

Colour Paint::At(float y) const {
    if (bottomY <= topY)
        return top;
    return Mix(top, bottom, std::clamp((y - topY) / (bottomY - topY), 0.0f, 1.0f));
}

Canvas::Canvas(int pixels, int supersample)
    : pixels_(pixels), supersample_(supersample), side_(pixels * supersample),
      premultiplied_(static_cast<size_t>(side_) * side_, Colour{0, 0, 0, 0}) {}

template <typename Blend>
void Canvas::ForEachSample(const Shape& shape, Blend blend) {
    const float unitsPerSample = 32.0f / static_cast<float>(side_);
    for (int y = 0; y < side_; ++y) {
        for (int x = 0; x < side_; ++x) {
            const Vec2 p{(x + 0.5f) * unitsPerSample, (y + 0.5f) * unitsPerSample};
            // Coverage ramps over one sample width, which smooths edges beyond the plain supersampling.
            const float coverage = std::clamp(0.5f - shape(p) / unitsPerSample, 0.0f, 1.0f);
            if (coverage > 0)
                blend(premultiplied_[static_cast<size_t>(y) * side_ + x], p, coverage);
        }
    }
}

void Canvas::Fill(const Shape& shape, const Paint& paint) {
    ForEachSample(shape, [&](Colour& dst, Vec2 p, float coverage) {
        const Colour src = paint.At(p.y);
        const float a = src.a * coverage;
        dst.r = src.r * a + dst.r * (1 - a);
        dst.g = src.g * a + dst.g * (1 - a);
        dst.b = src.b * a + dst.b * (1 - a);
        dst.a = a + dst.a * (1 - a);
    });
}

void Canvas::FillOutlined(const Shape& shape, const Paint& paint, Colour outline) {
    Fill(shape, outline);
    Fill(Grow(shape, -Px()), paint);
}

void Canvas::Erase(const Shape& shape) {
    ForEachSample(shape, [](Colour& dst, Vec2, float coverage) {
        dst.r *= 1 - coverage;
        dst.g *= 1 - coverage;
        dst.b *= 1 - coverage;
        dst.a *= 1 - coverage;
    });
}

Image Canvas::Resolve() const {
    Image image;
    image.size = pixels_;
    image.bgra.resize(static_cast<size_t>(pixels_) * pixels_ * 4);
    const float samples = static_cast<float>(supersample_ * supersample_);
    for (int py = 0; py < pixels_; ++py) {
        for (int px = 0; px < pixels_; ++px) {
            Colour sum{0, 0, 0, 0};
            for (int sy = 0; sy < supersample_; ++sy) {
                for (int sx = 0; sx < supersample_; ++sx) {
                    const Colour& c = premultiplied_[static_cast<size_t>(py * supersample_ + sy) * side_ +
                                                     px * supersample_ + sx];
                    sum.r += c.r;
                    sum.g += c.g;
                    sum.b += c.b;
                    sum.a += c.a;
                }
            }
            const float alpha = sum.a / samples;
            const auto toByte = [](float v) { return static_cast<uint8_t>(std::lround(std::clamp(v, 0.0f, 1.0f) * 255)); };
            uint8_t* out = &image.bgra[(static_cast<size_t>(py) * pixels_ + px) * 4];
            const uint8_t a = toByte(alpha);
            if (a == 0) {
                out[0] = out[1] = out[2] = out[3] = 0;
                continue;
            }
            out[0] = toByte(sum.b / sum.a);
            out[1] = toByte(sum.g / sum.a);
            out[2] = toByte(sum.r / sum.a);
            out[3] = a;
        }
    }
    return image;
}

}  // namespace icongen
