// The runtime library's names for the shared owning wrappers.
#pragma once
#include "common/unique_resource.h"

namespace wren {
using lmvx::UniqueResource;
using UniqueRegistryKey = lmvx::UniqueRegKey;
using UniqueFont = lmvx::UniqueFont;
using UniqueModule = lmvx::UniqueModule;
}  // namespace wren
