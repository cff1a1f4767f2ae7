#include "display/colors/colorfile.h"

#include <gtest/gtest.h>

#include <random>

static const char* const good = "64,0\n0,4278190335\n0.25,4294967295\n1,4294901760\n";

TEST(ColorFile, ReadsCountModeAndStops)
{
    ColorFile file;
    std::string error;
    ASSERT_TRUE(readColorFile(good, "a.col", &file, &error)) << error;
    EXPECT_EQ(file.numColors, 64);
    EXPECT_EQ(file.colorMode, 0);
    ASSERT_EQ(file.stops.size(), 3u);
    EXPECT_EQ(file.stops[1].position, 0.25);
    EXPECT_EQ(file.stops[0].color, 0xff0000ffu);
    EXPECT_EQ(file.stops[2].color, 0xffff0000u);
}

TEST(ColorFile, ForgivesBlanksEmptyLinesAndForeignLineEnds)
{
    ColorFile file;
    std::string error;
    ASSERT_TRUE(readColorFile("\r\n 256 , 1\r\n\r\n 0.5 ,\t7 \r\n1e0,8", "a.col", &file, &error)) << error;
    EXPECT_EQ(file.numColors, 256);
    ASSERT_EQ(file.stops.size(), 2u);
    EXPECT_EQ(file.stops[0].color, 7u);
    EXPECT_EQ(file.stops[1].position, 1.0);
}

TEST(ColorFile, RefusesABrokenFileNamingFileAndLineAndKeepsTheOld)
{
    const struct {
        const char* text;
        const char* error;
    } cases[] = {
        {"", "a.col, line 1: number of colors and color mode are missing"},
        {"\n\n", "a.col, line 1: number of colors and color mode are missing"},
        {"256\n", "a.col, line 1: two fields with a comma between them are wanted"},
        {"256,1,2\n", "a.col, line 1: two fields with a comma between them are wanted"},
        {"0,1\n", "a.col, line 1: number of colors: \"0\" is not a number from 1 to 65536"},
        {"70000,1\n", "a.col, line 1: number of colors: \"70000\" is not a number from 1 to 65536"},
        {"99999999999,1\n", "a.col, line 1: number of colors: \"99999999999\" is not a number from 1 to 65536"},
        {"256,x\n", "a.col, line 1: color mode: \"x\" is not a whole number"},
        {"256,1\n0.5\n", "a.col, line 2: two fields with a comma between them are wanted"},
        {"256,1\n\nhalf,3\n", "a.col, line 3: position: \"half\" is not a number"},
        {"256,1\nnan,3\n", "a.col, line 2: position: \"nan\" is not a number"},
        {"256,1\n0.5,-3\n", "a.col, line 2: color: \"-3\" is not the number of a color"},
        {"256,1\n0.5,4294967296\n", "a.col, line 2: color: \"4294967296\" is not the number of a color"},
        {"256,1\n0.5,0xff\n", "a.col, line 2: color: \"0xff\" is not the number of a color"},
    };
    for (const auto& c : cases) {
        ColorFile file;
        file.numColors = 17;
        std::string error;
        EXPECT_FALSE(readColorFile(c.text, "a.col", &file, &error)) << c.text;
        EXPECT_EQ(error, c.error);
        EXPECT_EQ(file.numColors, 17);
        EXPECT_TRUE(file.stops.empty());
    }
}

TEST(ColorFile, AFileOfOnlyAFirstLineLeavesAllStops)
{
    ColorFile file;
    std::string error;
    ASSERT_TRUE(readColorFile("32,0\n", "a.col", &file, &error));
    const ColorMap map = colorMapOf(file, ColorMap::seismicColor());
    EXPECT_EQ(map.colorStops().size(), 5u);
    EXPECT_EQ(map.color2(), qRgb(255, 255, 0));
}

TEST(ColorFile, TheEndsTakeTheColoursOfTheLowestAndHighestPosition)
{
    ColorFile file;
    file.stops = {{0.8, qRgb(8, 0, 0)}, {0.2, qRgb(2, 0, 0)}, {0.5, qRgb(5, 0, 0)}};
    const ColorMap map = colorMapOf(file, ColorMap::seismicColor());
    EXPECT_EQ(map.color1(), qRgb(2, 0, 0));
    EXPECT_EQ(map.color2(), qRgb(8, 0, 0));
    EXPECT_EQ(map.colorStops().size(), 5u);
    EXPECT_EQ(map.rgb(0, 1, 0.1), qRgb(2, 0, 0));
    EXPECT_EQ(map.rgb(0, 1, 0.5), qRgb(5, 0, 0));
}

TEST(ColorFile, APositionOutsideServesForTheEndAlone)
{
    ColorFile file;
    file.stops = {{0.0, qRgb(1, 0, 0)}, {1.5, qRgb(9, 0, 0)}};
    const ColorMap map = colorMapOf(file, ColorMap::seismicColor());
    EXPECT_EQ(map.color2(), qRgb(9, 0, 0));
    EXPECT_EQ(map.colorStops().size(), 3u);  // both ends, and the stop at 0.0
}

TEST(ColorFile, WrittenTextReadsBackTheSame)
{
    ColorFile file;
    file.numColors = 100;
    file.colorMode = 0;
    file.stops = {{0.0, 0xff000000u}, {0.333f, 0xff00ff00u}, {1.0, 0xffffff00u}};
    EXPECT_EQ(colorFileText(file), "100,0\n0,4278190080\n0.333,4278255360\n1,4294967040\n");
    ColorFile back;
    std::string error;
    ASSERT_TRUE(readColorFile(colorFileText(file), "a.col", &back, &error));
    EXPECT_EQ(colorFileText(back), colorFileText(file));
    EXPECT_EQ(back.stops[1].position, 0.333f);
}

TEST(ColorFile, SurvivesAnyBytes)
{
    std::mt19937 random(3);
    int nRead = 0;
    for (int i = 0; i < 20000; ++i) {
        std::string text = good;
        for (int k = random() % 5; k >= 0; --k) {
            const size_t at = random() % text.size();
            if (random() % 3 == 0)
                text.erase(at, random() % 4);
            else
                text[at] = random() % 2 ? char(random()) : "0123456789,.-e\n"[random() % 15];
            if (text.empty()) text = ",";
        }
        ColorFile file;
        std::string error;
        const bool isRead = readColorFile(text, "a.col", &file, &error);
        nRead += isRead;
        ASSERT_EQ(error.empty(), isRead) << text;
        colorMapOf(file, ColorMap::mapColor()).rgb(0, 1, 0.4);
    }
    EXPECT_GT(nRead, 1000);
    EXPECT_LT(nRead, 19000);
}

TEST(ColorFile, PositionsAreWrittenWithSixDigits)
{
    ColorFile file;
    file.numColors = 3;
    file.stops = {{1.0f / 3.0f, 4278190335u}, {0.123456789f, 4294901760u}};
    EXPECT_EQ(colorFileText(file), "3,1\n0.333333,4278190335\n0.123457,4294901760\n");
}
