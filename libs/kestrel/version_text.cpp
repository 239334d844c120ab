#include "version_text.h"

namespace kestrel::detail {

std::wstring TranslationBlockName(WORD language, WORD codePage) {
    static constexpr wchar_t digits[] = L"0123456789abcdef";
    const DWORD both = (static_cast<DWORD>(language) << 16) | codePage;
    std::wstring name(8, L'0');
    for (int i = 0; i < 8; ++i) name[7 - i] = digits[(both >> (4 * i)) & 0xF];
    return name;
}

std::wstring FormatFileVersion(DWORD high, DWORD low) {
    return std::to_wstring(HIWORD(high)) + L"." + std::to_wstring(LOWORD(high)) + L"." + std::to_wstring(HIWORD(low)) +
           L"." + std::to_wstring(LOWORD(low));
}

SYSTEMTIME SystemTimeFromUnixSeconds(DWORD secondsSince1970) {
    // Calendar arithmetic by hand (days to civil date), so that this stays free of system calls.
    const unsigned long long seconds = secondsSince1970;
    long long days = static_cast<long long>(seconds / 86400);
    const unsigned secondOfDay = static_cast<unsigned>(seconds % 86400);
    SYSTEMTIME time{};
    time.wDayOfWeek = static_cast<WORD>((days + 4) % 7);   // 1970-01-01 was a Thursday
    days += 719468;                                        // shift the epoch to 0000-03-01
    const long long era = days / 146097;
    const unsigned dayOfEra = static_cast<unsigned>(days - era * 146097);
    const unsigned yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const unsigned dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const unsigned monthIndex = (5 * dayOfYear + 2) / 153;   // 0 = March
    const unsigned day = dayOfYear - (153 * monthIndex + 2) / 5 + 1;
    const unsigned month = monthIndex < 10 ? monthIndex + 3 : monthIndex - 9;
    const long long year = static_cast<long long>(yearOfEra) + era * 400 + (month <= 2 ? 1 : 0);
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(day);
    time.wHour = static_cast<WORD>(secondOfDay / 3600);
    time.wMinute = static_cast<WORD>(secondOfDay % 3600 / 60);
    time.wSecond = static_cast<WORD>(secondOfDay % 60);
    return time;
}

}  // namespace kestrel::detail
