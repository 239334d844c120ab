// Each process's own history graph, fed from the provider's snapshots.
#include <gtest/gtest.h>

#include <algorithm>

#include "child_process.h"
#include "message_pump.h"
#include "kestrel.h"
#include "wren.h"

namespace {

constexpr DWORD kLimitMs = 60000;

class ProcessHistoryTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(list.Init(), 1); }
    void TearDown() override { list.Delete(); }

    // Updates the provider and feeds the histories, as the sampler does once per cycle.
    void Cycle() {
        list.Update();
        ASSERT_EQ(kestrel::UpdateProcessHistories(list), 1);
    }

    kestrel::TL_PROCESSLIST list;
};

TEST_F(ProcessHistoryTest, EveryListedProcessHasAGraphOfCpuAndMemoryThatGrowsOverCycles) {
    Cycle();
    const int self = list.GetItemByPID(GetCurrentProcessId());
    ASSERT_GE(self, 0);
    wren::PERFGRAPH* graph = kestrel::GetHistoryGraph(list.GetItemDynamicData(self));
    ASSERT_NE(graph, nullptr);
    EXPECT_EQ(graph, kestrel::GetProcessHistoryGraph(GetCurrentProcessId()));
    EXPECT_EQ(graph->GetSeriesCount(), 2u);
    EXPECT_EQ(graph->GetPointCapacity(), 180000u / 500u);
    EXPECT_EQ(graph->GetScaleMax(0), 100u);
    EXPECT_EQ(graph->GetPoint(1, 0), list.GetItemDynamicData(self)->GetTotalMemoryBytes() >> 10);
    const unsigned before = graph->GetPointCount(0);
    // Cycles within one 500 ms point only refresh it; the first cycle of the next point adds one.
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { Cycle(); return graph->GetPointCount(0) > before; }, kLimitMs));
    EXPECT_EQ(kestrel::GetProcessHistoryGraph(GetCurrentProcessId()), graph);
}

TEST_F(ProcessHistoryTest, ABurningChildShowsCpuUsageAndLosesItsGraphWhenItEnds) {
    unsigned pid = 0, highest = 0;
    {
        lmvx_test::ChildProcess child(L"burn 60000");
        ASSERT_TRUE(child.Started());
        pid = child.Pid();
        // However loaded the machine, the burning child gets the processor within some cycle.
        lmvx_test::PumpUntil([&] {
            Cycle();
            if (wren::PERFGRAPH* graph = kestrel::GetProcessHistoryGraph(pid)) highest = std::max(highest, graph->GetPoint(0, 0));
            return highest > 0 || !child.IsRunning();
        }, kLimitMs);
        EXPECT_GT(highest, 0u);
    }
    Cycle();
    Cycle();
    EXPECT_EQ(kestrel::GetProcessHistoryGraph(pid), nullptr);
}

TEST(ProcessHistory, UnknownRecordsHaveNoGraph) {
    EXPECT_EQ(kestrel::GetHistoryGraph(nullptr), nullptr);
    kestrel::TL_PROCESSLIST empty;
    EXPECT_EQ(kestrel::UpdateProcessHistories(empty), 0);
}

}  // namespace
