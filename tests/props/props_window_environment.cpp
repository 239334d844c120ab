#include "props_window_environment.h"

#include "app/shared_icons.h"
#include "finch.h"
#include "wren.h"

namespace props_test {

namespace {

constexpr wchar_t kHostClass[] = L"LumivexPageTestHost";

LRESULT CALLBACK HostProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

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
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = HostProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = kHostClass;
    RegisterClassExW(&windowClass);   // fails harmlessly when already registered
    host_ = CreateWindowExW(0, kHostClass, L"Lumivex page test", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE,
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

std::wstring CellText(HWND list, int row, int column) {
    wchar_t text[512] = {};
    ListView_GetItemText(list, row, column, text, 512);
    return text;
}

int FindRowWithText(HWND list, int column, const std::wstring& part) {
    for (int row = 0; row < ListView_GetItemCount(list); ++row) {
        if (CellText(list, row, column).find(part) != std::wstring::npos) return row;
    }
    return -1;
}

int FindRowWithData(HWND list, LPARAM data) {
    LVFINDINFOW find{};
    find.flags = LVFI_PARAM;
    find.lParam = data;
    return static_cast<int>(SendMessageW(list, LVM_FINDITEMW, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&find)));
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

HWND FindOwnWindow(const std::wstring& caption) {
    struct Search {
        const std::wstring* caption;
        HWND found;
    } search{&caption, nullptr};
    EnumWindows(
        [](HWND window, LPARAM parameter) -> BOOL {
            auto* search = reinterpret_cast<Search*>(parameter);
            DWORD pid = 0;
            GetWindowThreadProcessId(window, &pid);
            wchar_t text[256] = {};
            GetWindowTextW(window, text, 256);
            if (pid != GetCurrentProcessId() || !IsWindowVisible(window) || *search->caption != text) return TRUE;
            search->found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

}  // namespace props_test
