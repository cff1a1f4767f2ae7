#include "trevia/demotrace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

TEST(DemoTrace, HasTheGeometryOfItsChannel)
{
    const DemoTrace trace = demoTrace(demoShot(29), 60);
    EXPECT_EQ(trace.ffid, 1030);
    EXPECT_EQ(trace.channel, 60);
    EXPECT_EQ(trace.shotPoint, 230);
    EXPECT_EQ(trace.station, 179);  // floor(1872/24) - 59 = 19, so channel 1 is station 120
    EXPECT_EQ(trace.offset, 0.0);
    EXPECT_EQ(trace.midpoint, 1872.0);
    EXPECT_EQ(trace.cdp, 1156);
    EXPECT_EQ(trace.bin.x, 1878.0);
}

TEST(DemoTrace, TheLineHas7200TracesWithOneZeroOffset)
{
    const std::vector<DemoTrace> traces = demoLine(60, true);
    ASSERT_EQ(traces.size(), 7200u);
    int zeroOffsets = 0;
    double largest = 0.0;
    for (const DemoTrace& t : traces) {
        zeroOffsets += t.offset == 0.0 ? 1 : 0;
        largest = std::max(largest, std::fabs(t.offset));
        ASSERT_GE(t.station, 101);
        ASSERT_LE(t.station, 300);
    }
    EXPECT_EQ(zeroOffsets, 1);
    EXPECT_DOUBLE_EQ(largest, 2388.0);  // 24 x 119 - 468, at the first shot
}

TEST(DemoTrace, FaultsStandWhereTold)
{
    EXPECT_EQ(demoFaults(1020, 1, 157), 0);
    EXPECT_EQ(demoFaults(1021, 1, 157), DemoDead);
    EXPECT_EQ(demoFaults(1001, 1, 203), DemoZero);
    EXPECT_EQ(demoFaults(1001, 1, 180), DemoReversed);
    EXPECT_EQ(demoFaults(1034, 1, 181), DemoReversed);
    EXPECT_EQ(demoFaults(1034, 1, 180), 0);  // turned twice
    EXPECT_EQ(demoFaults(1042, 1, 181), DemoLate);
    EXPECT_EQ(demoFaults(1025, 77, 185), DemoSpike);
    EXPECT_EQ(demoFaults(1025, 76, 184), 0);
    EXPECT_EQ(demoFaults(1050, 5, 163), DemoNan);
    EXPECT_EQ(demoFaults(1001, 1, 219), 0);
    EXPECT_EQ(demoFaults(1042, 1, 223), DemoNoisy | DemoLate);
    for (const DemoTrace& t : demoLine(60, false)) ASSERT_EQ(t.faults, 0);
}

TEST(DemoTrace, TheCdpLineHoldsTheSameTracesByCdpAndOffset)
{
    const std::vector<DemoTrace> traces = demoCdpLine(60);
    ASSERT_EQ(traces.size(), 7200u);
    std::set<std::pair<int, int>> seen;
    std::map<int, int> folds;
    for (size_t i = 0; i < traces.size(); ++i) {
        const DemoTrace& t = traces[i];
        seen.insert({t.ffid, t.channel});
        ASSERT_EQ(t.sequence, ++folds[t.cdp]);
        ASSERT_FALSE(t.hasStatics);
        ASSERT_EQ(t.faults, 0);
        if (i == 0) continue;
        ASSERT_GE(t.cdp, traces[i - 1].cdp);
        if (t.cdp == traces[i - 1].cdp) {
            ASSERT_GE(std::fabs(t.offset), std::fabs(traces[i - 1].offset));
        }
    }
    EXPECT_EQ(seen.size(), 7200u);
    // Midpoints move 48 m a shot where the spread moves, so 120 x 12/48 = 30 of them meet in each bin.
    EXPECT_EQ(folds[1200], 30);
    EXPECT_EQ(traces.front().cdp, 1019);
}

TEST(DemoTrace, TheEtaGatherIsOneCdpWithSixtyOffsets)
{
    const std::vector<DemoTrace> traces = demoEtaGather();
    ASSERT_EQ(traces.size(), 60u);
    for (size_t i = 0; i < traces.size(); ++i) {
        EXPECT_EQ(traces[i].cdp, 1225);
        EXPECT_DOUBLE_EQ(traces[i].offset, 50.0 * double(i + 1));
        EXPECT_DOUBLE_EQ(demoOffset(traces[i].source, traces[i].receiver), traces[i].offset);
    }
}

TEST(DemoTrace, ThePatchHasTenLinesOfFortyBins)
{
    const std::vector<DemoTrace> traces = demoPatch();
    ASSERT_EQ(traces.size(), 400u);
    std::set<std::pair<int, int>> bins;
    std::set<int> cdps;
    for (const DemoTrace& t : traces) {
        bins.insert({t.inLine, t.crossLine});
        cdps.insert(t.cdp);
    }
    EXPECT_EQ(bins.size(), 400u);
    EXPECT_EQ(cdps.size(), 400u);
    EXPECT_EQ(traces.back().inLine, 10);
    EXPECT_EQ(traces.back().crossLine, 40);
    EXPECT_DOUBLE_EQ(traces.back().bin.x, 2220.0 + 39 * 24.0);
    EXPECT_DOUBLE_EQ(traces.back().bin.y, 9 * 48.0);
}
