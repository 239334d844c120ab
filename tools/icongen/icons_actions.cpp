#include "icon_drawings.h"
#include "motifs.h"

namespace icongen {

void DrawRun(Canvas& c) {
    ProcessTile(c, 1, 1, 25, 25, hues::kBlue, true);
    Badge(c, hues::kGreen, Glyph::Plus);
}

void DrawKeepOnTop(Canvas& c) {
    const float px = c.Px();
    const Hue& head = hues::kRed;
    const Hue metal{Rgb(0xF2F5F8), Rgb(0xA3ADB8), Rgb(0x4A535D)};
    c.FillOutlined(Segment({12, 20}, {3, 29}, 1.1f * px), Shade(metal, 20, 29), metal.outline);
    c.FillOutlined(Segment({7.5f, 14.5f}, {17.5f, 24.5f}, 2.6f), Shade(head, 12, 26), head.outline);
    c.FillOutlined(Segment({13, 19}, {21, 11}, 3.2f), Shade(head, 8, 22), head.outline);
    c.FillOutlined(Segment({17.5f, 7.5f}, {24.5f, 14.5f}, 4.5f), Shade(head, 3, 19), head.outline);
}

void DrawPageOut(Canvas& c) {
    const float px = c.Px();
    const Shape drive = RoundBox(2, 21, 30, 30, 2 * px);
    c.FillOutlined(drive, Shade(hues::kGrey, 21, 30), hues::kGrey.outline);
    c.Fill(Circle({25, 25.5f}, 1.6f), Rgb(0x3CCB5A));
    const Shape arrow = Polygon({{12, 2}, {20, 2}, {20, 11}, {26, 11}, {16, 21}, {6, 11}, {12, 11}});
    c.Erase(Grow(arrow, px));
    c.FillOutlined(arrow, Shade(hues::kBlue, 2, 21), hues::kBlue.outline);
}

void DrawSuspendProcess(Canvas& c) { SymbolDisc(c, {16, 16}, 14.5f, hues::kAmber, Glyph::Pause); }

void DrawResumeProcess(Canvas& c) { SymbolDisc(c, {16, 16}, 14.5f, hues::kGreen, Glyph::Play); }

void DrawTerminateProcess(Canvas& c) { SymbolDisc(c, {16, 16}, 14.5f, hues::kRed, Glyph::Cross); }

void DrawCloseWindow(Canvas& c) {
    WindowFrame(c, 1, 2, 29, 25, hues::kBlue);
    Badge(c, hues::kRed, Glyph::Cross);
}

void DrawBringToFront(Canvas& c) {
    const float px = c.Px();
    WindowFrame(c, 1, 13, 19, 31, hues::kGrey);
    c.Erase(RoundBox(11 - px, 1 - px, 31 + px, 21 + px, 2 * px));
    WindowFrame(c, 11, 1, 31, 21, hues::kBlue);
}

void DrawProcessWindows(Canvas& c) {
    const float px = c.Px();
    WindowFrame(c, 1, 1, 19, 15, hues::kBlue);
    c.Erase(RoundBox(7 - px, 9 - px, 25 + px, 23 + px, 2 * px));
    WindowFrame(c, 7, 9, 25, 23, hues::kBlue);
    c.Erase(RoundBox(13 - px, 17 - px, 31 + px, 31 + px, 2 * px));
    WindowFrame(c, 13, 17, 31, 31, hues::kBlue);
}

void DrawOpenFolder(Canvas& c) { Folder(c, hues::kFolder, true); }

void DrawRestartProcess(Canvas& c) {
    const Hue& hue = hues::kGreen;
    const Vec2 centre{16, 17};
    // An almost closed ring; the gap at the top right holds the arrow head.
    const Shape ring = Subtract(Ring(centre, 10, 2.8f), Polygon({centre, {34, -4}, {34, 14}}));
    const Shape head = Polygon({{14.5f, 0.5f}, {24, 5.5f}, {15, 12.5f}});
    c.FillOutlined(Union(ring, Grow(head, 0.6f)), Shade(hue, 3, 30), hue.outline);
}

void DrawProperties(Canvas& c) {
    const float px = c.Px();
    c.FillOutlined(RoundBox(4, 2, 28, 30, 2 * px), Shade(hues::kPaper, 2, 30), hues::kPaper.outline);
    for (float top : {7.0f, 14.0f, 21.0f}) {
        c.Fill(RoundBox(8, top, 12, top + 4, 0.5f * px), hues::kBlue.base);
        c.Fill(RoundBox(14, top + 1, 24, top + 3, 0), Rgb(0x7D8893));
    }
}

void DrawPriority(Canvas& c) {
    const Shape up = Polygon({{9, 2}, {17, 12}, {12, 12}, {12, 30}, {6, 30}, {6, 12}, {1, 12}});
    const Shape down = Polygon({{20, 2}, {26, 2}, {26, 20}, {31, 20}, {23, 30}, {15, 20}, {20, 20}});
    c.FillOutlined(up, Shade(hues::kGreen, 2, 30), hues::kGreen.outline);
    c.FillOutlined(down, Shade(hues::kRed, 2, 30), hues::kRed.outline);
}

void DrawSuspendThread(Canvas& c) {
    ThreadBobbin(c);
    Badge(c, hues::kAmber, Glyph::Pause);
}

void DrawTerminateThread(Canvas& c) {
    ThreadBobbin(c);
    Badge(c, hues::kRed, Glyph::Cross);
}

}  // namespace icongen
