// Window helpers the information pages share: texts from the language module, formatted texts, the bold
// title, duration texts, the process header and the end of a page on an error.
#pragma once
#include "common/format_text.h"
#include <windows.h>

#include <memory>
#include <string>

#include "common/unique_resource.h"
#include "kestrel.h"

namespace lmvx {

std::wstring LangText(unsigned stringId);

void SetBoldTitle(HWND page);

// A packed duration as "<day text> hh:mm:ss", or with milliseconds "<day text> hh:mm:ss.mmm".
std::wstring DurationText(const SYSTEMTIME& duration, bool withMilliseconds);

// Display name (bold), company, path and the large icon of the item. Returns the copy of the icon that the
// header shows, for the page to keep: the provider's icons live only until its next update.
UniqueIcon FillProcessHeader(HWND page, const kestrel::TL_PROCESSLIST& list, int item);

// Tells the user why the page cannot show anything and ends the page dialog. Returns TRUE.
INT_PTR EndPageWithMessage(HWND page, unsigned textId, UINT iconFlag);

// Gives a list view grid lines and full-row selection and adds "Item" / "Value" columns of the given widths;
// the value column then fills the header.
void SetUpItemValueList(HWND list, int itemWidth, int valueWidth);

// Hands WM_DRAWITEM to the program's owner-drawn button painter. Returns TRUE.
INT_PTR DrawPageOwnerItem(const DRAWITEMSTRUCT* item);

// Ends the page dialog on the commands that end it (IDOK, IDCANCEL); false for any other command.
bool EndPageOnCloseCommand(HWND page, WPARAM wParam);

// What a page owns besides its controls lives in DWLP_USER (GWLP_USERDATA holds the shared context).
template <typename State>
State* PageStateOf(HWND page) {
    return reinterpret_cast<State*>(GetWindowLongPtrW(page, DWLP_USER));
}
template <typename State>
void KeepPageState(HWND page, std::unique_ptr<State> state) {
    SetWindowLongPtrW(page, DWLP_USER, reinterpret_cast<LONG_PTR>(state.release()));
}
// On WM_NCDESTROY.
template <typename State>
void FreePageState(HWND page) {
    std::unique_ptr<State> state(PageStateOf<State>(page));
    SetWindowLongPtrW(page, DWLP_USER, 0);
}

}  // namespace lmvx
