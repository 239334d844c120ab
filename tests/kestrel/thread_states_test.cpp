#include "thread_states.h"

#include <gtest/gtest.h>

namespace kestrel::detail {
namespace {

TEST(SuspendedByThreadStates, AnswersOnlyWhenTheStatesSaySomething) {
    const ThreadStateReading suspended{ThreadStateWaiting, WaitReasonSuspended}, sleeping{ThreadStateWaiting, 6},
        running{2, 0}, nothingKnown{0, 0};
    const std::pair<std::vector<ThreadStateReading>, std::optional<bool>> cases[] = {
        {{}, std::nullopt},           {{nothingKnown, nothingKnown}, std::nullopt}, {{suspended, suspended}, true},
        {{suspended, sleeping}, false}, {{running}, false}, {{suspended, nothingKnown}, false},
    };
    for (const auto& [threads, expected] : cases) EXPECT_EQ(SuspendedByThreadStates(threads), expected) << threads.size();
}

}  // namespace
}  // namespace kestrel::detail
