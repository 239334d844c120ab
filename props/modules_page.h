// The Modules page of the process properties window: the modules of the process in load order, filled by a
// loader thread of its own, with the selected module's description, product, company and path below.
#pragma once
#include <windows.h>

namespace lmvx {

// The page procedure; WM_INITDIALOG's lParam is the window's ProcessPropertiesContext.
INT_PTR CALLBACK ModulesPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);

// Starts the loader of the list for the process. The loader writes the list only through messages; each
// row's item data becomes the module's _IMAGEINFO once its version data is read, owned by the list's page.
bool StartModuleLoader(HWND list, unsigned pid);

}  // namespace lmvx
