// Texts and states of the process menu's window items, by the number of windows the process has.
#pragma once

namespace lmvx {

// "Close Window" for fewer than two windows, "Close Window..." (a choice follows) from two on.
unsigned CloseWindowTextId(int windowCount);
// "Bring to Front" for fewer than two windows, "Bring to Front..." from two on.
unsigned BringToFrontTextId(int windowCount);
// Both window items are grayed when the process has no window.
bool WindowItemsEnabled(int windowCount);

}  // namespace lmvx
