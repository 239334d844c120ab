// A pop-up of its own, fed by the test: a refresh that would draw the same picture leaves the graph on
// screen as it is, a changed picture is drawn, and a paint request always draws.
#include <windows.h>

#include <gtest/gtest.h>

#include "hosted_main_window.h"
#include "kestrel.h"
#include "message_pump.h"
#include "perf/perf_popup.h"
#include "resource.h"
#include "wren.h"

namespace perfgui_test {
namespace {

constexpr COLORREF kMarker = RGB(255, 0, 255);   // a colour the graph never draws

class PopupGraphRefresh : public testing::Test {
protected:
    void SetUp() override {
        owner_ = CreateWindowExW(0, L"STATIC", L"owner", WS_OVERLAPPED, 0, 0, 100, 100, nullptr, nullptr,
                                 GetModuleHandleW(nullptr), nullptr);
        ASSERT_NE(owner_, nullptr);
        ASSERT_TRUE(counters_.Init());
        ASSERT_TRUE(graph_.Init(180000, 500, 3));
        graph_.SetScaleMax(100, 0);
        graph_.SetScaleMax(100, 1);
        Feed(40);
        ASSERT_TRUE(popup_.Create(owner_, lmvx::perf::PopupKind::Cpu,
                                  {&counters_, &graph_, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH))}));
        popup_.PopupShow(nullptr);
        graphControl_ = GetDlgItem(popup_.Window(), IDC_POPUP_GRAPH);
        ASSERT_NE(graphControl_, nullptr);
        lmvx_test::PumpUntil([&] { return IsWindowVisible(popup_.Window()) != FALSE; }, 5000);
        UpdateWindow(popup_.Window());
    }
    void TearDown() override {
        if (owner_) DestroyWindow(owner_);
        graph_.Delete();
        counters_.Delete();
    }

    // The same figure for every series, in the interval of the fixed time stamp.
    void Feed(unsigned value) {
        for (unsigned series = 0; series < 3; ++series) graph_.SetDataPoint(value, 1000000, series);
    }
    // Paints the marker at the graph's top-left pixel, as anything else on the screen might.
    void Mark() {
        HDC dc = GetDC(graphControl_);
        SetPixel(dc, 0, 0, kMarker);
        ReleaseDC(graphControl_, dc);
    }
    bool Marked() {
        HDC dc = GetDC(graphControl_);
        const COLORREF pixel = GetPixel(dc, 0, 0);
        ReleaseDC(graphControl_, dc);
        return pixel == kMarker;
    }

    lmvx_test::ScopedHostedProgram program_{L"Lumivex Popup Graph Test"};
    HWND owner_ = nullptr;
    kestrel::_SYSPERFINFO counters_;
    wren::PERFGRAPH graph_;
    lmvx::perf::PerfPopup popup_;
    HWND graphControl_ = nullptr;
};

TEST_F(PopupGraphRefresh, DrawsOnlyWhatChangedButAlwaysWhenAskedToPaint) {
    popup_.PopupRefresh();   // the picture of the fed figures is on screen now
    Mark();
    ASSERT_TRUE(Marked()) << "the marker can be read back from the screen";

    Feed(40);   // the same figures again
    popup_.PopupRefresh();
    EXPECT_TRUE(Marked()) << "an unchanged picture is not drawn again";

    Feed(90);   // every line moves
    popup_.PopupRefresh();
    EXPECT_FALSE(Marked()) << "a changed picture is drawn";

    Mark();
    InvalidateRect(graphControl_, nullptr, FALSE);
    UpdateWindow(graphControl_);
    EXPECT_FALSE(Marked()) << "a paint request draws the graph whatever it shows";
}

}  // namespace
}  // namespace perfgui_test
