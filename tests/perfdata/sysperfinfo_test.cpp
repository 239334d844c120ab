// The system counters and the performance source against the system's own calls.
#include <gtest/gtest.h>

#include <windows.h>
#include <psapi.h>
#include <winternl.h>

#include <algorithm>
#include <vector>

#include "child_process.h"
#include "message_pump.h"
#include "kestrel.h"

namespace {

// Processes in the system's own list (SystemProcessInformation), or -1 when it cannot be read.
long CountSystemProcesses() {
    std::vector<unsigned char> buffer(1 << 20);
    ULONG length = 0;
    if (NtQuerySystemInformation(SystemProcessInformation, buffer.data(), static_cast<ULONG>(buffer.size()), &length) != 0)
        return -1;
    long count = 1;
    for (auto* entry = reinterpret_cast<const SYSTEM_PROCESS_INFORMATION*>(buffer.data()); entry->NextEntryOffset; ++count)
        entry = reinterpret_cast<const SYSTEM_PROCESS_INFORMATION*>(reinterpret_cast<const unsigned char*>(entry) + entry->NextEntryOffset);
    return count;
}

class SysPerfInfoTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(counters.Init(), 1); }
    void TearDown() override { counters.Delete(); }
    kestrel::_SYSPERFINFO counters;
};

TEST(SysPerfInfo, ZeroBeforeInitAndAfterDelete) {
    kestrel::_SYSPERFINFO counters;
    EXPECT_EQ(counters.Update(), 0);
    EXPECT_EQ(counters.GetPhysicalMemoryTotalKB(), 0u);
    EXPECT_EQ(counters.Delete(), 0);
    ASSERT_EQ(counters.Init(), 1);
    EXPECT_EQ(counters.Init(), 1);
    EXPECT_EQ(counters.Delete(), 1);
    EXPECT_EQ(counters.GetCPUUsage(), 0.0);
}

TEST_F(SysPerfInfoTest, PhysicalMemoryAsGlobalMemoryStatusExAndCommitChargeWithinItsLimitInKB) {
    ASSERT_EQ(counters.Update(), 1);
    MEMORYSTATUSEX memory{};
    memory.dwLength = sizeof memory;
    ASSERT_TRUE(GlobalMemoryStatusEx(&memory));
    EXPECT_EQ(counters.GetPhysicalMemoryTotalKB(), static_cast<unsigned>(memory.ullTotalPhys / 1024));
    EXPECT_GT(counters.GetPhysicalMemoryAvailableKB(), 0u);
    EXPECT_LE(counters.GetPhysicalMemoryAvailableKB(), counters.GetPhysicalMemoryTotalKB());
    PERFORMANCE_INFORMATION performance{};
    ASSERT_TRUE(GetPerformanceInfo(&performance, sizeof performance));
    EXPECT_EQ(counters.GetCommitChargeLimitKB(),
              static_cast<unsigned>(performance.CommitLimit * performance.PageSize / 1024));
    EXPECT_GT(counters.GetCommitChargeTotalKB(), 0u);
    EXPECT_LE(counters.GetCommitChargeTotalKB(), counters.GetCommitChargeLimitKB());
    EXPECT_LE(counters.GetPhysicalMemorySystemCacheKB(), counters.GetPhysicalMemoryTotalKB());
}

TEST_F(SysPerfInfoTest, CpuUsageRisesWhileAChildBurns) {
    const long processesBefore = CountSystemProcesses();
    lmvx_test::ChildProcess child(L"burn 60000");
    ASSERT_TRUE(child.Started());
    counters.Update();
    double highest = 0;
    // However loaded the machine, the burning child gets the processor between some two updates.
    lmvx_test::PumpUntil([&] {
        counters.Update();
        highest = std::max(highest, counters.GetCPUUsage());
        EXPECT_LE(counters.GetCPUUsage(), 100.0);
        EXPECT_LE(counters.GetSystemCPUUsage(), counters.GetCPUUsage());
        return highest > 0 || !child.IsRunning();
    }, 60000);
    EXPECT_GT(highest, 0.0);
    // The next tests count processes: the child, and the console Wine started for it, are gone first.
    child.End();
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return CountSystemProcesses() == processesBefore; }, 60000));
}

// One source for the whole process; readers within the minimum age share one reading, a minimum age of 0
// renews it at every read.
TEST(PerfMonSource, OneSourceForTheProcessWhoseReadersWithinTheMinimumAgeShareOneReading) {
    kestrel::PM_PERFMONSOURCE* source = kestrel::GetGlobalPerfMonSourcePtr();
    ASSERT_NE(source, nullptr);
    EXPECT_EQ(source, kestrel::GetGlobalPerfMonSourcePtr());
    kestrel::_SYSPERFINFO counters;
    ASSERT_EQ(counters.Init(), 1);
    source->SetUpdateInterval(600000, 300000);
    const unsigned first = source->GetSystemProcessCount();
    lmvx_test::ChildProcess child(L"sleep 60000");   // the list grows, but the reading is not renewed
    ASSERT_TRUE(child.Started());
    // A reading of its own comes to see the change and to agree with the system's own count taken around it (a
    // process snapshot is reused for up to 1 s); the shared reading still does not see it.
    EXPECT_TRUE(lmvx_test::PumpUntil([&] {
        const long before = CountSystemProcesses();
        counters.Update();
        const long read = counters.GetProcessCount();
        return read != static_cast<long>(first) && before == CountSystemProcesses() && read == before;
    }, 60000)) << counters.GetProcessCount() << " against " << CountSystemProcesses();
    EXPECT_EQ(source->GetSystemProcessCount(), first);
    // Renewed at every read now: a read comes to agree with the system's own count taken around it. (A
    // reading reuses the count of a process snapshot up to 1 s old, and Wine's helper processes of earlier
    // children may have ended since the shared reading: so neither at once nor "first + 1".)
    ASSERT_EQ(source->SetUpdateInterval(0, 0), 1);
    EXPECT_TRUE(lmvx_test::PumpUntil([&] {
        const long before = CountSystemProcesses();
        const unsigned read = source->GetSystemProcessCount();
        return before == CountSystemProcesses() && static_cast<long>(read) == before;
    }, 60000)) << first;
    EXPECT_GT(source->GetSystemCommitChargeTotalKB(), 0u);
    EXPECT_LE(source->GetSystemCommitChargeTotalKB(), counters.GetCommitChargeLimitKB());
    EXPECT_LE(source->GetSystemProcessorUsage(), 100u);
    counters.Delete();
    source->SetUpdateInterval(1000, 500);
}

}  // namespace
