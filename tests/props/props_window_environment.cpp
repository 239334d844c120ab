#include "props_window_environment.h"

#include "app/shared_icons.h"
#include "finch.h"
#include "test_host.h"
#include "wren.h"

namespace props_test {

void SetUpApplication(LANGID language) {
    wren::SetAppInfo(L"Lumivex Page Test", L"LumivexPageTest", L"1.0", 1000, L"test");
    wren::SetCurrentLangID(language);
    UIL_LangModule.Init(GetModuleHandleW(nullptr), L"LumivexPageTest", L"test", language);
    INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_LISTVIEW_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    lmvx::LoadSharedIcons(GetModuleHandleW(nullptr));
}

HostedPage::HostedPage(unsigned dialogId, DLGPROC procedure, unsigned pid)
    : context_(std::make_unique<lmvx::ProcessPropertiesContext>()) {
    host_ = CreateWindowExW(0, L"STATIC", L"Lumivex page test", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE,
                            20, 20, 700, 480, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    context_->pid = pid;
    context_->refreshInterval = 100;
    context_->frame = host_;
    page_ = UIL_LangModule.LoadDialogParam(dialogId, host_, procedure, reinterpret_cast<LPARAM>(context_.get()));
    ShowWindow(page_, SW_SHOW);
}

HostedPage::~HostedPage() {
    if (host_) DestroyWindow(host_);
}

int FindRowWithText(HWND list, int column, const std::wstring& part) {
    for (int row = 0; row < ListView_GetItemCount(list); ++row) {
        if (lmvx_test::CellText(list, row, column).find(part) != std::wstring::npos) return row;
    }
    return -1;
}

void SelectRow(HWND list, int row) {
    ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_SetSelectionMark(list, row);
    Notify(list, NM_CLICK);   // the pages read the mark on any notification
}

void Notify(HWND list, UINT code) {
    NMHDR header{list, static_cast<UINT_PTR>(GetDlgCtrlID(list)), code};
    SendMessageW(GetParent(list), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

}  // namespace props_test
