// The process list's window tests use the shared test host: application, test main window, row and menu helpers.
#pragma once
#include "test_host.h"

namespace proclist_test {
using namespace lmvx_test;
}  // namespace proclist_test
