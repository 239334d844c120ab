// PERFGRAPH: drawing. A drawing goes into an off-screen bitmap of the target's size; RenderClose copies it
// to the target in one BitBlt and keeps it as the last frame, which UpdateGraph repaints.
#include <algorithm>
#include <vector>

#include "perfgraph_state.h"
#include "wren.h"

namespace wren {
namespace {

using detail::PerfGraphState;
using detail::SelectionGuard;
using detail::UniqueGdiObject;
using detail::UniqueMemoryDC;

constexpr COLORREF kBackground = RGB(0, 0, 0);
constexpr COLORREF kGridColour = RGB(0, 128, 64);
constexpr unsigned kGridRows = 10;      // lines at every tenth of the scale
constexpr unsigned kGridSeconds = 15;   // a column per 15 seconds of history

// Size of the picture: the window's client area, or the bitmap selected into a DC given without window.
bool TargetSize(HWND window, HDC dc, int& width, int& height) {
    if (window) {
        RECT client{};
        if (!IsWindow(window) || !GetClientRect(window, &client)) return false;
        width = client.right - client.left;
        height = client.bottom - client.top;
    } else {
        BITMAP info{};
        HGDIOBJ bitmap = dc ? GetCurrentObject(dc, OBJ_BITMAP) : nullptr;
        if (!bitmap || GetObjectW(bitmap, sizeof info, &info) == 0) return false;
        width = info.bmWidth;
        height = info.bmHeight;
    }
    return width > 0 && height > 0;
}

// The series' line in the drawing's size, taken under the data lock.
std::vector<POINT> PlotSeries(const PerfGraphState& state, unsigned series, int width, int height) {
    std::vector<POINT> points;
    std::lock_guard lock(state.dataLock);
    if (series >= state.series.size()) return points;
    const auto& entry = state.series[series];
    const unsigned top = perfgraph::ScaleTop(entry.scaleMax, entry.history.Peak());
    for (const auto& point : perfgraph::SeriesPolyline(entry.history, top, width, height)) {
        points.push_back({point.x, point.y});
    }
    return points;
}

// A COLORREF (0x00BBGGRR) as a pixel of a 32-bit DIB (0x00RRGGBB).
DWORD DibPixel(COLORREF colour) {
    return (static_cast<DWORD>(GetRValue(colour)) << 16) | (static_cast<DWORD>(GetGValue(colour)) << 8) |
           GetBValue(colour);
}

detail::PerfGraphBitmap MakeCanvasBitmap(int width, int height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;   // top-down: row 0 first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    detail::PerfGraphBitmap bitmap;
    bitmap.bitmap = UniqueGdiObject(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap.bitmap) return bitmap;
    bitmap.pixels = static_cast<DWORD*>(bits);
    bitmap.width = width;
    bitmap.height = height;
    return bitmap;
}

bool IsDrawing(const PerfGraphState* state) {
    return state && state->drawingThread == std::this_thread::get_id() && state->drawing.canvas;
}

}  // namespace

HDC PERFGRAPH::RenderOpen(HWND window, HDC dc, unsigned /*flags*/) {
    if (!state_) return nullptr;
    int width = 0, height = 0;
    if (!TargetSize(window, dc, width, height)) return nullptr;

    // A drawing this thread left open is dropped; one on another thread is waited for.
    if (state_->drawingThread != std::this_thread::get_id()) {
        state_->renderLock.lock();
        state_->drawingThread = std::this_thread::get_id();
    }
    auto& drawing = state_->drawing;
    drawing.Clear();
    if (!dc) {
        drawing.ownedTarget = detail::WindowDC(window);
        dc = drawing.ownedTarget.Get();
    }
    drawing.target = dc;
    if (dc && !state_->canvas) state_->canvas = UniqueMemoryDC(CreateCompatibleDC(nullptr));
    drawing.canvas = dc ? state_->canvas.Get() : nullptr;
    auto& work = state_->work;
    if (drawing.canvas && (!work.bitmap || work.width != width || work.height != height)) {
        work = MakeCanvasBitmap(width, height);
    }
    if (!drawing.canvas || !work.bitmap) {
        drawing.Clear();
        state_->drawingThread = std::thread::id{};
        state_->renderLock.unlock();
        return nullptr;
    }
    drawing.canvasBitmap = SelectionGuard(drawing.canvas, work.bitmap.Get());
    drawing.width = width;
    drawing.height = height;
    std::fill_n(work.pixels, static_cast<size_t>(width) * static_cast<size_t>(height), DibPixel(kBackground));
    return drawing.canvas;
}

int PERFGRAPH::RenderFill(COLORREF colour, unsigned series) {
    if (!IsDrawing(state_)) return 0;
    auto& drawing = state_->drawing;
    const std::vector<POINT> line = PlotSeries(*state_, series, drawing.width, drawing.height);
    if (line.empty()) return 1;
    std::vector<perfgraph::PlotPoint> plot;
    plot.reserve(line.size());
    for (const POINT& point : line) plot.push_back({static_cast<int>(point.x), static_cast<int>(point.y)});
    const std::vector<int> tops = perfgraph::ColumnTops(plot);
    // The area under the line, column by column down to the bottom row, straight into the pixels.
    GdiFlush();   // GDI may still hold drawing of its own for this bitmap
    const DWORD pixel = DibPixel(colour);
    DWORD* const pixels = state_->work.pixels;
    const int width = drawing.width;
    const int height = drawing.height;
    for (size_t i = 0; i < tops.size(); ++i) {
        const int x = static_cast<int>(line.front().x) + static_cast<int>(i);
        if (x < 0 || x >= width) continue;
        for (int y = std::max(0, tops[i]); y < height; ++y) pixels[static_cast<size_t>(y) * width + x] = pixel;
    }
    return 1;
}

int PERFGRAPH::RenderGrid() {
    if (!IsDrawing(state_)) return 0;
    auto& drawing = state_->drawing;
    const unsigned intervals = state_->capacity;
    const unsigned pointsPerColumn = std::max(1u, kGridSeconds * 1000 / state_->intervalMs);
    const unsigned columns = std::max(1u, intervals / pointsPerColumn);
    UniqueGdiObject pen(CreatePen(PS_SOLID, 1, kGridColour));
    if (!pen) return 0;
    HDC canvas = drawing.canvas;
    SelectionGuard penSelection(canvas, pen.Get());
    for (unsigned row = 1; row < kGridRows; ++row) {
        const int y = perfgraph::GridPosition(row, kGridRows, drawing.height);
        MoveToEx(canvas, 0, y, nullptr);
        LineTo(canvas, drawing.width, y);
    }
    for (unsigned column = 1; column < columns; ++column) {
        const int x = perfgraph::GridPosition(column, columns, drawing.width);
        MoveToEx(canvas, x, 0, nullptr);
        LineTo(canvas, x, drawing.height);
    }
    return 1;
}

int PERFGRAPH::RenderLine(COLORREF colour, unsigned series) {
    if (!IsDrawing(state_)) return 0;
    auto& drawing = state_->drawing;
    std::vector<POINT> line = PlotSeries(*state_, series, drawing.width, drawing.height);
    if (line.empty()) return 1;
    // Polyline leaves out its last pixel: one step further right puts the newest point on the picture.
    line.push_back({line.back().x + 1, line.back().y});
    UniqueGdiObject pen(CreatePen(PS_SOLID, 1, colour));
    if (!pen) return 0;
    HDC canvas = drawing.canvas;
    SelectionGuard penSelection(canvas, pen.Get());
    return Polyline(canvas, line.data(), static_cast<int>(line.size())) ? 1 : 0;
}

int PERFGRAPH::RenderClose() { return RenderCloseEx(0); }

int PERFGRAPH::RenderCloseEx(unsigned /*flags*/) {
    if (!IsDrawing(state_)) return 0;
    auto& drawing = state_->drawing;
    const BOOL shown =
        BitBlt(drawing.target, 0, 0, drawing.width, drawing.height, drawing.canvas, 0, 0, SRCCOPY);
    drawing.Clear();
    {
        std::lock_guard lock(state_->frameLock);
        std::swap(state_->work, state_->lastFrame);
    }
    state_->drawingThread = std::thread::id{};
    state_->renderLock.unlock();
    return shown ? 1 : 0;
}

int PERFGRAPH::UpdateGraph(HWND window, HDC dc, unsigned /*flags*/) {
    if (!state_) return 0;
    detail::WindowDC ownedTarget;
    if (!dc) {
        if (!window || !IsWindow(window)) return 0;
        ownedTarget = detail::WindowDC(window);
        dc = ownedTarget.Get();
    }
    if (!dc) return 0;
    std::lock_guard lock(state_->frameLock);
    const auto& frame = state_->lastFrame;
    if (!frame.bitmap) return 0;
    UniqueMemoryDC source(CreateCompatibleDC(dc));
    if (!source) return 0;
    SelectionGuard selection(source.Get(), frame.bitmap.Get());
    return BitBlt(dc, 0, 0, frame.width, frame.height, source.Get(), 0, 0, SRCCOPY) ? 1 : 0;
}

}  // namespace wren
