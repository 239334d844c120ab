// Cell rules of the process list, from given values.
#include <gtest/gtest.h>

#include <tuple>

#include "proclist/cell_format.h"

namespace proclist {
namespace {

constexpr wchar_t kStartTimeFormat[] = L"%.2d/%.2d/%.4d %.2d:%.2d:%.2d";

SYSTEMTIME Time(WORD year, WORD month, WORD day, WORD hour, WORD minute, WORD second) {
    SYSTEMTIME time = {};
    time.wYear = year;
    time.wMonth = month;
    time.wDay = day;
    time.wHour = hour;
    time.wMinute = minute;
    time.wSecond = second;
    return time;
}

// The counter cells with BlankZero on and off: an idle process's CPU and I/O cells are blank, and only a
// zero byte count blanks the memory cell.
TEST(CounterCells, FormatEachValueWithAndWithoutBlankZero) {
    enum Cell { Cpu, Memory, Io };
    struct Case { Cell cell; unsigned value; bool blankZero; const wchar_t* text; };
    const Case cases[] = {
        {Cpu, 0, true, L""},               {Cpu, 0, false, L"0 %"},
        {Cpu, 7, true, L"7 %"},            {Cpu, 100, false, L"100 %"},
        {Memory, 0, true, L""},            {Memory, 0, false, L"0 KB"},
        {Memory, 2048, true, L"2 KB"},     {Memory, 2047, true, L"1 KB"},   // truncated
        {Memory, 1023, true, L"0 KB"},     {Memory, 0xFFFFFFFFu, false, L"4194303 KB"},
        {Io, 0, true, L""},                {Io, 1, true, L"0.0 KB/s"},
        {Io, 512, true, L"0.5 KB/s"},      {Io, 1024, true, L"1.0 KB/s"},
        {Io, 1025, true, L"1 KB/s"},       {Io, 10 * 1024 + 1023, true, L"10 KB/s"},
        {Io, 0, false, L"0 KB/s"},         {Io, 512, false, L"0 KB/s"},
        {Io, 1024, false, L"1 KB/s"},      {Io, 1025, false, L"1 KB/s"},
    };
    for (const Case& c : cases) {
        const std::wstring text = c.cell == Cpu      ? FormatCpuCell(c.value, c.blankZero)
                                  : c.cell == Memory ? FormatMemoryCell(c.value, c.blankZero)
                                                     : FormatIoCell(c.value, c.blankZero);
        EXPECT_EQ(text, c.text) << "cell " << c.cell << " value " << c.value << " blank zero " << c.blankZero;
    }
}

TEST(IoCell, SumsTheThreeDeltasAs32BitUnsigned) {
    EXPECT_EQ(SumIoDeltas(100, 200, 300), 600u);
    EXPECT_EQ(SumIoDeltas(0xFFFFFFFFu, 2, 0), 1u);
}

TEST(StartTimeCell, FormatsWithTheFormatPassedInAndLeavesUnknownYearsEmpty) {
    const std::tuple<SYSTEMTIME, const wchar_t*, const wchar_t*> cases[] = {
        {Time(2024, 3, 7, 9, 5, 2), kStartTimeFormat, L"07/03/2024 09:05:02"},
        {Time(1602, 12, 31, 23, 59, 58), kStartTimeFormat, L"31/12/1602 23:59:58"},
        {Time(2024, 3, 7, 9, 5, 2), L"%d-%d-%d", L"7-3-2024"},
        {Time(0, 3, 7, 9, 5, 2), kStartTimeFormat, L""},
        {Time(1601, 1, 1, 0, 0, 0), kStartTimeFormat, L""},
    };
    for (const auto& [time, format, text] : cases) EXPECT_EQ(FormatStartTimeCell(time, format), text) << text;
}

TEST(CountAndTextCells, CountsShowZeroAndTextsAreCutToTheCellBuffer) {
    EXPECT_EQ(FormatCountCell(0), L"0");
    EXPECT_EQ(FormatCountCell(4242), L"4242");
    const std::wstring longText(kCellBufferLength + 20, L'x');
    EXPECT_EQ(FormatTextCell(longText).size(), kCellBufferLength - 1);
    EXPECT_EQ(FormatTextCell(L"explorer.exe"), L"explorer.exe");
}

ProcessRowValues IdleRow() {
    ProcessRowValues row;
    row.imageName = L"idle.exe";
    row.description = L"Idle tool";
    row.companyName = L"Example Co";
    row.pathName = L"C:\\tools\\idle.exe";
    row.pid = 1234;
    row.creationTime = Time(2023, 11, 5, 14, 30, 0);
    row.username = L"HOST\\user";
    row.handleCount = 17;
    row.userObjectCount = 3;
    row.gdiObjectCount = 9;
    return row;
}

TEST(RowCells, IdleProcessWithBlankZeroKeepsItsCounts) {
    const auto cells = FormatRowCells(IdleRow(), true, kStartTimeFormat);
    const std::array<std::wstring, kColumnCount> expected = {
        L"idle.exe", L"", L"", L"", L"Idle tool", L"Example Co", L"C:\\tools\\idle.exe", L"1234",
        L"05/11/2023 14:30:00", L"HOST\\user", L"17", L"3", L"9",
    };
    EXPECT_EQ(cells, expected);
}

}  // namespace
}  // namespace proclist
