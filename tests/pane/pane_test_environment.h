// The window tests' host lives in the tests' support folder; the tests of the later windows know it by these names.
#pragma once
#include "test_host.h"

namespace pane_test {
using HostWindow = lmvx_test::TestMainWindow;
using lmvx_test::ChildTexts;
using lmvx_test::FindOwnWindow;
using lmvx_test::PumpUntil;
using lmvx_test::ReadWholeFile;
using lmvx_test::ScopedTestApplication;
using lmvx_test::TestTempFolder;
using lmvx_test::WaitForOwnWindow;
}  // namespace pane_test
