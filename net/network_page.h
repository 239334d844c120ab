// The Network page of the process properties window: the endpoints of the process with host names when
// resolving is on, refreshed while the page is visible.
#pragma once
#include <windows.h>

#include "props/properties_context.h"

namespace lmvx::net {

// Sent by the page to itself: refresh now.
inline constexpr UINT kNetworkPageRefresh = WM_USER + 16;

void RefreshNetworkPage(HWND page, ProcessPropertiesContext& context);

INT_PTR CALLBACK NetworkPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx::net
