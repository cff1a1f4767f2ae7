#include "display/raster/dataview.h"

#include <gtest/gtest.h>

TEST(DataRows, AViewInsideTheDataComesBackAsItIs)
{
    const AxisMap y = {800.0, 100.0, 350.0, 0.0};
    const DataRows rows = dataRows(y, 1, 0.0, 1000.0);
    EXPECT_EQ(rows.first, 0);
    EXPECT_EQ(rows.end, 350);
    EXPECT_EQ(rows.y.s1, 800.0);
    EXPECT_EQ(rows.y.s2, 100.0);
    EXPECT_EQ(rows.y.p1, 350.0);
}

TEST(DataRows, OfAViewPastBothEndsTheRowsBetweenThemAreTheDatas)
{
    // 10 ms a row: 0 ms at row 20, 1000 ms at row 120
    const DataRows rows = dataRows({2000.0, -200.0, 220.0, 0.0}, 1, 0.0, 1000.0);
    EXPECT_EQ(rows.first, 20);
    EXPECT_EQ(rows.end, 120);
    EXPECT_DOUBLE_EQ(rows.y.s2, 0.0);
    EXPECT_DOUBLE_EQ(rows.y.s1, 1000.0);
    EXPECT_EQ(rows.y.p1, 100.0);
    EXPECT_EQ(rows.y.p2, 0.0);
}

TEST(DataRows, ThePartStartsWithAWholeRow)
{
    // 10 ms a row from -15: row 2 shows 5 ms and is the first of the data
    const DataRows rows = dataRows({985.0, -15.0, 100.0, 0.0}, 1, 0.0, 2000.0);
    EXPECT_EQ(rows.first, 2);
    EXPECT_EQ(rows.end, 100);
    EXPECT_DOUBLE_EQ(rows.y.s2, 5.0);
    EXPECT_DOUBLE_EQ(rows.y.s1, 985.0);
}

TEST(DataRows, PastTheDataNoRowIsLeft)
{
    const DataRows single = dataRows({3000.0, 2000.0, 1.0, 0.0}, 1, 0.0, 1000.0);  // a picture of one row
    EXPECT_EQ(single.first, single.end);
    const DataRows below = dataRows({3000.0, 2000.0, 100.0, 0.0}, 1, 0.0, 1000.0);
    EXPECT_EQ(below.first, below.end);
    const DataRows above = dataRows({-100.0, -200.0, 100.0, 0.0}, 1, 0.0, 1000.0);
    EXPECT_EQ(above.first, above.end);
}

TEST(DataRows, ARisingAxisIsCutTheSameWay)
{
    const DataRows rows = dataRows({-20.0, 200.0, 220.0, 0.0}, 0, 0.0, 100.0);
    EXPECT_EQ(rows.first, 20);
    EXPECT_EQ(rows.end, 120);
    EXPECT_DOUBLE_EQ(rows.y.s1, 0.0);
    EXPECT_DOUBLE_EQ(rows.y.s2, 100.0);
}

TEST(TurnedAxis, TheHighestPositionIsTheFirstSample)
{
    const AxisMap turned = turnedAxis({20.0, 50.0, 300.0, 0.0}, 100.0);
    EXPECT_EQ(turned.s1, 50.0);
    EXPECT_EQ(turned.s2, 80.0);
    EXPECT_EQ(turned.p1, 300.0);
}
