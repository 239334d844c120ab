// The UI library's names for the shared owning wrappers.
#pragma once
#include "common/unique_resource.h"

namespace finch {
using UniqueFont = lmvx::UniqueFont;
using UniqueModule = lmvx::UniqueModule;
using UniqueWindow = lmvx::UniqueWindow;
using UniqueMenu = lmvx::UniqueMenu;
using UniqueKernelHandle = lmvx::UniqueHandle;
}  // namespace finch
