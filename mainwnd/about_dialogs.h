// The about box and the limited-access dialog, both modal over the main window.
#pragma once
#include <windows.h>

#include <string>

namespace lmvx {

void ShowAboutBox(HWND owner);
// Explains what cannot be shown without the debug privilege; OK stores the elevation request.
void ShowLimitedAccessDialog(HWND owner);

// "Version 5.0 (Build 8212)" and the build time line of the about box.
inline std::wstring AboutVersionLine(const wchar_t* versionText, unsigned buildNumber) {
    return L"Version " + std::wstring(versionText) + L" (Build " + std::to_wstring(buildNumber) + L")";
}
inline std::wstring AboutBuildLine(const wchar_t* builtLabel, const wchar_t* date, const wchar_t* time) {
    return std::wstring(builtLabel) + L" " + date + L", " + time;
}

}  // namespace lmvx
