// The limited-access notice: a tracking balloon-less tooltip that points at the status bar's notice pane
// for the first seconds after start, when the program runs without full access to the system.
#pragma once
#include <windows.h>

namespace lmvx::perf {

RECT PaneRectInBar(HWND bar, int pane);
// Creates the tooltip (owned by the bar) with its one tool over the pane; null on failure.
HWND CreateNotice(HWND bar, const RECT& paneRect);
void ActivateNotice(HWND notice, HWND bar);
// Points the notice at the bottom-left corner of the pane (screen rectangle).
void PlaceNotice(HWND notice, const RECT& paneScreenRect);
// Tracking off for good: the notice stays hidden afterwards.
void HideNotice(HWND notice, HWND bar);

}  // namespace lmvx::perf
