#include "display/readout.h"

#include "display/headeraxis.h"
#include "display/tools/velocityoverlay.h"

#include <gtest/gtest.h>

#include <cmath>

static ReadoutFrame frameOf(int nTraces, int nSamples, double rate)
{
    ReadoutFrame frame;
    frame.nTraces = nTraces;
    frame.nSamples = nSamples;
    frame.rate = rate;
    return frame;
}

TEST(Readout, ATraceOwnsHalfAWidthOnEitherSide)
{
    const ReadoutFrame frame = frameOf(10, 100, 2.0);
    EXPECT_EQ(readoutPosition(frame, 2.4, 0.0).column, 2);
    EXPECT_EQ(readoutPosition(frame, 2.5, 0.0).column, 3);
    EXPECT_EQ(readoutPosition(frame, 2.5, 0.0).trace, 2);
}

TEST(Readout, PastTheLastTraceItShowsTheLast)
{
    const ReadoutFrame frame = frameOf(10, 100, 2.0);
    EXPECT_EQ(readoutPosition(frame, 10.9, 0.0).trace, 9);
    EXPECT_EQ(readoutPosition(frame, 10.9, 0.0).column, 10);
    EXPECT_EQ(readoutPosition(frame, 0.1, 0.0).trace, 0);
    EXPECT_EQ(readoutPosition(frame, NAN, NAN).trace, 0);
}

TEST(Readout, SamplesAreTruncatedAndKeptInside)
{
    const ReadoutFrame frame = frameOf(10, 100, 2.0);
    EXPECT_EQ(readoutPosition(frame, 1.0, 7.9).sample, 3);
    EXPECT_EQ(readoutPosition(frame, 1.0, 7.9).position, 6.0);
    EXPECT_EQ(readoutPosition(frame, 1.0, 999.0).sample, 99);
    EXPECT_EQ(readoutPosition(frame, 1.0, -5.0).sample, 0);
}

TEST(Readout, TheTimeIsWholeMilliseconds)
{
    const ReadoutFrame frame = frameOf(10, 4000, 0.125);
    const ReadoutPosition at = readoutPosition(frame, 1.0, 10.99);
    EXPECT_EQ(at.sample, 87);
    EXPECT_EQ(at.position, 10.0);  // 87 * 0.125 = 10.875, cut
}

TEST(Readout, RightToLeftTheFirstColumnIsTheLastTrace)
{
    ReadoutFrame frame = frameOf(10, 100, 2.0);
    frame.rightToLeft = true;
    EXPECT_EQ(readoutPosition(frame, 1.0, 0.0).trace, 9);
    EXPECT_EQ(readoutPosition(frame, 1.0, 0.0).column, 1);
    EXPECT_EQ(readoutPosition(frame, 10.0, 0.0).trace, 0);
}

TEST(Readout, WithATimeWindowTheTimeIsTheAxisAndTheSampleIsTheWindows)
{
    ReadoutFrame frame = frameOf(10, 100, 2.0);
    frame.firstSample = 50;  // the axis runs from 100 to 300 ms
    const ReadoutPosition at = readoutPosition(frame, 1.0, 120.0);
    EXPECT_EQ(at.sample, 10);
    EXPECT_EQ(at.position, 120.0);
}

TEST(Readout, ATimeSliceCountsFromItsFirstPosition)
{
    ReadoutFrame frame = frameOf(10, 100, 1.0);
    frame.isSlice = true;
    frame.sliceStart = 500.0;
    EXPECT_EQ(readoutPosition(frame, 1.0, 7.9).sample, 7);
    EXPECT_EQ(readoutPosition(frame, 1.0, 7.9).position, 507.0);
    frame.timeDirection = false;
    // s = 100 - 7 = 93; base = 100 + 500 - 2 * 93 = 414; 93 + 414 = 507
    EXPECT_EQ(readoutPosition(frame, 1.0, 7.9).sample, 93);
    EXPECT_EQ(readoutPosition(frame, 1.0, 7.9).position, 507.0);
}

TEST(Readout, InsideIsWhereTheDataReach)
{
    ReadoutFrame frame = frameOf(10, 100, 2.0);
    frame.firstSample = 50;  // 100 to 300 ms
    EXPECT_TRUE(readoutPosition(frame, 0.0, 100.0).isInside);
    EXPECT_TRUE(readoutPosition(frame, 11.0, 299.9).isInside);
    EXPECT_FALSE(readoutPosition(frame, -0.1, 200.0).isInside);
    EXPECT_FALSE(readoutPosition(frame, 11.1, 200.0).isInside);
    EXPECT_FALSE(readoutPosition(frame, 5.0, 99.0).isInside);
    EXPECT_FALSE(readoutPosition(frame, 5.0, 300.0).isInside);
    EXPECT_FALSE(readoutPosition(frame, NAN, 200.0).isInside);
    EXPECT_TRUE(readoutPosition(frame, 5.0, 100.0 - 1e-9).isInside);  // a scale that went through pixels and back
}

TEST(Readout, AReversedSliceIsInsideBelowItsFirstSample)
{
    ReadoutFrame frame = frameOf(10, 100, 4.0);
    frame.isSlice = true;
    frame.timeDirection = false;
    EXPECT_TRUE(readoutPosition(frame, 5.0, 100.0).isInside);  // the first sample, at the top
    EXPECT_FALSE(readoutPosition(frame, 5.0, 100.5).isInside);
    EXPECT_TRUE(readoutPosition(frame, 5.0, 0.5).isInside);
    EXPECT_FALSE(readoutPosition(frame, 5.0, 0.0).isInside);  // the end of the last
}

TEST(Readout, WithoutDataNothingIsUnderTheMouse)
{
    EXPECT_EQ(readoutPosition(frameOf(0, 0, 2.0), 5.0, 5.0).sample, 0);
}

TEST(Readout, TheLineStandsInFixedColumns)
{
    KeyColumn ffid, chan;
    ffid.name = "FFID    ";
    ffid.values = {0.0f, 1029.0f, 1030.0f};
    chan.name = "CHAN    ";
    chan.values = {0.0f, 1.0f, 2.0f};
    ReadoutPosition at;
    at.column = 2;
    at.position = 1250.0;
    EXPECT_EQ(readoutText(at, ffid, chan, "Time (msec)").toStdString(),
              "FFID    :     1030     CHAN    :        2     Time (msec):   1250");
    EXPECT_EQ(amplitudeText("Amp", -0.25f).toStdString(), "     Amp:      -0.25");
}

TEST(Readout, VelocitiesThatThereAreFollowEachOther)
{
    VelocityReadout velocities;
    EXPECT_EQ(velocityText(velocities), "");
    velocities.interpolated = 2150.5f;
    EXPECT_EQ(velocityText(velocities), "  Interp Vel: 2150.5");
    velocities.closest = 2000.0f;
    velocities.computed = 1234567.0f;
    EXPECT_EQ(velocityText(velocities), "    Closest Vel: 2000  Computed Vel: 1.23457e+06  Interp Vel: 2150.5");
}
