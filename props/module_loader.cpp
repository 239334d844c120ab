// The Modules page's loader thread: the module rows at once, then each module's version data.
#include <windows.h>
#include <commctrl.h>
#include <tlhelp32.h>

#include <memory>
#include <new>
#include <vector>

#include "common/unique_resource.h"
#include "finch.h"
#include "kestrel.h"
#include "props/modules_page.h"
#include "wren.h"

namespace lmvx {

namespace {

constexpr size_t kMaxModules = 256;
// The window is shown before the loader starts its work.
constexpr DWORD kStartDelayMs = 500;

struct ModuleLoadRequest {
    HWND list;
    unsigned pid;
};

UniqueFileHandle TakeModuleSnapshot(unsigned pid) {
    UniqueHandle process(OpenProcess(wren::IsOSVistaOrHigher() ? PROCESS_QUERY_LIMITED_INFORMATION
                                                               : PROCESS_QUERY_INFORMATION,
                                     FALSE, pid));
    if (!process) return UniqueFileHandle();
    BOOL wow64 = FALSE;
    const bool under32Bit = IsWow64Process(process.Get(), &wow64) && wow64;
    return UniqueFileHandle(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE | (under32Bit ? TH32CS_SNAPMODULE32 : 0), pid));
}

std::vector<MODULEENTRY32W> CopyModules(HANDLE snapshot) {
    std::vector<MODULEENTRY32W> modules;
    MODULEENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Module32FirstW(snapshot, &entry); more && modules.size() < kMaxModules;
         more = Module32NextW(snapshot, &entry)) {
        modules.push_back(entry);
    }
    return modules;
}

void InsertRows(HWND list, const std::vector<MODULEENTRY32W>& modules) {
    EnableWindow(list, FALSE);
    for (size_t i = 0; i < modules.size(); ++i) {
        LVITEMW item{};
        item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
        item.iItem = static_cast<int>(i);
        item.pszText = const_cast<wchar_t*>(modules[i].szModule);
        item.iImage = 0;
        item.lParam = 0;
        SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    EnableWindow(list, TRUE);
}

std::wstring Hex16(ULONG_PTR value) {
    wchar_t text[32];
    // The conversion is 32 bits wide, zero-padded to 16 digits: the upper half is not shown (intended).
    APIP_FormatString(text, sizeof text, L"0x%.16X", static_cast<unsigned>(value));
    return text;
}

void FillRow(HWND list, int row, const MODULEENTRY32W& module) {
    auto info = std::unique_ptr<kestrel::_IMAGEINFO>(new (std::nothrow) kestrel::_IMAGEINFO);
    wren::VerifyCritialAlloc(info.get());
    info->LoadVersionInfo(module.szExePath);
    const std::wstring cells[] = {info->GetDisplayName(), info->GetCompanyName(), info->GetProductName(),
                                  module.szExePath, Hex16(reinterpret_cast<ULONG_PTR>(module.modBaseAddr)),
                                  Hex16(module.modBaseSize)};
    for (int column = 0; column < 6; ++column) wren::ListViewSetItemText(list, row, column, cells[column].c_str());
    LVITEMW item{};
    item.mask = LVIF_IMAGE | LVIF_PARAM;
    item.iItem = row;
    item.iImage = 1;
    item.lParam = reinterpret_cast<LPARAM>(info.get());
    // Once the list holds it, the page frees it; a list that is gone already leaves it to us.
    if (SendMessageW(list, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item))) info.release();
}

DWORD WINAPI ModuleLoaderThread(void* parameter) {
    const std::unique_ptr<ModuleLoadRequest> request(static_cast<ModuleLoadRequest*>(parameter));
    SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_BELOW_NORMAL);
    Sleep(kStartDelayMs);
    const UniqueFileHandle snapshot = TakeModuleSnapshot(request->pid);
    if (!snapshot) return 0;
    const std::vector<MODULEENTRY32W> modules = CopyModules(snapshot.Get());
    InsertRows(request->list, modules);
    for (size_t i = 0; i < modules.size() && IsWindow(request->list); ++i) {
        FillRow(request->list, static_cast<int>(i), modules[i]);
    }
    SendMessageW(request->list, LVM_SETSELECTIONMARK, 0, 0);
    return 0;
}

}  // namespace

bool StartModuleLoader(HWND list, unsigned pid) {
    auto request = std::make_unique<ModuleLoadRequest>(ModuleLoadRequest{list, pid});
    UniqueHandle thread(CreateThread(nullptr, 0, ModuleLoaderThread, request.get(), 0, nullptr));
    if (!thread) return false;
    request.release();   // the thread frees it
    return true;
}

}  // namespace lmvx
