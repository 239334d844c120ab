// What the information pages need from the rest of the program: the shared button painter, the shell
// opener, priority names and the notes store. The program hands them in once, before the first properties
// window opens; a page treats a missing service as "not available" and goes on.
#pragma once
#include <windows.h>

#include <string>

namespace lmvx {

struct PageServices {
    int (*drawOwnerButton)(HWND window, const DRAWITEMSTRUCT* item) = nullptr;
    int (*openInShell)(const wchar_t* path) = nullptr;
    // The localised name of a priority class; "" for any other value.
    const wchar_t* (*priorityName)(unsigned priorityClass) = nullptr;
    // The note kept for an image name ("" when none or too long to load), and storing one ("" removes it).
    std::wstring (*loadNote)(const std::wstring& imageName) = nullptr;
    void (*saveNote)(const std::wstring& imageName, const std::wstring& note) = nullptr;
    // Tells the main window's details pane that a note was saved, so that it shows the new text when it
    // shows the same image.
    void (*noteSaved)(HWND mainWindow) = nullptr;
};

void SetPageServices(const PageServices& services);
const PageServices& CurrentPageServices();

}  // namespace lmvx
