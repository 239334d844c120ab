// finch64.dll: the UI library. Executable core object, language module (strings, dialogs and menus
// by id in the current language), warning box, fonts, list-view column helper, bounded formatted print.
#pragma once
#include <windows.h>
#include <cstdarg>
#include <cstddef>
#include <memory>

#ifdef FINCH_BUILD
#define FINCH_API __declspec(dllexport)
#else
#define FINCH_API __declspec(dllimport)
#endif

// The executable's identity and start parameters, registered once at start-up.
class FINCH_API APIP_EXECORE {
public:
    int Init(HINSTANCE instance, const wchar_t* commandLine, int showCommand, const wchar_t* fullName,
             const wchar_t* name, const wchar_t* appCode, const wchar_t* versionText, unsigned versionNumber);
    int SetBuildInfo(unsigned buildNumber, int flags, const wchar_t* date, const wchar_t* time);

    HINSTANCE GetInstance() const;
    const wchar_t* GetCommandLine() const;
    int GetShowCommand() const;
    const wchar_t* GetAppNameFull() const;
    const wchar_t* GetAppName() const;
    const wchar_t* GetAppCode() const;
    const wchar_t* GetVersionText() const;
    unsigned GetVersionNumber() const;
    unsigned GetBuildNumber() const;
    const wchar_t* GetBuildDate() const;
    const wchar_t* GetBuildTime() const;

private:
    HINSTANCE instance_ = nullptr;
    int showCommand_ = SW_SHOWNORMAL;
    unsigned versionNumber_ = 0;
    unsigned buildNumber_ = 0;
    int buildFlags_ = 0;
    wchar_t commandLine_[1024] = {};
    wchar_t fullName_[64] = {};
    wchar_t name_[64] = {};
    wchar_t appCode_[16] = {};
    wchar_t versionText_[16] = {};
    wchar_t buildDate_[32] = {};
    wchar_t buildTime_[32] = {};
};

// Localised UI resources. Both languages live in one module (the executable) as resources of the
// same id in two languages; the module picks the current language's copy, and falls back to English.
class FINCH_API UIL_LANGMODULE {
public:
    static constexpr LANGID English = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
    static constexpr LANGID German = MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN);

    UIL_LANGMODULE();
    ~UIL_LANGMODULE();
    UIL_LANGMODULE(const UIL_LANGMODULE&) = delete;
    UIL_LANGMODULE& operator=(const UIL_LANGMODULE&) = delete;

    int Init(HINSTANCE instance, const wchar_t* appName, const wchar_t* appCode, LANGID language);
    int SelectLanguage(LANGID language);
    LANGID GetLanguage() const;
    // The text of a string id in the current language; "" for an unknown id, never null.
    // The pointer stays valid as long as this object (for the global one: the life of the process).
    const wchar_t* GetLangString(UINT id) const;
    HMENU LoadLangMenu(UINT menuId) const;
    INT_PTR ShowDialogParam(UINT dialogId, HWND parent, DLGPROC procedure, LPARAM parameter) const;
    HWND LoadDialogParam(UINT dialogId, HWND parent, DLGPROC procedure, LPARAM parameter) const;

private:
    // Module, current language and the string tables built so far; defined inside the library.
    struct State;
    std::unique_ptr<State> state_;
};

FINCH_API extern APIP_EXECORE APIP_ExeCore;
FINCH_API extern UIL_LANGMODULE UIL_LangModule;
// Bold variant of the dialog font; created by the library, lives for the whole run.
FINCH_API extern HFONT APIP_hFontBold;

// Warning box: a headline (title) above the message (text), with the given window caption.
FINCH_API int UIP_ShowWarning(HWND parent, const wchar_t* title, const wchar_t* text, const wchar_t* caption);
FINCH_API void APIP_SetWindowFont(HWND window, HFONT font, BOOL redraw);
// A font of the given face; width 0 means the face's default, height in logical units (negative = character height).
// The caller owns the font (DeleteObject when done).
FINCH_API HFONT APIP_LoadFont(const wchar_t* face, int width, int height);
// Adds a column: alignment 0 = left, 1 = right. Returns the new column's index or -1.
FINCH_API int UIP_ListViewAddColumn(HWND listView, int index, const wchar_t* text, int width, int alignment);
// The system's message text for an error code, without trailing line breaks; valid until the next call on
// the same thread.
FINCH_API const wchar_t* APIP_GetErrorCodeStr(DWORD code);
// Bounded wide formatted print (Windows conventions: %s is a wide string). bufferBytes is the buffer size in
// bytes. The result is always zero-terminated and cut on overflow. Returns the characters written.
FINCH_API int APIP_FormatString(wchar_t* buffer, size_t bufferBytes, const wchar_t* format, ...);
FINCH_API int APIP_FormatStringV(wchar_t* buffer, size_t bufferBytes, const wchar_t* format, va_list args);

// ---- Notification-area icon ----
// One icon of an owner window in the taskbar's notification area, with a tip and a callback message
// (the owner receives callbackMessage with the icon id in wParam and the mouse message in lParam).
// Without a notification area Show() fails and the program runs on; the icon adds itself again when the
// taskbar is created anew ("TaskbarCreated"), as long as it is meant to be shown. Init, Show and Delete
// run on the owner's thread; SetIcon may come from any thread. The caller keeps the icons alive.
class FINCH_API UIP_SYSTRAYICON {
public:
    UIP_SYSTRAYICON();
    ~UIP_SYSTRAYICON();   // removes the icon
    UIP_SYSTRAYICON(const UIP_SYSTRAYICON&) = delete;
    UIP_SYSTRAYICON& operator=(const UIP_SYSTRAYICON&) = delete;

    int Init(HWND owner, HICON icon, const wchar_t* tip, int id, UINT callbackMessage);
    int Show();                 // adds the icon, or brings the shell's copy up to date
    int SetIcon(HICON icon);    // a removed icon only keeps the picture for the next Show()
    int Delete();               // removes the icon
    int IsShown() const;        // the shell holds the icon now
    HICON GetIcon() const;
    HWND GetTaskbarListener() const;   // the hidden window that hears "TaskbarCreated"

private:
    struct State;
    std::unique_ptr<State> state_;
};
