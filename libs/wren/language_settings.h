// Language state shared by the language functions and dialogs of this library.
#pragma once
#include <windows.h>

namespace wren {

// Name of the REG_DWORD in the Settings key that holds the chosen language id.
inline constexpr wchar_t kLanguageValueName[] = L"LanguageID";

// The stored choice as a supported language id, 0 when none (or an unusable one) is stored.
LANGID ReadStoredLanguage();
// Writes the choice without changing the language of the running program.
int StoreLanguage(LANGID language);

}  // namespace wren
