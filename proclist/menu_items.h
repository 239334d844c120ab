// A menu described as values, so which item is checked can be decided and tested without a menu handle.
#pragma once

namespace proclist {

struct MenuItemSpec {
    unsigned commandId = 0;  // 0 with separator set
    unsigned stringId = 0;
    bool checked = false;
    bool separator = false;
};

}  // namespace proclist
