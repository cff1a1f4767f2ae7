#include "display/colors/colortable.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(ColorTable, RunsFromTheHighValueDown)
{
    ColorTable table;
    table.setColorType(ColorYes);
    table.setNumColors(4);
    table.setMinMaxValue(0.0, 8.0);
    EXPECT_EQ(table.increment(), 2.0);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(table.rgbArray()[i], table.getColorRGB(8.0 - 2.0 * i)) << i;
    EXPECT_EQ(table.index(8.0), 0);
    EXPECT_EQ(table.index(6.0001), 0);
    EXPECT_EQ(table.index(6.0), 1);
    EXPECT_EQ(table.index(0.0001), 3);
    EXPECT_EQ(table.index(0.0), 3);  // 4 would be outside
}

TEST(ColorTable, AValueAboveTheMaximumMapsToTheFirstBelowTheMinimumToTheLast)
{
    ColorTable table;
    table.setMinMaxValue(-1.0, 1.0);
    EXPECT_EQ(table.index(1.0001), 0);
    EXPECT_EQ(table.index(1e30), 0);
    EXPECT_EQ(table.index(INFINITY), 0);
    EXPECT_EQ(table.index(-1.0001), 255);
    EXPECT_EQ(table.index(-1e30), 255);
    EXPECT_EQ(table.index(-INFINITY), 255);
    EXPECT_EQ(table.index(NAN), 0);
}

TEST(ColorTable, MinMaxOfZerosGivesOneAroundZero)
{
    ColorTable table;
    table.setMinMaxValue(0.0, 0.0);
    EXPECT_EQ(table.minValue(), -1.0);
    EXPECT_EQ(table.maxValue(), 1.0);
}

TEST(ColorTable, WithoutColourIsSplitInBlackAndWhite)
{
    ColorTable table;
    ASSERT_EQ(table.colorType(), ColorNo);
    table.setNumColors(5);
    const QRgb wanted[] = {qRgb(0, 0, 0), qRgb(0, 0, 0), qRgb(255, 255, 255), qRgb(255, 255, 255), qRgb(255, 255, 255)};
    for (int i = 0; i < 5; ++i) EXPECT_EQ(table.rgbArray()[i], wanted[i]) << i;
}

TEST(ColorTable, ANewCountKeepsTheRange)
{
    ColorTable table;
    table.setMinMaxValue(-4.0, 12.0);
    table.setNumColors(8);
    EXPECT_EQ(table.increment(), 2.0);
    table.setNumColors(0);
    EXPECT_EQ(table.numColors(), 1);
    EXPECT_EQ(table.index(-99.0), 0);
}

TEST(ColorTable, AMapKeepsTheModeOfTheTable)
{
    ColorTable table;
    table.setColorType(ColorYes);
    table.setColorMode(0);
    table.setColorMap(ColorMap(qRgb(10, 0, 0), qRgb(20, 0, 0)));
    table.setMinMaxValue(0.0, 1.0);
    EXPECT_EQ(table.getColorRGB2(0.4), qRgb(10, 0, 0));
    table.setColorMode(1);
    EXPECT_EQ(table.getColorRGB(0.5), qRgb(15, 0, 0));
}

TEST(ColorTable, ARangeOfOneValueIsPaintedInOneColour)
{
    ColorTable table;
    table.setColorType(ColorYes);
    table.setMinMaxValue(5.0, 5.0);
    EXPECT_EQ(table.index(5.0), 0);
    EXPECT_EQ(table.index(6.0), 0);
    EXPECT_EQ(table.index(4.0), 255);
    EXPECT_EQ(table.getColorRGB2(4.0), table.getColorRGB2(5.0));
}
