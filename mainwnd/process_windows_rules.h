// The rules of the window enumeration of a process, as values in and values out.
#pragma once
#include <windows.h>

#include <cstddef>

#include "common/top_level_windows.h"

namespace lmvx {

// A window counts with a title of 1 to 255 characters.
bool QualifiesAsProcessWindow(bool visible, DWORD windowProcessId, DWORD pid, size_t titleLength);
// Where a window menu opens: each coordinate that is 0 is taken from the cursor.
POINT WindowMenuPosition(int x, int y, POINT cursor);

}  // namespace lmvx
