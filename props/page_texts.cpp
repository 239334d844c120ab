#include "props/page_texts.h"

#include "res/pages_ids.h"
#include "res/string_ids.h"

namespace lmvx {

DurationDays DurationDaysOf(unsigned wholeDays) {
    if (wholeDays == 0) return {};
    return {wholeDays == 1 ? static_cast<unsigned>(IDS_ONE_DAY) : static_cast<unsigned>(IDS_DAYS), wholeDays};
}

bool IsEmptyDuration(const SYSTEMTIME& duration) {
    return duration.wMilliseconds == 0 && duration.wSecond == 0 && duration.wMinute == 0 && duration.wHour == 0 &&
           duration.wDay == 0 && duration.wMonth == 0;
}

bool IsKnownCreationTime(const SYSTEMTIME& created) { return created.wYear != 0 && created.wYear != 1601; }

StartDay StartDayOf(const SYSTEMTIME& created, const SYSTEMTIME& today) {
    if (!IsKnownCreationTime(created)) return StartDay::Unknown;
    const bool sameMonth = created.wMonth == today.wMonth && created.wYear == today.wYear;
    if (sameMonth && created.wDay == today.wDay) return StartDay::Today;
    if (sameMonth && created.wDay + 1 == today.wDay) return StartDay::Yesterday;
    return StartDay::Date;
}

std::wstring NumericVersionText(unsigned versionHigh, unsigned versionLow) {
    return std::to_wstring(versionHigh >> 16) + L'.' + std::to_wstring(versionHigh & 0xFFFF) + L'.' +
           std::to_wstring(versionLow >> 16) + L'.' + std::to_wstring(versionLow & 0xFFFF);
}

std::vector<EnvironmentEntry> CutEnvironmentBlock(std::wstring_view block) {
    std::vector<EnvironmentEntry> entries;
    size_t at = !block.empty() && block[0] == L'\0' ? 1 : 0;
    while (at < block.size() && block[at] != L'\0') {
        size_t cut = at;
        while (cut < block.size() && block[cut] != L'\0' && block[cut] != L'=') ++cut;
        EnvironmentEntry entry{std::wstring(block.substr(at, cut - at)), {}};
        const size_t valueStart = cut + 1;
        size_t valueEnd = valueStart;
        while (valueEnd < block.size() && block[valueEnd] != L'\0') ++valueEnd;
        if (valueStart < block.size()) entry.value.assign(block.substr(valueStart, valueEnd - valueStart));
        entries.push_back(std::move(entry));
        at = valueEnd + 1;
    }
    return entries;
}

std::vector<unsigned> GroupFlagTextIds(DWORD attributes) {
    std::vector<unsigned> ids;
    // Only the strongest attribute is named, by design: a mandatory group never shows "Enabled ".
    if (attributes & SE_GROUP_OWNER) ids.push_back(IDS_FLAG_OWNER);
    else if (attributes & SE_GROUP_MANDATORY) ids.push_back(IDS_FLAG_MANDATORY);
    else if (attributes & SE_GROUP_ENABLED_BY_DEFAULT) ids.push_back(IDS_FLAG_DEFAULT);
    else if (attributes & SE_GROUP_ENABLED) ids.push_back(IDS_FLAG_ENABLED);
    if (attributes & SE_GROUP_USE_FOR_DENY_ONLY) ids.push_back(IDS_FLAG_RESTRICTED);
    return ids;
}

std::vector<unsigned> PrivilegeFlagTextIds(DWORD attributes) {
    std::vector<unsigned> ids;
    if (attributes & SE_PRIVILEGE_ENABLED_BY_DEFAULT) ids.push_back(IDS_FLAG_DEFAULT);
    if (attributes & SE_PRIVILEGE_ENABLED) ids.push_back(IDS_FLAG_ENABLED);
    if (attributes & SE_PRIVILEGE_REMOVED) ids.push_back(IDS_FLAG_REMOVED);
    if (attributes & SE_PRIVILEGE_USED_FOR_ACCESS) ids.push_back(IDS_FLAG_USED_FOR_ACCESS);
    if (attributes == 0) ids.push_back(IDS_FLAG_DISABLED);
    return ids;
}

}  // namespace lmvx
