// Finding one language's copy of a resource in a module.
#pragma once
#include <windows.h>
#include <cstddef>
#include <vector>

namespace finch {

struct ResourceData {
    const void* data = nullptr;
    size_t byteLength = 0;
};

// The languages in which the module holds the resource (type, name).
std::vector<LANGID> ResourceLanguages(HINSTANCE module, const wchar_t* type, const wchar_t* name);

// The resource's data in the given language only; empty when that copy does not exist.
ResourceData LoadResourceData(HINSTANCE module, const wchar_t* type, const wchar_t* name, LANGID language);

// The resource in the wanted language, falling back as PickResourceLanguage says; empty when no copy exists.
// Never throws: the exported dialog and menu loaders call it directly.
ResourceData FindLocalizedResource(HINSTANCE module, const wchar_t* type, const wchar_t* name, LANGID wanted);

// The ids of every string block in the module.
std::vector<UINT> StringBlockIds(HINSTANCE module);

}  // namespace finch
