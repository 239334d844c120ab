// Starts a program of this build, finds its windows and waits for it to end; the process is ended
// when the runner goes out of scope, so a failing test never leaves it behind.
#pragma once
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "window_texts.h"

namespace lmvx::test {

class ProgramRunner {
public:
    ProgramRunner() = default;
    ~ProgramRunner();
    ProgramRunner(const ProgramRunner&) = delete;
    ProgramRunner& operator=(const ProgramRunner&) = delete;

    // Starts "<exe>" <arguments> in the exe's folder, or in workingFolder when one is given.
    bool Start(const std::wstring& exePath, const std::wstring& arguments, const std::wstring& workingFolder = {});
    DWORD Pid() const { return pid_; }
    HANDLE Process() const { return process_; }

    // The first visible top-level window of the process that matches, or null after timeoutMs.
    HWND WaitForWindow(const std::function<bool(HWND)>& matches, DWORD timeoutMs) const;
    HWND WaitForWindowWithCaption(const std::wstring& caption, DWORD timeoutMs) const;
    // The exit code, or STILL_ACTIVE when the process did not end within timeoutMs.
    DWORD WaitForExit(DWORD timeoutMs) const;

private:
    HANDLE process_ = nullptr;
    DWORD pid_ = 0;
};

// Helpers for reading windows back.
using lmvx_test::DescendantTexts;
using lmvx_test::WindowText;
std::wstring ClassName(HWND window);
// Presses the button with this id (or sends the command when no such button exists).
void PressButton(HWND dialog, int id);

// The folder of the running test program (the build's bin folder).
std::wstring TestBinFolder();

}  // namespace lmvx::test
