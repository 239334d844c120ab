// The rate table and the zero-period rule. (The check marks are tested on the refresh cycle's menu.)
#include <gtest/gtest.h>

#include "command_ids.h"
#include "proclist/refresh_rates.h"
#include "string_ids.h"

namespace proclist {
namespace {

TEST(RefreshRates, ZeroPeriodCountsAsOneHundred) {
    EXPECT_EQ(EffectivePeriod(0), 100u);
    EXPECT_EQ(EffectivePeriod(1), 1u);
    EXPECT_EQ(EffectivePeriod(2000), 2000u);
}

TEST(RateMenu, ListsTheFiveRatesInOrder) {
    const auto items = RateMenuItems(1000);
    ASSERT_EQ(items.size(), 5u);
    const unsigned commands[] = {IDM_RATE_VERY_LOW, IDM_RATE_LOW, IDM_RATE_MEDIUM, IDM_RATE_HIGH, IDM_RATE_VERY_HIGH};
    for (size_t i = 0; i < items.size(); ++i) {
        EXPECT_EQ(items[i].commandId, commands[i]);
        EXPECT_EQ(items[i].stringId, IDS_RATE_VERY_LOW + i);
        EXPECT_FALSE(items[i].separator);
    }
}

}  // namespace
}  // namespace proclist
