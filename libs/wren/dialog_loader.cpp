// Dialogs by template in the current language: the exact language, its default sublanguage, English,
// and finally whatever language the module has.
#include "wren.h"

#include "language_choice.h"

namespace wren {
namespace {

HRSRC FindDialogTemplate(HINSTANCE instance, const wchar_t* templateName) {
    for (LanguageId language : ResourceLanguageOrder(GetCurrentLangID())) {
        if (HRSRC found = FindResourceExW(instance, RT_DIALOG, templateName, language)) return found;
    }
    return FindResourceW(instance, templateName, RT_DIALOG);
}

}  // namespace

INT_PTR DialogBoxParamW(HINSTANCE instance, const wchar_t* templateName, HWND parent, DLGPROC procedure,
                        LPARAM parameter) {
    HRSRC resource = FindDialogTemplate(instance, templateName);
    if (!resource) return -1;
    // Resource memory belongs to the module: nothing to free.
    HGLOBAL loaded = LoadResource(instance, resource);
    const void* dialogTemplate = loaded ? LockResource(loaded) : nullptr;
    if (!dialogTemplate) return -1;
    return DialogBoxIndirectParamW(instance, static_cast<const DLGTEMPLATE*>(dialogTemplate), parent, procedure,
                                   parameter);
}

}  // namespace wren
