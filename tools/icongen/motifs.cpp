#include "motifs.h"

#include <algorithm>

namespace icongen {
namespace {

Vec2 At(Vec2 c, float r, float dx, float dy) { return {c.x + r * dx, c.y + r * dy}; }

Shape QuestionMark(Vec2 c, float r, float stroke) {
    const Vec2 bowl = At(c, r, 0, -0.22f);
    const float bowlRadius = 0.3f * r;
    // The bowl is the ring without its lower-left quarter; the stem drops from its bottom.
    const Shape arc = Subtract(Ring(bowl, bowlRadius, stroke),
                               RoundBox(bowl.x - r, bowl.y + 0.02f * r, bowl.x, bowl.y + r, 0));
    const Shape stem = Segment({bowl.x, bowl.y + bowlRadius}, At(c, r, 0, 0.2f), stroke);
    return Union(Union(arc, stem), Circle(At(c, r, 0, 0.5f), stroke * 1.15f));
}

}  // namespace

Shape GlyphShape(Glyph glyph, Vec2 c, float r, float minHalfStroke) {
    const float stroke = std::max(0.14f * r, minHalfStroke);
    switch (glyph) {
    case Glyph::Check:
        return Polyline({At(c, r, -0.45f, 0.02f), At(c, r, -0.12f, 0.34f), At(c, r, 0.46f, -0.3f)}, stroke);
    case Glyph::Cross:
        return Union(Segment(At(c, r, -0.36f, -0.36f), At(c, r, 0.36f, 0.36f), stroke),
                     Segment(At(c, r, -0.36f, 0.36f), At(c, r, 0.36f, -0.36f), stroke));
    case Glyph::Pause:
        return Union(RoundBox(c.x - 0.38f * r, c.y - 0.42f * r, c.x - 0.1f * r, c.y + 0.42f * r, 0.04f * r),
                     RoundBox(c.x + 0.1f * r, c.y - 0.42f * r, c.x + 0.38f * r, c.y + 0.42f * r, 0.04f * r));
    case Glyph::Play:
        return Grow(Polygon({At(c, r, -0.22f, -0.4f), At(c, r, 0.44f, 0), At(c, r, -0.22f, 0.4f)}), 0.03f * r);
    case Glyph::Plus:
        return Union(Segment(At(c, r, -0.46f, 0), At(c, r, 0.46f, 0), stroke * 1.1f),
                     Segment(At(c, r, 0, -0.46f), At(c, r, 0, 0.46f), stroke * 1.1f));
    case Glyph::Minus:
        return Segment(At(c, r, -0.46f, 0), At(c, r, 0.46f, 0), stroke * 1.2f);
    case Glyph::Info:
        return Union(Circle(At(c, r, 0, -0.42f), stroke * 1.2f),
                     Segment(At(c, r, 0, -0.08f), At(c, r, 0, 0.5f), stroke * 1.1f));
    case Glyph::Question:
        return QuestionMark(c, r, stroke);
    case Glyph::Exclamation:
        return Union(Segment(At(c, r, 0, -0.5f), At(c, r, 0, 0.12f), stroke * 1.15f),
                     Circle(At(c, r, 0, 0.48f), stroke * 1.25f));
    }
    return Circle(c, 0);
}

void SymbolDisc(Canvas& canvas, Vec2 centre, float radius, const Hue& hue, Glyph glyph) {
    const Shape disc = Circle(centre, radius);
    canvas.FillOutlined(disc, Shade(hue, centre.y - radius, centre.y + radius), hue.outline);
    canvas.Fill(GlyphShape(glyph, centre, radius, 0.65f * canvas.Px()), kWhite);
}

void Badge(Canvas& canvas, const Hue& hue, Glyph glyph) {
    // At 16 x 16 the badge grows a little so its glyph keeps whole pixels.
    const float radius = canvas.IsSmall() ? 9.0f : 7.5f;
    const Vec2 centre{32 - radius, 32 - radius};
    canvas.Erase(Circle(centre, radius + canvas.Px()));
    SymbolDisc(canvas, centre, radius, hue, glyph);
}

void WindowFrame(Canvas& canvas, float left, float top, float right, float bottom, const Hue& titleHue) {
    const float px = canvas.Px();
    const Shape frame = RoundBox(left, top, right, bottom, 1.5f * px);
    canvas.FillOutlined(frame, Shade(hues::kPaper, top, bottom), hues::kPaper.outline);
    const float titleHeight = std::max(3.0f * px, (bottom - top) * 0.26f);
    canvas.Fill(Intersect(frame, RoundBox(left, top, right, top + titleHeight, 0)),
                Shade(titleHue, top, top + titleHeight));
    // The outline stays dark along the title bar too.
    canvas.Fill(Subtract(frame, Grow(frame, -px)), titleHue.outline);
}

void ProcessTile(Canvas& canvas, float left, float top, float right, float bottom, const Hue& hue, bool withPrompt) {
    const Shape tile = RoundBox(left, top, right, bottom, (right - left) * 0.18f);
    canvas.FillOutlined(tile, Shade(hue, top, bottom), hue.outline);
    if (!withPrompt)
        return;
    const float w = right - left;
    const float h = bottom - top;
    const float stroke = std::max(0.065f * w, 0.75f * canvas.Px());
    canvas.Fill(Polyline({{left + 0.24f * w, top + 0.3f * h}, {left + 0.46f * w, top + 0.5f * h},
                          {left + 0.24f * w, top + 0.7f * h}},
                         stroke),
                kWhite);
    canvas.Fill(Segment({left + 0.56f * w, top + 0.7f * h}, {left + 0.76f * w, top + 0.7f * h}, stroke), kWhite);
}

void ThreadBobbin(Canvas& canvas) {
    const float px = canvas.Px();
    const Hue wood{Rgb(0xE9C08A), Rgb(0xB9814A), Rgb(0x6A431C)};
    const Hue& yarn = hues::kTeal;
    // The loose end of the thread, behind the spool.
    canvas.Fill(Polyline({{18, 22}, {24, 25}, {27, 30}}, 0.9f * px), yarn.outline);
    canvas.FillOutlined(RoundBox(10, 6, 22, 26, 1), Shade(yarn, 6, 26), yarn.outline);
    if (!canvas.IsSmall()) {
        for (float y = 9; y < 25; y += 3)
            canvas.Fill(Segment({11.5f, y + 1.5f}, {20.5f, y - 0.5f}, 0.45f), Lighter(yarn.base, 0.35f));
    }
    canvas.FillOutlined(RoundBox(6, 2, 26, 8, 2), Shade(wood, 2, 8), wood.outline);
    canvas.FillOutlined(RoundBox(6, 24, 26, 30, 2), Shade(wood, 24, 30), wood.outline);
}

Shape ShieldShape() {
    return Polygon({{16, 2}, {28, 6}, {28, 14}, {26.5f, 21}, {22, 26.5f}, {16, 30},
                    {10, 26.5f}, {5.5f, 21}, {4, 14}, {4, 6}});
}

void Folder(Canvas& canvas, const Hue& hue, bool open) {
    const Hue back{Darker(hue.light, 0.12f), Darker(hue.base, 0.12f), hue.outline};
    const Shape backShape = Union(RoundBox(3, 5, 14, 11, 1.5f), RoundBox(3, 8, 29, 27, 2));
    canvas.FillOutlined(backShape, Shade(back, 5, 27), hue.outline);
    if (open) {
        canvas.Fill(RoundBox(6, 11, 26, 22, 0.5f), Shade(hues::kPaper, 11, 22));
        canvas.FillOutlined(Polygon({{7, 14}, {31, 14}, {27, 27}, {3, 27}}), Shade(hue, 14, 27), hue.outline);
    } else {
        canvas.FillOutlined(RoundBox(3, 12, 29, 27, 2), Shade(hue, 12, 27), hue.outline);
    }
}

}  // namespace icongen
