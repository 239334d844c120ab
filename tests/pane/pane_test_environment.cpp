#include "pane_test_environment.h"

#include <commctrl.h>

#include <memory>
#include <vector>

#include "app/shared_icons.h"
#include "finch.h"
#include "resource.h"
#include "wren.h"

namespace pane_test {
namespace {

constexpr wchar_t kHostClass[] = L"LumivexPaneTestHost";

LRESULT CALLBACK HostProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(window, message, wParam, lParam);
}

struct WindowSearch {
    const std::wstring* caption;
    HWND except;
    HWND found;
};

BOOL CALLBACK MatchOwnWindow(HWND window, LPARAM parameter) {
    auto* search = reinterpret_cast<WindowSearch*>(parameter);
    DWORD pid = 0;
    GetWindowThreadProcessId(window, &pid);
    if (pid != GetCurrentProcessId() || window == search->except || !IsWindowVisible(window)) return TRUE;
    wchar_t text[256] = {};
    GetWindowTextW(window, text, 256);
    if (*search->caption != text) return TRUE;
    search->found = window;
    return FALSE;
}

}  // namespace

ScopedTestApplication::ScopedTestApplication(const wchar_t* name, LANGID language)
    : applicationKey_(std::wstring(L"Software\\Orvane Software\\") + name) {
    RegDeleteTreeW(HKEY_CURRENT_USER, applicationKey_.c_str());   // leftovers of an aborted run
    wren::SetAppInfo(L"Lumivex Pane Test", name, L"1.0", 1000, L"test");
    wren::PostInit();
    wren::SetCurrentLangID(language);
    UIL_LangModule.Init(GetModuleHandleW(nullptr), name, L"test", language);
    INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    lmvx::LoadSharedIcons(GetModuleHandleW(nullptr));
}

ScopedTestApplication::~ScopedTestApplication() { RegDeleteTreeW(HKEY_CURRENT_USER, applicationKey_.c_str()); }

HostWindow::HostWindow() {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = HostProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = kHostClass;
    RegisterClassExW(&windowClass);   // fails harmlessly when already registered
    window_ = CreateWindowExW(0, kHostClass, L"Lumivex pane test", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 800,
                              600, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    list_ = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS, 300, 0, 480,
                            500, window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(IDC_PROCESS_LIST)),
                            GetModuleHandleW(nullptr), nullptr);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = 200;
    column.pszText = const_cast<wchar_t*>(L"Process");
    SendMessageW(list_, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
}

HostWindow::~HostWindow() {
    if (window_) DestroyWindow(window_);
}

void HostWindow::AddRow(unsigned pid, const wchar_t* text) {
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = static_cast<int>(SendMessageW(list_, LVM_GETITEMCOUNT, 0, 0));
    item.pszText = const_cast<wchar_t*>(text);
    item.lParam = static_cast<LPARAM>(pid);
    SendMessageW(list_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void HostWindow::SelectRow(unsigned pid) {
    LVFINDINFOW find{};
    find.flags = LVFI_PARAM;
    find.lParam = static_cast<LPARAM>(pid);
    const int row = static_cast<int>(SendMessageW(list_, LVM_FINDITEMW, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&find)));
    LVITEMW state{};
    state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    state.state = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&state));
}

HWND FindOwnWindow(const std::wstring& caption, HWND except) {
    WindowSearch search{&caption, except, nullptr};
    EnumWindows(MatchOwnWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::wstring ChildTexts(HWND window) {
    std::wstring texts;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t text[1024] = {};
        GetWindowTextW(child, text, 1024);
        texts += text;
        texts += L"\n";
    }
    return texts;
}

bool WaitForOwnWindow(const std::wstring& caption, DWORD limitMs, const std::function<void(HWND)>& act, HWND except) {
    const DWORD start = GetTickCount();
    while (GetTickCount() - start <= limitMs) {
        if (HWND window = FindOwnWindow(caption, except)) {
            act(window);
            return true;
        }
        Sleep(20);
    }
    return false;
}

std::wstring TestTempFolder() {
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    return folder;
}

std::wstring ReadWholeFile(const std::wstring& path) {
    HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    std::vector<wchar_t> buffer(4096);
    DWORD read = 0;
    ReadFile(file, buffer.data(), static_cast<DWORD>(buffer.size() * sizeof(wchar_t)), &read, nullptr);
    CloseHandle(file);
    return std::wstring(buffer.data(), read / sizeof(wchar_t));
}

}  // namespace pane_test

#include <gtest/gtest.h>

namespace pane_test {
namespace {

// One registered application for the whole test program, English unless a test switches.
class ApplicationEnvironment : public ::testing::Environment {
public:
    void SetUp() override { application_ = std::make_unique<ScopedTestApplication>(L"LumivexPaneTest", UIL_LANGMODULE::English); }
    void TearDown() override { application_.reset(); }

private:
    std::unique_ptr<ScopedTestApplication> application_;
};

[[maybe_unused]] ::testing::Environment* const g_environment =
    ::testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

}  // namespace
}  // namespace pane_test
