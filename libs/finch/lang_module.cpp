// Language module: strings, dialogs and menus by id, in the current language with English as fallback.
#include "platform/finch.h"
#include "resource_lookup.h"
#include "string_table.h"

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

struct UIL_LANGMODULE::State {
    std::atomic<HINSTANCE> instance{nullptr};
    std::atomic<LANGID> language{UIL_LANGMODULE::English};
    // Readers take this pointer without a lock; a language switch only swaps it.
    std::atomic<const finch::StringTable*> strings{nullptr};

    std::mutex buildLock;
    // Every table built stays until the module object goes, so no string handed out ever dangles.
    std::map<std::pair<std::uintptr_t, LANGID>, std::unique_ptr<const finch::StringTable>> builtTables;
};

FINCH_API UIL_LANGMODULE UIL_LangModule;

// Users that bind the language constants to a reference import them from here, so the library must
// hold their definitions.
constexpr LANGID UIL_LANGMODULE::English;
constexpr LANGID UIL_LANGMODULE::German;

UIL_LANGMODULE::UIL_LANGMODULE() : state_(std::make_unique<State>()) {}

UIL_LANGMODULE::~UIL_LANGMODULE() = default;

int UIL_LANGMODULE::Init(HINSTANCE instance, const wchar_t* /*appName*/, const wchar_t* /*appCode*/,
                         LANGID language) {
    // Name and code belong to the executable core; the language module needs only the module with the resources.
    if (instance == nullptr) return 0;
    state_->instance.store(instance);
    return SelectLanguage(language);
}

int UIL_LANGMODULE::SelectLanguage(LANGID language) {
    HINSTANCE instance = state_->instance.load();
    if (instance == nullptr) return 0;
    try {
        std::lock_guard<std::mutex> guard(state_->buildLock);
        const auto key = std::make_pair(reinterpret_cast<std::uintptr_t>(instance), language);
        auto found = state_->builtTables.find(key);
        if (found == state_->builtTables.end()) {
            auto table = std::make_unique<const finch::StringTable>(finch::BuildStringTable(instance, language));
            found = state_->builtTables.emplace(key, std::move(table)).first;
        }
        state_->strings.store(found->second.get());
        state_->language.store(language);
        return 1;
    } catch (...) {
        return 0;
    }
}

LANGID UIL_LANGMODULE::GetLanguage() const { return state_->language.load(); }

const wchar_t* UIL_LANGMODULE::GetLangString(UINT id) const {
    const finch::StringTable* strings = state_->strings.load();
    if (strings == nullptr) return L"";
    const auto found = strings->find(id);
    return found != strings->end() ? found->second.c_str() : L"";
}

HMENU UIL_LANGMODULE::LoadLangMenu(UINT menuId) const {
    const finch::ResourceData menu =
        finch::FindLocalizedResource(state_->instance.load(), RT_MENU, MAKEINTRESOURCEW(menuId), GetLanguage());
    if (menu.data == nullptr) return nullptr;
    return LoadMenuIndirectW(menu.data);
}

INT_PTR UIL_LANGMODULE::ShowDialogParam(UINT dialogId, HWND parent, DLGPROC procedure, LPARAM parameter) const {
    HINSTANCE instance = state_->instance.load();
    const finch::ResourceData dialog =
        finch::FindLocalizedResource(instance, RT_DIALOG, MAKEINTRESOURCEW(dialogId), GetLanguage());
    // -1 is what DialogBoxParamW answers when the dialog cannot be created.
    if (dialog.data == nullptr) return -1;
    return DialogBoxIndirectParamW(instance, static_cast<const DLGTEMPLATE*>(dialog.data), parent, procedure,
                                   parameter);
}

HWND UIL_LANGMODULE::LoadDialogParam(UINT dialogId, HWND parent, DLGPROC procedure, LPARAM parameter) const {
    HINSTANCE instance = state_->instance.load();
    const finch::ResourceData dialog =
        finch::FindLocalizedResource(instance, RT_DIALOG, MAKEINTRESOURCEW(dialogId), GetLanguage());
    if (dialog.data == nullptr) return nullptr;
    return CreateDialogIndirectParamW(instance, static_cast<const DLGTEMPLATE*>(dialog.data), parent, procedure,
                                      parameter);
}
