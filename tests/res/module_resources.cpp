#include "module_resources.h"

#include "libs/finch/string_block.h"

namespace lmvx::restest {
namespace {

struct LanguageCollector {
    std::map<LANGID, std::set<unsigned>>* ids;
    unsigned id;
};

BOOL CALLBACK CollectLanguage(HMODULE, LPCWSTR, LPCWSTR, WORD language, LONG_PTR param) {
    auto* collector = reinterpret_cast<LanguageCollector*>(param);
    (*collector->ids)[language].insert(collector->id);
    return TRUE;
}

BOOL CALLBACK CollectName(HMODULE module, LPCWSTR type, LPWSTR name, LONG_PTR param) {
    if (!IS_INTRESOURCE(name)) return TRUE;  // every resource of this program has an integer id
    LanguageCollector collector{reinterpret_cast<std::map<LANGID, std::set<unsigned>>*>(param),
                                static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(name))};
    EnumResourceLanguagesW(module, type, name, CollectLanguage, reinterpret_cast<LONG_PTR>(&collector));
    return TRUE;
}

}  // namespace

std::map<LANGID, std::set<unsigned>> ResourceIdsByLanguage(const wchar_t* type) {
    std::map<LANGID, std::set<unsigned>> ids;
    EnumResourceNamesW(GetModuleHandleW(nullptr), type, CollectName, reinterpret_cast<LONG_PTR>(&ids));
    return ids;
}

std::set<unsigned> ResourceIds(const wchar_t* type, LANGID language) {
    auto byLanguage = ResourceIdsByLanguage(type);
    return byLanguage[language];
}

ResourceBytes FindResourceBytes(const wchar_t* type, unsigned id, LANGID language) {
    HMODULE module = GetModuleHandleW(nullptr);
    HRSRC info = FindResourceExW(module, type, MAKEINTRESOURCEW(id), language);
    if (info == nullptr) return {};
    // Resources of the own image need no unlocking or freeing.
    HGLOBAL loaded = LoadResource(module, info);
    if (loaded == nullptr) return {};
    return {LockResource(loaded), SizeofResource(module, info)};
}

std::map<unsigned, std::wstring> StringsOfLanguage(LANGID language) {
    std::map<unsigned, std::wstring> strings;
    for (unsigned block : ResourceIds(RT_STRING, language)) {
        ResourceBytes bytes = FindResourceBytes(RT_STRING, block, language);
        const finch::StringBlock texts = finch::ParseStringBlock(bytes.data, bytes.size);
        for (unsigned slot = 0; slot < texts.size(); ++slot) {
            if (!texts[slot].empty()) strings[finch::FirstStringIdOf(block) + slot] = texts[slot];
        }
    }
    return strings;
}

}  // namespace lmvx::restest
