/// The color files that come with the program.
#include "display/colors/colorfile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

static std::string colorFolder()
{
    return std::string(MERIDUNE_SOURCE_DIR) + "/resources/colors/";
}

static ColorMap shippedMap(const std::string& name)
{
    std::ifstream in(colorFolder() + name);
    std::stringstream text;
    text << in.rdbuf();
    ColorFile file;
    std::string error;
    EXPECT_TRUE(readColorFile(text.str(), name, &file, &error)) << error;
    return colorMapOf(file, ColorMap::seismicColor());
}

/// Relative luminance, IEC 61966-2-1.
static double luminance(QRgb color)
{
    const auto linear = [](int channel) {
        const double c = channel / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

/// Lightness L* of CIELAB.
static double lightness(QRgb color)
{
    const double y = luminance(color);
    return y > 0.008856 ? 116.0 * std::cbrt(y) - 16.0 : 903.3 * y;
}

TEST(ShippedColors, AllFilesAreReadAndInUse)
{
    int nFiles = 0;
    std::ifstream qrc(std::string(MERIDUNE_SOURCE_DIR) + "/resources/meridune.qrc");
    std::stringstream listed;
    listed << qrc.rdbuf();
    for (const auto& entry : std::filesystem::directory_iterator(colorFolder())) {
        if (entry.path().extension() != ".col") continue;
        const std::string name = entry.path().filename().string();
        SCOPED_TRACE(name);
        EXPECT_NE(shippedMap(name).color1(), shippedMap(name).color2());
        EXPECT_NE(listed.str().find("colors/" + name + "<"), std::string::npos);
        ++nFiles;
    }
    EXPECT_GE(nFiles, 12);
}

TEST(ShippedColors, TheSeismicFileHoldsTheBuiltInMap)
{
    const ColorMap map = shippedMap("seismic.col"), builtIn = ColorMap::seismicColor();
    for (int i = 0; i <= 1000; ++i) EXPECT_EQ(map.rgb(0.0, 1000.0, i), builtIn.rgb(0.0, 1000.0, i)) << i;
}

TEST(ShippedColors, SemblanceFallsSteadilyFromWhiteWithoutBlackAndBlue)
{
    const ColorMap map = shippedMap("semblance.col");
    EXPECT_EQ(map.color1(), qRgb(255, 255, 255));
    double former = 2.0;
    for (int i = 0; i <= 100; ++i) {
        const QRgb color = map.rgb(0.0, 100.0, i);
        EXPECT_LT(luminance(color), former) << i;
        former = luminance(color);
        EXPECT_GE(qRed(color), 190) << i;           // far from black
        EXPECT_LE(qBlue(color), qRed(color)) << i;  // never blue
    }
}

TEST(ShippedColors, AmplitudeMapsAreWhiteInTheMiddle)
{
    for (const char* name : {"blue-white-red.col", "red-white-blue.col", "red-white-black.col", "brown-white-blue.col"})
        EXPECT_EQ(shippedMap(name).rgb(-3.0, 3.0, 0.0), qRgb(255, 255, 255)) << name;
}

// Eight bits a channel leave half a unit of lightness.
TEST(ShippedColors, UniformMapsHaveLinearLightness)
{
    const struct {
        const char* name;
        double low, middle, high;
    } maps[] = {{"uniform-blue-yellow.col", 20.0, 55.0, 90.0},
                {"uniform-blue-white-brown.col", 32.0, 97.0, 32.0},
                {"uniform-grey.col", 100.0, 50.0, 0.0}};
    for (const auto& wanted : maps) {
        const ColorMap map = shippedMap(wanted.name);
        for (int i = 0; i <= 200; ++i) {
            const double expected = i <= 100 ? wanted.low + (wanted.middle - wanted.low) * i / 100.0
                                             : wanted.middle + (wanted.high - wanted.middle) * (i - 100) / 100.0;
            EXPECT_NEAR(lightness(map.rgb(0.0, 200.0, i)), expected, 0.6) << wanted.name << " at " << i;
        }
    }
}
