// Starts the test child program (lmvx_test_child.exe, beside the test program) and ends it, with
// everything it started, when the object goes out of scope.
#pragma once
#include <windows.h>

#include <string>
#include <utility>

namespace lmvx_test {

class ChildProcess {
public:
    // arguments: the verb and its arguments, e.g. L"sleep 60000". environment: a block of "name=value"
    // strings each ended by a null, with a final null; empty to inherit this process's environment.
    explicit ChildProcess(const std::wstring& arguments, const std::wstring& environment = {}) {
        commandLine_ = L"\"" + HelperPath() + L"\" " + arguments;
        // The child and its own children share one job, so that ending it can find the whole tree. The job
        // is not asked to end them itself: Wine's server can crash when a job ends its processes.
        job_ = CreateJobObjectW(nullptr, nullptr);
        // The child's standard input is a pipe that stays open until CloseInput() or the end.
        SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        HANDLE inputRead = nullptr;
        if (CreatePipe(&inputRead, &input_, &inheritable, 0)) SetHandleInformation(input_, HANDLE_FLAG_INHERIT, 0);
        STARTUPINFOW startup{sizeof startup};
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdInput = inputRead;
        startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
        startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
        std::wstring mutableLine = commandLine_;
        PROCESS_INFORMATION process{};
        // Without a console: a console of its own would start one more process, a console host, per child.
        const DWORD flags = CREATE_SUSPENDED | DETACHED_PROCESS | (environment.empty() ? 0 : CREATE_UNICODE_ENVIRONMENT);
        const BOOL started = CreateProcessW(nullptr, mutableLine.data(), nullptr, nullptr, TRUE, flags,
                                            environment.empty() ? nullptr : const_cast<wchar_t*>(environment.data()),
                                            nullptr, &startup, &process);
        if (inputRead) CloseHandle(inputRead);
        if (started) {
            process_ = process.hProcess;
            pid_ = process.dwProcessId;
            if (job_) AssignProcessToJobObject(job_, process_);
            ResumeThread(process.hThread);
            CloseHandle(process.hThread);
        }
    }
    ~ChildProcess() {
        End();
        CloseInput();
        if (process_) CloseHandle(process_);
        if (job_) CloseHandle(job_);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ChildProcess(ChildProcess&& other) noexcept
        : commandLine_(std::move(other.commandLine_)),
          job_(std::exchange(other.job_, nullptr)),
          input_(std::exchange(other.input_, nullptr)),
          process_(std::exchange(other.process_, nullptr)),
          pid_(std::exchange(other.pid_, 0)) {}

    bool Started() const { return process_ != nullptr; }
    DWORD Pid() const { return pid_; }
    HANDLE Handle() const { return process_; }
    const std::wstring& CommandLine() const { return commandLine_; }

    bool IsRunning() const { return process_ && WaitForSingleObject(process_, 0) == WAIT_TIMEOUT; }
    bool WaitForExit(DWORD milliseconds) const {
        return process_ && WaitForSingleObject(process_, milliseconds) == WAIT_OBJECT_0;
    }
    // Closes the child's standard input: a child that waits for it then exits by itself.
    void CloseInput() {
        if (input_) CloseHandle(std::exchange(input_, nullptr));
    }
    // Ends the child and everything it started, and waits until the child is gone.
    void End() {
        if (job_) {
            // Room for the child and more descendants than any verb starts.
            struct {
                JOBOBJECT_BASIC_PROCESS_ID_LIST list;
                ULONG_PTR more[63];
            } ids{};
            ids.list.NumberOfAssignedProcesses = 64;
            if (QueryInformationJobObject(job_, JobObjectBasicProcessIdList, &ids, sizeof ids, nullptr)) {
                for (DWORD i = 0; i < ids.list.NumberOfProcessIdsInList; ++i) {
                    HANDLE member = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE,
                                                static_cast<DWORD>(ids.list.ProcessIdList[i]));
                    if (!member) continue;
                    TerminateProcess(member, 1);
                    WaitForSingleObject(member, 10000);
                    CloseHandle(member);
                }
            }
        }
        if (process_) {
            TerminateProcess(process_, 1);
            WaitForSingleObject(process_, 10000);
        }
    }

    // The child program's full path: beside the running test program.
    static std::wstring HelperPath() {
        wchar_t self[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, self, MAX_PATH);
        const std::wstring path = self;
        return path.substr(0, path.find_last_of(L"\\/") + 1) + L"lmvx_test_child.exe";
    }

private:
    std::wstring commandLine_;
    HANDLE job_ = nullptr;
    HANDLE input_ = nullptr;   // write end of the child's standard input
    HANDLE process_ = nullptr;
    DWORD pid_ = 0;
};

}  // namespace lmvx_test
