#include "mainwnd/details_pane_notes.h"

#include "common/unique_resource.h"

namespace lmvx {

std::wstring NoteValueName(const std::wstring& imagePathOrName) {
    const size_t slash = imagePathOrName.find_last_of(L"\\/");
    return slash == std::wstring::npos ? imagePathOrName : imagePathOrName.substr(slash + 1);
}

std::wstring LoadNote(const std::wstring& valueName) {
    if (valueName.empty()) return {};
    UniqueRegKey key;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, kNotesKey, 0, KEY_READ, key.Put()) != ERROR_SUCCESS) return {};
    wchar_t note[513] = {};   // 1024 bytes of data and room for a terminator the value may lack
    DWORD bytes = 1024;
    DWORD type = 0;
    if (RegQueryValueExW(key.Get(), valueName.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(note), &bytes) !=
            ERROR_SUCCESS ||
        type != REG_SZ)
        return {};
    return note;
}

void SaveNote(const std::wstring& valueName, const std::wstring& note) {
    if (valueName.empty()) return;
    UniqueRegKey key;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, kNotesKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, key.Put(), nullptr) !=
        ERROR_SUCCESS)
        return;
    if (note.empty()) {
        RegDeleteValueW(key.Get(), valueName.c_str());
        return;
    }
    RegSetValueExW(key.Get(), valueName.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(note.c_str()),
                   static_cast<DWORD>((note.size() + 1) * sizeof(wchar_t)));
}

void LoadNoteIntoEdit(HWND edit, const std::wstring& valueName) {
    SetWindowTextW(edit, LoadNote(valueName).c_str());
    SendMessageW(edit, EM_SETMODIFY, FALSE, 0);
}

void SaveNoteFromEdit(HWND edit, const std::wstring& valueName) {
    if (!SendMessageW(edit, EM_GETMODIFY, 0, 0)) return;   // unchanged since it was loaded
    wchar_t note[1024] = {};
    GetWindowTextW(edit, note, 1024);
    SaveNote(valueName, note);
    SendMessageW(edit, EM_SETMODIFY, FALSE, 0);
}

UINT NoteSavedMessage() {
    static const UINT message = RegisterWindowMessageW(L"LumivexNoteSaved");
    return message;
}

void AnnounceNoteSaved(HWND mainWindow) {
    if (!mainWindow) return;
    EnumChildWindows(
        mainWindow,
        [](HWND child, LPARAM) -> BOOL {
            PostMessageW(child, NoteSavedMessage(), 0, 0);
            return TRUE;
        },
        0);
}

}  // namespace lmvx
