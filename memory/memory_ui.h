// Small window helpers the memory windows share.
#pragma once
#include "common/format_text.h"
#include <windows.h>

#include <string>

#include "common/unique_resource.h"

namespace lmvx {

// "Courier New" at height -11, for dumps, addresses and string lists.
UniqueFont LoadMonospacedFont();
// The small (16 x 16) picture of an icon resource of the program; shared, never destroyed.
HICON SmallProgramIcon(unsigned resourceId);
// Gives a button the small icon of a resource and bold text.
void DecorateButton(HWND dialog, int buttonId, unsigned iconId);
// Sets an ANSI text (a dump) only when it differs, so that a refresh keeps the scroll position.
void SetAnsiTextIfChanged(HWND dialog, int controlId, const char* text);
// The text of a control, up to `limit` characters.
std::wstring ControlText(HWND dialog, int controlId, int limit);
// The file name part of a path.
const wchar_t* FileNameOfPath(const wchar_t* path);

}  // namespace lmvx
