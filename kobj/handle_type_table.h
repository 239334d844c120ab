// Kernel object types and the icons that stand for them: the image of each type in the handle lists' image
// list, and the large icon of the Kernel Objects dialog's detail pane. Type names compare exactly (case too).
#pragma once
#include <array>
#include <string_view>

namespace lmvx::kobj {

// Icon resources of the handle lists' image list, in image-index order. The generic icon comes twice on
// purpose: "Mutant" keeps an image slot of its own (5) that shows the same picture as unknown types (0).
inline constexpr std::array<unsigned short, 11> kHandleImageIcons = {193, 248, 233, 247, 262, 193,
                                                                     253, 249, 250, 251, 252};

// Image index for the handle lists; 0 for a type the table does not name (also the empty type).
int HandleTypeImageIndex(std::wstring_view type);

// Icon resource for the detail pane; the generic icon (193) for a type the table does not name.
unsigned short HandleTypeIconId(std::wstring_view type);

}  // namespace lmvx::kobj
