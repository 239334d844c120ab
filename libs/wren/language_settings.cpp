// The current user-interface language: English until a stored choice is loaded or a new one is made.
#include "language_settings.h"

#include <atomic>

#include "language_choice.h"
#include "wren.h"

namespace wren {
namespace {

std::atomic<LANGID> currentLanguage{kLanguageEnglish};

}  // namespace

LANGID ReadStoredLanguage() { return SupportedLanguage(regOptions.GetOptionDWORD(kLanguageValueName, 0)); }

int StoreLanguage(LANGID language) {
    const LANGID supported = SupportedLanguage(language);
    if (!supported) return 0;
    return regOptions.SetOptionDWORD(kLanguageValueName, supported);
}

int LoadLangSettings() {
    const LANGID stored = ReadStoredLanguage();
    currentLanguage = stored ? stored : kLanguageEnglish;
    return stored ? 1 : 0;
}

LANGID GetCurrentLangID() { return currentLanguage; }

int SetCurrentLangID(LANGID language) {
    const LANGID supported = SupportedLanguage(language);
    if (!supported) return 0;
    currentLanguage = supported;
    return StoreLanguage(supported);
}

const wchar_t* HardcodeLangString(const wchar_t* english, const wchar_t* german) {
    return PickLanguageText(currentLanguage, english, german);
}

}  // namespace wren
