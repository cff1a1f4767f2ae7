#include "host/numeric/tracelanes.h"

#include "bothvariants.h"
#include "host/numeric/resample.h"
#include "host/numeric/sinctable.h"

#include <cmath>
#include <limits>
#include <random>

/// Traces one after the other, with a few samples that are not finite.
static std::vector<float> someTraces(int n)
{
    std::mt19937 random(11);
    std::normal_distribution<float> normal;
    std::vector<float> traces(size_t(traceLanes) * n);
    for (float& v : traces) v = normal(random);
    for (size_t i = 5; i < traces.size(); i += 97) traces[i] = i % 2 ? NAN : INFINITY;
    return traces;
}

/// The same as rows, with sincBefore rows of each trace's first sample before, and zeros behind.
static std::vector<float> asRows(const std::vector<float>& traces, int n)
{
    std::vector<float> block(size_t(sincBefore + n + sincTaps) * traceLanes, 0.0f);
    interleave(traces.data(), n, n, block.data() + sincBefore * traceLanes);
    for (int row = 0; row < sincBefore; ++row)
        for (int k = 0; k < traceLanes; ++k) block[row * traceLanes + k] = traces[size_t(k) * n];
    return block;
}

TEST(TraceLanes, TurnsTracesIntoRows)
{
    for (int n : {1, 3, 4, 7, 20}) {
        std::vector<float> traces(size_t(traceLanes) * n), rows(size_t(n) * (traceLanes + 3), -1.0f);
        for (int k = 0; k < traceLanes; ++k)
            for (int j = 0; j < n; ++j) traces[size_t(k) * n + j] = float(1000 * k + j);
        interleave(traces.data(), n, n, rows.data(), traceLanes + 3);
        for (int j = 0; j < n; ++j)
            for (int k = 0; k < traceLanes + 3; ++k)
                ASSERT_EQ(rows[size_t(j) * (traceLanes + 3) + k], k < traceLanes ? float(1000 * k + j) : -1.0f);
    }
}

TEST(TraceLanes, ResamplesEachLaneToTheBitAsATraceAlone)
{
    for (int n : {1, 5, 8, 150})
        for (float ratio : {0.13f, 0.5f, 1.0f, 1.7f, 6.0f}) {
            SCOPED_TRACE(std::to_string(n) + " samples, ratio " + std::to_string(ratio));
            const std::vector<float> traces = someTraces(n), block = asRows(traces, n);
            const int nOut = int(ratio * float(n)) + 30;
            std::vector<SincPlace> places;
            sincPlaces(ratio, nOut, n, &places);
            std::vector<float> rows(size_t(nOut) * traceLanes), alone(nOut);
            resampleLanes(block.data() + sincBefore * traceLanes, places.data(), nOut, rows.data(), traceLanes);
            for (int k = 0; k < traceLanes; ++k) {
                const float* trace = &traces[size_t(k) * n];
                ress8r(n, ratio, 0.0f, trace, trace[0], 0.0f, nOut, 1.0f, 0.0f, alone.data());
                for (int i = 0; i < nOut; ++i)
                    ASSERT_EQ(rows[size_t(i) * traceLanes + k], alone[i]) << "lane " << k << " output " << i;
            }
        }
}

TEST(TraceLanes, InterpolatesEachLaneToTheBitAsATraceAlone)
{
    constexpr int n = 40, nOut = 120;
    const std::vector<float> traces = someTraces(n), block = asRows(traces, n);
    std::vector<float> nodes(n), at(nOut), rows(size_t(nOut) * traceLanes), alone(nOut);
    for (int i = 0; i < n; ++i) nodes[i] = 0.7f * float(i);
    for (int i = 0; i < nOut; ++i) at[i] = 0.35f * float(i) - 3.0f;  // on nodes, between, before and behind them
    at[7] = NAN;
    std::vector<LinearPlace> places(nOut);
    linearPlaces(n, nodes.data(), nOut, at.data(), places.data());
    interpolateLanes(block.data() + sincBefore * traceLanes, n, places.data(), nOut, rows.data(), traceLanes);
    for (int k = 0; k < traceLanes; ++k) {
        const float* trace = &traces[size_t(k) * n];
        intlin(n, nodes.data(), trace, nOut, at.data(), alone.data(), trace[0], trace[n - 1]);
        for (int i = 0; i < nOut; ++i)
            ASSERT_EQ(std::memcmp(&rows[size_t(i) * traceLanes + k], &alone[i], sizeof(float)), 0)
                << "lane " << k << " output " << i;
    }
}

TEST(TraceLanes, GivesTheSameBitsOnEveryProcessor)
{
    constexpr int n = 60, nOut = 90;
    const std::vector<float> block = asRows(someTraces(n), n);
    const float* const rows = block.data() + sincBefore * traceLanes;
    std::vector<SincPlace> places;
    sincPlaces(1.31f, nOut, n, &places);
    std::vector<float> nodes(n), at(nOut);
    for (int i = 0; i < n; ++i) nodes[i] = 1.31f * float(i);
    for (int i = 0; i < nOut; ++i) at[i] = float(i);
    std::vector<LinearPlace> linear(nOut);
    linearPlaces(n, nodes.data(), nOut, at.data(), linear.data());
    expectSameBitsInBothVariants([&] {
        std::vector<float> out(size_t(2 * nOut) * traceLanes);
        resampleLanes(rows, places.data(), nOut, out.data(), traceLanes);
        interpolateLanes(rows, n, linear.data(), nOut, out.data() + size_t(nOut) * traceLanes, traceLanes);
        return out;
    });
}
