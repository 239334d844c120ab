#include "kobj/remote_handle_close.h"

#include <windows.h>

#include "common/unique_resource.h"
#include "finch.h"
#include "resource.h"

namespace lmvx::kobj {

RemoteCloseResult CloseHandleInProcess(unsigned pid, unsigned handleValue) {
    UniqueHandle process(OpenProcess(PROCESS_DUP_HANDLE, FALSE, pid));
    if (!process) return RemoteCloseResult::ProcessNotOpened;
    UniqueHandle local;
    if (!DuplicateHandle(process.Get(), reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(handleValue)), GetCurrentProcess(),
                         local.Put(), 0, FALSE, DUPLICATE_CLOSE_SOURCE | DUPLICATE_SAME_ACCESS))
        return RemoteCloseResult::NotClosed;
    return RemoteCloseResult::Closed;
}

void ShowCloseHandleFailure(HWND owner) {
    MessageBoxW(owner, UIL_LangModule.GetLangString(IDS_ERR_CLOSE_HANDLE),
                UIL_LangModule.GetLangString(IDS_CLOSE_HANDLE), MB_OK | MB_ICONEXCLAMATION);
}

}  // namespace lmvx::kobj
