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
// The same for a window at hand (no search for the control among the dialog's children).
WREN_API int SetWindowTextIfChanged(HWND window, const wchar_t* text);
// Sets a list-view cell (null: empty), whatever it holds now: callers compare with what they wrote.
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

// ---- History graphs ----
// A PERFGRAPH keeps the recent history of a few series of figures (one point per interval, the newest at
// the right edge) and draws them into any window at any size. Drawing goes to an off-screen bitmap that
// RenderClose puts on screen in one copy, so a graph redrawn many times a second does not flicker.
// One thread feeds and draws a graph while others may repaint it (UpdateGraph) or read it: the graph
// locks inside. Every operation returns non-zero on success, 0 when the graph is not initialised or an
// argument is out of range.
namespace wren {

namespace detail {
struct PerfGraphState;
}

class PERFGRAPH {
public:
    // Inline and trivial, so that graphs can be program-wide objects; Init() allocates.
    constexpr PERFGRAPH() noexcept = default;
    WREN_API ~PERFGRAPH();   // Delete()
    PERFGRAPH(const PERFGRAPH&) = delete;
    PERFGRAPH& operator=(const PERFGRAPH&) = delete;

    // History of spanMs milliseconds at one point per intervalMs (180000, 500: 360 points) for each of
    // seriesCount series. A second Init() starts over.
    WREN_API int Init(unsigned spanMs, unsigned intervalMs, unsigned seriesCount);
    // Name and unit as shown to the user; the divisor turns fed values into shown values (KB / 1024 = MB).
    WREN_API int SetRegisterDisplayInfo(const wchar_t* name, const wchar_t* unit, unsigned divisor, COLORREF colour,
                                        unsigned series);
    // The value drawn at the top, in the fed unit. Without one (0) a series scales to its own peak.
    WREN_API int SetScaleMax(unsigned maximum, unsigned series);
    // One figure at a GetTickCount() time; points of one interval replace each other, and an interval
    // without a point repeats the one before it.
    WREN_API int SetDataPoint(unsigned value, unsigned timeStamp, unsigned series);

    // Starts a drawing into the window's client area (dc null: the graph gets the window's DC itself).
    // Returns the off-screen DC, null when there is nothing to draw into (no window, empty client area).
    // flags are reserved (callers pass 0 or the point interval).
    WREN_API HDC RenderOpen(HWND window, HDC dc, unsigned flags);
    WREN_API int RenderFill(COLORREF colour, unsigned series);   // area under the series' line
    WREN_API int RenderGrid();
    WREN_API int RenderLine(COLORREF colour, unsigned series);
    WREN_API int RenderClose();   // puts the drawing on screen and keeps it for UpdateGraph
    WREN_API int RenderCloseEx(unsigned flags);   // flags reserved, 0
    // Repaints the last finished drawing (WM_PAINT, WM_MOUSEMOVE); dc null: the window's DC.
    WREN_API int UpdateGraph(HWND window, HDC dc, unsigned flags);
    WREN_API int Delete();   // frees the history and the drawing; 1 when there was something to free

    // What the graph holds, for texts beside it and for checks.
    WREN_API unsigned GetSeriesCount() const;
    WREN_API unsigned GetPointCapacity() const;            // spanMs / intervalMs, at least 1
    WREN_API unsigned GetPointCount(unsigned series) const; // points kept so far, up to the capacity
    // Point by age: 0 is the newest. 0 when there is no such point.
    WREN_API unsigned GetPoint(unsigned series, unsigned age) const;
    WREN_API unsigned GetScaleMax(unsigned series) const;   // the set maximum, or 0
    WREN_API unsigned GetScaleTop(unsigned series) const;   // the value drawn at the top right now
    WREN_API unsigned GetDisplayDivisor(unsigned series) const;
    WREN_API unsigned GetDisplayValue(unsigned series) const;  // newest point / divisor
    WREN_API COLORREF GetSeriesColour(unsigned series) const;
    // Copy name or unit into the buffer (length in characters, always terminated); "" when unset.
    WREN_API int GetSeriesName(unsigned series, wchar_t* buffer, unsigned length) const;
    WREN_API int GetSeriesUnit(unsigned series, wchar_t* buffer, unsigned length) const;
    // A fingerprint of the picture a drawing of this size would make from the present history (every
    // series' line in pixels): equal fingerprints draw the same pixels with the same colours, so a view
    // that drew the last one may skip the next drawing. 0 when there is no history or no area.
    WREN_API unsigned long long GetPictureSignature(int width, int height) const;

private:
    detail::PerfGraphState* state_ = nullptr;
};

// GDI objects (bitmaps, DCs, pens, brushes) all history graphs of this process hold right now, and how
// many of them the system refused to free; for leak checks.
WREN_API long GetPerfGraphGdiObjectCount();
WREN_API long GetPerfGraphGdiFreeFailures();

}  // namespace wren

// ---- Address resolution ----
// What lies at an address of another process: the module that holds it and the source line there. One
// object per lookup: construct, ResolveAddress, read, destroy.
namespace wren {

class WREN_API _PROCADRINFO {
public:
    _PROCADRINFO();
    // process needs PROCESS_QUERY_INFORMATION | PROCESS_VM_READ. Returns 1 when the address lies in a module.
    int ResolveAddress(HANDLE process, unsigned long long address);
    // Non-zero when the address lies in a known module.
    int IsModuleValid() const;
    // "module+0xOFFSET" inside a module, else the address as "0x%16.16I64X"; returns buffer.
    const wchar_t* GetDisplayName(wchar_t* buffer, unsigned length) const;
    // "file(line)" when the module's symbols know the line, else the module's path, else ""; returns buffer.
    const wchar_t* GetSourceDisplayStr(wchar_t* buffer, unsigned length) const;

private:
    int moduleValid_ = 0;
    wchar_t displayName_[512] = {};
    wchar_t source_[512] = {};
};

}  // namespace wren
