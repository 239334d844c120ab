// The texts of the Threads page: cells, priorities, start times and durations, as values in and text out.
// Language texts come in as arguments, so the rules can be checked without the language module.
#pragma once
#include <windows.h>

#include <string>

namespace lmvx {

// The string id naming a thread priority level (15, 2, 1, 0, -1, -2, -15); 0 for any other level, which
// then shows as its number.
unsigned ThreadPriorityTextId(int priority);

// The CPU cell: "%.2f%%" above 0, otherwise empty (a formatted zero would only be noise).
std::wstring ThreadCpuCell(double percent);
// "%.2f%%" always, for the pane.
std::wstring ThreadCpuPercent(double percent);

// The start address cell: the library's own text when it has one; else module+offset (32 bits); else the
// bare address's low 32 bits as "0x%X" (intended: the upper half is not shown); else empty.
std::wstring ThreadStartAddressCell(const wchar_t* libraryText, const wchar_t* moduleName, ULONG_PTR startAddress,
                                    unsigned moduleBase);

struct DateTexts {
    const wchar_t* today;        // "Today"
    const wchar_t* yesterday;    // "Yesterday"
    const wchar_t* dateFormat;   // "%d/%d%/%d" (month, day, year)
    const wchar_t* unknown;      // "Unknown"
};

struct DayTexts {
    const wchar_t* oneDay;   // "%d Day "
    const wchar_t* days;     // "%d Days "
};

// "Today, 12:30:05", "Yesterday, ...", "5/3/2026, ..."; "Unknown" for year 0 or 1601. Yesterday is only the
// day before within the same month (the last day of the previous month shows as a date; intended).
std::wstring ThreadStartTimeText(const SYSTEMTIME& creation, const SYSTEMTIME& today, const DateTexts& texts);

// The day part of a duration whose day field counts whole days plus one: "" for day 1, one day for day 2,
// else day - 1 days. Months and years of the duration are not shown (intended).
std::wstring DurationDayText(WORD dayField, const DayTexts& texts);
// "%s %.2d:%.2d:%.2d" of the day text and the time; "Unknown" when the creation year is unknown.
std::wstring ThreadRuntimeText(const SYSTEMTIME& runtime, WORD creationYear, const DayTexts& texts,
                               const wchar_t* unknown);
// "%s %.2d:%.2d:%.2d.%.3d" for kernel, user and total time.
std::wstring ThreadCpuTimeText(const SYSTEMTIME& duration, const DayTexts& texts);

}  // namespace lmvx
