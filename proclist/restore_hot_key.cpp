#include "restore_hot_key.h"

namespace proclist {
namespace {

bool IsDown(KeyStateReader readKeyState, int virtualKey) {
    return (static_cast<unsigned short>(readKeyState(virtualKey)) & 0x8000u) != 0;
}

}  // namespace

bool IsRestoreHotKeyDown(KeyStateReader readKeyState) {
    return IsDown(readKeyState, VK_MENU) && IsDown(readKeyState, VK_LCONTROL) && IsDown(readKeyState, VK_F11);
}

}  // namespace proclist
