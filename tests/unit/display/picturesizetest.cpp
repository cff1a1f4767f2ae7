/// The size of a whole picture, and which one of several the mouse has come to.
#include "display/images/picturesize.h"
#include "display/images/imagetracker.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(PictureSize, IsThePlotsWhereThePlotShowsAll)
{
    const PictureSize whole = wholePictureSize({1200, 121, 121}, {800, -2400, 2400});
    EXPECT_EQ(whole.size, QSize(1200, 800));
    EXPECT_FALSE(whole.isReduced);
}

TEST(PictureSize, GrowsWithTheZoom)
{
    // A quarter of the traces and a third of the time fill the plot; 1000 / 7 = 142.86 is cut.
    EXPECT_EQ(wholePictureSize({1200, 30.25, 121}, {800, 800, 2400}).size, QSize(4800, 2400));
    EXPECT_EQ(wholePictureSize({100, 7, 10}, {100, 10, 10}).size, QSize(142, 100));
}

TEST(PictureSize, ALastDigitOfSinglePrecisionCostsNoPixel)
{
    const double count = double(float(121.0000076));
    EXPECT_EQ(wholePictureSize({1200, count, 121}, {800, 2400.0001, 2400}).size, QSize(1200, 800));
}

TEST(PictureSize, ASideEndsWhereNoWindowSystemTakesMore)
{
    const PictureSize long1 = wholePictureSize({1200, 1, 121}, {800, 2400, 2400});
    EXPECT_EQ(long1.size, QSize(32767, 800));
    EXPECT_TRUE(long1.isReduced);
}

TEST(PictureSize, AHalfGibibyteIsTheLargestScaleThatFits)
{
    const PictureSize large = wholePictureSize({32000, 1, 1}, {16000, 1, 1});
    EXPECT_TRUE(large.isReduced);
    const double bytes = 4.0 * large.size.width() * large.size.height();
    EXPECT_LE(bytes, 536870912.0);
    EXPECT_GT(bytes, 536870912.0 * 0.999);
    EXPECT_NEAR(large.size.width() / double(large.size.height()), 2.0, 0.001);
}

TEST(PictureSize, APlotWithoutScaleHasNone)
{
    EXPECT_TRUE(wholePictureSize({1200, 0, 121}, {800, 2400, 2400}).size.isEmpty());
    EXPECT_TRUE(wholePictureSize({1200, NAN, 121}, {800, 2400, 2400}).size.isEmpty());
    EXPECT_TRUE(wholePictureSize({0, 121, 121}, {800, 2400, 2400}).size.isEmpty());
    EXPECT_TRUE(wholePictureSize({1200, 121, 121}, {800, 2400, 0}).size.isEmpty());
}

TEST(ImageTracker, StopsAtBothEnds)
{
    ImageTracker tracker;
    EXPECT_EQ(tracker.step(-1, 3), 0);
    EXPECT_EQ(tracker.step(1, 3), 1);
    EXPECT_EQ(tracker.step(1, 3), 2);
    EXPECT_EQ(tracker.step(1, 3), 2);
    EXPECT_EQ(tracker.step(-5, 3), 0);
    EXPECT_EQ(tracker.step(1, 0), -1);
}

TEST(ImageTracker, GoesOnFromThePictureOnTheScreen)
{
    ImageTracker tracker;
    tracker.setNumber(7);
    EXPECT_EQ(tracker.step(1, 20), 8);
    EXPECT_EQ(tracker.step(1, 5), 4);  // the store has shrunk
}

TEST(ImageTracker, MeetsOnlyTheListedPictures)
{
    ImageTracker tracker;
    tracker.setList(true, {1, 5, 3, 5});
    tracker.setNumber(0);
    EXPECT_EQ(tracker.step(1, 9), 4);
    tracker.setNumber(4);  // shown: the position in the list stays, though the number stands twice
    EXPECT_EQ(tracker.step(1, 9), 2);
    tracker.setNumber(2);
    EXPECT_EQ(tracker.step(1, 9), 4);
    tracker.setNumber(4);
    EXPECT_EQ(tracker.step(-1, 9), 2);
    tracker.setNumber(7);  // not listed: the next step begins the list
    EXPECT_EQ(tracker.step(1, 9), 0);
    tracker.setList(false, {});
    tracker.setNumber(2);
    EXPECT_EQ(tracker.step(1, 9), 3);
}

TEST(ImageTracker, AnEmptyListMeetsNothing)
{
    ImageTracker tracker;
    tracker.setList(true, {});
    EXPECT_EQ(tracker.step(1, 9), -1);
}

TEST(ImageTracker, FineWheelsAddUpToNotches)
{
    ImageTracker tracker;
    EXPECT_EQ(tracker.notches(120), 1);
    EXPECT_EQ(tracker.notches(-240), -2);
    EXPECT_EQ(tracker.notches(50), 0);
    EXPECT_EQ(tracker.notches(50), 0);
    EXPECT_EQ(tracker.notches(50), 1);
    EXPECT_EQ(tracker.notches(-100), 0);  // what was left of the other way doesn't count
    EXPECT_EQ(tracker.notches(-20), -1);
}
