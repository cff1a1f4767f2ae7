#include "host/signal/orvinphaseshift.h"

#include "bothvariants.h"
#include "host/signal/npfar.h"

#include <cmath>
#include <numbers>
#include <random>

static std::vector<float> turned(std::vector<float> trace, float angle)
{
    OrvinPhaseShift(int(trace.size()), angle).applyPhaseShift(trace.data(), int(trace.size()));
    return trace;
}

/// A Ricker wavelet of 30 Hz at 2 ms around a sample.
static std::vector<float> ricker(int n, double centre)
{
    std::vector<float> trace(n);
    for (int i = 0; i < n; ++i) {
        const double a = std::numbers::pi * 30.0 * (i - centre) * 0.002;
        trace[i] = float((1.0 - 2.0 * a * a) * std::exp(-a * a));
    }
    return trace;
}

static double energy(const std::vector<float>& trace)
{
    double sum = 0.0;
    for (float v : trace) sum += double(v) * v;
    return sum;
}

TEST(OrvinPhaseShift, PlusNinetyTurnsACosineIntoMinusSine)
{
    std::vector<float> trace(1000);
    const double step = 2.0 * std::numbers::pi / 25.0;
    // Under a slow bell, for an abrupt end has all frequencies.
    const auto bell = [](int i) { return std::exp(-std::pow((i - 500) / 120.0, 2)); };
    for (int i = 0; i < 1000; ++i) trace[i] = float(bell(i) * std::cos(step * i));
    const std::vector<float> out = turned(trace, 90.0f), back = turned(trace, -90.0f);
    for (int i = 0; i < 1000; ++i) {
        ASSERT_NEAR(out[i], -bell(i) * std::sin(step * i), 1e-4) << i;
        ASSERT_NEAR(back[i], bell(i) * std::sin(step * i), 1e-4) << i;
    }
}

TEST(OrvinPhaseShift, ThirtyDegreesAddToThePhase)
{
    std::vector<float> trace(1000);
    const double step = 2.0 * std::numbers::pi / 25.0, angle = std::numbers::pi / 6.0;
    const auto bell = [](int i) { return std::exp(-std::pow((i - 500) / 120.0, 2)); };
    for (int i = 0; i < 1000; ++i) trace[i] = float(bell(i) * std::cos(step * i));
    const std::vector<float> out = turned(trace, 30.0f);
    for (int i = 0; i < 1000; ++i) ASSERT_NEAR(out[i], bell(i) * std::cos(step * i + angle), 1e-4) << i;
}

TEST(OrvinPhaseShift, ARickerBecomesAnOddWavelet)
{
    const std::vector<float> out = turned(ricker(801, 400), 90.0f);
    EXPECT_NEAR(out[400], 0.0f, 1e-5f);
    for (int k = 1; k < 300; ++k) ASSERT_NEAR(out[400 + k], -out[400 - k], 1e-4f) << k;
    EXPECT_GT(std::fabs(out[405]), 0.5f);
}

TEST(OrvinPhaseShift, ThereAndBackRestoresTheTrace)
{
    const std::vector<float> in = ricker(1001, 500), out = turned(turned(in, 30.0f), -30.0f);
    for (int i = 100; i < 900; ++i) ASSERT_NEAR(out[i], in[i], 1e-4f) << i;
}

TEST(OrvinPhaseShift, KeepsTheEnergy)
{
    const std::vector<float> in = ricker(1001, 500);
    for (float angle : {30.0f, 90.0f, 200.0f}) EXPECT_NEAR(energy(turned(in, angle)), energy(in), 0.01 * energy(in));
}

TEST(OrvinPhaseShift, TwoQuartersAreAHalf)
{
    const std::vector<float> in = ricker(1001, 500), twice = turned(turned(in, 90.0f), 90.0f);
    for (int i = 100; i < 900; ++i) ASSERT_NEAR(twice[i], -in[i], 1e-4f) << i;
}

TEST(OrvinPhaseShift, ZeroIsTheIdentityAndAHalfTurnTheExactNegative)
{
    const std::vector<float> in = {1.25f, -3.0f, 0.0f, 1e-30f, 7e20f};
    for (float angle : {0.0f, 360.0f, -720.0f, NAN, INFINITY}) EXPECT_EQ(turned(in, angle), in);
    for (float angle : {180.0f, -180.0f, 540.0f}) {
        const std::vector<float> out = turned(in, angle);
        for (size_t i = 0; i < in.size(); ++i) EXPECT_EQ(out[i], -in[i]);
    }
}

TEST(OrvinPhaseShift, TheAngleCountsModulo360)
{
    const std::vector<float> in = ricker(200, 100);
    EXPECT_EQ(turned(in, 400.0f), turned(in, 40.0f));
    EXPECT_EQ(turned(in, -320.0f), turned(in, 40.0f));
}

TEST(OrvinPhaseShift, TheSpectrumReadsTheAngle)
{
    const int n = 1008;
    const std::vector<float> in = ricker(n, 500), out = turned(in, 40.0f);
    std::vector<float> before(n + 2), after(n + 2);
    pfarc(-1, n, in.data(), before.data());
    pfarc(-1, n, out.data(), after.data());
    for (int k = 30; k < 120; k += 7) {  // 15 to 60 Hz
        const double change = std::atan2(after[2 * k + 1], after[2 * k]) - std::atan2(before[2 * k + 1], before[2 * k]);
        const double degrees = std::remainder(change * 180.0 / std::numbers::pi, 360.0);
        EXPECT_NEAR(degrees, 40.0, 0.2) << k;
    }
}

TEST(OrvinPhaseShift, TheMeanAndNyquistTakeTheCosineOnly)
{
    // Half a trace of ones: the mean of the padded trace is 1/2, and its share of the result is cos(60).
    const std::vector<float> zeros(64, 0.0f);
    EXPECT_EQ(turned(zeros, 60.0f), zeros);
    std::vector<float> impulse(64, 0.0f);
    impulse[32] = 1.0f;
    // The Hilbert transform of an impulse is 0 at the impulse, so cos(60) is left.
    EXPECT_NEAR(turned(impulse, 60.0f)[32], 0.5f, 1e-6f);
}

TEST(OrvinPhaseShift, SamplesThatAreNotFiniteCountAsZeroAndLengthsMayDiffer)
{
    std::vector<float> broken = ricker(300, 150), zeroed = broken;
    broken[10] = NAN;
    zeroed[10] = 0.0f;
    OrvinPhaseShift shift(1000, 30.0f);
    shift.applyPhaseShift(broken.data(), 300);
    EXPECT_EQ(broken, turned(zeroed, 30.0f));
    shift.setAngle(180.0f);
    std::vector<float> bad = {NAN, 1.0f};
    shift.applyPhaseShift(bad.data(), 2);
    EXPECT_EQ(bad, (std::vector<float>{0.0f, -1.0f}));
}

TEST(OrvinPhaseShift, GivesTheSameBitsOnEveryProcessor)
{
    std::mt19937 random(3);
    std::vector<float> trace(501);
    for (float& v : trace) v = float(random() % 1000) - 500.0f;
    expectSameBitsInBothVariants([&] { return turned(trace, 77.0f); });
}
