// Cell rules of the process list, from given values.
#include <gtest/gtest.h>

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

TEST(CpuCell, BlankZeroHidesAnIdleProcess) {
    EXPECT_EQ(FormatCpuCell(0, true), L"");
    EXPECT_EQ(FormatCpuCell(0, false), L"0 %");
}

TEST(CpuCell, ShowsWholePercent) {
    EXPECT_EQ(FormatCpuCell(7, true), L"7 %");
    EXPECT_EQ(FormatCpuCell(100, false), L"100 %");
}

TEST(MemoryCell, BlankZeroHidesZeroBytes) {
    EXPECT_EQ(FormatMemoryCell(0, true), L"");
    EXPECT_EQ(FormatMemoryCell(0, false), L"0 KB");
}

TEST(MemoryCell, ShowsKilobytesTruncated) {
    EXPECT_EQ(FormatMemoryCell(2048, true), L"2 KB");
    EXPECT_EQ(FormatMemoryCell(2047, true), L"1 KB");
    // Below one kilobyte the cell is "0 KB" even with BlankZero: only a zero byte count is blank.
    EXPECT_EQ(FormatMemoryCell(1023, true), L"0 KB");
    EXPECT_EQ(FormatMemoryCell(0xFFFFFFFFu, false), L"4194303 KB");
}

TEST(IoCell, BlankZeroOnHasThreeCases) {
    EXPECT_EQ(FormatIoCell(0, true), L"");
    EXPECT_EQ(FormatIoCell(1, true), L"0.0 KB/s");
    EXPECT_EQ(FormatIoCell(512, true), L"0.5 KB/s");
    EXPECT_EQ(FormatIoCell(1024, true), L"1.0 KB/s");
    EXPECT_EQ(FormatIoCell(1025, true), L"1 KB/s");
    EXPECT_EQ(FormatIoCell(10 * 1024 + 1023, true), L"10 KB/s");
}

TEST(IoCell, BlankZeroOffAlwaysShowsWholeKilobytes) {
    EXPECT_EQ(FormatIoCell(0, false), L"0 KB/s");
    EXPECT_EQ(FormatIoCell(512, false), L"0 KB/s");
    EXPECT_EQ(FormatIoCell(1024, false), L"1 KB/s");
    EXPECT_EQ(FormatIoCell(1025, false), L"1 KB/s");
}

TEST(IoCell, SumsTheThreeDeltasAs32BitUnsigned) {
    EXPECT_EQ(SumIoDeltas(100, 200, 300), 600u);
    EXPECT_EQ(SumIoDeltas(0xFFFFFFFFu, 2, 0), 1u);
}

TEST(StartTimeCell, FormatsDayMonthYearThenTime) {
    EXPECT_EQ(FormatStartTimeCell(Time(2024, 3, 7, 9, 5, 2), kStartTimeFormat), L"07/03/2024 09:05:02");
    EXPECT_EQ(FormatStartTimeCell(Time(1602, 12, 31, 23, 59, 58), kStartTimeFormat), L"31/12/1602 23:59:58");
}

TEST(StartTimeCell, UnknownYearsGiveAnEmptyCell) {
    EXPECT_EQ(FormatStartTimeCell(Time(0, 3, 7, 9, 5, 2), kStartTimeFormat), L"");
    EXPECT_EQ(FormatStartTimeCell(Time(1601, 1, 1, 0, 0, 0), kStartTimeFormat), L"");
}

TEST(StartTimeCell, UsesTheFormatPassedIn) {
    EXPECT_EQ(FormatStartTimeCell(Time(2024, 3, 7, 9, 5, 2), L"%d-%d-%d"), L"7-3-2024");
}

TEST(CountCell, ShowsZeroWhateverBlankZeroSays) {
    EXPECT_EQ(FormatCountCell(0), L"0");
    EXPECT_EQ(FormatCountCell(4242), L"4242");
}

TEST(TextCell, IsCutToTheCellBuffer) {
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

TEST(RowCells, UserObjectsComeBeforeGdiObjects) {
    ProcessRowValues row = IdleRow();
    row.cpuPercent = 12;
    row.ioDeltaBytes = 512;
    row.memoryBytes = 4096;
    const auto cells = FormatRowCells(row, false, kStartTimeFormat);
    EXPECT_EQ(cells[1], L"12 %");
    EXPECT_EQ(cells[2], L"0 KB/s");
    EXPECT_EQ(cells[3], L"4 KB");
    EXPECT_EQ(cells[11], L"3");
    EXPECT_EQ(cells[12], L"9");
}

}  // namespace
}  // namespace proclist
