// The notification-area icon: one icon of an owner window, with a tip and a callback message.
#include <windows.h>
#include <shellapi.h>

#include <mutex>

#include "finch.h"
#include "systray_taskbar_listener.h"

struct UIP_SYSTRAYICON::State {
    std::mutex lock;   // SetIcon comes from the sampling thread, the rest from the owner's thread
    HWND owner = nullptr;
    HICON icon = nullptr;
    wchar_t tip[128] = {};
    UINT id = 0;
    UINT callbackMessage = 0;
    bool wanted = false;   // Show() was called and Delete() not since
    bool added = false;    // the shell holds the icon now
    finch::TaskbarListener listener;

    NOTIFYICONDATAW Data(UINT flags) const {
        NOTIFYICONDATAW data{};
        data.cbSize = sizeof(data);
        data.hWnd = owner;
        data.uID = id;
        data.uFlags = flags;
        data.uCallbackMessage = callbackMessage;
        data.hIcon = icon;
        lstrcpynW(data.szTip, tip, ARRAYSIZE(data.szTip));
        return data;
    }

    // Caller holds the lock.
    bool AddToShell() {
        NOTIFYICONDATAW data = Data(NIF_MESSAGE | NIF_ICON | NIF_TIP);
        added = Shell_NotifyIconW(NIM_ADD, &data) != FALSE;
        return added;
    }

    // A new taskbar knows none of the old icons: add ours again if it should be there.
    void OnTaskbarCreated() {
        std::lock_guard guard(lock);
        added = false;
        if (wanted) AddToShell();
    }
};

UIP_SYSTRAYICON::UIP_SYSTRAYICON() : state_(std::make_unique<State>()) {}

UIP_SYSTRAYICON::~UIP_SYSTRAYICON() {
    Delete();
}

int UIP_SYSTRAYICON::Init(HWND owner, HICON icon, const wchar_t* tip, int id, UINT callbackMessage) {
    if (!owner || !IsWindow(owner)) return 0;
    {
        std::lock_guard guard(state_->lock);
        state_->owner = owner;
        state_->icon = icon;
        lstrcpynW(state_->tip, tip ? tip : L"", ARRAYSIZE(state_->tip));
        state_->id = static_cast<UINT>(id);
        state_->callbackMessage = callbackMessage;
    }
    // Without the listener the icon still works; it only would not come back after a shell restart.
    State* state = state_.get();
    state_->listener.Start([state] { state->OnTaskbarCreated(); });
    return 1;
}

int UIP_SYSTRAYICON::Show() {
    std::lock_guard guard(state_->lock);
    if (!state_->owner) return 0;
    state_->wanted = true;
    if (state_->added) {
        NOTIFYICONDATAW data = state_->Data(NIF_MESSAGE | NIF_ICON | NIF_TIP);
        if (Shell_NotifyIconW(NIM_MODIFY, &data)) return 1;
        state_->added = false;   // the shell lost it: add it again
    }
    // No tray (no shell running): the program goes on; the icon comes when the taskbar announces itself.
    return state_->AddToShell() ? 1 : 0;
}

int UIP_SYSTRAYICON::SetIcon(HICON icon) {
    std::lock_guard guard(state_->lock);
    state_->icon = icon;
    if (!state_->added) return 1;   // kept for the next Show()
    NOTIFYICONDATAW data = state_->Data(NIF_ICON);
    return Shell_NotifyIconW(NIM_MODIFY, &data) ? 1 : 0;
}

int UIP_SYSTRAYICON::Delete() {
    std::lock_guard guard(state_->lock);
    state_->wanted = false;
    if (!state_->added) return 1;
    state_->added = false;
    NOTIFYICONDATAW data = state_->Data(0);
    return Shell_NotifyIconW(NIM_DELETE, &data) ? 1 : 0;
}

int UIP_SYSTRAYICON::IsShown() const {
    std::lock_guard guard(state_->lock);
    return state_->added ? 1 : 0;
}

HICON UIP_SYSTRAYICON::GetIcon() const {
    std::lock_guard guard(state_->lock);
    return state_->icon;
}

HWND UIP_SYSTRAYICON::GetTaskbarListener() const {
    return state_->listener.Window();
}
