// What the Handles and Files pages share: set-up, the refresh timer, their menus of fixed language pairs.
#pragma once
#include <windows.h>

#include <span>

#include "props/properties_context.h"

namespace lmvx::kobj {

// Title in bold, the page recorded in the context, full-row list with its columns (see SetUpColumns).
void SetUpHandlePage(HWND page, ProcessPropertiesContext& context, HWND ProcessPropertiesContext::*slot,
                     const unsigned* columnTextIds, const int* columnWidths, int columnCount);

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

// What differs between the two pages; the rest of their message handling is the same.
struct PageBehaviour {
    void (*setUp)(HWND page, ProcessPropertiesContext& context);   // after the common set-up
    void (*refresh)(HWND page, ProcessPropertiesContext& context);
    void (*command)(HWND page, ProcessPropertiesContext& context, WORD command);
    void (*showMenu)(HWND page);   // right click on a row; a double click sends IDM_HANDLE_PROPERTIES
};

// The pages' dialog procedure, given their behaviour. Refreshes when the page is shown and on timer 4000
// while it is visible: a hidden page is not queried, since a process with thousands of handles would cost
// every tick for nothing.
INT_PTR HandlePageMessage(const PageBehaviour& behaviour, HWND page, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx::kobj
