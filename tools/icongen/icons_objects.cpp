#include "icon_drawings.h"
#include "motifs.h"

namespace icongen {

void DrawWindow(Canvas& c) {
    WindowFrame(c, 2, 4, 30, 28, hues::kBlue);
    if (!c.IsSmall()) {
        c.Fill(Circle({26.5f, 7.5f}, 1.2f), kWhite);
        c.Fill(Circle({22.5f, 7.5f}, 1.2f), Rgb(0xFFFFFF, 0.7f));
    }
}

void DrawThread(Canvas& c) { ThreadBobbin(c); }

void DrawModule(Canvas& c) {
    const Hue& hue = hues::kPurple;
    // A puzzle piece: a part that plugs into a whole.
    const Shape piece = Subtract(Union(Union(RoundBox(3, 9, 23, 29, 2), Circle({13, 7}, 4.2f)), Circle({25, 19}, 4.2f)),
                                 Circle({3, 19}, 3.6f));
    c.FillOutlined(piece, Shade(hue, 3, 29), hue.outline);
}

void DrawRegistryKey(Canvas& c) {
    const float px = c.Px();
    const auto cube = [&](float left, float top, const Hue& hue) {
        c.FillOutlined(RoundBox(left, top, left + 11, top + 11, px), Shade(hue, top, top + 11), hue.outline);
    };
    cube(3, 18, hues::kBlue);
    cube(15, 18, hues::kBlue);
    cube(3, 6, hues::kBlue);
    cube(18, 3, hues::kTeal);  // the key that stands out of the hive
}

void DrawKernelObject(Canvas& c) {
    const Hue& hue = hues::kSlate;
    const Shape outline = Polygon({{16, 2}, {29, 8.5f}, {29, 23.5f}, {16, 30}, {3, 23.5f}, {3, 8.5f}});
    c.Fill(outline, hue.outline);
    const float inset = -c.Px();
    c.Fill(Grow(Polygon({{16, 2}, {29, 8.5f}, {16, 15}, {3, 8.5f}}), inset), Lighter(hue.light, 0.3f));
    c.Fill(Grow(Polygon({{3, 8.5f}, {16, 15}, {16, 30}, {3, 23.5f}}), inset), Paint(hue.light, hue.base, 9, 30));
    c.Fill(Grow(Polygon({{16, 15}, {29, 8.5f}, {29, 23.5f}, {16, 30}}), inset), Paint(hue.base, Darker(hue.base, 0.25f), 9, 30));
}

void DrawProcess(Canvas& c) { ProcessTile(c, 2, 2, 30, 30, hues::kBlue, true); }

void DrawUnknownProcess(Canvas& c) {
    ProcessTile(c, 2, 2, 30, 30, hues::kGrey, false);
    c.Fill(GlyphShape(Glyph::Question, {16, 16}, 14), kWhite);
}

void DrawObjectDirectory(Canvas& c) { Folder(c, hues::kSlate, false); }

void DrawEvent(Canvas& c) {
    const Hue& hue = hues::kAmber;
    const Shape bolt = Polygon({{19, 1.5f}, {6, 18}, {14.5f, 18}, {11, 30.5f}, {26, 12.5f}, {17.5f, 12.5f}, {22.5f, 1.5f}});
    c.FillOutlined(bolt, Shade(hue, 2, 30), hue.outline);
}

void DrawToken(Canvas& c) {
    const Hue& hue = hues::kGold;
    const Shape key = Subtract(Union(Union(Circle({9.5f, 16}, 7.5f), RoundBox(15, 13.5f, 30, 18.5f, 1)),
                                     Union(RoundBox(22, 17, 25, 24, 0.5f), RoundBox(26.5f, 17, 29.5f, 22.5f, 0.5f))),
                               Circle({8, 16}, 2.6f));
    c.FillOutlined(key, Shade(hue, 8, 24), hue.outline);
}

void DrawSection(Canvas& c) {
    const float px = c.Px();
    const Hue& hue = hues::kTeal;
    // Stacked pages of memory shared between processes.
    for (float step : {0.0f, 1.0f, 2.0f}) {
        const float left = 8 - 3 * step;
        const float top = 3 + 7 * step;
        const Shape page = RoundBox(left, top, left + 21, top + 15, 1.5f * px);
        if (step > 0)
            c.Erase(Grow(page, px));
        c.FillOutlined(page, Shade(hue, top, top + 15), hue.outline);
    }
}

void DrawPort(Canvas& c) {
    const float px = c.Px();
    const Hue metal{Rgb(0xF2F5F8), Rgb(0xAEB8C2), Rgb(0x4A535D)};
    c.FillOutlined(RoundBox(10, 2, 14, 11, px), Shade(metal, 2, 11), metal.outline);
    c.FillOutlined(RoundBox(18, 2, 22, 11, px), Shade(metal, 2, 11), metal.outline);
    c.FillOutlined(RoundBox(14, 22, 18, 31, 0), Shade(hues::kDark, 22, 31), hues::kDark.outline);
    c.FillOutlined(RoundBox(6, 9, 26, 24, 4), Shade(hues::kGreen, 9, 24), hues::kGreen.outline);
}

void DrawGroup(Canvas& c) {
    const auto person = [&](Vec2 head, float scale, const Hue& hue) {
        const Shape body = Intersect(Ellipse({head.x, head.y + 14 * scale}, 9 * scale, 9 * scale),
                                     RoundBox(0, 0, 32, head.y + 13 * scale, 0));
        const Shape figure = Union(Circle(head, 5 * scale), body);
        c.Erase(Grow(figure, c.Px()));
        c.FillOutlined(body, Shade(hue, head.y + 6 * scale, head.y + 13 * scale), hue.outline);
        c.FillOutlined(Circle(head, 5 * scale), Shade(hue, head.y - 5 * scale, head.y + 5 * scale), hue.outline);
    };
    person({21, 9}, 0.95f, hues::kTeal);
    person({12, 13}, 1.05f, hues::kBlue);
}

void DrawPrivilegeEnabled(Canvas& c) {
    c.FillOutlined(ShieldShape(), Shade(hues::kGreen, 2, 30), hues::kGreen.outline);
    c.Fill(GlyphShape(Glyph::Check, {16, 15}, 12), kWhite);
}

void DrawPrivilegeDisabled(Canvas& c) {
    c.FillOutlined(ShieldShape(), Shade(hues::kGrey, 2, 30), hues::kGrey.outline);
    c.Fill(GlyphShape(Glyph::Minus, {16, 15}, 11), kWhite);
}

}  // namespace icongen
