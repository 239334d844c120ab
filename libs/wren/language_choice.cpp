#include "language_choice.h"

#include <algorithm>

namespace wren {
namespace {

constexpr unsigned kPrimaryMask = 0x3ff;
constexpr unsigned kPrimaryEnglish = 0x09;
constexpr unsigned kPrimaryGerman = 0x07;
constexpr unsigned kSublanguageDefault = 0x01;

unsigned PrimaryOf(unsigned long languageId) { return languageId & kPrimaryMask; }

}  // namespace

LanguageId SupportedLanguage(unsigned long languageId) {
    if (languageId > 0xffff) return 0;
    switch (PrimaryOf(languageId)) {
    case kPrimaryEnglish: return kLanguageEnglish;
    case kPrimaryGerman: return kLanguageGerman;
    default: return 0;
    }
}

LanguageId SuggestedLanguage(LanguageId userInterfaceLanguage) {
    return PrimaryOf(userInterfaceLanguage) == kPrimaryGerman ? kLanguageGerman : kLanguageEnglish;
}

const wchar_t* PickLanguageText(LanguageId current, const wchar_t* english, const wchar_t* german) {
    if (PrimaryOf(current) == kPrimaryGerman && german) return german;
    return english;
}

std::vector<LanguageId> ResourceLanguageOrder(LanguageId current) {
    const LanguageId primaryDefault = static_cast<LanguageId>((kSublanguageDefault << 10) | PrimaryOf(current));
    std::vector<LanguageId> order;
    for (LanguageId candidate : {current, primaryDefault, kLanguageEnglish}) {
        if (PrimaryOf(candidate) == 0) continue;   // a neutral id is not a language to look for
        if (std::find(order.begin(), order.end(), candidate) == order.end()) order.push_back(candidate);
    }
    return order;
}

}  // namespace wren
