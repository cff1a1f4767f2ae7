#include "host/signal/orvinagc.h"

#include "host/cpuvariant.h"
#include "host/numeric/scratch.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

constexpr double leastShare = 1e-6;  // of the mean of the whole trace

static inline MERIDUNE_KERNEL bool isLive(float v)
{
    const float a = std::fabs(v);
    return (a > 0.0f) & (a <= FLT_MAX);
}

static inline MERIDUNE_KERNEL int countLive(const float* trace, int n)
{
    int live = 0;
#pragma omp simd reduction(+ : live)
    for (int i = 0; i < n; ++i) live += isLive(trace[i]) ? 1 : 0;
    return live;
}

/// sums[i] = sum of the absolute live samples before i, for i = 0..n. Four parts are summed side by side,
/// since one chain of additions would wait for itself at every sample.
static inline MERIDUNE_KERNEL void prefixSums(const float* trace, int n, double* sums)
{
    const int part = n / 4;
    const float *a = trace, *b = trace + part, *c = trace + 2 * part, *d = trace + 3 * part;
    double *sa = sums + 1, *sb = sa + part, *sc = sb + part, *sd = sc + part;
    double ta = 0.0, tb = 0.0, tc = 0.0, td = 0.0;
    const auto counted = [](float v) { return isLive(v) ? double(std::fabs(v)) : 0.0; };
    sums[0] = 0.0;
    for (int i = 0; i < part; ++i) {
        sa[i] = ta += counted(a[i]);
        sb[i] = tb += counted(b[i]);
        sc[i] = tc += counted(c[i]);
        sd[i] = td += counted(d[i]);
    }
    for (int i = 4 * part; i < n; ++i) sums[i + 1] = td += counted(trace[i]);
    const double offsets[4] = {0.0, ta, ta + tb, ta + tb + tc};
    for (int k = 1; k < 4; ++k) {
        const int begin = k * part, end = k == 3 ? n : begin + part;
#pragma omp simd
        for (int i = begin; i < end; ++i) sums[i + 1] += offsets[k];
    }
}

/// Divides the samples begin..end-1 by the mean of their windows, whose ends and counts `window` gives:
/// (i, &low, &high) with sums[high] - sums[low] as the sum, and the count as result.
template <class Window>
static inline MERIDUNE_KERNEL void divide(float* trace, int begin, int end, const double* sums, float least,
                                          const Window& window)
{
#pragma omp simd
    for (int i = begin; i < end; ++i) {
        int low = 0, high = 0;
        const double inverse = window(i, &low, &high);
        const float mean = float((sums[high] - sums[low]) * inverse);
        const float live = std::fabs(trace[i]) <= FLT_MAX ? trace[i] : 0.0f;
        trace[i] = live / (mean > least ? mean : least);
    }
}

/// A trace of live samples only.
static inline MERIDUNE_KERNEL void divideLive(float* trace, int n, int half, const double* sums, float least)
{
    const int headEnd = std::min(half, n), tailBegin = std::max(headEnd, n - half);
    const auto edge = [n, half](int i, int* low, int* high) {
        *low = std::max(0, i - half);
        *high = std::min(n, i + half + 1);
        return 1.0 / double(*high - *low);
    };
    const double inverse = 1.0 / (2.0 * half + 1.0);
    divide(trace, 0, headEnd, sums, least, edge);
    divide(trace, headEnd, tailBegin, sums, least, [half, inverse](int i, int* low, int* high) {
        *low = i - half;
        *high = i + half + 1;
        return inverse;
    });
    divide(trace, tailBegin, n, sums, least, edge);
}

/// A trace with dead samples in between; counts[i] live samples stand before i.
static inline MERIDUNE_KERNEL void divideBroken(float* trace, int n, int half, const double* sums, const int* counts,
                                                float least)
{
    divide(trace, 0, n, sums, least, [n, half, counts](int i, int* low, int* high) {
        *low = std::max(0, i - half);
        *high = std::min(n, i + half + 1);
        return 1.0 / double(std::max(1, counts[*high] - counts[*low]));
    });
}

struct AgcWork {
    std::vector<double> sums;
    std::vector<int> counts;
};

/// half < 0: one window over all. The trace begins and ends with live samples.
static inline MERIDUNE_KERNEL void agcKernel(float* trace, int n, int half, AgcWork* work)
{
    double* sums = atLeast(&work->sums, size_t(n) + 1);
    prefixSums(trace, n, sums);
    const int live = countLive(trace, n);
    const double mean = sums[n] / live;
    const float least = std::max(float(leastShare * mean), FLT_TRUE_MIN);
    if (half < 0) {
        const double inverse = 1.0 / live;
        divide(trace, 0, n, sums, least, [n, inverse](int, int* low, int* high) {
            *low = 0;
            *high = n;
            return inverse;
        });
    } else if (live == n) {
        divideLive(trace, n, half, sums, least);
    } else {
        int* counts = atLeast(&work->counts, size_t(n) + 1);
        counts[0] = 0;
        for (int i = 0; i < n; ++i) counts[i + 1] = counts[i] + (isLive(trace[i]) ? 1 : 0);
        divideBroken(trace, n, half, sums, counts, least);
    }
}

static void agcPlain(float* trace, int n, int half, AgcWork* work)
{
    agcKernel(trace, n, half, work);
}

MERIDUNE_V3 static void agcV3(float* trace, int n, int half, AgcWork* work)
{
    agcKernel(trace, n, half, work);
}

OrvinAGC::OrvinAGC(int, int winlen, float sampleRate) : _windowMs(winlen), _sampleRate(sampleRate) {}

void OrvinAGC::applyAGC(float* trace, int n) const
{
    static thread_local AgcWork work;
    const bool whole = !(_windowMs > 0 && _sampleRate > 0.0f && _windowMs <= double(n) * _sampleRate);
    const int half = whole ? -1 : std::max(1, int(std::floor(_windowMs / (2.0 * _sampleRate) + 0.5)));
    // A muted head counts nowhere, so the rest is treated as the whole trace.
    int first = 0, end = n;
    while (first < n && !isLive(trace[first])) ++first;
    while (end > first && !isLive(trace[end - 1])) --end;
    const auto clear = [](float& v) { v = std::isfinite(v) ? v : 0.0f; };
    std::for_each(trace, trace + first, clear);
    std::for_each(trace + end, trace + std::max(n, end), clear);
    if (first == end) return;
    (cpuVariant() == CpuVariant::V3 ? agcV3 : agcPlain)(trace + first, end - first, half, &work);
}
