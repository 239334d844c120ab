#include "mainwnd/process_menu_popup.h"

#include "finch.h"

namespace lmvx {
namespace {

constexpr wchar_t kSeparatorText[] = L"---";

UINT StateFlags(const MenuEntry& entry) {
    return (entry.grayed ? MF_GRAYED : MF_ENABLED) | (entry.checked ? MF_CHECKED : MF_UNCHECKED);
}

bool AppendEntry(HMENU menu, const MenuEntry& entry, UniqueMenu& submenu) {
    if (entry.separator) return AppendMenuW(menu, MF_SEPARATOR, entry.commandId, kSeparatorText) != FALSE;
    const wchar_t* text = UIL_LangModule.GetLangString(entry.textId);
    if (!entry.submenu) return AppendMenuW(menu, MF_STRING | StateFlags(entry), entry.commandId, text) != FALSE;
    if (!submenu) submenu.Reset(CreatePopupMenu());
    if (!submenu) return false;
    if (!AppendMenuW(menu, MF_POPUP | MF_STRING | StateFlags(entry), reinterpret_cast<UINT_PTR>(submenu.Get()), text)) {
        return false;
    }
    submenu.Release();   // owned by menu now
    return true;
}

}  // namespace

UniqueMenu CreatePopupFromEntries(const std::vector<MenuEntry>& entries, UniqueMenu submenu) {
    UniqueMenu menu(CreatePopupMenu());
    if (!menu) return menu;
    for (const MenuEntry& entry : entries) {
        if (!AppendEntry(menu.Get(), entry, submenu)) return UniqueMenu();
        if (entry.isDefault) SetMenuDefaultItem(menu.Get(), entry.commandId, FALSE);
    }
    return menu;
}

}  // namespace lmvx
