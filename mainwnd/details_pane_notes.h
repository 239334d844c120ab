// Notes the user keeps per executable, under "Software\Orvane Software\Lumivex\Notes" in the current user's
// registry: one string value per image, named by the image's file name (as the General page reads it).
#pragma once
#include <windows.h>

#include <string>

namespace lmvx {

inline constexpr wchar_t kNotesKey[] = L"Software\\Orvane Software\\Lumivex\\Notes";

// The value name of an image: its file name, whatever folder the path names. Empty for an empty path.
std::wstring NoteValueName(const std::wstring& imagePathOrName);

// Reads the note with a data size of 1024 bytes (so at most 511 characters come back). "" when none.
std::wstring LoadNote(const std::wstring& valueName);
// Stores the note (the caller takes at most 1024 characters from the edit); an empty note removes the value.
void SaveNote(const std::wstring& valueName, const std::wstring& note);

// The note edit of a window: read back into it, and written from it.
void LoadNoteIntoEdit(HWND edit, const std::wstring& valueName);
void SaveNoteFromEdit(HWND edit, const std::wstring& valueName);

// Another window saved a note: the details pane among mainWindow's children reads its note again (unless
// the user is editing it there). Posted, so that a window on another thread never waits for the main window.
void AnnounceNoteSaved(HWND mainWindow);
// The message the pane receives for it.
UINT NoteSavedMessage();

}  // namespace lmvx
