// The shared icon set: forty icons loaded once at start-up at 32 x 32 and 16 x 16 pixels and used by
// menus, panes and lists for the whole run.
#pragma once
#include <windows.h>

#include <cstddef>

namespace lmvx {

inline constexpr size_t kSharedIconCount = 40;

struct SharedIconPair {
    HICON large = nullptr;   // 32 x 32
    HICON small = nullptr;   // 16 x 16
};

// Resource ids in load order. 247 fills two pairs (the 6th and the 32nd) on purpose.
extern const unsigned short kSharedIconIds[kSharedIconCount];

// Loads all forty pairs from the module; the handles live until the process ends and are never destroyed.
void LoadSharedIcons(HINSTANCE instance);
const SharedIconPair& SharedIcon(size_t entry);
// The first entry holding the resource id, or an empty pair when the set has no such id.
const SharedIconPair& SharedIconById(unsigned short resourceId);

}  // namespace lmvx
