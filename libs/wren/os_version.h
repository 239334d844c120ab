// Windows version tests on given version numbers.
#pragma once

namespace wren {

bool IsVersionVistaOrHigher(unsigned long major);
bool IsVersionWindows2000(unsigned long major, unsigned long minor);

}  // namespace wren
