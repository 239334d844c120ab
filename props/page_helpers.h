// Small helpers the Threads, Modules and call stack windows share.
#pragma once
#include <windows.h>

namespace lmvx {

// The localised text of a string id; never null.
const wchar_t* Text(unsigned id);

// A page that was given no context says so and ends.
void EndPageWithoutContext(HWND page);

// Shows the pop-up menu at the cursor and sends the chosen command to the page.
void TrackMenuAndSend(HWND page, HMENU menu);

}  // namespace lmvx
