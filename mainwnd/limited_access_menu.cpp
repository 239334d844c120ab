#include "mainwnd/limited_access_menu.h"

#include "app/option_keys.h"
#include "common/unique_resource.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {

unsigned ShowLimitedAccessMenu(HWND owner, POINT at) {
    UniqueMenu menu(CreatePopupMenu());
    if (!menu) return 0;
    const auto& elevation = options::RequestElevation;
    const bool requested = wren::regOptions.GetOptionBOOL(elevation.name, elevation.defaultValue) != 0;
    AppendMenuW(menu.Get(), MF_STRING, IDM_SHOW_DIALOG_277,
                wren::HardcodeLangString(L"Why Is Some Information Missing?", L"Warum fehlen einige Informationen?"));
    AppendMenuW(menu.Get(), MF_STRING | (requested ? MF_CHECKED : MF_UNCHECKED), IDM_TOGGLE_REQUEST_ELEVATION,
                wren::HardcodeLangString(L"Request Administrator Rights at Start",
                                         L"Beim Start Administratorrechte anfordern"));
    SetMenuDefaultItem(menu.Get(), IDM_SHOW_DIALOG_277, FALSE);
    return static_cast<unsigned>(
        TrackPopupMenu(menu.Get(), TPM_RETURNCMD, at.x, at.y, 0, owner, nullptr));
}

}  // namespace lmvx
