#include "display/colors/colormap.h"

#include <gtest/gtest.h>

#include <qwt_color_map.h>

#include <cmath>
#include <random>

static void expectAsQwt(const ColorMap& map)
{
    QwtLinearColorMap oracle(QColor::fromRgba(map.color1()), QColor::fromRgba(map.color2()));
    const std::vector<ColorStop>& stops = map.colorStops();
    for (size_t i = 1; i + 1 < stops.size(); ++i)
        oracle.addColorStop(stops[i].position, QColor::fromRgba(stops[i].color));
    oracle.setMode(map.mode() == ColorMap::FixedColors ? QwtLinearColorMap::FixedColors
                                                       : QwtLinearColorMap::ScaledColors);
    const QwtInterval interval(-3.0, 5.0);
    for (int i = -100; i <= 5100; ++i) {
        const double value = -3.0 + i * 8.0 / 5000;
        ASSERT_EQ(map.rgb(-3.0, 5.0, value), oracle.rgb(interval, value)) << value;
        ASSERT_EQ(map.colorIndex(-3.0, 5.0, value), oracle.colorIndex(interval, value)) << value;
    }
}

TEST(ColorMap, GivesTheColoursOfThePlotLibrary)
{
    std::mt19937 random(7);
    for (int trial = 0; trial < 20; ++trial) {
        ColorMap map(0xff000000u | random(), 0xff000000u | random());
        for (int i = 1; i < 8; ++i) map.addColorStop(i / 8.0 + 0.01 * (random() % 5), 0xff000000u | random());
        for (ColorMap::Mode mode : {ColorMap::FixedColors, ColorMap::ScaledColors}) {
            map.setMode(mode);
            ASSERT_NO_FATAL_FAILURE(expectAsQwt(map)) << trial;
        }
    }
    ASSERT_NO_FATAL_FAILURE(expectAsQwt(ColorMap::seismicColor()));
    ASSERT_NO_FATAL_FAILURE(expectAsQwt(ColorMap::seismicGrayScale()));
    ASSERT_NO_FATAL_FAILURE(expectAsQwt(ColorMap::mapColor()));
}

TEST(ColorMap, HasTheBuiltInColours)
{
    const ColorMap seismic = ColorMap::seismicColor();
    EXPECT_EQ(seismic.rgb(0, 1, 0.0), qRgb(0, 0, 0));
    EXPECT_EQ(seismic.rgb(0, 1, 0.25), qRgb(0, 0, 255));
    EXPECT_EQ(seismic.rgb(0, 1, 0.5), qRgb(255, 255, 255));
    EXPECT_EQ(seismic.rgb(0, 1, 0.75), qRgb(255, 0, 0));
    EXPECT_EQ(seismic.rgb(0, 1, 1.0), qRgb(255, 255, 0));
    const ColorMap grey = ColorMap::seismicGrayScale();
    EXPECT_EQ(grey.rgb(0, 1, 0.0), qRgb(255, 255, 255));
    EXPECT_EQ(grey.rgb(0, 1, 1.0), qRgb(0, 0, 0));
    const ColorMap map = ColorMap::mapColor();
    EXPECT_EQ(map.rgb(0, 1, 0.0), qRgb(0, 0, 255));
    EXPECT_EQ(map.rgb(0, 1, 0.333), qRgb(0, 255, 0));
    EXPECT_EQ(map.rgb(0, 1, 0.666), qRgb(255, 0, 0));
    EXPECT_EQ(map.rgb(0, 1, 1.0), qRgb(255, 255, 0));
}

TEST(ColorMap, KeepsStopsNearerThanAThousandth)
{
    ColorMap map(qRgb(0, 0, 0), qRgb(255, 255, 255));
    map.addColorStop(0.5, qRgb(255, 0, 0));
    map.addColorStop(0.5004, qRgb(0, 255, 0));
    map.addColorStop(0.5, qRgb(0, 0, 255));  // a hard edge: the later one takes over at the position itself
    ASSERT_EQ(map.colorStops().size(), 5u);
    EXPECT_EQ(map.rgb(0, 1, 0.4999999), qRgb(255, 0, 0));
    EXPECT_EQ(map.rgb(0, 1, 0.5), qRgb(0, 0, 255));
    EXPECT_EQ(map.rgb(0, 1, 0.5004), qRgb(0, 255, 0));
}

TEST(ColorMap, LeavesOutStopsOutsideItsRange)
{
    ColorMap map(qRgb(0, 0, 0), qRgb(255, 255, 255));
    map.addColorStop(1.5, qRgb(255, 0, 0));
    map.addColorStop(-0.1, qRgb(255, 0, 0));
    map.addColorStop(NAN, qRgb(255, 0, 0));
    EXPECT_EQ(map.colorStops().size(), 2u);
}

TEST(ColorMap, AnEmptyRangeGivesTheLowColour)
{
    const ColorMap map(qRgb(1, 2, 3), qRgb(4, 5, 6));
    EXPECT_EQ(map.rgb(5.0, 5.0, 5.0), qRgb(1, 2, 3));
    EXPECT_EQ(map.rgb(6.0, 5.0, 5.5), qRgb(1, 2, 3));
    EXPECT_EQ(map.rgb(-INFINITY, INFINITY, 0.0), qRgb(1, 2, 3));
    EXPECT_EQ(map.colorIndex(-INFINITY, INFINITY, 0.0), 0);
}
