// The process-data library's names for the shared owning wrappers.
#pragma once
#include "common/unique_resource.h"

namespace kestrel::detail {
using lmvx::UniqueResource;
using lmvx::HandleTraits;
using lmvx::IconTraits;
using lmvx::ImageListTraits;
using lmvx::LocalMemoryTraits;
using UniqueHandle = lmvx::UniqueHandle;   // process, thread and token handles
using UniqueIcon = lmvx::UniqueIcon;
using UniqueImageList = lmvx::UniqueImageList;
using UniqueLocalMemory = lmvx::UniqueLocalMemory;
}  // namespace kestrel::detail
