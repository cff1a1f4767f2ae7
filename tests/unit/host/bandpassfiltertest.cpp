#include "host/signal/bandpassfilter.h"

#include "bothvariants.h"

#include <cmath>
#include <functional>
#include <numbers>
#include <random>
#include <thread>

constexpr double pi = std::numbers::pi;

struct Band {
    float lc, lp, hp, hc;
};
constexpr Band usual = {4, 12, 50, 60};

static std::vector<float> filtered(std::vector<float> trace, Band b, bool timeDomain, float sampleRate = 2.0f)
{
    BandPassFilter filter(0, 0, 0, 0.02f, b.lc, b.lp, b.hp, b.hc, int(trace.size()), sampleRate);
    filter.setTimeDomain(timeDomain);
    filter.buildFilter(b.lc, b.lp, b.hp, b.hc);
    filter.applyFilter(trace.data(), int(trace.size()));
    return trace;
}

static std::vector<float> impulseAt(int n, int place)
{
    std::vector<float> trace(n, 0.0f);
    trace[place] = 1.0f;
    return trace;
}

static std::vector<float> sine(int n, double frequency)
{
    std::vector<float> trace(n);
    for (int i = 0; i < n; ++i) trace[i] = float(std::sin(2.0 * pi * frequency * i * 0.002 + 0.5));
    return trace;
}

/// Gain of a symmetric response around `centre` at f in Hz, 2 ms.
static double gainAt(const std::vector<float>& h, int centre, double f)
{
    double sum = 0.0;
    for (size_t i = 0; i < h.size(); ++i) sum += h[i] * std::cos(2.0 * pi * f * 0.002 * (double(i) - centre));
    return sum;
}

static double trapezoid(double f)
{
    return f < 4 ? 0 : f < 12 ? (f - 4) / 8 : f <= 50 ? 1 : f < 60 ? (60 - f) / 10 : 0;
}

// Ryan's formula for ordered corners, in samples of 2 ms.
static double ormsby(double t)
{
    const auto sinc2 = [t](double f) {
        const double u = pi * f * t, s = u == 0 ? 1 : std::sin(u) / u;
        return s * s;
    };
    const double lc = 4, lp = 12, hp = 50, hc = 60;
    return 0.002 * (hc * hc / (hc - hp) * sinc2(hc) - hp * hp / (hc - hp) * sinc2(hp) -
                    lp * lp / (lp - lc) * sinc2(lp) + lc * lc / (lp - lc) * sinc2(lc));
}

TEST(BandPassFilter, AnImpulseShowsTheTrapezoid)
{
    const std::vector<float> frequency = filtered(impulseAt(2001, 1000), usual, false);
    const std::vector<float> time = filtered(impulseAt(2001, 1000), usual, true);
    for (double f = 0.5; f < 240; f += 0.75) {
        ASSERT_NEAR(gainAt(frequency, 1000, f), trapezoid(f), 0.01) << f;
        ASSERT_NEAR(gainAt(time, 1000, f), trapezoid(f), 0.03) << f;
    }
    EXPECT_NEAR(gainAt(time, 1000, 31.0), 1.0, 1e-4);  // mid-band is scaled to 1
}

TEST(BandPassFilter, AnImpulseGivesThePublishedOperator)
{
    const std::vector<float> out = filtered(impulseAt(2001, 1000), usual, false);
    const double peak = ormsby(0);
    EXPECT_NEAR(peak, 0.002 * (360 - 250 - 18 + 2), 1e-12);
    for (int k = -400; k <= 400; ++k) ASSERT_NEAR(out[1000 + k], ormsby(0.002 * k), 1e-4 * peak) << k;
}

TEST(BandPassFilter, IsSymmetricAboutTheImpulse)
{
    for (bool timeDomain : {false, true}) {
        const std::vector<float> out = filtered(impulseAt(1001, 500), usual, timeDomain);
        for (int k = 1; k <= 500; ++k) ASSERT_NEAR(out[500 - k], out[500 + k], 1e-7f) << k;
    }
}

TEST(BandPassFilter, NothingComesRoundFromOneEndToTheOther)
{
    for (bool timeDomain : {false, true}) {
        const std::vector<float> out = filtered(impulseAt(1001, 0), usual, timeDomain);
        for (int i = 900; i <= 1000; ++i) ASSERT_NEAR(out[i], 0.0f, 1e-3f * out[0]) << i;
    }
}

// Half length 2/(0.002 x 8) = 125 samples: behind it the time-domain operator is 0 but for rounding.
TEST(BandPassFilter, TheTimeOperatorEndsAtItsHalfLength)
{
    const std::vector<float> out = filtered(impulseAt(1001, 500), usual, true);
    for (int k = 126; k <= 500; ++k) ASSERT_NEAR(out[500 + k], 0.0f, 1e-7f) << k;
    EXPECT_GT(std::fabs(out[500 + 90]), 1e-6f);
    const BandPassCorners corners = {4, 12, 50, 60, 0.002};
    EXPECT_EQ(corners.halfLength(1001), 125);
    EXPECT_EQ(corners.halfLength(80), 80);
    EXPECT_EQ((BandPassCorners{0, 0, 50, 60, 0.002}.halfLength(1001)), 100);
    EXPECT_EQ((BandPassCorners{12, 12, 50, 60, 0.002}.halfLength(5000)), 1000);  // a step counts as 1 Hz
}

TEST(BandPassFilter, PassesThirtyHertzAndStopsTwoAndEighty)
{
    for (bool timeDomain : {false, true}) {
        SCOPED_TRACE(timeDomain);
        const std::vector<float> wanted = sine(2000, 30), passed = filtered(wanted, usual, timeDomain);
        const std::vector<float> low = filtered(sine(2000, 2), usual, timeDomain);
        const std::vector<float> high = filtered(sine(2000, 80), usual, timeDomain);
        for (int i = 500; i < 1500; ++i) {
            ASSERT_NEAR(passed[i], wanted[i], 0.01f) << i;
            ASSERT_LT(std::fabs(low[i]), 0.01f) << i;  // -40 dB
            ASSERT_LT(std::fabs(high[i]), 0.01f) << i;
        }
    }
}

TEST(BandPassFilter, BothDomainsAgree)
{
    const std::vector<float> a = filtered(impulseAt(1001, 500), usual, false);
    const std::vector<float> b = filtered(impulseAt(1001, 500), usual, true);
    for (int i = 0; i < 1001; ++i) ASSERT_NEAR(a[i], b[i], 0.03f * a[500]) << i;
}

TEST(BandPassFilter, TheTimeDomainIsAConvolutionWithItsOperator)
{
    const int n = 400, half = 125;
    const std::vector<float> h = filtered(impulseAt(n, 200), usual, true);
    std::mt19937 random(4);
    std::vector<float> trace(n);
    for (float& v : trace) v = float(random() % 2001) / 1000.0f - 1.0f;
    const std::vector<float> out = filtered(trace, usual, true);
    for (int i = 0; i < n; ++i) {
        double sum = 0.0;
        for (int k = -half; k <= half; ++k)
            if (i - k >= 0 && i - k < n) sum += double(h[200 + k]) * trace[i - k];
        ASSERT_NEAR(out[i], sum, 2e-6) << i;
    }
}

TEST(BandPassFilter, TheMeanPassesOnlyWithoutALowCut)
{
    const std::vector<float> ones(1000, 1.0f);
    const std::vector<float> open = filtered(ones, {0, 0, 50, 60}, false), cut = filtered(ones, usual, false);
    EXPECT_NEAR(open[500], 1.0f, 0.01f);
    EXPECT_NEAR(cut[500], 0.0f, 0.02f);
}

TEST(BandPassFilter, AnOpenBandIsTheIdentity)
{
    const std::vector<float> trace = sine(500, 33);
    for (bool timeDomain : {false, true}) {
        const std::vector<float> out = filtered(trace, {0, 0, 250, 250}, timeDomain);
        for (int i = 0; i < 500; ++i) ASSERT_NEAR(out[i], trace[i], 2e-6f);
    }
}

// Gains by hand from the rule, for corners in and out of order.
TEST(BandPassCorners, TheGainHoldsForCornersInAnyOrder)
{
    const struct {
        BandPassCorners corners;
        double f, gain;
    } cases[] = {
        {{4, 12, 50, 60, 0.002}, 8, 0.5},  {{4, 12, 50, 60, 0.002}, 55, 0.5},   {{4, 12, 50, 60, 0.002}, 0, 0},
        {{12, 4, 50, 60, 0.002}, 3.9, 0},  {{12, 4, 50, 60, 0.002}, 4, 1},      {{4, 12, 60, 50, 0.002}, 60, 1},
        {{4, 12, 60, 50, 0.002}, 60.1, 0}, {{4, 12, 50, 250, 0.002}, 250, 0},   {{4, 12, 250, 250, 0.002}, 250, 1},
        {{0, 0, 50, 60, 0.002}, 0, 1},     {{10, 50, 20, 40, 0.002}, 30, 0.25}, {{60, 80, 10, 20, 0.002}, 40, 0},
    };
    for (const auto& c : cases) EXPECT_DOUBLE_EQ(c.corners.gain(c.f), c.gain) << c.f;
}

TEST(BandPassFilter, AnEmptyBandGivesZeros)
{
    for (bool timeDomain : {false, true})
        for (float v : filtered(sine(300, 30), {60, 80, 10, 20}, timeDomain)) ASSERT_EQ(v, 0.0f);
}

TEST(BandPassFilter, CornersOutsideTheRangeAreClamped)
{
    const std::vector<float> trace = sine(300, 30);
    EXPECT_EQ(filtered(trace, {-5, -1, 300, 400}, false), filtered(trace, {0, 0, 250, 250}, false));
    EXPECT_EQ(filtered(trace, {NAN, NAN, 50, 60}, false), filtered(trace, {0, 0, 50, 60}, false));
}

TEST(BandPassFilter, SamplesThatAreNotFiniteCountAsZero)
{
    std::vector<float> broken = sine(300, 30), zeroed = broken;
    broken[7] = INFINITY;
    broken[8] = NAN;
    zeroed[7] = zeroed[8] = 0.0f;
    EXPECT_EQ(filtered(broken, usual, false), filtered(zeroed, usual, false));
}

TEST(BandPassFilter, TakesTracesOfAnotherLengthAndNewCorners)
{
    const std::vector<float> trace = sine(333, 30);
    BandPassFilter filter(0, 0, 0, 0.02f, 1, 2, 3, 4, 1000, 2.0f);
    std::vector<float> out = trace;
    filter.applyFilter(out.data(), 333);
    EXPECT_EQ(out, filtered(trace, {1, 2, 3, 4}, false));
    filter.buildFilter(4, 12, 50, 60);
    out = trace;
    filter.applyFilter(out.data(), 333);
    EXPECT_EQ(out, filtered(trace, usual, false));
}

TEST(BandPassFilter, RunsInSeveralThreadsOnTracesOfTheirOwn)
{
    const BandPassFilter filter(0, 0, 0, 0.02f, 4, 12, 50, 60, 700, 2.0f);
    std::vector<std::vector<float>> traces;
    for (int t = 0; t < 6; ++t) traces.push_back(sine(t % 2 ? 700 : 555, 10.0 + 5.0 * t));
    std::vector<std::vector<float>> alone = traces;
    for (auto& trace : alone) filter.applyFilter(trace.data(), int(trace.size()));
    {
        std::vector<std::jthread> threads;
        for (auto& trace : traces)
            threads.emplace_back([&filter, &trace] { filter.applyFilter(trace.data(), int(trace.size())); });
    }
    EXPECT_EQ(traces, alone);
}

TEST(BandPassFilter, GivesTheSameBitsOnEveryProcessor)
{
    std::mt19937 random(9);
    std::vector<float> trace(777);
    for (float& v : trace) v = float(random() % 1000) - 500.0f;
    for (bool timeDomain : {false, true})
        expectSameBitsInBothVariants([&] { return filtered(trace, usual, timeDomain); });
}
