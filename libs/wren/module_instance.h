// The module handle of wren64.dll itself, where this library's own dialogs live.
#pragma once
#include <windows.h>

namespace wren {

HINSTANCE LibraryInstance();

}  // namespace wren
