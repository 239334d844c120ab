// What the details pane keeps for its life; the pointer lives in the pane's user data.
#pragma once
#include <windows.h>

#include <cstdint>
#include <string>

#include "common/unique_resource.h"
#include "kestrel.h"
#include "mainwnd/details_pane.h"

namespace lmvx {

struct DetailsPaneContext {
    HWND pane = nullptr;
    HWND mainWindow = nullptr;
    HWND processList = nullptr;
    const kestrel::TL_PROCESSLIST* provider = nullptr;
    PaneActions actions;
    UniqueIcon processIcon;     // a copy: the provider's icons live only until its next update
    std::wstring noteName;      // value name of the note in the edit
    UniqueGdiObject linkFont;   // underlined dialog font of the priority link
    // What the pane shows, as last written: the refresh thread compares with these instead of reading
    // the controls back, which would cost a message round trip to the pane's thread for each one.
    unsigned shownPid = 0;      // mirrors the hidden PID field, which only DetailsPaneShowProcess writes
    std::wstring shownTexts[4];   // name, second line, path, priority
};

DetailsPaneContext* PaneContextOf(HWND pane);

// Fills the views for the process in the hidden PID field (the views of details_pane_view.cpp).
void RefreshPaneViews(DetailsPaneContext& context, bool processChanged);
// Repaints the small CPU and memory graph of the shown process as last drawn into the owner-drawn static.
void DrawPaneGraph(const DetailsPaneContext& context, const DRAWITEMSTRUCT& item);
// A push button with its small icon and text, for when no painter was handed in.
void DrawPlainPaneButton(const DRAWITEMSTRUCT& item);

}  // namespace lmvx
