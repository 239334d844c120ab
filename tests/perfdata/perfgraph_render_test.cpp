// PERFGRAPH drawing: what lands where in a memory DC of several sizes, drawing into windows, repainting the
// last drawing, and that no GDI object outlives its use.
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include "wren.h"

namespace {

constexpr unsigned kSpan = 180000;
constexpr unsigned kInterval = 500;
constexpr unsigned kStart = 1000000;   // the time stamp of a graph's first point
constexpr COLORREF kFill = RGB(0, 128, 0);
constexpr COLORREF kLine = RGB(0, 255, 0);
constexpr COLORREF kBlack = RGB(0, 0, 0);

// A top-down 32-bit DIB selected into a memory DC, white until drawn on, with its pixels readable.
class PixelCanvas {
public:
    PixelCanvas(int width, int height) : width_(width), height_(height) {
        BITMAPINFO info{{sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB}};
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&bits_), nullptr, 0);
        EXPECT_TRUE(dc_ && bits_) << width << "x" << height;
        previous_ = SelectObject(dc_, bitmap_);
        PatBlt(dc_, 0, 0, width, height, WHITENESS);
    }
    ~PixelCanvas() {
        SelectObject(dc_, previous_);
        EXPECT_TRUE(DeleteObject(bitmap_));
        EXPECT_TRUE(DeleteDC(dc_));
    }
    PixelCanvas(const PixelCanvas&) = delete;

    HDC Dc() const { return dc_; }
    COLORREF Pixel(int x, int y) const {
        GdiFlush();
        const DWORD value = bits_ ? bits_[static_cast<size_t>(y) * width_ + x] : 0xFF00FF;
        return RGB((value >> 16) & 0xFF, (value >> 8) & 0xFF, value & 0xFF);
    }
    std::vector<DWORD> Pixels() const {
        GdiFlush();
        return bits_ ? std::vector<DWORD>(bits_, bits_ + static_cast<size_t>(width_) * height_) : std::vector<DWORD>{};
    }

private:
    int width_, height_;
    HDC dc_ = CreateCompatibleDC(nullptr);
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ previous_ = nullptr;
    DWORD* bits_ = nullptr;
};

// A graph of the series' values, fed at points [first, last) of the history, each series scaled to 100 when
// scaled is set and to its own peak otherwise.
std::unique_ptr<wren::PERFGRAPH> Graph(std::vector<unsigned> values, unsigned first = 0,
                                       unsigned last = kSpan / kInterval, bool scaled = true) {
    auto graph = std::make_unique<wren::PERFGRAPH>();
    graph->Init(kSpan, kInterval, static_cast<unsigned>(values.size()));
    for (unsigned series = 0; series < values.size(); ++series) {
        if (scaled) graph->SetScaleMax(100, series);
        for (unsigned i = first; i < last; ++i) graph->SetDataPoint(values[series], kStart + i * kInterval, series);
    }
    return graph;
}
// One series at half its scale over the whole history.
std::unique_ptr<wren::PERFGRAPH> HalfFullGraph() { return Graph({50}); }

bool DrawFull(wren::PERFGRAPH& graph, HWND window, HDC dc) {
    if (!graph.RenderOpen(window, dc, 0)) return false;
    graph.RenderFill(kFill, 0);
    graph.RenderGrid();
    graph.RenderLine(kLine, 0);
    return graph.RenderCloseEx(0) != 0;
}

TEST(PerfGraphRender, BackgroundAboveLineOnItFillBelowAtEverySize) {
    for (const auto& [width, height] : {std::make_pair(151, 57), std::make_pair(1920, 1080), std::make_pair(1, 1)}) {
        SCOPED_TRACE(std::to_string(width) + "x" + std::to_string(height));
        PixelCanvas canvas(width, height);
        ASSERT_TRUE(DrawFull(*HalfFullGraph(), nullptr, canvas.Dc()));
        const int right = width - 1, lineRow = (height - 1) - (height - 1) / 2;
        EXPECT_EQ(canvas.Pixel(right, lineRow), kLine);   // one row: the line is all there is
        if (height < 20) continue;
        EXPECT_EQ(canvas.Pixel(0, lineRow), kLine);            // the history spans the whole width
        EXPECT_EQ(canvas.Pixel(right, 2), kBlack);              // above the line: background
        EXPECT_EQ(canvas.Pixel(right, height - 3), kFill);      // below it: the fill
        EXPECT_EQ(canvas.Pixel(right, height - 1), kFill);      // down to the bottom row
    }
}

// The fingerprint stands for the pixels: what leaves every pixel as it was keeps it, what moves one pixel
// changes it. Here a memory-like series (a scale of 16 GB in KB) on a pop-up-sized picture.
TEST(PerfGraphRender, PictureSignatureStaysWhileThePixelsStayAndMovesWithThem) {
    constexpr int kWidth = 151, kHeight = 57;
    PixelCanvas canvas(kWidth, kHeight);
    wren::PERFGRAPH graph;
    EXPECT_EQ(graph.GetPictureSignature(kWidth, kHeight), 0u) << "no history yet";
    graph.Init(kSpan, kInterval, 2);
    graph.SetScaleMax(16u << 20, 0);
    const unsigned start = kStart;
    graph.SetDataPoint(4u << 20, start, 0);
    graph.SetDataPoint(7, start, 1);   // no scale maximum: scales to its own peak
    EXPECT_EQ(graph.GetPictureSignature(0, kHeight), 0u) << "no area";

    auto draw = [&] {
        EXPECT_TRUE(DrawFull(graph, nullptr, canvas.Dc()));
        return canvas.Pixels();
    };
    const auto firstPixels = draw();
    const auto first = graph.GetPictureSignature(kWidth, kHeight);

    graph.SetDataPoint((4u << 20) + 4096, start + 100, 0);   // 4 MB more: far below one pixel
    EXPECT_EQ(draw(), firstPixels);
    EXPECT_EQ(graph.GetPictureSignature(kWidth, kHeight), first);

    graph.SetDataPoint(12u << 20, start + 200, 0);   // the same interval, a visibly higher point
    const auto raisedPixels = draw();
    const auto raised = graph.GetPictureSignature(kWidth, kHeight);
    EXPECT_NE(raisedPixels, firstPixels);
    EXPECT_NE(raised, first);

    graph.SetDataPoint(14, start + 300, 1);   // the self-scaled series doubles: it rescales, same pixels
    EXPECT_EQ(draw(), raisedPixels);
    EXPECT_EQ(graph.GetPictureSignature(kWidth, kHeight), raised);

    graph.SetDataPoint(12u << 20, start + 600, 0);   // the next interval: the line grows by a point
    EXPECT_NE(graph.GetPictureSignature(kWidth, kHeight), raised);
    EXPECT_NE(graph.GetPictureSignature(kWidth + 1, kHeight), graph.GetPictureSignature(kWidth, kHeight));
}

TEST(PerfGraphRender, AValueAboveTheScaleAndWithoutScaleMaximumThePeakReachTheTop) {
    PixelCanvas above(120, 60), peak(120, 60);
    ASSERT_TRUE(DrawFull(*Graph({250}, 0, 1), nullptr, above.Dc()));
    EXPECT_EQ(above.Pixel(119, 0), kLine);

    auto graph = Graph({12345}, 0, 1, false);
    graph->SetDataPoint(0, kStart + kInterval, 0);
    ASSERT_TRUE(DrawFull(*graph, nullptr, peak.Dc()));
    EXPECT_EQ(peak.Pixel(119, 59), kLine);   // newest point, 0: bottom right
    // The peak one point earlier: its column reaches the top row.
    bool peakAtTop = false;
    for (int x = 100; x < 120; ++x) peakAtTop = peakAtTop || peak.Pixel(x, 0) == kLine;
    EXPECT_TRUE(peakAtTop);
}

TEST(PerfGraphRender, LaterFillsCoverEarlierOnesAndAFillAfterTheGridCoversItInItsOwnColumnsOnly) {
    PixelCanvas canvas(100, 50), gridded(100, 50);
    auto graph = Graph({80, 30});
    ASSERT_TRUE(graph->RenderOpen(nullptr, canvas.Dc(), 0));
    graph->RenderFill(RGB(128, 128, 0), 0);
    graph->RenderFill(RGB(0, 0, 128), 1);
    ASSERT_TRUE(graph->RenderClose());
    EXPECT_EQ(canvas.Pixel(99, 48), RGB(0, 0, 128));   // under both: the later fill
    EXPECT_EQ(canvas.Pixel(99, 20), RGB(128, 128, 0)); // under the higher series only

    auto shortHistory = Graph({100}, 0, 20);
    ASSERT_TRUE(shortHistory->RenderOpen(nullptr, gridded.Dc(), 0));
    shortHistory->RenderGrid();
    shortHistory->RenderFill(kFill, 0);
    ASSERT_TRUE(shortHistory->RenderClose());
    // The newest points fill their columns from the top row down, over the grid lines drawn before.
    for (int y : {0, 10, 25, 49}) EXPECT_EQ(gridded.Pixel(99, y), kFill) << y;
    // The columns left of the oldest point keep the background and the grid.
    bool gridLeft = false;
    for (int x = 0; x < 50; ++x) {
        EXPECT_NE(gridded.Pixel(x, 49), kFill) << x;
        gridLeft = gridLeft || gridded.Pixel(x, 10) != kBlack;
    }
    EXPECT_TRUE(gridLeft);
}

struct WindowDestroyer {
    void operator()(HWND window) const { DestroyWindow(window); }
};
using TestWindow = std::unique_ptr<std::remove_pointer_t<HWND>, WindowDestroyer>;
TestWindow MakeWindow(int width, int height) {
    return TestWindow(CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, width, height, nullptr, nullptr, nullptr, nullptr));
}

// A window's drawing is of its client size and repainted from the last one; nothing to draw into gives no
// DC, a graph never drawn has nothing to repaint, and Delete ends a drawing left open.
TEST(PerfGraphRender, IntoAWindowAtItsClientSizeRepaintedFromTheLastDrawingAndNothingToDrawInto) {
    TestWindow window = MakeWindow(173, 61), empty = MakeWindow(0, 0);
    ASSERT_TRUE(window && empty);
    auto graph = HalfFullGraph();
    PixelCanvas copy(173, 61);
    EXPECT_EQ(graph->UpdateGraph(nullptr, copy.Dc(), 0), 0);
    HDC offScreen = graph->RenderOpen(window.get(), nullptr, 0);
    ASSERT_NE(offScreen, nullptr);
    BITMAP size{};
    ASSERT_NE(GetObjectW(GetCurrentObject(offScreen, OBJ_BITMAP), sizeof size, &size), 0);
    EXPECT_EQ(std::make_pair(size.bmWidth, size.bmHeight), std::make_pair(173L, 61L));
    graph->RenderFill(kFill, 0);
    graph->RenderLine(kLine, 0);
    ASSERT_TRUE(graph->RenderClose());
    ASSERT_TRUE(graph->UpdateGraph(nullptr, copy.Dc(), 0));
    EXPECT_EQ(copy.Pixel(172, 30), kLine);
    EXPECT_EQ(copy.Pixel(172, 59), kFill);

    EXPECT_EQ(graph->RenderOpen(empty.get(), nullptr, 0), nullptr);
    const HWND gone = MakeWindow(50, 50).get();
    EXPECT_EQ(graph->RenderOpen(gone, nullptr, 0), nullptr);
    EXPECT_EQ(graph->UpdateGraph(gone, nullptr, 0), 0);
    EXPECT_EQ(graph->UpdateGraph(nullptr, nullptr, 0), 0);
    ASSERT_NE(graph->RenderOpen(nullptr, copy.Dc(), 0), nullptr);
    EXPECT_EQ(graph->Delete(), 1);
    EXPECT_EQ(graph->RenderClose(), 0);
}

// Drawn at changing sizes, then fed and drawn on one thread while another repaints and draws (the sampler
// and the UI thread of the pop-up): every drawing succeeds and no GDI object outlives the graph.
TEST(PerfGraphRender, RepeatedAndConcurrentDrawingsAtChangingSizesLeakNoGdiObject) {
    const long before = wren::GetPerfGraphGdiObjectCount();
    const long failuresBefore = wren::GetPerfGraphGdiFreeFailures();
    {
        auto graph = HalfFullGraph();
        TestWindow window = MakeWindow(300, 120);
        ASSERT_NE(window, nullptr);
        // Two drawings: the one being drawn and the last finished one each hold a bitmap from then on.
        ASSERT_TRUE(DrawFull(*graph, window.get(), nullptr));
        ASSERT_TRUE(DrawFull(*graph, window.get(), nullptr));
        const long heldAfterTwo = wren::GetPerfGraphGdiObjectCount();
        for (int i = 0; i < 300; ++i) {
            ASSERT_TRUE(DrawFull(*graph, window.get(), nullptr)) << "drawing " << i;
            SetWindowPos(window.get(), nullptr, 0, 0, 100 + i % 7 * 40, 50 + i % 5 * 30, SWP_NOZORDER | SWP_NOMOVE);
            graph->UpdateGraph(window.get(), nullptr, 0);
        }
        EXPECT_EQ(wren::GetPerfGraphGdiObjectCount(), heldAfterTwo);   // the same bitmaps, reused or replaced

        SetWindowPos(window.get(), nullptr, 0, 0, 160, 80, SWP_NOZORDER | SWP_NOMOVE);
        std::atomic<int> failures{0};
        std::thread sampler([&] {
            const unsigned start = GetTickCount();
            for (unsigned i = 0; i < 200; ++i) {
                graph->SetDataPoint(i % 100, start + i * kInterval, 0);
                if (!DrawFull(*graph, window.get(), nullptr)) ++failures;
            }
        });
        for (int i = 0; i < 200; ++i) {
            graph->UpdateGraph(window.get(), nullptr, 0);
            if (!DrawFull(*graph, window.get(), nullptr)) ++failures;
        }
        sampler.join();
        EXPECT_EQ(failures.load(), 0);
        EXPECT_EQ(graph->GetPointCount(0), graph->GetPointCapacity());
    }
    EXPECT_EQ(wren::GetPerfGraphGdiObjectCount(), before);
    EXPECT_EQ(wren::GetPerfGraphGdiFreeFailures(), failuresBefore);
}

}  // namespace
