#include "menu_builder.h"

#include <string>

#include "finch.h"

namespace proclist {
namespace {

bool HoldsCommand(HMENU menu, UINT commandId) {
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        if (GetSubMenu(menu, i) == nullptr && GetMenuItemID(menu, i) == commandId) return true;
    }
    return false;
}

}  // namespace

UniqueMenu CreatePopupFromItems(const std::vector<MenuItemSpec>& items) {
    UniqueMenu popup(CreatePopupMenu());
    if (!popup) return popup;
    for (const MenuItemSpec& item : items) {
        const BOOL added =
            item.separator
                ? AppendMenuW(popup.Get(), MF_SEPARATOR, 0, nullptr)
                : AppendMenuW(popup.Get(), MF_STRING | (item.checked ? MF_CHECKED : MF_UNCHECKED), item.commandId,
                              UIL_LangModule.GetLangString(item.stringId));
        if (!added) return UniqueMenu();
    }
    return popup;
}

bool ReplacePopupAt(HMENU parent, UINT position, UniqueMenu popup, const wchar_t* text) {
    if (!parent || !popup) return false;
    HMENU replaced = GetSubMenu(parent, static_cast<int>(position));
    if (!ModifyMenuW(parent, position, MF_BYPOSITION | MF_POPUP | MF_STRING,
                     reinterpret_cast<UINT_PTR>(popup.Get()), text)) {
        return false;  // the new popup is destroyed on the way out
    }
    popup.Release();
    // Windows destroys the replaced popup inside ModifyMenuW; Wine 8 keeps it alive, so free it here.
    if (replaced && IsMenu(replaced)) DestroyMenu(replaced);
    return true;
}

bool FindPopupHolding(HMENU menu, UINT commandId, HMENU* parent, UINT* position) {
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        HMENU popup = GetSubMenu(menu, i);
        if (!popup) continue;
        if (HoldsCommand(popup, commandId)) {
            *parent = menu;
            *position = static_cast<UINT>(i);
            return true;
        }
        if (FindPopupHolding(popup, commandId, parent, position)) return true;
    }
    return false;
}

}  // namespace proclist
