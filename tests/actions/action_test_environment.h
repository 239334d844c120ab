// What the window tests of the process actions share: the program's English resources in the language
// module, the program's provider with a fresh snapshot, and a hidden window to own dialogs and menus.
#pragma once
#include <windows.h>

#include <string>

namespace actions_test {

// Loads the language module from this test program's resources (the program's own) and starts the provider.
void StartTestApplication();
// A new snapshot, so that processes started since the last one are in it.
void RefreshProvider();
// The display name the provider gives the process, "" when it is not in the snapshot.
std::wstring ProviderDisplayName(unsigned pid);
std::wstring ProviderCompanyName(unsigned pid);
// A text of the language module in the current language.
std::wstring Text(unsigned id);

class HiddenOwner {
public:
    HiddenOwner();
    ~HiddenOwner();
    HiddenOwner(const HiddenOwner&) = delete;
    HiddenOwner& operator=(const HiddenOwner&) = delete;
    HWND Get() const { return window_; }

private:
    HWND window_ = nullptr;
};

}  // namespace actions_test
