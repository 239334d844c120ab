#include <cmath>
#include <vector>

#include "icon_drawings.h"
#include "motifs.h"

namespace icongen {
namespace {

constexpr float kPi = 3.14159265f;

Vec2 OnCircle(Vec2 c, float r, float degrees) {
    const float a = degrees * kPi / 180.0f;
    return {c.x + r * std::cos(a), c.y - r * std::sin(a)};
}

// Wedge from the centre between two angles (degrees, counter-clockwise from east), for cutting arcs.
Shape Wedge(Vec2 c, float fromDegrees, float toDegrees) {
    std::vector<Vec2> points{c};
    for (float a = fromDegrees; a < toDegrees; a += 10)
        points.push_back(OnCircle(c, 40, a));
    points.push_back(OnCircle(c, 40, toDegrees));
    return Polygon(points);
}

Colour LevelColour(int level) {
    // Green while there is headroom, amber from 50 %, red near saturation.
    const Colour green = Rgb(0x3CCB5A);
    const Colour amber = Rgb(0xF5B324);
    const Colour red = Rgb(0xEE3B30);
    const float t = static_cast<float>(level) / 10.0f;
    return t < 0.5f ? Mix(green, amber, t * 2) : Mix(amber, red, (t - 0.5f) * 2);
}

}  // namespace

void DrawLumivex(Canvas& c) {
    const float px = c.Px();
    const Hue& body = hues::kTeal;
    c.FillOutlined(RoundBox(13, 22, 19, 28, 0), Shade(hues::kSlate, 22, 28), hues::kSlate.outline);
    c.FillOutlined(RoundBox(8, 26, 24, 30, 1.5f * px), Shade(hues::kSlate, 26, 30), hues::kSlate.outline);
    c.FillOutlined(RoundBox(2, 4, 30, 24, 2.5f * px), Shade(body, 4, 24), body.outline);
    c.Fill(RoundBox(2 + 2 * px, 4 + 2 * px, 30 - 2 * px, 24 - 2 * px, px), Paint(Rgb(0x10232B), Rgb(0x17363F), 6, 22));
    const float stroke = c.IsSmall() ? 0.6f * px : 0.65f * px;
    c.Fill(Polyline({{6, 15}, {11, 15}, {13, 10}, {16, 20}, {19, 8}, {21, 15}, {26, 15}}, stroke), Rgb(0x8CFFB8));
}

void DrawCpuLevel(Canvas& c, int level) {
    const float px = c.Px();
    c.FillOutlined(RoundBox(1, 1, 31, 31, 3 * px), Shade(hues::kDark, 1, 31), hues::kDark.outline);
    // Ten steps of two units: exactly one pixel per level at 16 x 16.
    constexpr float kTop = 6, kBottom = 26, kLeft = 6, kRight = 26;
    c.Fill(RoundBox(kLeft, kTop, kRight, kBottom, 0), Rgb(0x2F3D49));
    if (level > 0) {
        const Colour colour = LevelColour(level);
        const float top = kBottom - 2.0f * static_cast<float>(level);
        c.Fill(RoundBox(kLeft, top, kRight, kBottom, 0), Paint(Lighter(colour, 0.25f), colour, kTop, kBottom));
    }
}

void DrawMemory(Canvas& c) {
    const float px = c.Px();
    const Hue& board = hues::kGreen;
    const Shape module = Subtract(RoundBox(2, 8, 30, 24, px), RoundBox(15, 22, 17, 25, 0));
    c.FillOutlined(module, Shade(board, 8, 24), board.outline);
    for (float x : {5.0f, 13.0f, 21.0f})
        c.Fill(RoundBox(x, 11, x + 6, 18, 0.5f * px), Paint(Rgb(0x39424B), Rgb(0x1C2329), 11, 18));
    const Colour gold = Rgb(0xF1C84B);
    if (c.IsSmall()) {
        c.Fill(RoundBox(4, 20, 14, 22, 0), gold);
        c.Fill(RoundBox(18, 20, 28, 22, 0), gold);
    } else {
        for (float x = 4; x < 28; x += 2.5f) {
            if (x > 13.5f && x < 17.5f)
                continue;
            c.Fill(RoundBox(x, 20, x + 1.5f, 22.5f, 0), gold);
        }
    }
}

void DrawPerformance(Canvas& c) {
    const float px = c.Px();
    const Vec2 hub{16, 22};
    const Shape dial = Union(Circle(hub, 14), RoundBox(2, 22, 30, 27, 2 * px));
    const Shape face = Intersect(dial, RoundBox(0, 0, 32, 27, 0));
    c.FillOutlined(face, Shade(hues::kDark, 8, 27), hues::kDark.outline);
    const float arcRadius = 10.5f;
    const float arcHalf = c.IsSmall() ? 1.6f : 1.5f;
    const Shape arc = Ring(hub, arcRadius, arcHalf);
    c.Fill(Intersect(arc, Wedge(hub, 120, 181)), Rgb(0x3CCB5A));
    c.Fill(Intersect(arc, Wedge(hub, 60, 120)), Rgb(0xF5B324));
    c.Fill(Intersect(arc, Wedge(hub, -1, 60)), Rgb(0xEE3B30));
    c.Fill(Segment(hub, OnCircle(hub, 10, 52), c.IsSmall() ? px * 0.6f : 1.1f), kWhite);
    c.Fill(Circle(hub, c.IsSmall() ? 2.2f : 2.5f), kWhite);
}

void DrawInformation(Canvas& c) { SymbolDisc(c, {16, 16}, 14.5f, hues::kBlue, Glyph::Info); }

void DrawHelp(Canvas& c) { SymbolDisc(c, {16, 16}, 14.5f, hues::kIndigo, Glyph::Question); }

void DrawLimitedAccess(Canvas& c) {
    const Shape triangle = Grow(Polygon({{16, 3.5f}, {29, 27}, {3, 27}}), 1.5f);
    c.FillOutlined(triangle, Shade(hues::kAmber, 3, 28), hues::kAmber.outline);
    c.Fill(GlyphShape(Glyph::Exclamation, {16, 18.5f}, 11), Rgb(0x2A2112));
}

void DrawPulsewright(Canvas& c) {
    const float px = c.Px();
    const Hue coral{Rgb(0xFF9D7A), Rgb(0xE5533A), Rgb(0x8A2A18)};
    c.FillOutlined(Circle({16, 16}, 14.5f), Shade(coral, 2, 30), coral.outline);
    c.Fill(Polyline({{4, 17}, {10, 17}, {12.5f, 11}, {16, 24}, {19, 7}, {21.5f, 17}, {28, 17}},
                    c.IsSmall() ? 0.65f * px : 1.2f),
           kWhite);
}

void DrawHeapwright(Canvas& c) {
    const float px = c.Px();
    const Hue& hue = hues::kPurple;
    const auto block = [&](float left, float top) {
        c.FillOutlined(RoundBox(left, top, left + 9, top + 9, px), Shade(hue, top, top + 9), hue.outline);
    };
    block(2, 21);
    block(11.5f, 21);
    block(21, 21);
    block(6.75f, 11.5f);
    block(16.25f, 11.5f);
    block(11.5f, 2);
}

void DrawOptions(Canvas& c) {
    const Vec2 centre{16, 16};
    Shape gear = Circle(centre, 10.5f);
    for (int tooth = 0; tooth < 8; ++tooth) {
        const float a = static_cast<float>(tooth) * 45.0f;
        gear = Union(gear, Segment(OnCircle(centre, 9, a), OnCircle(centre, 13.2f, a), 2.6f));
    }
    gear = Subtract(gear, Circle(centre, 4.5f));
    c.FillOutlined(gear, Shade(hues::kGrey, 2, 30), hues::kGrey.outline);
}

void DrawWebsite(Canvas& c) {
    const float px = c.Px();
    const Vec2 centre{16, 16};
    const Shape globe = Circle(centre, 14.5f);
    c.FillOutlined(globe, Shade(hues::kBlue, 2, 30), hues::kBlue.outline);
    const Colour line = Rgb(0xDDEEFF, 0.9f);
    const float half = c.IsSmall() ? 0.5f * px : 0.7f;
    const Shape inner = Grow(globe, -px);
    c.Fill(Intersect(inner, Subtract(Ellipse(centre, 6.5f + half, 13.5f), Ellipse(centre, 6.5f - half, 13.5f - 2 * half))), line);
    c.Fill(Intersect(inner, Segment({2, 16}, {30, 16}, half)), line);
    c.Fill(Intersect(inner, Segment({16, 2}, {16, 30}, half)), line);
    if (!c.IsSmall()) {
        c.Fill(Intersect(inner, Segment({4, 9.5f}, {28, 9.5f}, half)), line);
        c.Fill(Intersect(inner, Segment({4, 22.5f}, {28, 22.5f}, half)), line);
    }
}

}  // namespace icongen
