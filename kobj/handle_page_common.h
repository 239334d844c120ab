// What the Handles and Files pages share: set-up, the refresh timer, their menus of fixed language pairs.
#pragma once
#include <windows.h>

#include <span>

#include "props/properties_context.h"

namespace lmvx::kobj {

// Title in bold, the page recorded in the context, full-row list with its columns (see SetUpColumns).
void SetUpHandlePage(HWND page, ProcessPropertiesContext* context, HWND ProcessPropertiesContext::*slot,
                     const unsigned* columnTextIds, const int* columnWidths, int columnCount);

// Timer 4000 at the window's refresh interval (100 ms when it is 0).
void ArmPageRefreshTimer(HWND page, const ProcessPropertiesContext& context);

// One item of a page's menu: a fixed English / German pair (null texts: a separator).
struct PageMenuItem {
    const wchar_t* english;
    const wchar_t* german;
    UINT command;
    bool isDefault = false;
    bool checked = false;
};

// Shows the menu at the cursor; its commands go to the page.
void ShowPageMenu(HWND page, std::span<const PageMenuItem> items);

// The page's handle list view (control 1189).
HWND PageList(HWND page);

// Redraws the list when something was inserted or deleted, then sorts it when a neighbour pair says so.
void FinishRefresh(HWND list, bool changed);

}  // namespace lmvx::kobj
