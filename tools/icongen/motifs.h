// Pictures shared by several icons: glyphs, badges, windows, the process tile, the thread bobbin.
#pragma once

#include "canvas.h"
#include "palette.h"

namespace icongen {

enum class Glyph { Check, Cross, Pause, Play, Plus, Minus, Info, Question, Exclamation };

// The glyph's shape, sized for a disc of the given radius around centre; strokes are at least
// minHalfStroke either side of their centre line.
Shape GlyphShape(Glyph glyph, Vec2 centre, float radius, float minHalfStroke = 0);

// A filled disc with a white glyph.
void SymbolDisc(Canvas& canvas, Vec2 centre, float radius, const Hue& hue, Glyph glyph);
// A small disc in a corner, separated from the picture below by a transparent gap.
void Badge(Canvas& canvas, const Hue& hue, Glyph glyph);

void WindowFrame(Canvas& canvas, float left, float top, float right, float bottom, const Hue& titleHue);
// Rounded square with a command prompt: the picture of a running program.
void ProcessTile(Canvas& canvas, float left, float top, float right, float bottom, const Hue& hue, bool withPrompt);
void ThreadBobbin(Canvas& canvas);
Shape ShieldShape();
void Folder(Canvas& canvas, const Hue& hue, bool open);

}  // namespace icongen
