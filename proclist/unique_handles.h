// The process list's names for the shared owning wrappers.
#pragma once
#include "common/unique_resource.h"

namespace proclist {
using UniqueMenu = lmvx::UniqueMenu;
using UniqueKernelHandle = lmvx::UniqueHandle;
using UniqueImageList = lmvx::UniqueImageList;
}  // namespace proclist
