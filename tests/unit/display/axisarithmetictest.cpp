/// The numbers behind a display's axes: windows of samples, scales, steps, places of traces, titles.
#include "display/zoom/axisarithmetic.h"

#include <gtest/gtest.h>

#include <cmath>

static void expectWindow(const SampleWindow& window, int first, int end)
{
    EXPECT_EQ(window.first, first);
    EXPECT_EQ(window.end, end);
}

TEST(SampleWindow, WithoutTimesItIsTheWholeTrace)
{
    expectWindow(sampleWindow(0, 0, 4.0f, 500), 0, 500);
}

TEST(SampleWindow, TimesAreCutToWholeSamples)
{
    expectWindow(sampleWindow(101, 399, 4.0f, 500), 25, 99);
    EXPECT_EQ(sampleWindow(101, 399, 4.0f, 500).count(), 74);
}

TEST(SampleWindow, NoEndIsTheEndOfTheTrace)
{
    expectWindow(sampleWindow(1000, 0, 4.0f, 500), 250, 500);
}

TEST(SampleWindow, ItStaysInsideTheTraceAndIsNeverNegative)
{
    expectWindow(sampleWindow(-100, 9000, 4.0f, 500), 0, 500);
    expectWindow(sampleWindow(800, 400, 4.0f, 500), 200, 200);
    expectWindow(sampleWindow(3000, 5000, 4.0f, 500), 500, 500);
}

TEST(SampleWindow, WithoutARateNoTimeHasASample)
{
    expectWindow(sampleWindow(100, 200, 0.0f, 500), 0, 0);
}

static void expectScale(const AxisScale& scale, double from, double to, double step)
{
    EXPECT_DOUBLE_EQ(scale.from, from);
    EXPECT_DOUBLE_EQ(scale.to, to);
    EXPECT_DOUBLE_EQ(scale.step, step);
}

TEST(VerticalScale, TimesFallFromTheLastToTheFirstSampleKept)
{
    expectScale(verticalScale({false, 1, {0, 500}, 4.0f}, 500.0, 200.0), 2000.0, 0.0, 200.0);
    expectScale(verticalScale({false, 1, {25, 125}, 4.0f}, 100.0, 50.0), 500.0, 100.0, 50.0);
}

TEST(VerticalScale, ASliceCountsItsPositions)
{
    expectScale(verticalScale({true, 1, {0, 80}, 4.0f}, 60.0, 10.0), 60.0, 0.0, 10.0);
}

TEST(VerticalScale, AReversedSliceRisesToItsLastPosition)
{
    expectScale(verticalScale({true, 0, {0, 80}, 4.0f}, 60.0, 10.0), 20.0, 80.0, -10.0);
    expectScale(verticalScale({true, 0, {0, 80}, 4.0f}, 100.0, 10.0), 0.0, 80.0, -10.0);
}

TEST(VerticalScale, MajorStepsAreBetweenOneAndTenThousand)
{
    EXPECT_EQ(mostSteps(2000.0, 500.0), 4);
    EXPECT_EQ(mostSteps(2000.0, 0.0), 10000);
    EXPECT_EQ(mostSteps(100.0, 500.0), 1);
}

TEST(TraceIncrement, IsAtLeastOneTrace)
{
    EXPECT_EQ(traceIncrement(0.25f, true, 100.0), 1.0f);
    EXPECT_EQ(traceIncrement(0.0f, false, 100.0), 1.0f);
    EXPECT_EQ(traceIncrement(-5.0f, false, 100.0), 1.0f);
}

TEST(TraceIncrement, OnlyATypedOneMayLeaveTheAxisBare)
{
    EXPECT_EQ(traceIncrement(50.0f, true, 21.0), 50.0f);
    EXPECT_EQ(traceIncrement(50.0f, false, 21.0), 5.0f);  // 4 labels; 10 would give 2
    EXPECT_EQ(traceIncrement(5.0f, false, 21.0), 5.0f);
}

TEST(TraceAxisRule, AStepHasFourPixelsATypedOneTwo)
{
    EXPECT_EQ(traceAxisRule(1.0f, false, false, 400).most, 100);
    EXPECT_EQ(traceAxisRule(1.0f, true, false, 400).most, 200);
    EXPECT_EQ(traceAxisRule(1.0f, false, false, 3).most, 1);
}

TEST(TraceAxisRule, LabelsOfSomeTracesAskEachTrace)
{
    EXPECT_EQ(traceAxisRule(1.0f, false, true, 400).most, 10000);
    EXPECT_EQ(traceAxisRule(7.0f, true, true, 400).most, 200);  // the user's own step comes first
    EXPECT_EQ(traceAxisRule(7.0f, true, true, 400).wanted, 7.0);
}

TEST(TimeAxisRule, LabelsKeepAQuarterOfTheirHeightFree)
{
    EXPECT_EQ(timeAxisRule(500.0f, false, 400, 16).most, 20);  // 400 pixels hold 20 labels of 16 and a quarter
    EXPECT_EQ(timeAxisRule(500.0f, true, 400, 16).most, 200);
    EXPECT_EQ(timeAxisRule(500.0f, false, 10, 16).most, 1);
    EXPECT_EQ(timeAxisRule(500.0f, false, 400, 0).most, 320);
}

TEST(Spacing, InchesASecondAreSamplesAnInch)
{
    EXPECT_FLOAT_EQ(samplesPerInch(5.0, 2.0), 100.0f);  // a fifth of a second of 2 ms
    EXPECT_FLOAT_EQ(samplesPerInch(2.5, 4.0), 100.0f);
}

TEST(SliceStart, ANegativePositionCountsTheOtherWay)
{
    EXPECT_EQ(sliceStart(120, 80).start, 120.0f);
    EXPECT_EQ(sliceStart(120, 80).timeDirection, 1);
    EXPECT_EQ(sliceStart(-120, 80).start, 40.0f);
    EXPECT_EQ(sliceStart(-120, 80).timeDirection, 0);
}

TEST(TracePlace, GoesToTheAxisAndBack)
{
    EXPECT_EQ(traceToX(0, 20, false), 1.0);
    EXPECT_EQ(traceToX(19, 20, false), 20.0);
    EXPECT_EQ(traceToX(0, 20, true), 20.0);
    EXPECT_EQ(traceToX(19, 20, true), 1.0);
    for (const bool rightToLeft : {false, true})
        for (int trace = 0; trace < 20; ++trace)
            EXPECT_EQ(xToTrace(traceToX(trace, 20, rightToLeft), 20, rightToLeft), trace);
}

TEST(TracePlace, ReachesHalfWayToTheNeighbours)
{
    EXPECT_EQ(xToTrace(2.49, 20, false), 1);
    EXPECT_EQ(xToTrace(2.5, 20, false), 2);
    EXPECT_EQ(xToTrace(0.5, 20, false), 0);
    EXPECT_EQ(xToTrace(20.49, 20, true), 0);
}

TEST(TracePlace, BesideTheTracesIsNone)
{
    for (const double x : {0.49, -3.0, 20.5, 1e300, std::nan("")}) EXPECT_EQ(xToTrace(x, 20, false), -1) << x;
    EXPECT_EQ(xToTrace(1.0, 0, false), -1);
}

TEST(EnsembleTitle, TellsKeyValueAndParameterTest)
{
    EXPECT_EQ(ensembleTitle("FFID    ", 1234567.0f, "40 Hz"), "FFID    :1.23457e+06    40 Hz");
    EXPECT_EQ(sliceTitle(1500.0f, "p"), "SLC_TIME:1500  msec    p    Time: 1500  msec");
}
