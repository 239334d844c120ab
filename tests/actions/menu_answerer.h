// Answers the popup menu this test process shows: notes its items, then picks the item with a given text
// by the keyboard, or closes the menu with Escape.
#pragma once
#include <windows.h>

#include <string>
#include <thread>
#include <vector>

namespace actions_test {

struct SeenMenuItem {
    UINT id;
    std::wstring text;
    bool grayed;
    bool isDefault;
};

class MenuAnswerer {
public:
    // choose: the text of the item to pick; "" closes the menu without a choice.
    explicit MenuAnswerer(std::wstring choose);
    ~MenuAnswerer();
    MenuAnswerer(const MenuAnswerer&) = delete;
    MenuAnswerer& operator=(const MenuAnswerer&) = delete;

    // Stops watching; the items of the menu that was shown, or none when no menu appeared.
    std::vector<SeenMenuItem> Finish();
    bool MenuWasShown();

private:
    void Run();

    const std::wstring choose_;
    HANDLE stop_ = nullptr;
    bool shown_ = false;
    std::vector<SeenMenuItem> items_;
    std::thread thread_;
};

}  // namespace actions_test
