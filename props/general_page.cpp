// The General page: who the process is (icon, names, path), the version data of its executable, its PID,
// and the note the user keeps for its executable. Read once at creation; the note is saved at the end.
#include <windows.h>
#include <commctrl.h>
#include <shellapi.h>

#include <memory>
#include <string>

#include "common/unique_resource.h"
#include "finch.h"
#include "kestrel.h"
#include "props/page_common.h"
#include "props/page_services.h"
#include "props/page_texts.h"
#include "props/process_info_pages.h"
#include "props/properties_context.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

struct GeneralPageState {
    UniqueIcon processIcon;
    UniqueIcon folderIcon;
    UniqueFont noteFont;
    std::wstring imageName;   // names the note; empty when the process was not found
};


// An empty text leaves the field at "n/a".
void SetTextUnlessEmpty(HWND page, int controlId, const wchar_t* text) {
    if (text && *text) SetDlgItemTextW(page, controlId, text);
}

std::wstring TimeStampText(const SYSTEMTIME& linkTimeUtc) {
    SYSTEMTIME local{};
    if (!SystemTimeToTzSpecificLocalTime(nullptr, &linkTimeUtc, &local)) local = linkTimeUtc;
    wchar_t date[128] = {};
    wchar_t time[128] = {};
    GetDateFormatW(LOCALE_USER_DEFAULT, 0, &local, nullptr, date, 128);
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &local, nullptr, time, 128);
    return FormatText(L"%s %s", date, time);
}

void FillVersionData(HWND page, const wchar_t* path) {
    kestrel::_IMAGEINFO info;
    if (!info.LoadVersionInfo(path)) return;
    wchar_t text[2048];
    SetTextUnlessEmpty(page, IDC_GENERAL_FILE_VERSION, info.GetFileVersion(text, 2048));
    SetTextUnlessEmpty(page, IDC_GENERAL_COPYRIGHT, info.GetCopyright(text, 2048));
    SetTextUnlessEmpty(page, IDC_GENERAL_PRODUCT_NAME, info.GetProductName(text, 2048));
    SetTextUnlessEmpty(page, IDC_GENERAL_PRODUCT_VERSION, info.GetProductVersion(text, 2048));
    const SYSTEMTIME linkTime = info.GetTimeStamp();
    if (linkTime.wYear != 0) SetDlgItemTextW(page, IDC_GENERAL_TIMESTAMP, TimeStampText(linkTime).c_str());
    SetDlgItemTextW(page, IDC_GENERAL_NUMERIC_VERSION,
                    NumericVersionText(info.GetVersionHigh(), info.GetVersionLow()).c_str());
}

void SetUpFolderButton(HWND page, GeneralPageState& state, const wchar_t* path) {
    SHFILEINFOW folder{};
    if (SHGetFileInfoW(path, FILE_ATTRIBUTE_DIRECTORY, &folder, sizeof folder,
                       SHGFI_ICON | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES))
        state.folderIcon.Reset(folder.hIcon);
    SendDlgItemMessageW(page, IDC_GENERAL_OPEN_FOLDER, WM_SETICON, ICON_SMALL,
                        reinterpret_cast<LPARAM>(state.folderIcon.Get()));
}

void LoadNoteField(HWND page, GeneralPageState& state) {
    HWND note = GetDlgItem(page, IDC_GENERAL_NOTE);
    state.noteFont.Reset(APIP_LoadFont(L"Courier New", 0, -11));
    SendMessageW(note, WM_SETFONT, reinterpret_cast<WPARAM>(state.noteFont.Get()), FALSE);
    SendMessageW(note, EM_LIMITTEXT, 1023, 0);   // the save reads at most 1024 characters with the terminator
    const PageServices& services = CurrentPageServices();
    if (state.imageName.empty() || !services.loadNote) {
        EnableWindow(note, FALSE);
        return;
    }
    SetWindowTextW(note, services.loadNote(state.imageName).c_str());
}

INT_PTR OnInitDialog(HWND page, LPARAM initParam) {
    ProcessPropertiesContext* context = KeepPageContext(page, initParam);
    if (!context || !context->processList) return EndPageWithMessage(page, IDS_UNEXPECTED_ERROR, MB_ICONERROR);
    auto state = std::make_unique<GeneralPageState>();
    SetBoldTitle(page);
    if (!wren::IsThemeActive()) wren::EmStaticEdge(page, IDC_PAGES_PATH);
    SetUpItemValueList(GetDlgItem(page, IDC_GENERAL_LIST), 100, 247);

    const kestrel::TL_PROCESSLIST& list = *context->processList;
    const int item = list.GetItemByPID(context->pid);
    if (item >= 0) {
        state->processIcon = FillProcessHeader(page, list, item);
        const std::wstring path = list.GetItemPathName(item);
        FillVersionData(page, path.c_str());
        SetDlgItemTextW(page, IDC_GENERAL_PID, FormatText(L"%d", list.GetItemPID(item)).c_str());
        SetUpFolderButton(page, *state, path.c_str());
        state->imageName = list.GetItemImageName(item);
    }
    LoadNoteField(page, *state);
    KeepPageState(page, std::move(state));
    return TRUE;
}

void OnOpenFolder(HWND page) {
    wchar_t path[512] = {};
    GetDlgItemTextW(page, IDC_PAGES_PATH, path, 512);
    if (CurrentPageServices().openInShell) CurrentPageServices().openInShell(path);
}

// Saves the field at every close, as it reads then: a note too long to load left the field empty, so closing
// the window removes it from the store (intended: the load limit and the save are kept as they are).
void SaveNote(HWND page) {
    const GeneralPageState* state = PageStateOf<GeneralPageState>(page);
    const ProcessPropertiesContext* context = PageContext(page);
    const PageServices& services = CurrentPageServices();
    if (!state || state->imageName.empty() || !services.saveNote) return;
    wchar_t text[1024] = {};
    GetDlgItemTextW(page, IDC_GENERAL_NOTE, text, 1024);
    services.saveNote(state->imageName, text);
    // An emptied note is removed from the store but, as intended, does not reach the details pane.
    if (*text && services.noteSaved && context) services.noteSaved(context->mainWindow);
}

}  // namespace

INT_PTR CALLBACK GeneralPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(page, lParam);
    case WM_COMMAND:
        if (LOWORD(wParam) != IDC_GENERAL_OPEN_FOLDER) return FALSE;
        OnOpenFolder(page);
        return TRUE;
    case WM_DRAWITEM: return DrawPageOwnerItem(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    case WM_DESTROY: SaveNote(page); return FALSE;
    case WM_NCDESTROY: FreePageState<GeneralPageState>(page); return FALSE;
    }
    return FALSE;
}

}  // namespace lmvx
