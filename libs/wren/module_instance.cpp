#include "module_instance.h"

namespace wren {

HINSTANCE LibraryInstance() {
    // Asking for the module that holds this very function needs no DllMain and no linker symbol.
    static const HINSTANCE instance = [] {
        HMODULE module = nullptr;
        GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           reinterpret_cast<const wchar_t*>(&LibraryInstance), &module);
        return static_cast<HINSTANCE>(module);
    }();
    return instance;
}

}  // namespace wren
