#include "remote_list_view.h"

#include <commctrl.h>

namespace lmvx::test {
namespace {

constexpr size_t kTextCapacity = 512;
constexpr size_t kMemorySize = 4096;   // one request record followed by its text buffer

}  // namespace

RemoteListView::RemoteListView(HWND listView) : listView_(listView) {
    DWORD pid = 0;
    GetWindowThreadProcessId(listView, &pid);
    process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, pid);
    if (process_) {
        memory_ = static_cast<BYTE*>(VirtualAllocEx(process_, nullptr, kMemorySize, MEM_COMMIT, PAGE_READWRITE));
    }
}

RemoteListView::~RemoteListView() {
    if (memory_) VirtualFreeEx(process_, memory_, 0, MEM_RELEASE);
    if (process_) CloseHandle(process_);
}

int RemoteListView::FindRowByData(LPARAM data) const {
    const int rows = static_cast<int>(SendMessageW(listView_, LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < rows && memory_; ++row) {
        LVITEMW item{};
        item.mask = LVIF_PARAM;
        item.iItem = row;
        WriteProcessMemory(process_, memory_, &item, sizeof item, nullptr);
        SendMessageW(listView_, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(memory_));
        ReadProcessMemory(process_, memory_, &item, sizeof item, nullptr);
        if (item.lParam == data) return row;
    }
    return -1;
}

std::wstring RemoteListView::HeaderText(int column) const {
    if (!memory_) return {};
    LVCOLUMNW request{};
    request.mask = LVCF_TEXT;
    request.pszText = reinterpret_cast<wchar_t*>(memory_ + sizeof request);
    request.cchTextMax = kTextCapacity;
    WriteProcessMemory(process_, memory_, &request, sizeof request, nullptr);
    SendMessageW(listView_, LVM_GETCOLUMNW, column, reinterpret_cast<LPARAM>(memory_));
    wchar_t text[kTextCapacity] = {};
    ReadProcessMemory(process_, memory_ + sizeof request, text, sizeof text - sizeof(wchar_t), nullptr);
    return text;
}

bool RemoteListView::SetRowState(int row, UINT state, UINT mask) const {
    if (!memory_) return false;
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    WriteProcessMemory(process_, memory_, &item, sizeof item, nullptr);
    return SendMessageW(listView_, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(memory_)) != 0;
}

}  // namespace lmvx::test
