#include "refresh_rates.h"

#include <array>

#include "command_ids.h"
#include "string_ids.h"

namespace proclist {
namespace {

struct RefreshRate {
    unsigned commandId;
    unsigned stringId;
    unsigned periodMs;
};

constexpr std::array<RefreshRate, 5> kRefreshRates = {{
    {IDM_RATE_VERY_LOW, IDS_RATE_VERY_LOW, 3000},
    {IDM_RATE_LOW, IDS_RATE_LOW, 1000},
    {IDM_RATE_MEDIUM, IDS_RATE_MEDIUM, 500},
    {IDM_RATE_HIGH, IDS_RATE_HIGH, 250},
    {IDM_RATE_VERY_HIGH, IDS_RATE_VERY_HIGH, 100},
}};

}  // namespace

unsigned EffectivePeriod(unsigned periodMs) {
    return periodMs == 0 ? kZeroPeriodReplacement : periodMs;
}

std::optional<unsigned> PeriodOfRateCommand(unsigned commandId) {
    for (const RefreshRate& rate : kRefreshRates) {
        if (rate.commandId == commandId) return rate.periodMs;
    }
    return std::nullopt;
}

std::vector<MenuItemSpec> RateMenuItems(unsigned periodMs) {
    const unsigned effective = EffectivePeriod(periodMs);
    std::vector<MenuItemSpec> items;
    for (const RefreshRate& rate : kRefreshRates) {
        items.push_back({rate.commandId, rate.stringId, rate.periodMs == effective, false});
    }
    return items;
}

}  // namespace proclist
