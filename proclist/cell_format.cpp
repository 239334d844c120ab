#include "cell_format.h"

#include <cstdarg>
#include <cwchar>

namespace proclist {
namespace {

std::wstring FormatCell(const wchar_t* format, ...) {
    wchar_t buffer[kCellBufferLength] = {};
    va_list args;
    va_start(args, format);
    // Only numeric conversions pass through here, so the C99 and the msvcrt printf agree.
    const int written = std::vswprintf(buffer, kCellBufferLength, format, args);
    va_end(args);
    if (written < 0) {
        buffer[kCellBufferLength - 1] = L'\0';  // cut on overflow, like the cell buffer of the list
    }
    return buffer;
}

}  // namespace

unsigned SumIoDeltas(unsigned readDelta, unsigned writeDelta, unsigned otherDelta) {
    return writeDelta + readDelta + otherDelta;
}

std::wstring FormatTextCell(const std::wstring& text) {
    return text.substr(0, kCellBufferLength - 1);
}

std::wstring FormatCpuCell(unsigned cpuPercent, bool blankZero) {
    if (blankZero && cpuPercent == 0) return {};
    return FormatCell(L"%i %%", static_cast<int>(cpuPercent));
}

std::wstring FormatMemoryCell(unsigned memoryBytes, bool blankZero) {
    if (blankZero && memoryBytes == 0) return {};
    return FormatCell(L"%d KB", static_cast<int>(memoryBytes >> 10));
}

std::wstring FormatIoCell(unsigned ioDeltaBytes, bool blankZero) {
    if (!blankZero) return FormatCell(L"%d KB/s", static_cast<int>(ioDeltaBytes / 1024));
    if (ioDeltaBytes == 0) return {};
    if (ioDeltaBytes <= 1024) {
        // Single precision on purpose: small rates show one decimal (512 bytes is "0.5 KB/s").
        const float kilobytes = static_cast<float>(ioDeltaBytes) * (1.0f / 1024.0f);
        return FormatCell(L"%.01f KB/s", static_cast<double>(kilobytes));
    }
    return FormatCell(L"%d KB/s", static_cast<int>(ioDeltaBytes / 1024));
}

std::wstring FormatCountCell(unsigned count) {
    return FormatCell(L"%d", static_cast<int>(count));
}

std::wstring FormatStartTimeCell(const SYSTEMTIME& creationTime, const wchar_t* startTimeFormat) {
    // The provider reports an unknown start time with year 0 or 1601 (the FILETIME epoch).
    if (creationTime.wYear == 0 || creationTime.wYear == 1601 || startTimeFormat == nullptr) return {};
    return FormatCell(startTimeFormat, creationTime.wDay, creationTime.wMonth, creationTime.wYear,
                      creationTime.wHour, creationTime.wMinute, creationTime.wSecond);
}

std::array<std::wstring, kColumnCount> FormatRowCells(const ProcessRowValues& row, bool blankZero,
                                                      const wchar_t* startTimeFormat) {
    return {
        FormatTextCell(row.imageName),
        FormatCpuCell(row.cpuPercent, blankZero),
        FormatIoCell(row.ioDeltaBytes, blankZero),
        FormatMemoryCell(row.memoryBytes, blankZero),
        FormatTextCell(row.description),
        FormatTextCell(row.companyName),
        FormatTextCell(row.pathName),
        FormatCountCell(row.pid),
        FormatStartTimeCell(row.creationTime, startTimeFormat),
        FormatTextCell(row.username),
        FormatCountCell(row.handleCount),
        FormatCountCell(row.userObjectCount),
        FormatCountCell(row.gdiObjectCount),
    };
}

}  // namespace proclist
