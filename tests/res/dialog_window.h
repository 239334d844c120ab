// Creates a dialog of this test program's resources in one language, hidden, for tests
// and the screenshot viewer. Child dialogs (DS_CONTROL) get a hidden host window.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace lmvx::restest {

struct WindowDestroyer {
    void operator()(HWND window) const { DestroyWindow(window); }
};
using UniqueWindow = std::unique_ptr<std::remove_pointer_t<HWND>, WindowDestroyer>;

struct MenuDestroyer {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using UniqueMenu = std::unique_ptr<std::remove_pointer_t<HMENU>, MenuDestroyer>;

struct DialogWindow {
    UniqueWindow host;    // only for child dialogs; destroyed after the dialog
    UniqueWindow dialog;
};

// Registers the common controls the templates use; call once per process.
void InitControls();

// Null dialog when the template is missing or cannot be created.
DialogWindow CreateDialogInLanguage(unsigned dialogId, LANGID language, DLGPROC procedure = nullptr,
                                    LPARAM param = 0);

// The menu template in one language, or null.
UniqueMenu LoadMenuInLanguage(unsigned menuId, LANGID language);

}  // namespace lmvx::restest
