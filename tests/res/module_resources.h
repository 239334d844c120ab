// The string, dialog and menu resources linked into this test program, read per language.
#pragma once

#include <windows.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace lmvx::restest {

constexpr LANGID kEnglish = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
constexpr LANGID kGerman = MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN);

struct ResourceBytes {
    const void* data = nullptr;
    std::size_t size = 0;
};

// Integer ids of all resources of one type, per language.
std::map<LANGID, std::set<unsigned>> ResourceIdsByLanguage(const wchar_t* type);

// Integer ids of all resources of one type in one language.
std::set<unsigned> ResourceIds(const wchar_t* type, LANGID language);

// The bytes of one resource in one language, or empty when it does not exist in exactly
// that language.
ResourceBytes FindResourceBytes(const wchar_t* type, unsigned id, LANGID language);

// All non-empty strings of a language, by string id.
std::map<unsigned, std::wstring> StringsOfLanguage(LANGID language);

}  // namespace lmvx::restest
