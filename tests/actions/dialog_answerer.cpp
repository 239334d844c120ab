#include "dialog_answerer.h"

#include <set>

#include "dialog_ids.h"
#include "window_texts.h"

namespace actions_test {

namespace {

// Visible dialog boxes (class #32770) of this process.
std::vector<HWND> VisibleBoxesOfThisProcess() {
    std::vector<HWND> boxes;
    EnumWindows(
        [](HWND window, LPARAM context) -> BOOL {
            DWORD pid = 0;
            GetWindowThreadProcessId(window, &pid);
            wchar_t className[16] = {};
            GetClassNameW(window, className, 16);
            if (pid == GetCurrentProcessId() && IsWindowVisible(window) && std::wstring(className) == L"#32770") {
                reinterpret_cast<std::vector<HWND>*>(context)->push_back(window);
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&boxes));
    return boxes;
}

using lmvx_test::WindowText;

}  // namespace

std::wstring SeenBox::AllText() const {
    std::wstring all;
    for (const auto& [id, text] : controlTexts) all += text + L"\n";
    return all;
}

DialogAnswerer::DialogAnswerer(int button) : button_(button), stop_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
    thread_ = std::thread([this] { Run(); });
}

DialogAnswerer::~DialogAnswerer() {
    SetEvent(stop_);
    thread_.join();
    CloseHandle(stop_);
}

std::vector<SeenBox> DialogAnswerer::Seen() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return seen_;
}

void DialogAnswerer::Run() {
    std::set<HWND> answered;
    while (WaitForSingleObject(stop_, 20) == WAIT_TIMEOUT) {
        for (HWND box : VisibleBoxesOfThisProcess()) {
            if (answered.insert(box).second) Answer(box);
        }
    }
}

void DialogAnswerer::Answer(HWND box) {
    SeenBox seen;
    seen.caption = WindowText(box);
    // A task dialog is visible before it has created its text controls. A message sent to it returns only
    // once its thread takes messages again, that is, after it has finished setting itself up.
    SendMessageW(box, WM_NULL, 0, 0);
    EnumChildWindows(
        box,
        [](HWND child, LPARAM context) -> BOOL {
            auto* texts = reinterpret_cast<std::map<int, std::wstring>*>(context);
            (*texts)[GetDlgCtrlID(child)] += WindowText(child);
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

}  // namespace actions_test
