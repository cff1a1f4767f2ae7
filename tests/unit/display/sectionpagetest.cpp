#include "display/paper/sectionpage.h"

#include "display/raster/traceraster.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

static SectionParm hundredTraces()
{
    SectionParm parm;
    parm.nTraces = 100;
    parm.nSamples = 500;
    parm.sampleRate = 4.0;
    parm.tracesPerCm = 5.0;
    parm.cmPerSecond = 10.0;
    parm.nSideLines = 15;
    return parm;
}

TEST(SectionPage, AHundredTracesAtFiveACentimetreAreTwentyCentimetresWide)
{
    const SectionPage page(hundredTraces());
    ASSERT_TRUE(page.isValid());
    EXPECT_NEAR(page.section().width, 200.0, 1e-9);
    EXPECT_NEAR(page.section().height, 200.0, 1e-9);  // 2 s at 10 cm a second
    EXPECT_NEAR(page.traceWidth(), 2.0, 1e-12);
    EXPECT_NEAR(page.traceX(0) - page.section().left, 1.0, 1e-9);
    EXPECT_NEAR(page.traceX(99) - page.traceX(0), 198.0, 1e-9);
    EXPECT_NEAR(page.timeY(1000.0) - page.section().top, 100.0, 1e-9);
    EXPECT_GT(page.width(), page.sideLabel().right());
    EXPECT_GT(page.height(), page.section().bottom());
    EXPECT_LT(page.width(), 320.0);
}

TEST(SectionPage, ThePageMeasuresWholePoints)
{
    const SectionPage page(hundredTraces());
    const double width = page.width() * 72.0 / 25.4, height = page.height() * 72.0 / 25.4;
    EXPECT_NEAR(width, std::round(width), 1e-9);
    EXPECT_NEAR(height, std::round(height), 1e-9);
}

TEST(SectionPage, AShortSectionLeavesRoomForItsSideLabel)
{
    SectionParm parm = hundredTraces();
    parm.nSamples = 10;
    const SectionPage page(parm);
    EXPECT_GE(page.height(), page.sideLabel().bottom());
}

TEST(SectionPage, SizesThatCannotBeAreInvalid)
{
    for (const auto& change :
         {+[](SectionParm* p) { p->nTraces = 0; }, +[](SectionParm* p) { p->nSamples = 1; },
          +[](SectionParm* p) { p->sampleRate = 0.0; }, +[](SectionParm* p) { p->tracesPerCm = 0.0; },
          +[](SectionParm* p) { p->cmPerSecond = std::nan(""); }, +[](SectionParm* p) { p->cmPerSecond = 1e5; }}) {
        SectionParm parm = hundredTraces();
        change(&parm);
        const SectionPage page(parm);
        EXPECT_FALSE(page.isValid());
        EXPECT_TRUE(page.timeTicks().empty());
    }
}

TEST(SectionPage, TimesStandAtRoundStepsFromTheFirstInside)
{
    SectionParm parm = hundredTraces();
    parm.startMs = 130.0;
    // 200 mm have room for 29 labels of 1.6 lines each, so that 2000 ms go in steps of 100
    const std::vector<double> ticks = SectionPage(parm).timeTicks();
    ASSERT_EQ(ticks.size(), 20u);
    EXPECT_DOUBLE_EQ(ticks.front(), 200.0);
    EXPECT_DOUBLE_EQ(ticks[1], 300.0);
    EXPECT_DOUBLE_EQ(ticks.back(), 2100.0);
    EXPECT_NEAR(SectionPage(parm).timeY(ticks[0]) - SectionPage(parm).section().top, 7.0, 1e-9);
}

TEST(SectionPage, TraceLabelsKeepApart)
{
    const SectionPage page(hundredTraces());
    // 200 mm hold 21 labels of 5.5 + 3.9 mm: one each 5 traces
    EXPECT_EQ(page.traceStep(1, 5.5), 5);
    EXPECT_EQ(page.traceStep(3, 5.5), 6);
    EXPECT_EQ(page.traceStep(40, 5.5), 40);
}

/// Two traces of eight samples at 2 ms, unscaled.
struct Pair {
    std::vector<float> samples = {0, 1, 2, -2, 0, 0, 0, 0, 4, 0, 0, 0, 0, 0, 0, 9};
    float divisors[2] = {2.0f, 0.0f};
    RasterParm parm;

    Pair()
    {
        parm.samples = samples.data();
        parm.nDataTraces = 2;
        parm.stride = 8;
        parm.sampleRate = 2.0f;
        parm.divTrace = divisors;
        parm.divRecord = 4.0f;
        parm.view.nTraces = 2;
        parm.view.nSamples = 8;
        parm.clip = 3.0f;
    }
    std::vector<float> trace(int column) const
    {
        std::vector<float> values;
        sectionTrace(parm, column, &values);
        return values;
    }
};

TEST(SectionTrace, ScalesAsTheScreen)
{
    Pair pair;
    EXPECT_EQ(pair.trace(0), (std::vector<float>{0, 1, 2, -2, 0, 0, 0, 0}));
    EXPECT_EQ(pair.trace(1)[0], 3.0f);  // the clip
    pair.parm.gain = 2.0f;
    pair.parm.normalize = Normalize::Trace;
    EXPECT_EQ(pair.trace(0), (std::vector<float>{0, 1, 2, -2, 0, 0, 0, 0}));  // 2 v / 2
    EXPECT_EQ(pair.trace(1)[7], 3.0f);                                        // no divisor counts as 1
    pair.parm.normalize = Normalize::Dataset;
    pair.parm.bias = 1.0f;
    EXPECT_EQ(pair.trace(0)[2], 1.0f);  // 2 * 2 / 4
    pair.parm.applyBias = true;
    EXPECT_EQ(pair.trace(0)[2], 1.25f);  // (2 * 2 + 1) / 4
}

TEST(SectionTrace, DirectionShiftAndMoveOutAreThoseOfTheScreen)
{
    Pair pair;
    pair.parm.plotDirection = RightToLeft;
    EXPECT_EQ(pair.trace(1)[2], 2.0f);
    pair.parm.plotDirection = LeftToRight;
    pair.parm.bulkshift = 2;  // to later times
    EXPECT_EQ(pair.trace(0), (std::vector<float>{0, 0, 0, 1, 2, -2, 0, 0}));
    pair.parm.bulkshift = 0;
    const float offsets[2] = {-8.0f, 0.0f};
    pair.parm.offsets = offsets;
    pair.parm.moveout = 1;
    pair.parm.velocity = 2000.0f;  // 4 ms, two samples earlier
    EXPECT_EQ(pair.trace(0), (std::vector<float>{2, -2, 0, 0, 0, 0, 0, 0}));
}

TEST(SectionTrace, AHyperbolaTakesWholeSamplesUnchanged)
{
    Pair pair;
    pair.samples = std::vector<float>(16, 0.0f);
    pair.samples[5] = 2.0f;
    pair.parm.samples = pair.samples.data();
    const float offsets[2] = {8.0f, 0.0f};  // at 1000 a second 8 ms: 3-4-5, from sample 3 reads sample 5
    pair.parm.offsets = offsets;
    pair.parm.moveout = 2;
    pair.parm.velocity = 1000.0f;
    EXPECT_NEAR(pair.trace(0)[3], 2.0f, 1e-4);
}

TEST(SectionTrace, WhatIsNoNumberCountsAsZero)
{
    Pair pair;
    pair.samples[1] = NAN;
    pair.samples[2] = std::numeric_limits<float>::infinity();
    EXPECT_EQ(pair.trace(0), (std::vector<float>{0, 0, 0, -2, 0, 0, 0, 0}));
    EXPECT_EQ(pair.trace(7), std::vector<float>(8, 0.0f));
}

TEST(SectionPage, LobesAreCutWhereTheLineCrossesZero)
{
    const SectionPage page(hundredTraces());  // 2 mm a trace, 0.4 mm a sample
    const double x = page.traceX(10), top = page.section().top;
    const auto lobes = sectionLobes(page, 10, {0.0f, 1.0f, -3.0f, 0.5f, 0.5f});
    ASSERT_EQ(lobes.size(), 2u);
    ASSERT_EQ(lobes[0].size(), 3u);
    EXPECT_NEAR(lobes[0][0].x, x, 1e-9);
    EXPECT_NEAR(lobes[0][0].y, top, 1e-9);
    EXPECT_NEAR(lobes[0][1].x, x + 2.0, 1e-9);
    EXPECT_NEAR(lobes[0][1].y, top + 0.4, 1e-9);
    EXPECT_NEAR(lobes[0][2].x, x, 1e-9);
    EXPECT_NEAR(lobes[0][2].y, top + 0.4 * 1.25, 1e-9);  // a quarter of the way from 1 to -3
    ASSERT_EQ(lobes[1].size(), 4u);
    EXPECT_NEAR(lobes[1][0].y, top + 0.4 * (2.0 + 6.0 / 7.0), 1e-9);
    EXPECT_NEAR(lobes[1][3].y, top + 0.4 * 4.0, 1e-9);  // the trace ends inside the lobe
    EXPECT_NEAR(lobes[1][3].x, x, 1e-9);
}

TEST(SectionPage, WigglesEndAtTheBordersAndSkipStraightRuns)
{
    const SectionPage page(hundredTraces());
    EXPECT_NEAR(sectionWiggle(page, 0, {0.0f, -2.0f})[1].x, page.section().left, 1e-9);
    EXPECT_NEAR(sectionWiggle(page, 99, {0.0f, 2.0f})[1].x, page.section().right(), 1e-9);
    const std::vector<SectionPoint> dead = sectionWiggle(page, 5, std::vector<float>(500, 0.0f));
    ASSERT_EQ(dead.size(), 2u);
    EXPECT_NEAR(dead[1].y - dead[0].y, 499 * 0.4, 1e-9);
}
