// The program's two user-interface languages and the small decisions around them, as plain values.
#pragma once
#include <vector>

namespace wren {

using LanguageId = unsigned short;   // a Windows LANGID

inline constexpr LanguageId kLanguageEnglish = 0x0409;   // English (United States)
inline constexpr LanguageId kLanguageGerman = 0x0407;    // German (Germany)

// A stored or offered language id turned into one the program has: any English becomes kLanguageEnglish,
// any German kLanguageGerman, everything else 0 (no usable choice).
LanguageId SupportedLanguage(unsigned long languageId);

// The language preselected on first start: German for a German Windows user interface, else English.
LanguageId SuggestedLanguage(LanguageId userInterfaceLanguage);

// The German text when `current` is any German, else the English one (also when no German text exists).
const wchar_t* PickLanguageText(LanguageId current, const wchar_t* english, const wchar_t* german);

// Languages to try, in order, when looking for a resource in the `current` language: the exact one, the
// default sublanguage of its primary language, then English. No duplicates.
std::vector<LanguageId> ResourceLanguageOrder(LanguageId current);

}  // namespace wren
