// Cell texts of the process list: one function per rule, values in, text out. No window, no system call.
#pragma once
#include <windows.h>
#include <array>
#include <string>

namespace proclist {

constexpr int kColumnCount = 13;
// Every cell is formatted into a buffer of this many wide characters, so longer texts are cut to one less.
constexpr size_t kCellBufferLength = 512;

// The values one row shows, already read from the process-data provider.
struct ProcessRowValues {
    std::wstring imageName;
    unsigned cpuPercent = 0;
    // Read + write + other transfer deltas since the previous update, summed as 32-bit unsigned.
    unsigned ioDeltaBytes = 0;
    unsigned memoryBytes = 0;
    std::wstring description;
    std::wstring companyName;
    std::wstring pathName;
    unsigned pid = 0;
    SYSTEMTIME creationTime = {};
    std::wstring username;
    unsigned handleCount = 0;
    unsigned userObjectCount = 0;
    unsigned gdiObjectCount = 0;
};

// Sum of the three I/O transfer deltas; wraps like the 32-bit counters it adds.
unsigned SumIoDeltas(unsigned readDelta, unsigned writeDelta, unsigned otherDelta);

std::wstring FormatTextCell(const std::wstring& text);
std::wstring FormatCpuCell(unsigned cpuPercent, bool blankZero);
std::wstring FormatMemoryCell(unsigned memoryBytes, bool blankZero);
std::wstring FormatIoCell(unsigned ioDeltaBytes, bool blankZero);
std::wstring FormatCountCell(unsigned count);
// startTimeFormat takes day, month, year, hour, minute, second in that order.
std::wstring FormatStartTimeCell(const SYSTEMTIME& creationTime, const wchar_t* startTimeFormat);

// The thirteen cell texts of a row, in column index order.
std::array<std::wstring, kColumnCount> FormatRowCells(const ProcessRowValues& row, bool blankZero,
                                                      const wchar_t* startTimeFormat);

}  // namespace proclist
