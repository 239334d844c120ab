// The record that one process properties window shares with all of its pages.
#pragma once
#include <windows.h>

#include "heron.h"
#include "kestrel.h"

namespace lmvx {

// Created by the opener, owned by the window's thread and freed by it when the dialog has ended. Every page
// receives a pointer to this same record as the lParam of its WM_INITDIALOG and keeps it in GWLP_USERDATA.
struct ProcessPropertiesContext {
    HWND mainWindow = nullptr;    // receives WM_USER / WM_USER + 1 when the frame opens and closes
    HWND parentWindow = nullptr;  // owner of the frame
    HINSTANCE instance = nullptr;
    HWND frame = nullptr;
    HWND generalPage = nullptr;
    HWND startPage = nullptr;
    HWND performancePage = nullptr;
    HWND memoryPage = nullptr;
    HWND virtualMemoryPage = nullptr;
    HWND modulesPage = nullptr;
    HWND handlesPage = nullptr;
    HWND filesPage = nullptr;
    HWND networkPage = nullptr;
    HWND stringsPage = nullptr;
    HWND threadsPage = nullptr;
    HWND tokenPage = nullptr;
    unsigned pid = 0;
    BOOL topmost = FALSE;         // the main window was topmost when this window was opened
    kestrel::PD_THREADLIST threadList;               // working list of the Threads page
    kestrel::TL_PROCESSLIST* processList = nullptr;  // the program's provider; look the process up by PID
    heron::_CONNECTIONLIST connectionList;           // working list of the Network page
    kestrel::_HANDLELIST handleList;                 // working list of the Handles and Files pages
    int (*openInShell)(const wchar_t* path) = nullptr;  // the program's "open containing folder"
    // Refresh interval of the main window in ms (0 means 100 ms), read once at opening.
    unsigned refreshInterval = 0;
};

// The context a page keeps in its window's user data.
inline ProcessPropertiesContext* PageContext(HWND page) {
    return reinterpret_cast<ProcessPropertiesContext*>(GetWindowLongPtrW(page, GWLP_USERDATA));
}

// Stores the context handed to a page's WM_INITDIALOG and returns it.
inline ProcessPropertiesContext* KeepPageContext(HWND page, LPARAM initParam) {
    SetWindowLongPtrW(page, GWLP_USERDATA, initParam);
    return reinterpret_cast<ProcessPropertiesContext*>(initParam);
}

// True once: at the WM_SHOWWINDOW that first shows the page. A page reads what is slow to read there, so
// that opening the window does not wait for it; the page shows it from its first appearance.
inline bool IsFirstShowing(HWND page, WPARAM shown) {
    constexpr wchar_t kShownProperty[] = L"LumivexPageShown";
    if (!shown || GetPropW(page, kShownProperty)) return false;
    SetPropW(page, kShownProperty, reinterpret_cast<HANDLE>(1));   // the window frees it when destroyed
    return true;
}

}  // namespace lmvx
