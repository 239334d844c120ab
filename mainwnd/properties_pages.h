// The pages of the program's process properties windows, composed from the subsystems that provide them.
#pragma once
#include "props/property_pages.h"

namespace lmvx {

PropertyPageTable ProgramPropertyPages();

}  // namespace lmvx
