// The Windows pane of the Threads page: the top-level windows that the selected thread owns.
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <unordered_set>
#include <vector>

#include "common/top_level_windows.h"
#include "finch.h"
#include "props/threads_page_parts.h"
#include "resource.h"

namespace lmvx {

namespace {

constexpr size_t kMaxThreadWindows = 256;
constexpr UINT kIconTimeoutMs = 100;

// The thread's top-level windows in z-order. The topmost window is never examined (intended).
std::vector<HWND> WindowsOfThread(DWORD threadId) {
    std::vector<HWND> owned;
    const std::vector<HWND> topLevel = TopLevelWindowsInZOrder();
    for (size_t i = 1; i < topLevel.size() && owned.size() < kMaxThreadWindows; ++i) {
        if (GetWindowThreadProcessId(topLevel[i], nullptr) == threadId && IsWindow(topLevel[i])) {
            owned.push_back(topLevel[i]);
        }
    }
    return owned;
}

HICON AskWindowIcon(HWND window, WPARAM size) {
    DWORD_PTR icon = 0;
    if (!SendMessageTimeoutW(window, WM_GETICON, size, 0, SMTO_ABORTIFHUNG, kIconTimeoutMs, &icon)) return nullptr;
    return reinterpret_cast<HICON>(icon);
}

// The window's icon joins the image list and stays there for the life of the page.
int ImageForWindow(HWND list, HWND window) {
    HICON icon = AskWindowIcon(window, ICON_SMALL);
    if (!icon) icon = AskWindowIcon(window, ICON_BIG);
    if (!icon) return 0;
    const int image = ImageList_AddIcon(ListView_GetImageList(list, LVSIL_SMALL), icon);
    return image < 0 ? 0 : image;
}

std::wstring WindowRowText(const std::wstring& title, bool visible) {
    const std::wstring shownTitle = title.empty() ? L"[No Title]" : title;
    return shownTitle + L" " + (visible ? L"" : Text(IDS_WINDOW_INVISIBLE));
}

std::wstring HandleText(HWND window) {
    wchar_t text[32];
    APIP_FormatString(text, sizeof text, L"0x%X", static_cast<unsigned>(reinterpret_cast<UINT_PTR>(window)));
    return text;
}

}  // namespace

void RefreshThreadWindows(HWND list, unsigned threadId) {
    std::unordered_set<HWND> shown;
    for (HWND window : WindowsOfThread(threadId)) {
        DWORD processId = 0;
        const DWORD windowThread = GetWindowThreadProcessId(window, &processId);
        const std::wstring title = ReadWindowTitle(window, processId, windowThread);
        const bool visible = IsWindowVisible(window) != FALSE;
        if (title.empty() && !visible) continue;
        shown.insert(window);
        int row = FindRowByData(list, reinterpret_cast<LPARAM>(window));
        if (row < 0) row = AppendRowWithData(list, ImageForWindow(list, window), reinterpret_cast<LPARAM>(window));
        if (row < 0) continue;
        SetCellIfChanged(list, row, 0, WindowRowText(title, visible));
        SetCellIfChanged(list, row, 1, HandleText(window));
    }
    DeleteRowsUnless(list, [&](LPARAM window) { return shown.contains(reinterpret_cast<HWND>(window)); });
}

}  // namespace lmvx
