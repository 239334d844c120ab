// Reads a list view that lives in another process: its rows' item data and its column headers, and sets
// its rows' states. The request records are placed in the other process's memory, where the control writes.
#pragma once
#include <windows.h>
#include <commctrl.h>

#include <string>

namespace lmvx::test {

class RemoteListView {
public:
    explicit RemoteListView(HWND listView);
    ~RemoteListView();
    RemoteListView(const RemoteListView&) = delete;
    RemoteListView& operator=(const RemoteListView&) = delete;

    bool IsValid() const { return memory_ != nullptr; }
    // The row whose item data is this value, or -1.
    int FindRowByData(LPARAM data) const;
    std::wstring HeaderText(int column) const;
    // Sets the row's state bits under mask, as a click would; false when the control refused.
    bool SetRowState(int row, UINT state, UINT mask) const;
    int SelectedCount() const { return static_cast<int>(SendMessageW(listView_, LVM_GETSELECTEDCOUNT, 0, 0)); }

private:
    HWND listView_;
    HANDLE process_ = nullptr;
    BYTE* memory_ = nullptr;   // in the other process
};

}  // namespace lmvx::test
