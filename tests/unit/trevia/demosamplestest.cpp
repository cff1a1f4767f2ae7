#include "trevia/demosamples.h"

#include "trevia/demonoise.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

static std::vector<float> lineTrace(const DemoTrace& trace, const float* noise = nullptr, double coherent = 1.0)
{
    std::vector<float> samples(1001);
    const auto signal = [coherent](const DemoTrace& t, int n, double* s) { addLineSignal(t, coherent, n, s); };
    demoSamples(trace, signal, noise, 1001, samples.data());
    return samples;
}

// From a Python program with 64-bit integers masked by hand: x ^= x<<13; x ^= x>>7; x ^= x<<17.
TEST(DemoNoise, GivesTheNumbersOfXorshift64)
{
    DemoNoise noise;
    EXPECT_DOUBLE_EQ(noise.uniform(), 0.0011853020635457234);
    EXPECT_DOUBLE_EQ(noise.uniform(), 0.6909443683477788);
    EXPECT_DOUBLE_EQ(noise.uniform(), 0.355723881173158);
    DemoNoise again;
    for (double expected : {-0.4772340977856899, -1.3036563494051148, 0.9970441250988253, -0.08635620179755144})
        EXPECT_NEAR(again.normal(), expected, 1e-12);
}

TEST(DemoNoise, HasMeanZeroAndVarianceOne)
{
    DemoNoise noise;
    double sum = 0.0, squares = 0.0;
    constexpr int n = 100000;
    for (int i = 0; i < n; ++i) {
        const double v = noise.normal();
        sum += v;
        squares += v * v;
    }
    EXPECT_NEAR(sum / n, 0.0, 0.015);     // 4.7 standard errors
    EXPECT_NEAR(squares / n, 1.0, 0.02);  // the same
}

TEST(DemoSamples, WaveletsHaveTheirShapes)
{
    EXPECT_EQ(demoFirstWavelet(-1e-9), 0.0);
    EXPECT_EQ(demoFirstWavelet(0.0), 0.0);
    EXPECT_NEAR(demoFirstWavelet(0.004), -0.66417187, 1e-8);
    EXPECT_NEAR(demoRicker(30.0, 0.005), 0.44517364, 1e-8);
    EXPECT_EQ(demoRicker(30.0, 0.0), 1.0);
    EXPECT_EQ(demoRicker(30.0, 0.01), demoRicker(30.0, -0.01));
}

// Sums of all events by a Python program of its own. The model leaves out what is below 1e-13 of an event.
TEST(DemoSamples, ASampleIsTheSumOfAllEvents)
{
    const std::vector<float> far = lineTrace(demoTrace(demoShot(0), 1));
    EXPECT_NEAR(far[131], -6.654852296e-3, 1e-9);
    EXPECT_NEAR(far[200], -4.279454781e-5, 1e-11);
    EXPECT_NEAR(far[560], -2.511014254e-4, 1e-10);
    const std::vector<float> skidded = lineTrace(demoTrace(demoShot(2), 25));
    EXPECT_NEAR(skidded[12], -1.146813516, 1e-6);
    EXPECT_NEAR(skidded[200], -0.02875632375, 1e-8);
}

TEST(DemoSamples, TheCdpVariantHasNoStaticsAndLittleGroundRoll)
{
    DemoTrace trace = demoTrace(demoShot(0), 1);
    trace.hasStatics = false;
    const std::vector<float> samples = lineTrace(trace, nullptr, 0.05);
    EXPECT_NEAR(samples[131], -6.654852296e-3, 1e-9);
    EXPECT_NEAR(samples[200], -0.1115748964, 1e-7);
    EXPECT_NEAR(samples[300], 0.05640277682, 1e-8);
    EXPECT_NEAR(samples[560], -4.773837284e-4, 1e-10);
}

TEST(DemoSamples, NothingMovesBeforeTheFirstBreakWithoutNoise)
{
    const DemoTrace trace = demoTrace(demoShot(0), 30);  // onset 150.1 ms, ground roll and air wave later
    const std::vector<float> samples = lineTrace(trace);
    for (int i = 0; i <= 75; ++i) ASSERT_EQ(samples[i], 0.0f) << i;
    // 76 x 2 ms is 1.890312 ms behind the onset: -2/(1 + 228/200) exp(-60 t) sin(80 pi t).
    const double t = 0.152 - 0.15010968808505912;
    EXPECT_NEAR(samples[76], -2.0 / 2.14 * std::exp(-60.0 * t) * std::sin(251.327412287 * t), 1e-6);
}

TEST(DemoSamples, NoiseIsAddedAndRaisedAtNoisyStations)
{
    std::vector<float> noise(1001);
    std::iota(noise.begin(), noise.end(), -500.0f);
    DemoTrace trace = demoTrace(demoShot(0), 30);
    const std::vector<float> plain = lineTrace(trace, noise.data());
    for (int i = 0; i <= 75; ++i) ASSERT_EQ(plain[i], noise[i]);
    trace.faults = DemoNoisy;
    const std::vector<float> noisy = lineTrace(trace, noise.data());
    for (int i = 0; i <= 75; ++i) ASSERT_EQ(noisy[i], 6.0f * noise[i]);
}

TEST(DemoSamples, FaultsShowInTheSamples)
{
    std::vector<float> noise(1001, 0.5f);
    DemoTrace trace = demoTrace(demoShot(0), 30);
    const std::vector<float> good = lineTrace(trace), withNoise = lineTrace(trace, noise.data());
    trace.faults = DemoDead;
    EXPECT_EQ(lineTrace(trace, noise.data()), std::vector<float>(1001, 0.0f));
    trace.faults = DemoZero;
    EXPECT_EQ(lineTrace(trace, noise.data()), std::vector<float>(1001, 0.0f));
    trace.faults = DemoReversed;
    const std::vector<float> reversed = lineTrace(trace, noise.data());
    for (int i = 0; i < 1001; ++i) ASSERT_EQ(reversed[i], -withNoise[i]);
    trace.faults = DemoLate;
    const std::vector<float> late = lineTrace(trace);
    for (int i = 0; i < 993; ++i) ASSERT_EQ(late[i + 8], good[i]);  // 16 ms
    for (int i = 0; i < 8; ++i) ASSERT_EQ(late[i], 0.0f);
    trace.faults = DemoSpike;
    const std::vector<float> spike = lineTrace(trace);
    for (int i = 0; i < 1001; ++i) ASSERT_EQ(spike[i], i == 400 ? 1e4f : good[i]);
    trace.faults = DemoNan;
    const std::vector<float> broken = lineTrace(trace);
    for (int i = 0; i < 1001; ++i) ASSERT_EQ(std::isnan(broken[i]), i >= 500 && i <= 502);
}

TEST(DemoSamples, AnisotropicReflectionsPeakAtTheirTimes)
{
    DemoTrace trace;
    trace.offset = 3000.0;
    std::vector<double> samples(1251, 0.0);
    addEtaSignal(trace, 1251, samples.data());
    // 1.48765855 s: sample 744 is 0.34 ms late; 0.3 times the Ricker there. The second and third are 150 ms off.
    EXPECT_NEAR(samples[744], 0.3 * demoRicker(30.0, 1.488 - 1.48765855), 1e-6);
}

TEST(DemoSamples, ThePatchHasItsReflectionsAtZeroOffset)
{
    DemoTrace trace;
    trace.bin = {2700.0, 0.0};
    std::vector<double> samples(1001, 0.0);
    addPatchSignal(trace, 1001, samples.data());
    EXPECT_NEAR(samples[175], 0.25, 1e-9);   // 0.350 s
    EXPECT_NEAR(samples[660], 0.3, 1e-9);    // 1.350 - 0.030 s on the anticline
    EXPECT_NEAR(samples[525], -0.25, 1e-4);  // 1.050 s; the multiple's foot at 1.120 s is below 1e-15
}
