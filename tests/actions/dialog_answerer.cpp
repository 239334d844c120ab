#include "dialog_answerer.h"

#include <algorithm>

#include "dialog_ids.h"
#include "window_texts.h"

namespace actions_test {

using lmvx_test::WindowText;

std::vector<HWND> VisibleWindowsOf(DWORD pid, const wchar_t* className) {
    struct Search {
        DWORD pid;
        const wchar_t* className;
        std::vector<HWND> windows;
    } search{pid, className, {}};
    EnumWindows(
        [](HWND window, LPARAM context) -> BOOL {
            auto* search = reinterpret_cast<Search*>(context);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            wchar_t name[16] = {};
            GetClassNameW(window, name, 16);
            if (owner == search->pid && IsWindowVisible(window) && (!search->className || search->className == std::wstring(name))) {
                search->windows.push_back(window);
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.windows;
}

PollingThread::PollingThread(std::function<bool()> poll) : stop_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
    thread_ = std::thread([this, poll = std::move(poll)] {
        while (WaitForSingleObject(stop_, 20) == WAIT_TIMEOUT && !poll()) {}
    });
}

void PollingThread::Finish() {
    SetEvent(stop_);
    if (thread_.joinable()) thread_.join();
}

std::wstring SeenBox::AllText() const {
    std::wstring all;
    for (const auto& [id, text] : controlTexts) all += text + L"\n";
    return all;
}

std::vector<SeenBox> DialogAnswerer::Seen() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return seen_;
}

// Answers every dialog box (class #32770) of this process not answered before; never done by itself.
bool DialogAnswerer::AnswerNewBoxes() {
    for (HWND box : VisibleWindowsOf(GetCurrentProcessId(), L"#32770")) {
        if (std::find(answered_.begin(), answered_.end(), box) != answered_.end()) continue;
        answered_.push_back(box);
        // A task dialog is visible before it has its caption and text controls. A message sent to it returns
        // only once its thread takes messages again, that is, after it has finished setting itself up.
        SendMessageW(box, WM_NULL, 0, 0);
        SeenBox seen;
        seen.caption = WindowText(box);
        EnumChildWindows(
            box,
            [](HWND child, LPARAM context) -> BOOL {
                (*reinterpret_cast<std::map<int, std::wstring>*>(context))[GetDlgCtrlID(child)] += WindowText(child);
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&seen.controlTexts));
        const HWND icon = GetDlgItem(box, IDC_CONFIRM_ICON);
        seen.hasIcon = icon != nullptr && SendMessageW(icon, STM_GETICON, 0, 0) != 0;
        {
            std::lock_guard<std::mutex> lock(mutex_);
            seen_.push_back(seen);
        }
        const int button = GetDlgItem(box, button_) != nullptr ? button_ : IDOK;
        PostMessageW(box, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), reinterpret_cast<LPARAM>(GetDlgItem(box, button)));
    }
    return false;
}

}  // namespace actions_test
