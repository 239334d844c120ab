// Entry point of the GUI tests: they run inside a Wine desktop with a taskbar.
#include <gtest/gtest.h>

#include "tests/perfui/wine_desktop.h"

int main(int argc, char** argv) {
    int exitCode = 0;
    if (lmvx::test::RelaunchOnTestDesktop(exitCode)) return exitCode;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
