#include "trevia/demosegy.h"

#include "host/signal/bytes.h"
#include "trevia/demonoise.h"
#include "trevia/demostack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

/// A big-endian integer of 2 or 4 bytes, read byte by byte.
static int integerAt(const uint8_t* bytes, int offset, int width)
{
    uint32_t value = 0;
    for (int i = 0; i < width; ++i) value = value << 8 | bytes[offset + i];
    return width == 2 ? int16_t(value) : int32_t(value);
}

static float floatAt(const uint8_t* bytes)
{
    return std::bit_cast<float>(uint32_t(bytes[0]) << 24 | uint32_t(bytes[1]) << 16 | uint32_t(bytes[2]) << 8 |
                                bytes[3]);
}

TEST(DemoSegy, TheReelSaysWhatTheFileHolds)
{
    DemoFile file;
    file.title = {"FIRST LINE"};
    file.traces = demoLine(60, true);
    const std::vector<uint8_t> reel = demoReel(file);
    ASSERT_EQ(reel.size(), 3600u);
    std::string text(reel.begin(), reel.begin() + 3200);
    EXPECT_EQ(uint8_t(text[0]), 0xc3);  // C in EBCDIC
    ebcdicToAscii(text.data(), 3200);
    EXPECT_EQ(text.substr(0, 14), "C 1 FIRST LINE");
    EXPECT_EQ(text.substr(38 * 80, 14), "C39 SEG Y REV1");
    EXPECT_EQ(text.substr(39 * 80, 22), "C40 END TEXTUAL HEADER");
    const struct {
        int offset, width, value;
    } words[] = {{3212, 2, 120}, {3216, 2, 2000}, {3220, 2, 1001}, {3224, 2, 5}, {3226, 2, 40},
                 {3228, 2, 1},   {3254, 2, 1},    {3500, 2, 256},  {3502, 2, 1}, {3504, 2, 0}};
    for (const auto& w : words) EXPECT_EQ(integerAt(reel.data(), w.offset, w.width), w.value) << w.offset;
}

// Shot 1003, k = 2: x 564, y 8; channel 25 is station 125 at x 576. Elevations and statics by Python.
TEST(DemoSegy, TheTraceHeaderHoldsEveryWordOfTheMapping)
{
    DemoTrace trace = demoTrace(demoShot(2), 25);
    const auto h = demoHeader(trace, 265, 1001);
    const struct {
        int offset, width, value;
    } words[] = {
        {0, 4, 265},
        {4, 4, 265},
        {8, 4, 1003},
        {12, 4, 25},
        {16, 4, 203},
        {20, 4, 1047},
        {24, 4, 25},
        {28, 2, 1},
        {32, 2, 1},
        {36, 4, 14},
        {48, 4, 0},
        {52, 4, 40000},
        {60, 4, 0},
        {64, 4, 0},
        {68, 2, -100},
        {70, 2, -100},
        {94, 2, 0},
        {110, 2, 0},
        {114, 2, 1001},
        {116, 2, 2000},
        {172, 2, 125},
        {188, 4, 1},
        {192, 4, 1047},
        {196, 4, 203},
        // X = 500000 + 0.8660254 x 564 + 4 = 500492.4383, Y = 4200000 + 282 - 6.9282 = 4200275.0718
        {72, 4, 50049244},
        {76, 4, 420027507},
        // 500000 + 0.8660254 x 576 = 500498.8306, 4200288
        {80, 4, 50049883},
        {84, 4, 420028800},
        // bin 1047: x = 570: 500493.6345, 4200285
        {180, 4, 50049363},
        {184, 4, 420028500},
    };
    for (const auto& w : words) EXPECT_EQ(integerAt(h.data(), w.offset, w.width), w.value) << w.offset;
    trace.faults = DemoDead;
    EXPECT_EQ(integerAt(demoHeader(trace, 1, 1001).data(), 28, 2), 2);
}

// z(0) = 404.20735, w(0) = 13.764 ms; z(468) = 409.7320, w(468) by the same formulas 17.4.. ms.
TEST(DemoSegy, ElevationsAreHundredthsAndStaticsWholeMilliseconds)
{
    const DemoTrace trace = demoTrace(demoShot(0), 1);
    const auto h = demoHeader(trace, 1, 1001);
    EXPECT_EQ(integerAt(h.data(), 40, 4), 40421);
    EXPECT_EQ(integerAt(h.data(), 44, 4), 40973);
    EXPECT_EQ(integerAt(h.data(), 100, 2), -14);
    EXPECT_EQ(integerAt(h.data(), 98, 2), -17);
    EXPECT_EQ(integerAt(h.data(), 102, 2), -31);
    DemoTrace without = trace;
    without.hasStatics = false;
    EXPECT_EQ(integerAt(demoHeader(without, 1, 1001).data(), 98, 2), 0);
}

TEST(DemoSegy, SamplesAreBigEndian)
{
    const float samples[2] = {1.0f, -118.625f};
    uint8_t bytes[8];
    putBigEndian(samples, 2, bytes);
    const uint8_t expected[8] = {0x3f, 0x80, 0, 0, 0xc2, 0xed, 0x40, 0};  // the published example of IEEE 754
    EXPECT_TRUE(std::equal(bytes, bytes + 8, expected));
}

class DemoSegyFile : public testing::Test
{
protected:
    void SetUp() override
    {
        _folder = std::filesystem::temp_directory_path() / ("demosegytest" + std::to_string(getpid()));
        std::filesystem::create_directories(_folder);
    }
    void TearDown() override { std::filesystem::remove_all(_folder); }
    std::vector<uint8_t> written(const DemoFile& file, double noise)
    {
        const std::string name = (_folder / "a.sgy").string();
        OutputFile out(name);
        writeDemoFile(file, noise, &out);
        std::string error;
        EXPECT_TRUE(out.commit(&error)) << error;
        std::ifstream in(name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    static DemoFile shots(int n)
    {
        DemoFile file;
        file.traces = demoLine(n, true);
        file.signal = [](const DemoTrace& t, int k, double* s) { addLineSignal(t, 1.0, k, s); };
        return file;
    }
    std::filesystem::path _folder;
};

TEST_F(DemoSegyFile, HasTheSizeOfItsTraces)
{
    EXPECT_EQ(written(shots(3), 0.02).size(), 3600u + 360u * (240u + 4u * 1001u));
}

TEST_F(DemoSegyFile, NoiseIsDrawnInFileOrderAlsoForDeadTraces)
{
    const std::vector<uint8_t> bytes = written(shots(3), 0.02);
    const auto sample = [&](int trace, int i) {
        return floatAt(&bytes[3600 + size_t(trace) * 4244 + 240 + 4 * size_t(i)]);
    };
    // Trace 0 is still quiet at its first samples (first break 262 ms).
    EXPECT_FLOAT_EQ(sample(0, 0), float(0.02 * -0.4772340977856899));
    EXPECT_FLOAT_EQ(sample(0, 1), float(0.02 * -1.3036563494051148));
    // Trace 102 is station 203, dead; trace 103 begins after 103 x 1001 deviates and breaks late.
    for (int i = 0; i < 1001; ++i) ASSERT_EQ(sample(102, i), 0.0f);
    DemoNoise noise;
    for (int i = 0; i < 103 * 1001; ++i) noise.normal();
    EXPECT_FLOAT_EQ(sample(103, 0), float(0.02 * noise.normal()));
}

TEST_F(DemoSegyFile, IsTheSameInEveryRun)
{
    EXPECT_EQ(written(shots(2), 0.02), written(shots(2), 0.02));
}

TEST_F(DemoSegyFile, WithoutNoiseTheFirstSamplesAreTheWavelet)
{
    DemoFile file = shots(1);
    const std::vector<uint8_t> bytes = written(file, 0.0);
    // Channel 30: quiet to 150.1 ms, then the wavelet (see DemoSamples).
    const uint8_t* trace = &bytes[3600 + 29 * 4244 + 240];
    for (int i = 0; i <= 75; ++i) ASSERT_EQ(floatAt(trace + 4 * i), 0.0f);
    const double t = 0.152 - 0.15010968808505912;
    EXPECT_NEAR(floatAt(trace + 4 * 76), -2.0 / 2.14 * std::exp(-60.0 * t) * std::sin(251.327412287 * t), 1e-6);
}

TEST(DemoStack, MovesAHyperbolaToItsTime)
{
    // A spike-like Ricker at sqrt(0.8^2 + (1000/2500)^2) = 0.894427 s stacks at 0.8 s.
    std::vector<float> trace(1001);
    for (int i = 0; i < 1001; ++i) trace[i] = float(demoRicker(30.0, 0.002 * i - 0.894427191));
    std::vector<double> sums(1001, 0.0);
    std::vector<int> counts(1001, 0);
    stackTrace(trace.data(), 1001, 1000.0, 2500.0, sums.data(), counts.data());
    EXPECT_NEAR(sums[400], 1.0, 5e-3);  // the half per cent that the sinc keeps
    EXPECT_LT(sums[395], sums[400]);
    EXPECT_LT(sums[405], sums[400]);
    // Stretch 0.5 is reached where sqrt(t^2 + 0.16) = 1.5 t: t = 0.4/sqrt(1.25) = 357.77 ms.
    EXPECT_EQ(counts[178], 0);
    EXPECT_EQ(counts[179], 1);
    // From sqrt(4 - 0.16) = 1.9596 s on the trace has nothing more to give.
    EXPECT_EQ(counts[979], 1);
    EXPECT_EQ(counts[980], 0);
}

TEST(DemoStack, HasAPanelForEachVelocityAndPeaksAtTheRightOne)
{
    DemoFile cdp;
    cdp.traces = demoCdpLine(60);
    cdp.traces.erase(
        std::remove_if(cdp.traces.begin(), cdp.traces.end(), [](const DemoTrace& t) { return t.cdp != 1225; }),
        cdp.traces.end());
    cdp.signal = [](const DemoTrace& t, int n, double* s) { addLineSignal(t, 0.05, n, s); };
    const DemoFile stacks = demoVelocityStacks(cdp, 0.0);
    // Bin 1225 is channel 247 - 4k of the shots with a full split spread: k = 32 to 59.
    ASSERT_EQ(stacks.traces.size(), 19u);
    int best = 0;
    double largest = 0.0;
    for (const DemoTrace& trace : stacks.traces) {
        EXPECT_EQ(trace.fold, 28);
        EXPECT_EQ(trace.ffid, trace.panelVelocity);
        std::vector<double> samples(1001, 0.0);
        stacks.signal(trace, 1001, samples.data());
        if (samples[400] > largest) {  // the third reflection, 0.8 s, 2500 m/s
            largest = samples[400];
            best = trace.panelVelocity;
        }
    }
    EXPECT_EQ(best, 2500);
    EXPECT_NEAR(largest, 0.3, 0.02);  // its amplitude; the remains of ground and air wave are of this order
}
