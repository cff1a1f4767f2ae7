#include "host/signal/zerophasefilter.h"

#include "bothvariants.h"
#include "host/signal/realtransform.h"

#include <cmath>
#include <numbers>
#include <random>

/// Different factors at every frequency, so that none can stand for another.
static std::vector<float> someFactors(int length)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<float> between(0.1f, 2.0f);
    std::vector<float> factors(length / 2 + 1);
    for (float& factor : factors) factor = between(random) / float(length);
    return factors;
}

static std::vector<float> someTrace(int n)
{
    std::mt19937 random(4);
    std::normal_distribution<float> normal;
    std::vector<float> trace(n);
    for (float& v : trace) v = normal(random);
    return trace;
}

// Reference: FFTW's real transform there, the factors, and back.
TEST(ZeroPhaseFilter, MultipliesTheSpectrumAsTheRealTransformDoes)
{
    for (int length : {2, 4, 16, 48, 240, 4000}) {
        SCOPED_TRACE(length);
        const std::vector<float> factors = someFactors(length);
        std::vector<float> trace = someTrace(length);
        const RealTransform& transform = RealTransform::ofLength(length);
        const TransformWork work = TransformWork::ofThread(length);
        std::copy(trace.begin(), trace.end(), work.real);
        transform.forward(work.real, work.spectrum);
        for (int k = 0; k <= length / 2; ++k)
            for (int part = 0; part < 2; ++part) work.spectrum[2 * k + part] *= factors[k];
        transform.back(work.spectrum, work.real);
        ZeroPhaseFilter(factors).apply(trace.data(), length);
        for (int i = 0; i < length; ++i)
            ASSERT_NEAR(trace[i], work.real[i], 1e-5f) << i;  // some dozen roundings of values near 1
    }
}

TEST(ZeroPhaseFilter, ScalesEachFrequencyByItsFactor)
{
    constexpr int length = 64;
    const std::vector<float> factors = someFactors(length);
    for (int k = 0; k <= length / 2; ++k) {
        std::vector<float> trace(length);
        for (int i = 0; i < length; ++i) trace[i] = float(std::cos(2.0 * std::numbers::pi * k * i / length + 0.3));
        const std::vector<float> before = trace;
        ZeroPhaseFilter(factors).apply(trace.data(), length);
        for (int i = 0; i < length; ++i) ASSERT_NEAR(trace[i], before[i] * factors[k] * length, 1e-5f) << k;
    }
}

TEST(ZeroPhaseFilter, CountsWhatIsNotFiniteAndWhatLiesOutsideAsZero)
{
    constexpr int length = 96, n = 40;
    const ZeroPhaseFilter filter(someFactors(length));
    std::vector<float> broken = someTrace(n), padded(length, 0.0f);
    broken[7] = NAN;
    broken[20] = INFINITY;
    std::copy(broken.begin(), broken.end(), padded.begin());
    padded[7] = padded[20] = 0.0f;
    filter.apply(broken.data(), n);
    filter.apply(padded.data(), length);
    for (int i = 0; i < n; ++i) ASSERT_EQ(broken[i], padded[i]) << i;
}

TEST(ZeroPhaseFilter, GivesTheSameBitsOnEveryProcessor)
{
    const ZeroPhaseFilter filter(someFactors(240));
    expectSameBitsInBothVariants([&] {
        std::vector<float> trace = someTrace(200);
        filter.apply(trace.data(), 200);
        return trace;
    });
}
