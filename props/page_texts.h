// The rules behind the texts of the General, Start, Performance, Memory and Token pages: values in,
// values or string ids out, no windows and no system calls.
#pragma once
#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace lmvx {

// The day part of a duration: no text under a day, else a string id ("%d Day " / "%d Days ") and its number.
struct DurationDays {
    unsigned textId = 0;   // 0: no day text
    unsigned count = 0;
};
// wholeDays as the provider packs durations: whole days in wDay.
DurationDays DurationDaysOf(unsigned wholeDays);

// Whether a packed duration holds any time at all.
bool IsEmptyDuration(const SYSTEMTIME& duration);

// A creation year of 0 or 1601 means the start time is not known.
bool IsKnownCreationTime(const SYSTEMTIME& created);

// How the Start page names the day a process started, seen from today's local date.
enum class StartDay { Unknown, Today, Yesterday, Date };
// "Yesterday" only within one month: the last day of a month seen on the first of the next is a date.
StartDay StartDayOf(const SYSTEMTIME& created, const SYSTEMTIME& today);

// "major.minor.build.revision" of the two halves of a file version.
std::wstring NumericVersionText(unsigned versionHigh, unsigned versionLow);

struct EnvironmentEntry {
    std::wstring name;
    std::wstring value;
};
// Cuts an environment block into rows. One leading null is skipped. Each string is cut at its first "=":
// the part before is the name, the text after the cut up to the next null is the value, and the walk goes
// on after that value. A string without "=" therefore takes the next string as its value, and per-drive
// entries ("=C:=C:\dir") have an empty name. Nothing beyond block.size() is read, also when the block
// lacks its final empty string.
std::vector<EnvironmentEntry> CutEnvironmentBlock(std::wstring_view block);

// The string ids of a token group's flag texts, in the order they are shown: only the strongest of owner,
// mandatory, enabled by default and enabled, then "Restricted " for a deny-only group.
std::vector<unsigned> GroupFlagTextIds(DWORD attributes);
// The string ids of a privilege's flag texts, in the order they are shown ("Disabled " for no attribute).
std::vector<unsigned> PrivilegeFlagTextIds(DWORD attributes);

}  // namespace lmvx
