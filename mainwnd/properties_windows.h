// The process properties windows that are open now. Each announces itself to the main window when it opens
// (WM_USER with its handle) and when it is destroyed (WM_USER + 1); the main window closes those still open
// when it ends, so that none outlives the program or holds up its exit.
#pragma once
#include <windows.h>

#include <vector>

namespace lmvx {

// Used on the main window's thread only: both announcements are sent to it.
class OpenPropertiesWindows {
public:
    void Add(HWND frame);
    void Remove(HWND frame);
    size_t Count() const { return frames_.size(); }
    // Asks every open window to close and waits until all have announced their end, handling the messages
    // sent to this thread meanwhile; gives up after timeoutMs so that a hung window cannot hold up the exit.
    void CloseAll(DWORD timeoutMs);

private:
    std::vector<HWND> frames_;
};

// Opens a properties window for pid, owned by the main window, with the main window's refresh period.
void OpenPropertiesWindow(unsigned pid, HWND mainWindow);

}  // namespace lmvx
