// Measures one full drawing of a system history graph, as the pop-ups draw it each sample: three fills,
// the grid, three lines and the copy to the window. Prints the figures; asserts nothing.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "wren.h"

namespace {

constexpr unsigned kSpan = 180000;
constexpr unsigned kInterval = 500;
constexpr unsigned kSeries = 3;
// The pop-up's graph control: 146 x 66 dialog units.
constexpr int kPopupGraphWidthDlu = 146;
constexpr int kPopupGraphHeightDlu = 66;

void FillHistory(wren::PERFGRAPH& graph) {
    graph.Init(kSpan, kInterval, kSeries);
    graph.SetScaleMax(100, 0);
    graph.SetScaleMax(100, 1);
    const unsigned start = GetTickCount();
    for (unsigned i = 0; i < kSpan / kInterval; ++i) {
        // Changing figures, so that every line has slopes to draw.
        graph.SetDataPoint((i * 37) % 100, start + i * kInterval, 0);
        graph.SetDataPoint((i * 13) % 40, start + i * kInterval, 1);
        graph.SetDataPoint(1000 + (i * 7919) % 5000, start + i * kInterval, 2);
    }
}

// window null: into the memory DC instead, to tell the drawing from the copy to the screen.
bool DrawFull(wren::PERFGRAPH& graph, HWND window, HDC memory) {
    if (!graph.RenderOpen(window, window ? nullptr : memory, 0)) return false;
    graph.RenderFill(RGB(128, 128, 0), 2);
    graph.RenderFill(RGB(0, 128, 0), 0);
    graph.RenderFill(RGB(128, 0, 0), 1);
    graph.RenderGrid();
    graph.RenderLine(RGB(0, 255, 0), 0);
    graph.RenderLine(RGB(255, 0, 0), 1);
    graph.RenderLine(RGB(255, 255, 0), 2);
    return graph.RenderCloseEx(0) != 0;
}

double Milliseconds(LONGLONG ticks, LONGLONG frequency) { return static_cast<double>(ticks) * 1000.0 / frequency; }

void Measure(const wchar_t* label, int width, int height, int rounds, bool onScreen) {
    HWND window = nullptr;
    HDC memory = nullptr;
    HBITMAP bitmap = nullptr;
    HGDIOBJ previous = nullptr;
    if (onScreen) {
        window = CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, width, height,
                                 nullptr, nullptr, nullptr, nullptr);
    } else {
        HDC screen = GetDC(nullptr);
        memory = CreateCompatibleDC(screen);
        bitmap = CreateCompatibleBitmap(screen, width, height);
        ReleaseDC(nullptr, screen);
        previous = SelectObject(memory, bitmap);
    }
    if (!window && !bitmap) {
        wprintf(L"%ls: nothing to draw into\n", label);
        return;
    }
    wren::PERFGRAPH graph;
    FillHistory(graph);
    DrawFull(graph, window, memory);   // the first drawing makes the bitmaps
    LARGE_INTEGER frequency{};
    QueryPerformanceFrequency(&frequency);
    std::vector<double> times;
    times.reserve(rounds);
    for (int i = 0; i < rounds; ++i) {
        LARGE_INTEGER begin{}, end{};
        QueryPerformanceCounter(&begin);
        const bool drawn = DrawFull(graph, window, memory);
        QueryPerformanceCounter(&end);
        if (!drawn) {
            wprintf(L"%ls: drawing failed\n", label);
            break;
        }
        times.push_back(Milliseconds(end.QuadPart - begin.QuadPart, frequency.QuadPart));
    }
    if (window) DestroyWindow(window);
    if (memory) {
        SelectObject(memory, previous);
        DeleteObject(bitmap);
        DeleteDC(memory);
    }
    if (times.empty()) return;
    std::sort(times.begin(), times.end());
    double sum = 0;
    for (double time : times) sum += time;
    wprintf(L"%-8ls %-7ls %4d x %-4d  rounds %5zu  median %.3f ms  mean %.3f ms  90th %.3f ms\n", label,
            onScreen ? L"window" : L"memory", width, height, times.size(), times[times.size() / 2],
            sum / times.size(), times[times.size() * 9 / 10]);
}

}  // namespace

int wmain() {
    const LONG baseUnits = GetDialogBaseUnits();
    const int popupWidth = MulDiv(kPopupGraphWidthDlu, LOWORD(baseUnits), 4);
    const int popupHeight = MulDiv(kPopupGraphHeightDlu, HIWORD(baseUnits), 8);
    for (bool onScreen : {true, false}) {
        Measure(L"pop-up", popupWidth, popupHeight, 2000, onScreen);
        Measure(L"full HD", 1920, 1080, 200, onScreen);
    }
    wprintf(L"GDI objects held by graphs afterwards: %ld\n", wren::GetPerfGraphGdiObjectCount());
    return 0;
}
