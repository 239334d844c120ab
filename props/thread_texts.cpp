#include "props/thread_texts.h"

#include "common/format_text.h"
#include "finch.h"
#include "resource.h"

namespace lmvx {

namespace {

bool UnknownYear(WORD year) { return year == 0 || year == 1601; }

}  // namespace

unsigned ThreadPriorityTextId(int priority) {
    switch (priority) {
    case 15: return IDS_PRIORITY_TIME_CRITICAL;
    case 2: return IDS_PRIORITY_HIGH;
    case 1: return IDS_PRIORITY_ABOVE_NORMAL;
    case 0: return IDS_PRIORITY_NORMAL;
    case -1: return IDS_PRIORITY_BELOW_NORMAL;
    case -2: return IDS_PRIORITY_LOW;
    case -15: return IDS_PRIORITY_IDLE;
    default: return 0;
    }
}

std::wstring ThreadCpuCell(double percent) { return percent > 0 ? ThreadCpuPercent(percent) : std::wstring(); }

std::wstring ThreadCpuPercent(double percent) { return FormatText(L"%.2f%%", percent); }

std::wstring ThreadStartAddressCell(const wchar_t* libraryText, const wchar_t* moduleName, ULONG_PTR startAddress,
                                    unsigned moduleBase) {
    if (libraryText && *libraryText) return libraryText;
    if (moduleName && *moduleName) {
        return FormatText(L"%s+0x%X", moduleName, static_cast<unsigned>(startAddress) - moduleBase);
    }
    if (startAddress != 0) return FormatText(L"0x%X", static_cast<unsigned>(startAddress));
    return std::wstring();
}

std::wstring ThreadStartTimeText(const SYSTEMTIME& creation, const SYSTEMTIME& today, const DateTexts& texts) {
    if (UnknownYear(creation.wYear)) return texts.unknown;
    const bool sameMonth = creation.wYear == today.wYear && creation.wMonth == today.wMonth;
    std::wstring day;
    if (sameMonth && creation.wDay == today.wDay) {
        day = texts.today;
    } else if (sameMonth && creation.wDay + 1 == today.wDay) {
        day = texts.yesterday;
    } else {
        day = FormatText(texts.dateFormat, creation.wMonth, creation.wDay, creation.wYear);
    }
    return FormatText(L"%s, %.2d:%.2d:%.2d", day.c_str(), creation.wHour, creation.wMinute, creation.wSecond);
}

std::wstring DurationDayText(WORD dayField, const DayTexts& texts) {
    if (dayField <= 1) return std::wstring();
    if (dayField == 2) return FormatText(texts.oneDay, 1);
    return FormatText(texts.days, dayField - 1);
}

std::wstring ThreadRuntimeText(const SYSTEMTIME& runtime, WORD creationYear, const DayTexts& texts,
                               const wchar_t* unknown) {
    if (UnknownYear(creationYear)) return unknown;
    return FormatText(L"%s %.2d:%.2d:%.2d", DurationDayText(runtime.wDay, texts).c_str(), runtime.wHour, runtime.wMinute,
                  runtime.wSecond);
}

std::wstring ThreadCpuTimeText(const SYSTEMTIME& duration, const DayTexts& texts) {
    return FormatText(L"%s %.2d:%.2d:%.2d.%.3d", DurationDayText(duration.wDay, texts).c_str(), duration.wHour,
                  duration.wMinute, duration.wSecond, duration.wMilliseconds);
}

}  // namespace lmvx
