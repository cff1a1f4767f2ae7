#include "display/raster/traceconditioner.h"

#include "host/cpuvariant.h"
#include "host/signal/bandpassfilter.h"
#include "host/signal/orvinagc.h"
#include "host/signal/orvinphaseshift.h"
#include "tracedata/orvinconstants.h"
#include "tracedata/seismicdata.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include <omp.h>

/// An ensemble whose traces are given.
struct Ensemble {
    explicit Ensemble(std::vector<std::vector<float>> traces) : values(std::move(traces))
    {
        for (std::vector<float>& trace : values) {
            pointers.push_back(trace.data());
            headers.push_back(words);
        }
        data.setNumHeaderWords(1);
        data.setSampleRate(2.0f);
        data.loadAllTraces(pointers.data(), headers.data(), int(values.front().size()), int(values.size()));
    }
    std::vector<std::vector<float>> values;
    int words[1] = {0};
    std::vector<float*> pointers;
    std::vector<int*> headers;
    SeismicData data;
};

static std::vector<std::vector<float>> noise(int nTraces, int nSamples)
{
    std::mt19937 random(11);
    std::normal_distribution<float> normal;
    std::vector<std::vector<float>> traces(nTraces, std::vector<float>(nSamples));
    for (auto& trace : traces)
        for (float& v : trace) v = normal(random);
    return traces;
}

TEST(TraceConditioner, MeasuresTwiceTheMeanAbsoluteAmplitude)
{
    Ensemble ensemble({{1, -2, 3, -4, 0, 0, 0}, {10, 10, -10, 10, NAN, INFINITY, -INFINITY}});
    TraceConditioner conditioner;
    conditioner.computeNormalizer(ensemble.data);
    EXPECT_FLOAT_EQ(conditioner.divTrace()[0], 5.0f);  // 2 times 10 / 4
    EXPECT_FLOAT_EQ(conditioner.divTrace()[1], 20.0f);
    EXPECT_FLOAT_EQ(conditioner.divRecord(), 12.5f);
    EXPECT_FLOAT_EQ(conditioner.rms(), 6.25f);  // mean of 2.5 and 10
    EXPECT_EQ(conditioner.countedTraces(), 2);
    EXPECT_EQ(conditioner.minimum(), -10.0f);
    EXPECT_EQ(conditioner.maximum(), 10.0f);
}

TEST(TraceConditioner, ATraceOfThreeSamplesDoesNotCountButItsExtremesDo)
{
    Ensemble ensemble({{7, 0, -8, 0, 9}, {1, 1, 1, 1, 0}});
    TraceConditioner conditioner;
    conditioner.computeNormalizer(ensemble.data);
    EXPECT_EQ(conditioner.divTrace()[0], 0.0f);
    EXPECT_EQ(conditioner.divTrace()[1], 2.0f);
    EXPECT_EQ(conditioner.countedTraces(), 1);
    EXPECT_EQ(conditioner.divRecord(), 2.0f);
    EXPECT_EQ(conditioner.minimum(), -8.0f);
    EXPECT_EQ(conditioner.maximum(), 9.0f);
}

TEST(TraceConditioner, AllZeroDataGiveNoDivisors)
{
    Ensemble ensemble({{0, 0, 0, 0, 0}, {0, NAN, 0, 0, 0}});
    TraceConditioner conditioner;
    conditioner.computeNormalizer(ensemble.data);
    EXPECT_EQ(conditioner.divTrace()[0], 0.0f);
    EXPECT_EQ(conditioner.divTrace()[1], 0.0f);
    EXPECT_EQ(conditioner.divRecord(), 0.0f);
    EXPECT_EQ(conditioner.rms(), 0.0f);
    EXPECT_EQ(conditioner.countedTraces(), 0);
}

TEST(TraceConditioner, ATraceWhoseSquaresVanishCountsWithoutAddingToTheMean)
{
    Ensemble ensemble({{1e-30f, 1e-30f, 1e-30f, 1e-30f}, {2, 2, 2, 2}});
    TraceConditioner conditioner;
    conditioner.computeNormalizer(ensemble.data);
    EXPECT_FLOAT_EQ(conditioner.divTrace()[0], 2e-30f);
    EXPECT_FLOAT_EQ(conditioner.rms(), 1.0f);  // 2 over two traces
}

TEST(TraceConditioner, AnEmptyEnsembleIsHarmless)
{
    SeismicData data;
    TraceConditioner conditioner;
    conditioner.applyAGC(true, 500);
    conditioner.computeNormalizer(data);
    EXPECT_EQ(conditioner.countedTraces(), 0);
    EXPECT_EQ(conditioner.minimum(), nullValue);
    EXPECT_EQ(conditioner.maximum(), -nullValue);
}

TEST(TraceConditioner, MeasuresAsAPlainLoopAtEveryLength)
{
    std::mt19937 random(2);
    for (int n = 0; n < 70; ++n) {
        std::vector<float> trace(n);
        for (float& v : trace)
            v = random() % 4 == 0 ? 0.0f : random() % 9 == 0 ? NAN : float(int(random() % 2001) - 1000);
        int count = 0;
        double sum = 0.0;
        float least = 3.4e38f, largest = -3.4e38f;
        for (float v : trace) {
            if (v == 0.0f || !std::isfinite(v)) continue;
            ++count;
            sum += std::fabs(v);
            least = std::min(least, v);
            largest = std::max(largest, v);
        }
        const TraceMeasure measure = measureTrace(trace.data(), n);
        EXPECT_EQ(measure.n, count) << n;
        EXPECT_EQ(measure.sum1, sum) << n;  // whole numbers: exact in any order
        EXPECT_EQ(measure.sum2, sum) << n;
        EXPECT_EQ(measure.minimum, least) << n;
        EXPECT_EQ(measure.maximum, largest) << n;
    }
}

TEST(TraceConditioner, ConditionsInTheOrderPhaseBandPassGainControl)
{
    Ensemble ensemble(noise(3, 300));
    TraceConditioner conditioner;
    conditioner.applyAGC(true, 100);
    conditioner.applyPhase(true, 60.0f);
    conditioner.applyFilter(true, 4, 12, 50, 60, false);
    conditioner.computeNormalizer(ensemble.data);

    OrvinPhaseShift phase(300, 60.0f);
    BandPassFilter filter(0, 0, 0, 0.02f, 4, 12, 50, 60, 300, 2.0f);
    filter.setTimeDomain(false);
    filter.buildFilter(4, 12, 50, 60);
    OrvinAGC agc(300, 100, 2.0f);
    for (int i = 0; i < 3; ++i) {
        std::vector<float> trace = ensemble.values[i];
        phase.applyPhaseShift(trace.data(), 300);
        filter.applyFilter(trace.data(), 300);
        agc.applyAGC(trace.data(), 300);
        const float* const got = conditioner.samples() + i * 300;
        EXPECT_TRUE(std::equal(trace.begin(), trace.end(), got)) << i;
        std::vector<float> alone = ensemble.values[i];
        conditioner.applyProcessing(alone.data(), 300, 300, 2.0f);
        EXPECT_EQ(alone, trace) << i;
    }
}

TEST(TraceConditioner, TheDataStayAsTheyAre)
{
    const auto original = noise(2, 100);
    Ensemble ensemble(original);
    TraceConditioner conditioner;
    conditioner.applyAGC(true, 50);
    conditioner.computeNormalizer(ensemble.data);
    EXPECT_EQ(ensemble.values, original);
    EXPECT_NE(conditioner.samples()[0], original[0][0]);
    conditioner.applyAGC(false, 50);
    conditioner.computeNormalizer(ensemble.data);
    EXPECT_EQ(conditioner.samples()[0], original[0][0]);
}

TEST(TraceConditioner, ANewSettingAndDataOfAnotherLengthAndRateTakeEffect)
{
    Ensemble first(noise(1, 200)), second(noise(1, 333));
    second.data.setSampleRate(4.0f);
    TraceConditioner used;
    used.applyAGC(true, 50);
    used.applyPhase(true, 30.0f);
    used.applyFilter(true, 1, 2, 30, 40, true);
    used.computeNormalizer(first.data);
    used.applyAGC(true, 80);
    used.applyPhase(true, 90.0f);
    used.applyFilter(true, 4, 12, 50, 60, false);
    used.computeNormalizer(second.data);
    TraceConditioner fresh;
    fresh.applyAGC(true, 80);
    fresh.applyPhase(true, 90.0f);
    fresh.applyFilter(true, 4, 12, 50, 60, false);
    fresh.computeNormalizer(second.data);
    EXPECT_TRUE(std::equal(fresh.samples(), fresh.samples() + 333, used.samples()));
}

TEST(TraceConditioner, BothProcessorVariantsAndAnyNumberOfThreadsGiveTheSameBits)
{
    auto traces = noise(220, 501);  // large enough to be shared out
    traces[2][17] = NAN;
    Ensemble ensemble(traces);
    const int threads = omp_get_max_threads();
    std::vector<float> wanted;
    for (CpuVariant variant : {CpuVariant::Plain, CpuVariant::V3})
        for (int n : {1, 2, 3}) {
            omp_set_num_threads(n);
            useCpuVariant(variant);
            TraceConditioner conditioner;
            conditioner.applyAGC(true, 100);
            conditioner.applyFilter(true, 4, 12, 50, 60, false);
            conditioner.computeNormalizer(ensemble.data);
            std::vector<float> got(conditioner.samples(), conditioner.samples() + 220 * 501);
            got.insert(got.end(), conditioner.divTrace(), conditioner.divTrace() + 220);
            got.push_back(conditioner.divRecord());
            got.push_back(conditioner.rms());
            if (wanted.empty()) wanted = got;
            EXPECT_EQ(got, wanted) << n;
        }
    useCpuVariant(CpuVariant::V3);
    omp_set_num_threads(threads);
}

TEST(MeasureTrace, EachSampleCountsWhereverItStands)
{
    // Powers of two, so that every sum is exact and tells which samples it holds; 19 is no whole number of vectors.
    constexpr int n = 19;
    for (int length = 1; length <= n; ++length) {
        std::vector<float> trace(length);
        for (int i = 0; i < length; ++i) trace[i] = std::ldexp(i % 2 ? -1.0f : 1.0f, i);
        const TraceMeasure measure = measureTrace(trace.data(), length);
        EXPECT_EQ(measure.n, length);
        EXPECT_EQ(measure.sum1, std::ldexp(1.0, length) - 1.0) << length;
        EXPECT_EQ(measure.sum2, std::ldexp(1.0, length) - 1.0) << length;
    }
}

TEST(TraceConditioner, UsesLentTracesInPlaceUntilTheyAreConditioned)
{
    std::vector<float> samples = {1, -2, 3, -4, 5, -6, 7, -8, 9, -10, 11, -12};
    std::vector<float*> traces = {&samples[0], &samples[6]};
    int word = 0;
    std::vector<int*> headers = {&word, &word};
    SeismicData data;
    data.setNumHeaderWords(1);
    data.setSampleRate(2.0f);
    data.loadAllTraces(traces.data(), headers.data(), 6, 2);
    TraceConditioner conditioner, copying;
    copying.computeNormalizer(data);
    EXPECT_NE(copying.samples(), samples.data());
    conditioner.setLent(true);
    conditioner.computeNormalizer(data);
    EXPECT_EQ(conditioner.samples(), samples.data());
    EXPECT_EQ(conditioner.rms(), copying.rms());
    EXPECT_EQ(conditioner.divTrace()[1], copying.divTrace()[1]);
    const std::vector<float> before = samples;
    conditioner.applyAGC(true, 4);
    conditioner.computeNormalizer(data);
    EXPECT_NE(conditioner.samples(), samples.data());
    EXPECT_EQ(samples, before);
    // Traces apart from each other can't be used in place.
    std::swap(traces[0], traces[1]);
    data.clear();
    data.loadAllTraces(traces.data(), headers.data(), 6, 2);
    conditioner.applyAGC(false, 4);
    conditioner.computeNormalizer(data);
    EXPECT_NE(conditioner.samples(), samples.data());
    EXPECT_EQ(conditioner.samples()[0], 7.0f);
    EXPECT_EQ(conditioner.samples()[6], 1.0f);
}
