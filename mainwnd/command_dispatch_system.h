// Commands of the main window that reach beyond it: help, web pages, shutting the computer down, the
// sibling tools, the language settings and resuming every paused process.
#pragma once
#include <windows.h>

namespace lmvx {

// Opens the help file; "Helpfile not found." when the shell cannot.
void OpenHelp(HWND mainWindow);
// Opens a web address with the shell.
void OpenWebAddress(HWND mainWindow, const wchar_t* address);
// Asks the shutdown question of command 157, 158 or 159; only a Yes shuts down.
void ConfirmShutdown(HWND mainWindow, unsigned commandId);
// Starts the sibling tool of command 210 or 339 from Lumivex's own folder; a missing tool is reported.
void StartSiblingTool(HWND mainWindow, unsigned commandId);

// The address of the maker's web site (command 142).
inline constexpr const wchar_t* kWebSiteAddress = L"https://www.orvane-software.com/lumivex";

}  // namespace lmvx
