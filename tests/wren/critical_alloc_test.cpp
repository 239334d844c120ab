// A failed critical allocation tells the user and ends the process; a good one lets it carry on.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "dialog_driver.h"
#include "wren.h"

namespace {

TEST(VerifyCritialAlloc, AGoodPointerPasses) {
    const int value = 0;
    EXPECT_EQ(wren::VerifyCritialAlloc(&value), 1);
}

// Runs in a child process: the box is read and closed by a driver thread, then the process must end.
void FailCriticalAllocationAndAnswerTheBox() {
    wren::SetAppInfo(L"Orvane Test Application", L"WrenAllocTests", L"1.0", 1000, L"test");
    DialogDriver user([](HWND box) {
        const std::wstring caption = WindowText(box);
        std::fprintf(stderr, "box caption: %ls\n", caption.c_str());
        SendMessageW(box, WM_COMMAND, IDOK, 0);
    });
    wren::VerifyCritialAlloc(nullptr);
}

TEST(VerifyCritialAllocDeathTest, ANullPointerTellsTheUserAndEndsTheProgram) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(FailCriticalAllocationAndAnswerTheBox(), ::testing::ExitedWithCode(ERROR_NOT_ENOUGH_MEMORY),
                "box caption: WrenAllocTests");
}

}  // namespace
