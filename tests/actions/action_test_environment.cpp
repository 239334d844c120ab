#include "action_test_environment.h"

#include <commctrl.h>

#include "app/lmvx.h"
#include "finch.h"

namespace actions_test {

void StartTestApplication() {
    UIL_LangModule.Init(GetModuleHandleW(nullptr), L"Lumivex Actions Test", L"test", UIL_LANGMODULE::English);
    INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    lmvx::g_processList.Init();
    RefreshProvider();
}

void RefreshProvider() {
    lmvx::g_processList.Update();
}

std::wstring ProviderDisplayName(unsigned pid) {
    const int item = lmvx::g_processList.GetItemByPID(pid);
    return item == -1 ? std::wstring() : lmvx::g_processList.GetItemDisplayName(item);
}

std::wstring ProviderCompanyName(unsigned pid) {
    const int item = lmvx::g_processList.GetItemByPID(pid);
    return item == -1 ? std::wstring() : lmvx::g_processList.GetItemInfoCompanyName(item);
}

std::wstring Text(unsigned id) {
    return UIL_LangModule.GetLangString(id);
}

HiddenOwner::HiddenOwner()
    : window_(CreateWindowExW(0, L"STATIC", L"Lumivex actions test owner", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr)) {}

HiddenOwner::~HiddenOwner() {
    if (window_) DestroyWindow(window_);
}

}  // namespace actions_test
