#include "host/signal/orvinagc.h"

#include "bothvariants.h"

#include <cmath>
#include <numbers>
#include <random>

static std::vector<float> gained(std::vector<float> trace, int windowMs, float sampleRate = 2.0f)
{
    OrvinAGC(int(trace.size()), windowMs, sampleRate).applyAGC(trace.data(), int(trace.size()));
    return trace;
}

static std::vector<float> randomTrace(int n, unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<float> trace(n);
    for (float& v : trace) v = float(int(random() % 20001) - 10000) / 3000.0f + 0.0001f;
    return trace;
}

/// The definition, sample by sample.
static std::vector<float> plainAgc(const std::vector<float>& x, int half)
{
    const int n = int(x.size());
    const auto live = [&](int i) { return std::isfinite(x[i]) && x[i] != 0.0f; };
    double all = 0.0;
    int nAll = 0;
    for (int i = 0; i < n; ++i)
        if (live(i)) all += std::fabs(x[i]), ++nAll;
    std::vector<float> y(n, 0.0f);
    for (int i = 0; i < n; ++i) {
        if (!live(i)) continue;
        double sum = 0.0;
        int count = 0;
        for (int k = std::max(0, i - half); k <= std::min(n - 1, i + half); ++k)
            if (live(k)) sum += std::fabs(x[k]), ++count;
        y[i] = float(x[i] / std::max(sum / count, 1e-6 * all / nAll));
    }
    return y;
}

/// Within a few roundings of a float.
static void expectClose(const std::vector<float>& a, const std::vector<float>& b)
{
    ASSERT_EQ(a.size(), b.size());
    for (size_t i = 0; i < a.size(); ++i) ASSERT_NEAR(a[i], b[i], 4e-7f * std::fabs(b[i])) << i;
}

TEST(OrvinAGC, AConstantBecomesItsSignEverywhere)
{
    for (float v : gained(std::vector<float>(700, 17.0f), 500)) EXPECT_NEAR(v, 1.0f, 2e-7f);
    for (float v : gained(std::vector<float>(700, -0.3f), 500)) EXPECT_NEAR(v, -1.0f, 2e-7f);
}

TEST(OrvinAGC, ASineGetsTheAmplitudeHalfPi)
{
    // 25 Hz at 2 ms: 20 samples a period. The mean of |sin| over the window's 251 samples is 2/pi but for
    // the sampling (mean of |sin| at 20 phases is 0.2 % low) and the one sample beyond whole periods.
    std::vector<float> trace(1000);
    for (int i = 0; i < 1000; ++i) trace[i] = 5.0f * float(std::sin(2.0 * std::numbers::pi * (i + 0.25) / 20.0));
    const std::vector<float> out = gained(trace, 500);
    float peak = 0.0f;
    for (int i = 300; i < 700; ++i) peak = std::max(peak, std::fabs(out[i]));
    const double largestPhase =
        std::sin(2.0 * std::numbers::pi * 4.75 / 20.0);  // nearest the crest: 0.25 of a sample off
    EXPECT_NEAR(peak / largestPhase, std::numbers::pi / 2.0, 0.01);
}

TEST(OrvinAGC, FollowsTheDefinition)
{
    for (int n : {1, 2, 3, 4, 7, 250, 251, 252, 777}) {
        SCOPED_TRACE(n);
        const std::vector<float> trace = randomTrace(n, 3);
        // 100 ms at 2 ms: h = floor(100/4 + 0.5) = 25; a shorter trace has one window.
        expectClose(gained(trace, 100), plainAgc(trace, 100.0f > 2.0f * float(n) ? n : 25));
    }
}

TEST(OrvinAGC, RoundsTheHalfWindowAndKeepsItAboveZero)
{
    const std::vector<float> trace = randomTrace(100, 4);
    expectClose(gained(trace, 6), plainAgc(trace, 2));         // 1.5 + 0.5
    expectClose(gained(trace, 5), plainAgc(trace, 1));         // 1.25 + 0.5
    expectClose(gained(trace, 1), plainAgc(trace, 1));         // 0.25 + 0.5, at least 1
    expectClose(gained(trace, 1, 0.25f), plainAgc(trace, 2));  // 2 + 0.5
}

TEST(OrvinAGC, NoWindowOrOneBeyondTheTraceIsOneWindowOverAll)
{
    const std::vector<float> trace = randomTrace(50, 5);
    for (int windowMs : {0, -10, 101, 1000000}) expectClose(gained(trace, windowMs), plainAgc(trace, 50));
    expectClose(gained(trace, 40, 0.0f), plainAgc(trace, 50));
    expectClose(gained(trace, 40, NAN), plainAgc(trace, 50));
}

TEST(OrvinAGC, ScaleDoesNotMatter)
{
    const std::vector<float> trace = randomTrace(600, 6), reference = gained(trace, 200);
    for (float scale : {1e9f, 1e-9f, 1e30f, 1e-30f}) {
        std::vector<float> scaled = trace;
        for (float& v : scaled) v *= scale;
        expectClose(gained(scaled, 200), reference);
    }
}

TEST(OrvinAGC, AMutedHeadStaysZeroAndCountsNowhere)
{
    std::vector<float> trace = randomTrace(500, 7);
    std::fill(trace.begin(), trace.begin() + 120, 0.0f);
    const std::vector<float> out = gained(trace, 200);
    for (int i = 0; i < 120; ++i) EXPECT_EQ(out[i], 0.0f);
    const std::vector<float> cut = gained(std::vector<float>(trace.begin() + 120, trace.end()), 200);
    EXPECT_TRUE(std::equal(cut.begin(), cut.end(), out.begin() + 120));
}

TEST(OrvinAGC, DeadSamplesInsideStayZeroAndDontCount)
{
    std::vector<float> trace = randomTrace(400, 8);
    for (int i : {50, 51, 200, 399}) trace[i] = 0.0f;
    for (int i : {90, 300}) trace[i] = NAN;
    trace[301] = -INFINITY;
    const std::vector<float> out = gained(trace, 60);
    for (int i : {50, 51, 200, 399, 90, 300, 301}) EXPECT_EQ(out[i], 0.0f);
    expectClose(out, plainAgc(trace, 15));
}

TEST(OrvinAGC, OneSpikeDimsItsWindowOnly)
{
    std::vector<float> trace(1000, 1.0f);
    trace[500] = 1e6f;
    const std::vector<float> out = gained(trace, 100);  // h = 25
    EXPECT_NEAR(out[474], 1.0f, 1e-6f);
    EXPECT_NEAR(out[526], 1.0f, 1e-6f);
    EXPECT_LT(out[475], 1e-3f);
    EXPECT_LT(out[525], 1e-3f);
}

TEST(OrvinAGC, WeakPartsAreRaisedToTheFloorOnly)
{
    // Mean of the whole trace: about 0.5; the floor 1e-6 of it is 5e-7, above the quiet half's 1e-9.
    std::vector<float> trace(1000, 1.0f);
    for (int i = 500; i < 1000; ++i) trace[i] = 1e-9f;
    const std::vector<float> out = gained(trace, 20);
    EXPECT_NEAR(out[900], 1e-9f / 5e-7f, 1e-6f);
}

TEST(OrvinAGC, AnEmptyOrAllZeroTraceComesBackAsItIs)
{
    EXPECT_EQ(gained(std::vector<float>(100, 0.0f), 20), std::vector<float>(100, 0.0f));
    OrvinAGC(0, 20, 2.0f).applyAGC(nullptr, 0);
    EXPECT_EQ(gained({NAN, INFINITY, NAN}, 20), std::vector<float>(3, 0.0f));
}

TEST(OrvinAGC, TakesTracesOfAnotherLengthAndANewWindow)
{
    const std::vector<float> trace = randomTrace(300, 9);
    OrvinAGC agc(1000, 500, 2.0f);
    agc.setWindowLength(100);
    std::vector<float> out = trace;
    agc.applyAGC(out.data(), 300);
    expectClose(out, plainAgc(trace, 25));
}

TEST(OrvinAGC, GivesTheSameBitsOnEveryProcessor)
{
    for (bool broken : {false, true}) {
        std::vector<float> trace = randomTrace(1003, 10);
        if (broken) trace[17] = trace[500] = 0.0f;
        for (int windowMs : {0, 7, 500}) expectSameBitsInBothVariants([&] { return gained(trace, windowMs); });
    }
}
