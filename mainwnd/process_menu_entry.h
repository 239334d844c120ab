// One item of a menu the main window builds, described as values: which text, which command, which state.
// The menus are decided by pure functions returning these, and made into menus by one thin function.
#pragma once

namespace lmvx {

struct MenuEntry {
    unsigned commandId = 0;   // also the id a separator carries
    unsigned textId = 0;      // string id; 0 for separators
    bool separator = false;
    bool submenu = false;     // the place of a popup (the priority submenu of the process menu)
    bool grayed = false;
    bool checked = false;
    bool isDefault = false;
};

inline constexpr MenuEntry Separator(unsigned id = 0) {
    MenuEntry entry;
    entry.commandId = id;
    entry.separator = true;
    return entry;
}

}  // namespace lmvx
