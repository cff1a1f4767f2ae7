#include "host/numeric/antialias.h"

#include "bothvariants.h"

#include <cmath>
#include <numbers>
#include <random>

static std::vector<float> filtered(float frac, const std::vector<float>& in)
{
    std::vector<float> out(in.size());
    antialias(frac, 0, int(in.size()), in.data(), out.data());
    return out;
}

/// A sine of so many cycles a sample.
static std::vector<float> sine(int n, double frequency, double phase = 0.3)
{
    std::vector<float> trace(n);
    for (int i = 0; i < n; ++i) trace[i] = float(std::sin(2.0 * std::numbers::pi * frequency * i + phase));
    return trace;
}

TEST(Antialias, CopiesWhereNothingIsLost)
{
    const std::vector<float> in = {1, NAN, 3};
    for (float frac : {1.0f, 2.0f, 0.0f, -1.0f, NAN}) {
        const std::vector<float> out = filtered(frac, in);
        EXPECT_TRUE(sameBits(out, in)) << frac;
    }
}

TEST(Antialias, KeepsConstantsToTheEnds)
{
    for (float v : filtered(0.3f, std::vector<float>(500, 2.0f))) EXPECT_NEAR(v, 2.0f, 2e-6f);
    for (float v : filtered(0.01f, std::vector<float>(5, 2.0f))) EXPECT_NEAR(v, 2.0f, 2e-6f);
}

TEST(Antialias, PassesThreeTenthsAndStopsFiftyFiveHundredths)
{
    for (float frac : {0.5f, 0.25f, 0.1f}) {
        SCOPED_TRACE(frac);
        const int n = 2000, edge = 200;
        const std::vector<float> low = sine(n, 0.3 * frac), passed = filtered(frac, low);
        const std::vector<float> stopped = filtered(frac, sine(n, 0.55 * frac));
        for (int i = edge; i < n - edge; ++i) {
            ASSERT_NEAR(passed[i], low[i], 0.01f) << i;  // amplitude and time: no shift
            ASSERT_LT(std::fabs(stopped[i]), 0.01f) << i;
        }
    }
}

TEST(Antialias, AnImpulseGivesASymmetricOperatorOfTheToldLength)
{
    std::vector<float> impulse(301, 0.0f);
    impulse[150] = 1.0f;
    const std::vector<float> h = filtered(0.25f, impulse);
    float sum = 0.0f;
    for (int k = 0; k <= 150; ++k) EXPECT_EQ(h[150 - k], h[150 + k]);
    for (int k = 41; k <= 150; ++k) EXPECT_EQ(h[150 + k], 0.0f);
    EXPECT_NE(h[150 + 40], 0.0f);  // ceil(10 / 0.25)
    for (float v : h) sum += v;
    EXPECT_NEAR(sum, 1.0f, 1e-6f);
    // Ideal low-pass 2 fc at its centre, fc = 0.425 x 0.25; the window's gain changes it by less than 1 %.
    EXPECT_NEAR(h[150], 2.0 * 0.425 * 0.25, 0.01 * 0.2125);
}

TEST(Antialias, EndSamplesAreRepeatedOutwards)
{
    std::vector<float> step(400, 1.0f);
    for (int i = 200; i < 400; ++i) step[i] = 3.0f;
    const std::vector<float> out = filtered(0.25f, step);
    EXPECT_NEAR(out.front(), 1.0f, 1e-6f);
    EXPECT_NEAR(out.back(), 3.0f, 1e-6f);
}

TEST(Antialias, SamplesThatAreNotFiniteCountAsZero)
{
    std::vector<float> broken = sine(200, 0.02), zeroed = broken;
    broken[70] = NAN;
    broken[199] = INFINITY;
    zeroed[70] = zeroed[199] = 0.0f;
    EXPECT_EQ(filtered(0.4f, broken), filtered(0.4f, zeroed));
}

TEST(Antialias, WorksInPlace)
{
    std::vector<float> trace = sine(300, 0.05);
    const std::vector<float> expected = filtered(0.4f, trace);
    antialias(0.4f, 0, 300, trace.data(), trace.data());
    EXPECT_EQ(trace, expected);
}

TEST(Antialias, GivesTheSameBitsOnEveryProcessor)
{
    std::mt19937 random(2);
    std::vector<float> trace(1234);
    for (float& v : trace) v = float(random() % 2001) - 1000.0f;
    expectSameBitsInBothVariants([&] { return filtered(0.37f, trace); });
}
