// The hosted main window lives in the tests' support folder; the main window's tests know it by these names.
#pragma once
#include "main_window_host.h"

namespace mainwnd_test {
using lmvx_test::HostedMainWindow;
using lmvx_test::PumpUntil;
using lmvx_test::ReadMenu;
using lmvx_test::RightClickMenu;
using lmvx_test::ScopedHostedProgram;
using lmvx_test::SeenItem;
}  // namespace mainwnd_test
