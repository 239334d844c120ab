// Answers the dialog boxes this test process shows, from a thread of its own, and keeps what each box said:
// the caption, the texts of its controls and whether its icon control holds an icon.
#pragma once
#include <windows.h>

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace actions_test {

// The visible top-level windows of a process, in z-order; only those of one class when it is given.
std::vector<HWND> VisibleWindowsOf(DWORD pid, const wchar_t* className = nullptr);

// Calls poll on a thread of its own every 20 ms until it returns true or Finish is called.
class PollingThread {
public:
    explicit PollingThread(std::function<bool()> poll);
    ~PollingThread() { Finish(); CloseHandle(stop_); }
    PollingThread(const PollingThread&) = delete;
    PollingThread& operator=(const PollingThread&) = delete;
    void Finish();

private:
    HANDLE stop_ = nullptr;
    std::thread thread_;
};

struct SeenBox {
    std::wstring caption;
    std::map<int, std::wstring> controlTexts;   // by control id
    bool hasIcon = false;                        // icon control 1005 of the confirmation dialogs
    std::wstring AllText() const;                // every control's text, one after the other
};

class DialogAnswerer {
public:
    // button: the button pressed in every box (IDOK or IDCANCEL); a box without that button gets IDOK.
    explicit DialogAnswerer(int button) : button_(button) {}

    // The boxes answered so far, in the order they appeared.
    std::vector<SeenBox> Seen() const;

private:
    bool AnswerNewBoxes();

    const int button_;
    mutable std::mutex mutex_;
    std::vector<SeenBox> seen_;
    std::vector<HWND> answered_;   // only the polling thread touches it
    PollingThread thread_{[this] { return AnswerNewBoxes(); }};
};

}  // namespace actions_test
