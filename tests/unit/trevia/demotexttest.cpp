#include "trevia/demosps.h"
#include "trevia/demotruth.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

static std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

static bool holds(const std::vector<std::string>& lines, const std::string& line)
{
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

TEST(DemoTruth, FirstBreaksAreThoseOfTheFile)
{
    const std::vector<std::string> lines = linesOf(firstBreakText(demoLine(60, true)));
    EXPECT_EQ(lines[0], "ffid chan station offset_m branch onset_ms trough_ms minusplus_ms peak_ms plusminus_ms");
    // By Python: onset 261.955662 ms, then 5.317567, 12.5, 17.817567 and 25 ms.
    EXPECT_EQ(lines[1], "1001 1 101 -468.000 3 261.956 267.273 274.456 279.773 286.956");
    // 120 traces a shot, less station 203 (every shot that has it) and 157 (from 1021 on).
    int dead = 0;
    for (const DemoTrace& t : demoLine(60, true)) dead += t.station == 203 || (t.station == 157 && t.ffid >= 1021);
    EXPECT_EQ(int(lines.size()), 1 + 7200 - dead);
    EXPECT_EQ(dead, 89);
}

TEST(DemoTruth, ALateRecordIsLateAndAReversedOneTurned)
{
    DemoTrace trace = demoTrace(demoShot(0), 1);
    const DemoFirstBreak plain = demoFirstBreak(trace);
    trace.faults = DemoLate;
    EXPECT_NEAR(demoFirstBreak(trace).onset - plain.onset, 0.016, 1e-12);
    EXPECT_NEAR(demoFirstBreak(trace).peak - plain.peak, 0.016, 1e-12);
    trace.faults = DemoReversed;
    EXPECT_EQ(demoFirstBreak(trace).onset, plain.onset);
    EXPECT_EQ(demoFirstBreak(trace).peak, plain.trough);
    EXPECT_EQ(demoFirstBreak(trace).plusMinus, plain.minusPlus);
}

TEST(DemoTruth, ReflectionsHaveARowABinAndReflector)
{
    const std::vector<std::string> lines = linesOf(reflectionText(demoLine(60, false)));
    EXPECT_EQ(lines[0], "cdp reflector t0_ms V_m/s vint_m/s");
    EXPECT_EQ(lines.size(), 1u + 6u * 316u);  // bins 1019 to 1334
    EXPECT_TRUE(holds(lines, "1300 1 353.624 2068.57 2068.57"));
    EXPECT_TRUE(holds(lines, "1300 5 1366.995 3077.63 3916.66"));
}

TEST(DemoTruth, StaticsHaveARowAStationAndShotPoint)
{
    const std::vector<std::string> lines = linesOf(staticText(60));
    EXPECT_EQ(lines[0], "kind point x_m z_m h_m w_ms");
    EXPECT_EQ(lines.size(), 1u + 200u + 60u);
    EXPECT_EQ(lines[1], "R 101 0.000 404.207 12.558 13.764");
    EXPECT_TRUE(holds(lines, "S 230 1872.000 410.566 13.049 17.400"));
}

TEST(DemoTruth, BadTracesAreNamed)
{
    const std::vector<std::string> lines = linesOf(badTraceText(demoLine(60, true)));
    for (const char* line : {"1001 80 180 reversed", "1025 77 185 spike", "1050 5 163 nan", "1001 103 203 zero",
                             "1021 57 157 dead", "1001 120 220 noisy"})
        EXPECT_TRUE(holds(lines, line)) << line;
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(), [](const std::string& l) { return l.ends_with("late_16_ms"); }),
              120);
    EXPECT_EQ(linesOf(badTraceText(demoLine(60, false))).size(), 1u);
}

TEST(DemoTruth, EtaHasBothKinds)
{
    const std::vector<std::string> lines = linesOf(etaText());
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[2], "2 1100.000 2500.00 0.1000 2952.54 0.0986");
    EXPECT_EQ(lines[3], "3 1600.000 2900.00 0.0800 3627.95 0.0312");
}

static std::string field(const std::string& line, size_t start, size_t length)
{
    const std::string text = line.substr(start, length);
    const size_t first = text.find_first_not_of(' '), last = text.find_last_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, last - first + 1);
}

TEST(DemoSps, PointRecordsKeepTheirColumns)
{
    const std::vector<std::string> sources = linesOf(spsSources(60)), receivers = linesOf(spsReceivers());
    ASSERT_EQ(sources.size(), 62u);
    ASSERT_EQ(receivers.size(), 202u);
    const std::string& s = sources[2 + 2];  // shot point 203 at x 564, y 8
    EXPECT_EQ(s[0], 'S');
    EXPECT_EQ(field(s, 1, 16), "1");
    EXPECT_EQ(field(s, 17, 8), "203");
    EXPECT_EQ(field(s, 25, 1), "1");
    EXPECT_EQ(field(s, 36, 4), "400");
    EXPECT_EQ(field(s, 46, 9), "500492.44");
    EXPECT_EQ(field(s, 55, 10), "4200275.07");
    EXPECT_EQ(field(s, 71, 3), "153");
    EXPECT_EQ(field(s, 74, 6), "080300");
    const std::string& r = receivers[2];
    EXPECT_EQ(r[0], 'R');
    EXPECT_EQ(field(r, 17, 8), "101");
    EXPECT_EQ(field(r, 28, 4), "-14");
    EXPECT_EQ(field(r, 46, 9), "500000.00");
    EXPECT_EQ(field(r, 65, 6), "404.2");
    for (const auto& lines : {sources, receivers})
        for (size_t i = 2; i < lines.size(); ++i) ASSERT_EQ(lines[i].size(), 80u);
}

TEST(DemoSps, RelationsCoverEachChannelOnce)
{
    const std::vector<std::string> lines = linesOf(spsRelations(60));
    ASSERT_EQ(lines.size(), 2u + 60u + 30u);
    EXPECT_EQ(field(lines[2], 7, 4), "1001");
    EXPECT_EQ(field(lines[2], 29, 8), "201");
    EXPECT_EQ(field(lines[2], 38, 4), "1");
    EXPECT_EQ(field(lines[2], 42, 4), "120");
    EXPECT_EQ(field(lines[2], 63, 8), "101");
    EXPECT_EQ(field(lines[2], 71, 8), "220");
    // The second shot point, 202, is even: two records.
    EXPECT_EQ(field(lines[3], 42, 4), "60");
    EXPECT_EQ(field(lines[3], 71, 8), "160");
    EXPECT_EQ(field(lines[4], 29, 8), "202");
    EXPECT_EQ(field(lines[4], 38, 4), "61");
    EXPECT_EQ(field(lines[4], 63, 8), "161");
    for (size_t i = 2; i < lines.size(); ++i) {
        ASSERT_EQ(lines[i].size(), 80u);
        const int channels = std::stoi(field(lines[i], 42, 4)) - std::stoi(field(lines[i], 38, 4));
        ASSERT_EQ(std::stoi(field(lines[i], 71, 8)) - std::stoi(field(lines[i], 63, 8)), channels);
    }
}
