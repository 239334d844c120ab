// Enabling the two token privileges the program relies on.
#pragma once

namespace lmvx {

// 1 when the privilege is now enabled in the process token, 0 when the token lacks it or a call failed.
int EnableDebugPrivilege();
int EnableShutdownPrivilege();

}  // namespace lmvx
