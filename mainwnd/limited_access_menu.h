// The menu a click on the status bar's limited-access notice offers: why some information is missing
// (the limited-access dialog) and the request for administrator rights at the next start.
#pragma once
#include <windows.h>

namespace lmvx {

// Shows the menu at a point on the screen, owned by owner; the chosen command, 0 when dismissed.
unsigned ShowLimitedAccessMenu(HWND owner, POINT at);

}  // namespace lmvx
