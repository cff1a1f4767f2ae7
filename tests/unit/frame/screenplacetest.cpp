/// Places of windows on screens that may have changed since they were stored.
#include "widgets/screenplace.h"
#include "frame/windowsettings.h"

#include <gtest/gtest.h>

TEST(ScreenPlace, APlaceOnTheScreenStays)
{
    EXPECT_EQ(clampedPlace(QRect(34, 19, 1229, 691), {QRect(0, 0, 1366, 768)}), QRect(34, 19, 1229, 691));
}

TEST(ScreenPlace, APlaceOnAScreenThatHasGoneComesToTheNearestOne)
{
    const QVector<QRect> screens = {QRect(0, 0, 1366, 768), QRect(0, 768, 1366, 768)};
    EXPECT_EQ(clampedPlace(QRect(3000, 100, 800, 600), screens), QRect(566, 100, 800, 600));
    EXPECT_EQ(clampedPlace(QRect(-900, 2000, 800, 600), screens), QRect(0, 936, 800, 600));
}

TEST(ScreenPlace, TheScreenThatHoldsTheMostCounts)
{
    const QVector<QRect> screens = {QRect(0, 0, 1000, 800), QRect(1000, 0, 1000, 800)};
    EXPECT_EQ(clampedPlace(QRect(700, 10, 500, 500), screens), QRect(500, 10, 500, 500));
    EXPECT_EQ(clampedPlace(QRect(800, 10, 500, 500), screens), QRect(1000, 10, 500, 500));
}

TEST(ScreenPlace, AWindowLargerThanItsScreenShrinks)
{
    EXPECT_EQ(clampedPlace(QRect(-10, -10, 1900, 1000), {QRect(0, 24, 1366, 744)}), QRect(0, 24, 1366, 744));
}

TEST(ScreenPlace, WithoutAScreenAPlaceStays)
{
    EXPECT_EQ(clampedPlace(QRect(7, 8, 9, 10), {}), QRect(7, 8, 9, 10));
}

/// A title bar of 30 pixels and sides of 4 are left around the window.
TEST(ScreenPlace, TheStoredPlaceOfTheMainWindowIsClampedWithItsFrame)
{
    WindowSettings stored;
    stored.pos = QPoint(2000, 1500);
    stored.size = QSize(1700, 900);
    stored.colormap = "kept";
    const WindowSettings clamped = clampedSettings(stored, {QRect(0, 0, 1366, 768)});
    EXPECT_EQ(clamped.pos, QPoint(0, 0));
    EXPECT_EQ(clamped.size, QSize(1358, 734));
    EXPECT_EQ(clamped.colormap, "kept");
}
