#include "host/numeric/intlin.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

static std::vector<float> interpolated(const std::vector<float>& x, const std::vector<float>& y,
                                       const std::vector<float>& at)
{
    std::vector<float> out(at.size());
    intlin(int(x.size()), x.data(), y.data(), int(at.size()), at.data(), out.data(), -1.0f, -2.0f);
    return out;
}

TEST(Intlin, IsLinearBetweenNodesAndExactOnThem)
{
    EXPECT_EQ(interpolated({0, 2, 6}, {1, 5, -3}, {0, 1, 2, 3, 5, 6}), (std::vector<float>{1, 3, 5, 3, -1, -3}));
}

TEST(Intlin, TakesTheGivenValuesOutside)
{
    EXPECT_EQ(interpolated({0, 2}, {1, 5}, {-0.001f, 2.001f, -1e30f, 1e30f}), (std::vector<float>{-1, -2, -1, -2}));
}

TEST(Intlin, PositionsMayComeInAnyOrder)
{
    EXPECT_EQ(interpolated({0, 1, 2, 3, 4, 5}, {0, 10, 20, 30, 40, 50}, {4.5f, 0.5f, 3.5f, 2.5f, 5.0f, 0.0f}),
              (std::vector<float>{45, 5, 35, 25, 50, 0}));
}

TEST(Intlin, OfEqualNodesTheLastWins)
{
    EXPECT_EQ(interpolated({0, 1, 1, 1, 2}, {0, 5, 6, 7, 8}, {0.5f, 1.0f, 1.5f}), (std::vector<float>{2.5f, 7, 7.5f}));
    EXPECT_EQ(interpolated({1, 1}, {5, 6}, {1.0f, 2.0f}), (std::vector<float>{6, -2}));
}

TEST(Intlin, OneNodeHoldsAtItsPlaceOnly)
{
    EXPECT_EQ(interpolated({3}, {9}, {3.0f, 2.9f, 3.1f}), (std::vector<float>{9, -1, -2}));
}

TEST(Intlin, NotANumberAndNoNodesGiveTheLowValue)
{
    EXPECT_EQ(interpolated({0, 1}, {4, 5}, {NAN}), (std::vector<float>{-1}));
    EXPECT_EQ(interpolated({}, {}, {0.0f}), (std::vector<float>{-1}));
}

TEST(Intlin, ValuesThatAreNotFiniteCountAsZero)
{
    EXPECT_EQ(interpolated({0, 1, 2}, {4, NAN, 8}, {0.5f, 1.0f, 1.5f}), (std::vector<float>{2, 0, 4}));
}

TEST(Intlin, TheResultMayReplaceValuesOrPositions)
{
    const std::vector<float> x = {0, 1, 2, 3};
    std::vector<float> y = {0, 10, 20, 30};
    const std::vector<float> at = {2.5f, 1.5f, 0.5f, 0.0f};
    std::vector<float> positions = at;
    intlin(4, x.data(), y.data(), 4, positions.data(), positions.data(), 0.0f, 0.0f);
    EXPECT_EQ(positions, (std::vector<float>{25, 15, 5, 0}));
    intlin(4, x.data(), y.data(), 4, at.data(), y.data(), 0.0f, 0.0f);
    EXPECT_EQ(y, (std::vector<float>{25, 15, 5, 0}));
}
