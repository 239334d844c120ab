// The sampler step with the program's graphs: series as registered, one point per series per sample.
#include <gtest/gtest.h>

#include "message_pump.h"
#include "perf/sampler.h"

namespace lmvx::perf {
namespace {

class SamplerTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(counters.Init(), 1);
        ASSERT_EQ(InitSystemGraphs(counters, cpu, memory), 1);
    }
    void TearDown() override { counters.Delete(); }

    kestrel::_SYSPERFINFO counters;
    wren::PERFGRAPH cpu;
    wren::PERFGRAPH memory;
};

TEST_F(SamplerTest, SeriesAsRegisteredMemoryInMBScaledToTheStartUpFigures) {
    ASSERT_EQ(cpu.GetSeriesCount(), kSeriesCount);
    ASSERT_EQ(memory.GetSeriesCount(), kSeriesCount);
    EXPECT_EQ(cpu.GetPointCapacity(), kHistorySpanMs / kPointIntervalMs);
    const struct {
        const wren::PERFGRAPH& graph;
        unsigned series;
        const wchar_t* name;
        COLORREF colour;   // CPU graph only
        unsigned scale;    // 0: scales to its own peak
    } expected[] = {
        {cpu, kCpuUsageSeries, L"CPU Usage", RGB(0, 255, 0), 100},
        {cpu, kSystemCpuSeries, L"System CPU Usage", RGB(255, 0, 0), 100},
        {cpu, kContextSwitchSeries, L"Context Switches", RGB(255, 255, 0), 0},
        {memory, kPhysicalMemorySeries, L"Physical Memory", 0, counters.GetPhysicalMemoryTotalKB()},
        {memory, kPagedMemorySeries, L"Paged Memory", 0, counters.GetCommitChargeLimitKB()},
        {memory, kSystemCacheSeries, L"System Cache", 0, counters.GetPhysicalMemoryTotalKB()},
    };
    for (const auto& e : expected) {
        wchar_t name[64] = {};
        e.graph.GetSeriesName(e.series, name, 64);
        EXPECT_STREQ(name, e.name);
        EXPECT_EQ(e.graph.GetScaleMax(e.series), e.scale) << e.series;
        if (&e.graph == &cpu) {
            EXPECT_EQ(e.graph.GetSeriesColour(e.series), e.colour) << e.series;
            continue;
        }
        EXPECT_EQ(e.graph.GetDisplayDivisor(e.series), 1024u);
        wchar_t unit[8] = {};
        e.graph.GetSeriesUnit(e.series, unit, 8);
        EXPECT_STREQ(unit, L"MB");
    }
}

TEST_F(SamplerTest, EachSampleAddsEachSeriesItsFigureAndALaterOneANewPoint) {
    ASSERT_EQ(SampleInto(counters, cpu, memory), 1);
    for (unsigned series = 0; series < kSeriesCount; ++series) {
        EXPECT_EQ(cpu.GetPointCount(series), 1u);
        EXPECT_EQ(memory.GetPointCount(series), 1u);
    }
    EXPECT_EQ(cpu.GetPoint(kCpuUsageSeries, 0), UsagePoint(counters.GetCPUUsage()));
    EXPECT_EQ(cpu.GetPoint(kContextSwitchSeries, 0), counters.GetContextSwitchDelta());
    EXPECT_EQ(memory.GetPoint(kPhysicalMemorySeries, 0),
              counters.GetPhysicalMemoryTotalKB() - counters.GetPhysicalMemoryAvailableKB());
    EXPECT_EQ(memory.GetPoint(kPagedMemorySeries, 0), counters.GetCommitChargeTotalKB());
    EXPECT_EQ(memory.GetPoint(kSystemCacheSeries, 0), counters.GetPhysicalMemorySystemCacheKB());
    // Samples within one point interval only refresh the point; the next interval's first adds one.
    EXPECT_TRUE(lmvx_test::PumpUntil([&] {
        SampleInto(counters, cpu, memory);
        return memory.GetPointCount(kPhysicalMemorySeries) >= 2u;
    }, 60000));
    EXPECT_EQ(memory.GetPoint(kPagedMemorySeries, 0), counters.GetCommitChargeTotalKB());
}

TEST(SamplerProgramObjects, InitPerformanceMakesTheGraphsAndPopupBrushes) {
    ASSERT_EQ(InitPerformance(), 1);
    EXPECT_EQ(g_cpuGraph.GetSeriesCount(), kSeriesCount);
    EXPECT_EQ(g_memoryGraph.GetSeriesCount(), kSeriesCount);
    LOGBRUSH light{}, dark{};
    ASSERT_NE(GetObjectW(g_popupBrushLight, sizeof light, &light), 0);
    ASSERT_NE(GetObjectW(g_popupBrushDark, sizeof dark, &dark), 0);
    EXPECT_EQ(light.lbColor, kPopupBackgroundLight);
    EXPECT_EQ(dark.lbColor, RGB(0, 0, 0));

    EXPECT_EQ(g_perfMonSource, nullptr);
    SetSamplerInterval(1000, 500);   // before the source is kept: nothing to tell
    KeepPerfMonSource();
    EXPECT_EQ(g_perfMonSource, kestrel::GetGlobalPerfMonSourcePtr());
    SetSamplerInterval(1000, 500);
}

}  // namespace
}  // namespace lmvx::perf
