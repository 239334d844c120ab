#include "thread_states.h"

#include <gtest/gtest.h>

namespace kestrel::detail {
namespace {

constexpr ThreadStateReading kSuspended{ThreadStateWaiting, WaitReasonSuspended};
constexpr ThreadStateReading kSleeping{ThreadStateWaiting, 6};   // waiting for a delay
constexpr ThreadStateReading kRunning{2, 0};
constexpr ThreadStateReading kNothingKnown{0, 0};

TEST(SuspendedByThreadStates, AnswersOnlyWhenTheStatesSaySomething) {
    struct Case {
        std::vector<ThreadStateReading> threads;
        std::optional<bool> expected;
    };
    const Case cases[] = {
        {{}, std::nullopt},
        {{kNothingKnown, kNothingKnown}, std::nullopt},
        {{kSuspended, kSuspended}, true},
        {{kSuspended, kSleeping}, false},
        {{kRunning}, false},
        {{kSuspended, kNothingKnown}, false},
    };
    for (const Case& c : cases) EXPECT_EQ(SuspendedByThreadStates(c.threads), c.expected) << c.threads.size();
}

}  // namespace
}  // namespace kestrel::detail
