// wren64.dll: runtime support. Application and build information, the option store, language settings,
// OS checks and small window helpers. (History graphs and address resolution join later.)
#pragma once
#include <windows.h>

#ifdef WREN_BUILD
#define WREN_API __declspec(dllexport)
#else
#define WREN_API __declspec(dllimport)
#endif

namespace wren {

// ---- Application and build information ----
WREN_API int SetAppInfo(const wchar_t* fullName, const wchar_t* name, const wchar_t* versionText,
                        unsigned versionNumber, const wchar_t* appCode);
WREN_API int SetBuildInfo(const wchar_t* date, const wchar_t* time, unsigned buildNumber);
WREN_API const wchar_t* GetAppNameFull();
WREN_API const wchar_t* GetAppName();
WREN_API const wchar_t* GetAppCode();
WREN_API const wchar_t* GetAppVersionText();
WREN_API unsigned GetAppVersionNumber();
WREN_API unsigned GetBuildNumber();
WREN_API const wchar_t* GetBuildDate();
WREN_API const wchar_t* GetBuildTime();
WREN_API void SetStoredInstance(HINSTANCE instance);
WREN_API HINSTANCE GetStoredInstance();
// Finishes registration: from here on the option store and language settings know their registry key,
// "Software\Orvane Software\<application name>\Settings" under HKEY_CURRENT_USER. Before it, option reads
// give their defaults and writes store nothing.
WREN_API int PostInit();
// The registry key (below HKEY_CURRENT_USER) that holds the options; valid after PostInit.
WREN_API const wchar_t* GetSettingsKeyPath();
// Non-zero when this process is a 32-bit process running on 64-bit Windows.
WREN_API int IsProcessInWow64();

// ---- Language settings ----
// Reads the stored language choice (REG_DWORD "LanguageID" in the Settings key: 0x0409 English, 0x0407 German);
// non-zero when one is stored. Without one the current language is English.
WREN_API int LoadLangSettings();
// Lets the user choose the language (first start); stores the choice. Returns non-zero when one was chosen.
WREN_API int SelectLanguageDialog(HWND parent);
// The Language Settings dialog of the running program; stores a changed choice, which takes effect at the
// next start. Returns non-zero when the choice changed.
WREN_API int LanguageSettingsDialog(HWND parent);
WREN_API LANGID GetCurrentLangID();
WREN_API int SetCurrentLangID(LANGID language);   // stores the choice
// One of two fixed texts by the current language: German when the current language is German, else English.
WREN_API const wchar_t* HardcodeLangString(const wchar_t* english, const wchar_t* german);

// ---- OS checks ----
WREN_API int IsOSVistaOrHigher();
WREN_API int IsOSWindows2000();
WREN_API int IsThemeActive();   // uxtheme looked up at run time; 0 when it is missing

// ---- Window helpers ----
WREN_API void CenterWindow(HWND window, HWND over);   // over null: centre on the work area
WREN_API void Embold(HWND dialog, int controlId);      // gives the control the bold dialog font
WREN_API void EmStaticEdge(HWND dialog, int controlId);
// Checks a critical allocation; on null tells the user and ends the process. Returns 1 otherwise.
WREN_API int VerifyCritialAlloc(const void* pointer);
// A dialog by template in the current language, from the given module.
WREN_API INT_PTR DialogBoxParamW(HINSTANCE instance, const wchar_t* templateName, HWND parent, DLGPROC procedure,
                                 LPARAM parameter);
// Compare-then-set: the text is only written when it differs, so unchanged controls do not flicker.
WREN_API int SetDlgItemTextW(HWND dialog, int controlId, const wchar_t* text);
WREN_API int ListViewSetItemText(HWND listView, int row, int column, const wchar_t* text);

// ---- Option store ----
// Every persistent setting is a named value here; each read passes its default, which an unwritten value,
// or one of the wrong type or size, yields.
class WREN_API REGOPTIONS {
public:
    int GetOptionBOOL(const wchar_t* name, int defaultValue);
    unsigned GetOptionDWORD(const wchar_t* name, unsigned defaultValue);
    // Reads at most bufferSize bytes; *bytesRead is the stored block's size when it fits, else 0.
    int GetOptionBINARY(const wchar_t* name, void* buffer, unsigned bufferSize, unsigned* bytesRead);
    int SetOptionBOOL(const wchar_t* name, int value);
    int SetOptionDWORD(const wchar_t* name, unsigned value);
    int SetOptionBINARY(const wchar_t* name, const void* data, unsigned size);
};

WREN_API extern REGOPTIONS regOptions;

}  // namespace wren
