// Builds popup menus from item descriptions and puts them in place of an existing popup.
#pragma once
#include <windows.h>

#include <vector>

#include "menu_items.h"
#include "unique_handles.h"

namespace proclist {

// A new popup menu with the items' texts from the language module; null on failure.
UniqueMenu CreatePopupFromItems(const std::vector<MenuItemSpec>& items);

// Puts popup in place of the item at position of parent, with the given text. The menu replaces (and the
// system destroys) the popup that was there; on success parent owns popup.
bool ReplacePopupAt(HMENU parent, UINT position, UniqueMenu popup, const wchar_t* text);

// Searches menu and its popups, depth first, for the popup that holds commandId as a direct item.
// On success sets the popup's parent menu and its position there.
bool FindPopupHolding(HMENU menu, UINT commandId, HMENU* parent, UINT* position);

}  // namespace proclist
