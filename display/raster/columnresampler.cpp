#include "display/raster/columnresampler.h"

#include "display/raster/rasternumber.h"
#include "host/cpuvariant.h"
#include "host/numeric/antialias.h"
#include "host/numeric/resample.h"
#include "host/numeric/scratch.h"
#include "host/numeric/sinctable.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include <omp.h>

/// Samples behind the last position that the eight-point resampler may look at, and some.
static constexpr int resampleReach = 16;
/// A position before the trace that reads nothing of it.
static constexpr float nowhere = -16.0f;
/// Samples of each trace that are scaled before they are turned into rows: all lanes fit the nearest cache.
static constexpr int stripSamples = 128;

/// Longer work traces, which only a shift far down a view of hours makes, would take gigabytes side by side.
static constexpr int mostSideBySide = 1 << 20;

/// Samples of a work trace that `rows` pixel rows can show.
static int visibleSamples(const RasterWindow& window, int rows)
{
    return std::min(wholeOf(double(rows) / window.pixPerSample), mostShift) + resampleReach;
}

static bool isHyperbolic(const RasterParm& parm)
{
    return parm.moveout == 2 && parm.velocity > 0.0f;
}

typedef float Eight __attribute__((vector_size(32)));

/// Gain, bias and division of n samples; one that is not finite counts as 0.
static inline MERIDUNE_KERNEL void scaleKernel(const float* in, int n, float gain, float bias, float divisor,
                                               float* out)
{
    constexpr int nLanes = sizeof(Eight) / sizeof(float);
    int i = 0;
    for (; i + nLanes <= n; i += nLanes) {
        Eight v;
        std::memcpy(&v, in + i, sizeof v);
        v = v - v == 0.0f ? v : Eight{};
        v = (v * gain + bias) / divisor;
        std::memcpy(out + i, &v, sizeof v);
    }
    for (; i < n; ++i) {
        const float v = in[i] - in[i] == 0.0f ? in[i] : 0.0f;
        out[i] = (v * gain + bias) / divisor;
    }
}

static void scalePlain(const float* in, int n, float gain, float bias, float divisor, float* out)
{
    scaleKernel(in, n, gain, bias, divisor, out);
}

MERIDUNE_V3 static void scaleV3(const float* in, int n, float gain, float bias, float divisor, float* out)
{
    scaleKernel(in, n, gain, bias, divisor, out);
}

/// Samples first to first + n - 1 of the column's work trace, scaled; 0 behind its end.
static void scaleColumn(const RasterParm& parm, const RasterColumn& column, int first, int n, float* out)
{
    const float bias = parm.applyBias ? parm.bias : 0.0f;
    float divisor = 1.0f;
    if (parm.normalize == Normalize::Trace && parm.divTrace) divisor = parm.divTrace[column.tr];
    if (parm.normalize == Normalize::Dataset) divisor = parm.divRecord;
    if (divisor == 0.0f) divisor = 1.0f;
    const int nBefore = std::clamp(column.dest - first, 0, n);
    const int from = first + nBefore - column.dest;  // of the column's samples
    const int nLive = std::clamp(column.n - from, 0, n - nBefore);
    std::fill_n(out, nBefore, (0.0f * parm.gain + bias) / divisor);
    const float* in = column.samples + from;
    (cpuVariant() == CpuVariant::V3 ? scaleV3 : scalePlain)(in, nLive, parm.gain, bias, divisor, out + nBefore);
    std::fill(out + nBefore + nLive, out + n, 0.0f);
}

/// Positions in the work trace to read n samples from, so that the hyperbola of this offset becomes flat.
/// @param first  sample that place 0 of the work trace stands for, counted from time 0
static void hyperbolaPositions(double offset, double velocity, double dt, int64_t first, int n, float* positions)
{
    const double q = offset * offset / (velocity * velocity);
    for (int j = 0; j < n; ++j) {
        const double t = double(j + first) * dt;
        positions[j] = t < 0.0 ? nowhere : float(std::sqrt(t * t + q) / dt - double(first));
    }
}

/// One trace to nOut pixel rows.
void ColumnResampler::resampleColumn(const RasterParm& parm, const RasterWindow& window, const RasterColumn& column,
                                     float* out, Work* work) const
{
    const float ratio = window.pixPerSample;
    const int nOut = _common.nOut, shown = _common.nSamples;
    const int whole = column.dest + column.n;
    int n = isHyperbolic(parm) ? whole : std::min(whole, shown);  // a hyperbola reads from below
    float* trace = atLeast(&work->trace, n);
    scaleColumn(parm, column, 0, n, trace);
    if (isHyperbolic(parm)) {
        const int nMoved = std::min(n, shown);
        float* positions = atLeast(&work->positions, nMoved);
        hyperbolaPositions(parm.offsets ? parm.offsets[column.tr] : 0.0, parm.velocity, parm.sampleRate / 1000.0,
                           column.first + parm.startSample, nMoved, positions);
        float* moved = atLeast(&work->moved, nMoved);
        ints8r(n, 1.0f, 0.0f, trace, 0.0f, 0.0f, nMoved, positions, moved);
        trace = moved;
        n = nMoved;
    }
    if (isMap(parm.displayType)) {
        intlin(n, _nodes.data(), trace, nOut, _positions.data(), out, trace[0], trace[n - 1]);
        return;
    }
    if (parm.antialias && ratio < 1.0f) {
        float* filtered = atLeast(&work->filtered, n);
        antialias(ratio, 0, n, trace, filtered);
        trace = filtered;
    }
    ress8r(n, ratio, 0.0f, trace, trace[0], 0.0f, nOut, 1.0f, 0.0f, out);
}

/// Lays the scaled work traces side by side, the first samples also before the first row, for the taps there.
void ColumnResampler::fillBlock(const RasterParm& parm, const RasterColumn* columns, int n, Work* work) const
{
    const int nSamples = _common.nSamples + sincTaps;
    float* const strips = atLeast(&work->strips, size_t(traceLanes) * stripSamples);
    float* const block = atLeast(&work->block, size_t(sincBefore + nSamples) * traceLanes);
    float* const rows = block + sincBefore * traceLanes;
    std::fill(strips + size_t(n) * stripSamples, strips + size_t(traceLanes) * stripSamples, 0.0f);
    for (int first = 0; first < nSamples; first += stripSamples) {
        const int nStrip = std::min(stripSamples, nSamples - first);
        for (int k = 0; k < n; ++k) scaleColumn(parm, columns[k], first, nStrip, strips + k * stripSamples);
        interleave(strips, stripSamples, nStrip, rows + size_t(first) * traceLanes);
    }
    for (int row = 0; row < sincBefore; ++row) std::copy_n(rows, traceLanes, block + row * traceLanes);
}

/// As many traces as there are lanes, or fewer; the lanes behind them become 0.
void ColumnResampler::resampleGroup(const RasterParm& parm, const RasterWindow& window, const RasterColumn* columns,
                                    int n, float* out, Work* work) const
{
    const int nOut = _common.nOut;
    if (n < 1) {
        for (int r = 0; r < nOut; ++r) std::fill_n(out + r * _stride, traceLanes, 0.0f);
        return;
    }
    bool isEach = _common.isEach;
    for (int k = 0; k < n && isMap(parm.displayType); ++k)
        isEach |= std::min(columns[k].dest + columns[k].n, _common.nSamples) != _placedSamples;
    if (isEach) {
        float* const traces = atLeast(&work->strips, size_t(traceLanes) * nOut);
        std::fill(traces + size_t(n) * nOut, traces + size_t(traceLanes) * nOut, 0.0f);
        for (int k = 0; k < n; ++k) resampleColumn(parm, window, columns[k], traces + size_t(k) * nOut, work);
        interleave(traces, nOut, nOut, out, _stride);
        return;
    }
    fillBlock(parm, columns, n, work);
    const float* const rows = work->block.data() + sincBefore * traceLanes;
    if (isMap(parm.displayType))
        interpolateLanes(rows, _placedSamples, _linearPlaces.data(), nOut, out, _stride);
    else
        resampleLanes(rows, _sincPlaces.data(), nOut, out, _stride);
}

void ColumnResampler::preparePlaces(const RasterParm& parm, const RasterWindow& window,
                                    const std::vector<RasterColumn>& columns)
{
    const float ratio = window.pixPerSample;
    const bool isFiltered = parm.antialias && ratio < 1.0f && !isMap(parm.displayType);
    _common.nSamples = visibleSamples(window, _common.nOut);
    if (isFiltered) _common.nSamples += std::min(wholeOf(std::ceil(10.0 / ratio)), mostShift);
    int longest = 0;
    for (const RasterColumn& column : columns) longest = std::max(longest, column.dest + column.n);
    _common.nSamples = std::min(_common.nSamples, longest);
    _common.isEach = isFiltered || isHyperbolic(parm) || _common.nSamples > mostSideBySide;
    if (!isMap(parm.displayType)) {
        sincPlaces(ratio, _common.nOut, _common.nSamples, &_sincPlaces);
        return;
    }
    for (int i = int(_positions.size()); i < _common.nOut; ++i) _positions.push_back(float(i));
    atLeast(&_nodes, _common.nSamples);
    for (int i = 0; i < _common.nSamples; ++i) _nodes[i] = ratio * i;
    if (columns.empty()) return;
    _placedSamples = std::min(columns[0].dest + columns[0].n, _common.nSamples);
    linearPlaces(_placedSamples, _nodes.data(), _common.nOut, _positions.data(), atLeast(&_linearPlaces, _common.nOut));
}

void ColumnResampler::resample(const RasterParm& parm, const RasterWindow& window,
                               const std::vector<RasterColumn>& columns)
{
    const int nRows = window.height - window.top;
    _common.nOut = std::min(nRows, window.rowstride);
    const int nGroups = (window.count + traceLanes - 1) / traceLanes;
    // an odd number of cache lines: neighbouring rows of one group then don't fall on one cache set
    _stride = size_t((nGroups + 1) | 1) * traceLanes;
    atLeast(&_rows, _stride * (size_t(nRows) + traceLanes));
    preparePlaces(parm, window, columns);
    if (int(_work.size()) < omp_get_max_threads()) _work.resize(omp_get_max_threads());
    const int nColumns = int(columns.size());
#pragma omp parallel for schedule(static) if (isWorthThreads(nRows, window.count))
    for (int group = 0; group < nGroups; ++group) {
        const int first = group * traceLanes;
        const int n = std::clamp(nColumns - first, 0, traceLanes);
        resampleGroup(parm, window, columns.data() + std::min(first, nColumns), n, _rows.data() + first,
                      &_work[omp_get_thread_num()]);
    }
    for (int r = _common.nOut; r < nRows; ++r) std::fill_n(_rows.data() + r * _stride, _stride, 0.0f);
}

void ColumnResampler::reserve(int rows, int nTraces, int nSamples)
{
    _rows.reserve((size_t(std::max(rows, 0)) + traceLanes) * (size_t(std::max(nTraces, 0)) + 3 * traceLanes));
    if (_work.empty()) _work.resize(omp_get_max_threads());
    for (Work& work : _work) work.block.reserve((size_t(std::max(nSamples, 0)) + 2 * resampleReach) * traceLanes);
}
