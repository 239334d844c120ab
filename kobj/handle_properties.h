// "Properties of" one handle: a small read-only sheet, modal on the calling thread.
#pragma once
#include <windows.h>

#include "kestrel.h"

namespace lmvx::kobj {

void ShowHandleProperties(HWND owner, const kestrel::_HANDLEOBJECT* handle);

INT_PTR CALLBACK HandlePropertiesProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx::kobj
