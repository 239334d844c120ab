#include "resource_lookup.h"
#include "resource_language.h"

namespace finch {

namespace {

BOOL CALLBACK CollectLanguage(HMODULE, LPCWSTR, LPCWSTR, WORD language, LONG_PTR context) {
    reinterpret_cast<std::vector<LANGID>*>(context)->push_back(language);
    return TRUE;
}

BOOL CALLBACK CollectBlockId(HMODULE, LPCWSTR, LPWSTR name, LONG_PTR context) {
    // String blocks are always numbered; a named one cannot be addressed by a string id.
    if (IS_INTRESOURCE(name)) {
        reinterpret_cast<std::vector<UINT>*>(context)->push_back(static_cast<UINT>(reinterpret_cast<ULONG_PTR>(name)));
    }
    return TRUE;
}

}  // namespace

std::vector<LANGID> ResourceLanguages(HINSTANCE module, const wchar_t* type, const wchar_t* name) {
    std::vector<LANGID> languages;
    EnumResourceLanguagesW(module, type, name, CollectLanguage, reinterpret_cast<LONG_PTR>(&languages));
    return languages;
}

ResourceData LoadResourceData(HINSTANCE module, const wchar_t* type, const wchar_t* name, LANGID language) {
    HRSRC resource = FindResourceExW(module, type, name, language);
    if (resource == nullptr) return {};
    // Resources of a loaded module need no release: LoadResource only maps into the image.
    HGLOBAL loaded = LoadResource(module, resource);
    if (loaded == nullptr) return {};
    return {LockResource(loaded), SizeofResource(module, resource)};
}

ResourceData FindLocalizedResource(HINSTANCE module, const wchar_t* type, const wchar_t* name, LANGID wanted) {
    // A null module would mean the executable to the resource functions; here it means "none given".
    if (module == nullptr) return {};
    try {
        const auto language = PickResourceLanguage(wanted, ResourceLanguages(module, type, name));
        if (!language) return {};
        return LoadResourceData(module, type, name, *language);
    } catch (...) {
        // Out of memory listing the languages: the caller reports the resource as missing.
        return {};
    }
}

std::vector<UINT> StringBlockIds(HINSTANCE module) {
    std::vector<UINT> blocks;
    if (module == nullptr) return blocks;
    EnumResourceNamesW(module, RT_STRING, CollectBlockId, reinterpret_cast<LONG_PTR>(&blocks));
    return blocks;
}

}  // namespace finch
