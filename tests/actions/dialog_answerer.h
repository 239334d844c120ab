// Answers the dialog boxes this test process shows, from a thread of its own, and keeps what each box said:
// the caption, the texts of its controls and whether its icon control holds an icon.
#pragma once
#include <windows.h>

#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace actions_test {

struct SeenBox {
    std::wstring caption;
    std::map<int, std::wstring> controlTexts;   // by control id
    bool hasIcon = false;                        // icon control 1005 of the confirmation dialogs
    std::wstring AllText() const;                // every control's text, one after the other
};

class DialogAnswerer {
public:
    // button: the button pressed in every box (IDOK or IDCANCEL); a box without that button gets IDOK.
    explicit DialogAnswerer(int button);
    ~DialogAnswerer();
    DialogAnswerer(const DialogAnswerer&) = delete;
    DialogAnswerer& operator=(const DialogAnswerer&) = delete;

    // The boxes answered so far, in the order they appeared.
    std::vector<SeenBox> Seen() const;

private:
    void Run();
    void Answer(HWND box);

    const int button_;
    mutable std::mutex mutex_;
    std::vector<SeenBox> seen_;
    HANDLE stop_ = nullptr;
    std::thread thread_;
};

}  // namespace actions_test
