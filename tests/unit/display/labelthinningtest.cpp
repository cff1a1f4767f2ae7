#include "display/zoom/labelthinning.h"

#include <gtest/gtest.h>

/// Labels of the numbers first to last, `distance` pixels apart and `extent` wide.
static std::vector<AxisLabel> labelsOf(int first, int last, double distance, double extent)
{
    std::vector<AxisLabel> labels;
    for (int i = first; i <= last; ++i) labels.push_back({i * distance, extent, i});
    return labels;
}

/// The numbers of the labels drawn.
static std::vector<long long> drawnNumbers(const std::vector<AxisLabel>& labels, double gap)
{
    std::vector<long long> numbers;
    for (const int i : labelsToDraw(labels, gap)) numbers.push_back(labels[i].number);
    return numbers;
}

using Numbers = std::vector<long long>;

TEST(LabelThinning, LabelsWithRoomAreAllDrawn)
{
    EXPECT_EQ(drawnNumbers(labelsOf(1, 4, 30.0, 24.0), 6.0), (Numbers{1, 2, 3, 4}));
}

TEST(LabelThinning, OneUnitTooNearDrawsEverySecond)
{
    EXPECT_EQ(drawnNumbers(labelsOf(1, 6, 29.9, 24.0), 6.0), (Numbers{2, 4, 6}));
}

TEST(LabelThinning, MultiplesGoByOneTwoAndFive)
{
    // 7 pixels apart, 30 needed: five steps are 35
    EXPECT_EQ(drawnNumbers(labelsOf(1, 16, 7.0, 24.0), 6.0), (Numbers{5, 10, 15}));
    // 0.1 apart: 300 steps are needed, the next of 1, 2 and 5 is 500
    EXPECT_EQ(drawnNumbers(labelsOf(1, 1600, 0.1, 24.0), 6.0), (Numbers{500, 1000, 1500}));
}

TEST(LabelThinning, PanningKeepsTheSameLabels)
{
    EXPECT_EQ(drawnNumbers(labelsOf(103, 118, 7.0, 24.0), 6.0), (Numbers{105, 110, 115}));
}

TEST(LabelThinning, TheOutermostTwoStandWhereNoMultipleGivesTwo)
{
    // every second is 20 apart where 30 are needed, every fifth only 5
    EXPECT_EQ(drawnNumbers(labelsOf(3, 7, 10.0, 24.0), 6.0), (Numbers{3, 7}));
}

TEST(LabelThinning, WithoutRoomForTwoOneIsLeft)
{
    EXPECT_EQ(drawnNumbers(labelsOf(1, 3, 10.0, 24.0), 6.0), (Numbers{2}));
    EXPECT_TRUE(labelsToDraw({}, 6.0).empty());
}

TEST(LabelThinning, AWideLabelCountsAsWide)
{
    std::vector<AxisLabel> labels = labelsOf(1, 4, 30.0, 24.0);
    labels[1].extent = 60.0;  // reaches its neighbours; every second is 60 apart and needs 48
    EXPECT_EQ(drawnNumbers(labels, 6.0), (Numbers{2, 4}));
}

TEST(LabelThinning, AnAxisThatFallsIsThinnedLikeOneThatRises)
{
    std::vector<AxisLabel> labels = labelsOf(1, 6, 29.0, 24.0);
    for (AxisLabel& label : labels) label.middle = -label.middle;
    EXPECT_EQ(drawnNumbers(labels, 6.0), (Numbers{2, 4, 6}));
}
