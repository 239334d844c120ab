// Runs a test program inside a Wine desktop with a taskbar and a notification area, and finds things
// on that taskbar. Everything stays inside the build's own Wine prefix.
#pragma once
#include <windows.h>

#include <string>

namespace lmvx::test {

inline constexpr wchar_t kTestDesktopName[] = L"lmvx-perfui";

// Call first in main(). When this process is not yet on the test desktop, starts itself again there
// (with the same arguments and output), waits, and returns true with the child's exit code in exitCode;
// main then returns it. Returns false inside the desktop: run the tests.
bool RelaunchOnTestDesktop(int& exitCode);

// The taskbar ("Shell_TrayWnd") is there.
bool HasNotificationArea();
HWND TaskbarWindow();

// True when some window of the taskbar's process shows this tip text within timeoutMs.
bool WaitForTrayTip(const std::wstring& tip, DWORD timeoutMs);

}  // namespace lmvx::test
