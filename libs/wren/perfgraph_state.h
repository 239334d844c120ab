// The inside of a PERFGRAPH: its series with their histories, and the drawing in progress.
#pragma once
#include <windows.h>

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "perfgraph_gdi.h"
#include "perfgraph_history.h"

namespace wren::detail {

struct PerfGraphSeries {
    std::wstring name;
    std::wstring unit;
    unsigned divisor = 1;
    COLORREF colour = 0;
    unsigned scaleMax = 0;   // 0: scale to the series' own peak
    perfgraph::SeriesHistory history;
};

// A drawing between RenderOpen and RenderClose.
struct PerfGraphDrawing {
    WindowDC ownedTarget;         // when the graph got the window's DC itself
    HDC target = nullptr;
    HDC canvas = nullptr;         // the graph's memory DC while a drawing is open
    SelectionGuard canvasBitmap;  // the work bitmap, selected into the canvas
    int width = 0;
    int height = 0;

    PerfGraphDrawing() = default;
    PerfGraphDrawing(const PerfGraphDrawing&) = delete;
    PerfGraphDrawing& operator=(const PerfGraphDrawing&) = delete;
    ~PerfGraphDrawing() { Clear(); }
    // Frees in the order GDI needs: the bitmap leaves the canvas before the canvas goes.
    void Clear() {
        canvasBitmap.Reset();
        canvas = nullptr;
        ownedTarget.Reset();
        target = nullptr;
        width = height = 0;
    }
};

// A top-down 32-bit DIB section: GDI draws the grid and lines into it, the fills are written straight into
// its pixels (one column at a time, far cheaper than hundreds of GDI strokes).
struct PerfGraphBitmap {
    UniqueGdiObject bitmap;
    DWORD* pixels = nullptr;   // width * height, row 0 at the top; owned by the bitmap
    int width = 0;
    int height = 0;
};

struct PerfGraphState {
    unsigned intervalMs = 1;
    unsigned capacity = 1;

    // Series data: written by the feeding thread, read by drawings on any thread.
    mutable std::mutex dataLock;
    std::vector<PerfGraphSeries> series;

    // One drawing at a time: held from RenderOpen to RenderClose by the drawing thread.
    std::mutex renderLock;
    std::atomic<std::thread::id> drawingThread{};
    PerfGraphDrawing drawing;
    UniqueMemoryDC canvas;   // kept from one drawing to the next: making one costs more than a drawing
    PerfGraphBitmap work;

    // The last finished drawing, which UpdateGraph repaints.
    std::mutex frameLock;
    PerfGraphBitmap lastFrame;
};

}  // namespace wren::detail
