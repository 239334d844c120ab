#include "common/shell_open.h"
#include "common/shell_open_calls.h"

#include <shellapi.h>
#include <shlwapi.h>

#include <cstring>
#include <cwchar>
#include <memory>
#include <new>

#include "common/unique_resource.h"

namespace lmvx {

namespace {

struct ShellJob {
    ShellOpenCalls calls;
    std::unique_ptr<wchar_t[]> path;
};

DWORD WINAPI RunShellJob(void* parameter) {
    const std::unique_ptr<ShellJob> job(static_cast<ShellJob*>(parameter));
    job->calls.execute(job->calls.context, job->path.get());
    return 0;
}

DWORD SystemFileAttributes(void*, const wchar_t* path) {
    return GetFileAttributesW(path);
}

void SystemShellExecute(void*, const wchar_t* path) {
    // Shell extensions may need COM on the calling thread.
    const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    ShellExecuteW(nullptr, nullptr, path, nullptr, nullptr, SW_SHOW);
    if (SUCCEEDED(com)) CoUninitialize();
}

}  // namespace

bool CopyTruncated(wchar_t* destination, size_t capacity, const wchar_t* source) {
    size_t copied = 0;
    while (copied + 1 < capacity && source[copied] != L'\0') {
        destination[copied] = source[copied];
        ++copied;
    }
    destination[copied] = L'\0';
    return source[copied] == L'\0';
}

ShellOpenCalls SystemShellCalls() {
    return {SystemFileAttributes, SystemShellExecute, nullptr};
}

int OpenInShellWith(const wchar_t* path, const ShellOpenCalls& calls) {
    if (path == nullptr || path[0] == L'\0') return 0;
    const size_t length = std::wcslen(path);
    // One character fewer than the path and its terminator need: the copy loses the path's last character,
    // so that a file path (or a folder path) names nothing and is cut to the folder that holds it below.
    // Intended; "Open Containing Folder" rests on it.
    std::unique_ptr<wchar_t[]> copy(new (std::nothrow) wchar_t[length]);
    if (!copy) return 0;
    std::memset(copy.get(), 0, length);   // the first length bytes, half the buffer; the copy terminates anyway
    CopyTruncated(copy.get(), length, path);   // cut by design; the report is not needed

    // A name that does not exist gives INVALID_FILE_ATTRIBUTES, whose directory bit is set.
    if (calls.fileAttributes(calls.context, copy.get()) & FILE_ATTRIBUTE_DIRECTORY) {
        *PathFindFileNameW(copy.get()) = L'\0';
    }

    std::unique_ptr<ShellJob> job(new (std::nothrow) ShellJob{calls, std::move(copy)});
    if (!job) return 0;
    // The thread owns the job; a slow shell extension never holds up the caller.
    UniqueHandle thread(CreateThread(nullptr, 0, RunShellJob, job.get(), 0, nullptr));
    if (!thread) return 0;
    job.release();
    return 1;
}

int OpenInShell(const wchar_t* path) {
    return OpenInShellWith(path, SystemShellCalls());
}

}  // namespace lmvx
