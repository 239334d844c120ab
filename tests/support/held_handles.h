// The test child in its "hold" verb: a process holding a named event and mutex, a file in the temporary
// folder, a registry key, a pipe with a read pending on it and a handle to the test program, with the handle
// value of each read from the report it writes.
#pragma once
#include <windows.h>

#include <map>
#include <memory>
#include <sstream>
#include <string>

#include "child_process.h"
#include "message_pump.h"
#include "test_files.h"

namespace lmvx_test {

inline std::wstring TempFolder() {
    const std::wstring folder = TestTempFolder();
    return folder.substr(0, folder.size() - 1);
}

inline bool FileExists(const std::wstring& path) { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

class HeldHandlesChild {
public:
    HeldHandlesChild() {
        // Names of their own for each child: a file deleted while its last holder is ending stays in the way.
        static int children = 0;
        const std::wstring self = std::to_wstring(GetCurrentProcessId());
        const std::wstring unique = self + L"_" + std::to_wstring(++children);
        report_ = TempFolder() + L"\\held_report_" + unique + L".txt";
        filePath_ = TempFolder() + L"\\held_" + unique + L".txt";
        child_ = std::make_unique<ChildProcess>(L"hold \"" + filePath_ + L"\" \"" + report_ + L"\" " + self);
        // Read until complete: the report may be found while the file system still hands it out empty.
        if (child_->Started()) PollUntil([&] { return (ReadReport(), Ready()) || !child_->IsRunning(); });
    }
    ~HeldHandlesChild() {
        child_.reset();
        for (const std::wstring& file : {report_, report_ + L".closed", filePath_}) DeleteFileW(file.c_str());
    }
    HeldHandlesChild(const HeldHandlesChild&) = delete;
    HeldHandlesChild& operator=(const HeldHandlesChild&) = delete;

    // True when the child holds all six handles.
    bool Ready() const { return values_.size() == 6; }
    DWORD Pid() const { return child_->Pid(); }
    // Why the child is not ready: its exit code, or STILL_ACTIVE.
    DWORD ExitCode() const {
        DWORD code = 0;
        GetExitCodeProcess(child_->Handle(), &code);
        return code;
    }
    // The handle value of "event", "mutex", "file", "key", "pipe" or "process"; 0 when unknown.
    unsigned long long Value(const std::wstring& kind) const {
        const auto found = values_.find(kind);
        return found == values_.end() ? 0 : found->second;
    }
    const std::wstring& FilePath() const { return filePath_; }
    // The child saw its file handle closed from outside.
    bool FileHandleClosed() const { return FileExists(report_ + L".closed"); }

private:
    // Lines of "<kind> <handle value>".
    void ReadReport() {
        values_.clear();
        std::wistringstream lines(ReadWholeFile(report_));
        std::wstring kind;
        unsigned long long value = 0;
        while (lines >> kind >> value) values_[kind] = value;
    }

    std::wstring report_;
    std::wstring filePath_;
    std::unique_ptr<ChildProcess> child_;
    std::map<std::wstring, unsigned long long> values_;
};

}  // namespace lmvx_test
