#include "os_version.h"

namespace wren {

// Vista is NT 6.0; Windows 2000 is NT 5.0 exactly (5.1 is XP, 5.2 Server 2003 and XP x64).
bool IsVersionVistaOrHigher(unsigned long major) { return major >= 6; }

bool IsVersionWindows2000(unsigned long major, unsigned long minor) { return major == 5 && minor == 0; }

}  // namespace wren
