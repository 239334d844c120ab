#include "app/shared_icons.h"

namespace lmvx {

const unsigned short kSharedIconIds[kSharedIconCount] = {
    232, 233, 248, 262, 193, 247, 253, 249, 250, 251, 252, 259, 260, 191, 187, 326, 334, 322, 183, 176,
    327, 228, 328, 329, 192, 227, 330, 331, 182, 188, 190, 247, 332, 333, 335, 186, 223, 337, 341, 342,
};

namespace {
SharedIconPair g_icons[kSharedIconCount];
const SharedIconPair kNoIcon{};
}  // namespace

void LoadSharedIcons(HINSTANCE instance) {
    for (size_t i = 0; i < kSharedIconCount; ++i) {
        const wchar_t* name = MAKEINTRESOURCEW(kSharedIconIds[i]);
        g_icons[i].large = static_cast<HICON>(LoadImageW(instance, name, IMAGE_ICON, 32, 32, LR_COLOR));
        g_icons[i].small = static_cast<HICON>(LoadImageW(instance, name, IMAGE_ICON, 16, 16, LR_COLOR));
    }
}

const SharedIconPair& SharedIcon(size_t entry) { return entry < kSharedIconCount ? g_icons[entry] : kNoIcon; }

const SharedIconPair& SharedIconById(unsigned short resourceId) {
    for (size_t i = 0; i < kSharedIconCount; ++i) {
        if (kSharedIconIds[i] == resourceId) return g_icons[i];
    }
    return kNoIcon;
}

}  // namespace lmvx
