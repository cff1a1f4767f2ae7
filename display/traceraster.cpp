#include "display/traceraster.h"

#include "display/colortable.h"
#include "display/rasternumber.h"
#include "display/rasterpaint.h"
#include "display/tracetap.h"
#include "host/cpuvariant.h"
#include "host/numeric/antialias.h"
#include "host/numeric/intlin.h"
#include "host/numeric/resample.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstring>

#include <omp.h>

/// No picture is larger a side, whatever the maps say.
static constexpr int mostPixels = 1 << 20;
/// No trace is shifted further down; its rows would be far outside any picture.
static constexpr int mostShift = 1 << 24;
/// Samples behind the last position that the eight-point resampler may look at, and some.
static constexpr int resampleReach = 16;
/// A position before the trace that reads nothing of it.
static constexpr float nowhere = -16.0f;

static bool isMap(DisplayType type)
{
    return type == Map || type == Velocity;
}

bool rasterWindow(const RasterParm& parm, RasterWindow* window)
{
    RasterWindow w;
    const double rate = parm.sampleRate;
    if (!(rate > 0.0)) return false;
    const double t0 = parm.timeDirection != 0 ? parm.y.s2 : parm.y.s1;
    const double t1 = parm.timeDirection != 0 ? parm.y.s1 : parm.y.s2;
    w.nsamp = (t1 - t0) / rate;
    w.firstSample = std::max(0, wholeOf(t0 / rate - parm.startSample));
    w.ntr = parm.x.s2 - parm.x.s1;
    w.count = std::max(1, wholeOf(w.ntr + 0.5));
    if (parm.x.s1 < 0.0) w.count = std::max(0, wholeOf(parm.x.s2));  // left of the data there is no trace
    w.firstTrace = std::max(0, wholeOf(parm.x.s1));
    w.count = std::min(w.count, std::min(parm.view.nTraces, parm.nDataTraces) - w.firstTrace);
    const int nSamples = std::min(parm.view.nSamples, parm.stride);
    if (std::min({nSamples, wholeOf(w.nsamp), nSamples - w.firstSample}) < 2) return false;

    w.width = wholeOf(parm.x.p2 - parm.x.p1);
    w.height = wholeOf(parm.y.p1 - parm.y.p2);
    w.top = wholeOf(parm.y.p2);
    if (w.width < 1 || w.height < 1 || w.width > mostPixels || w.height > mostPixels) return false;
    if (std::abs(parm.y.p2) > mostPixels) return false;
    w.rowstride = std::max(w.height, std::min(wholeOf(parm.plotSampleCount), mostPixels));
    w.pixPerTrace = float(w.width / std::max(1.0, w.ntr));
    w.pixPerSample = float(w.height / w.nsamp);
    if (!(w.pixPerSample > 0.0f)) return false;
    const double left = parm.x.s1 != 0.0 ? w.pixPerTrace * (1.0 - (parm.x.s1 - w.firstTrace)) : w.pixPerTrace;
    w.xbase = std::clamp(wholeOf(left), -mostShift, mostShift) +
              std::clamp(wholeOf(parm.x.p1), -mostShift, mostShift);
    w.clipPix = wholeOf(w.pixPerTrace * parm.clip);
    *window = w;
    return true;
}

/// Samples of a work trace that `rows` pixel rows can show.
static int visibleSamples(const RasterWindow& window, int rows)
{
    return std::min(wholeOf(double(rows) / window.pixPerSample), mostShift) + resampleReach;
}

/// Shift of a trace by linear move-out, in samples.
static int linearShift(const RasterParm& parm, int tr)
{
    if (parm.moveout != 1 || !(parm.velocity > 0.0f) || !parm.offsets) return 0;
    const double dt = parm.sampleRate / 1000.0;
    // in double: 100 / 5000 s at 2 ms is 10 samples, in single precision it falls just short of them
    return wholeOf(std::fabs(double(parm.offsets[tr])) / parm.velocity / dt);
}

void TraceRaster::collectColumns(const RasterParm& parm, const RasterWindow& window, TraceTap* tap)
{
    _columns.clear();
    _ishift.assign(std::max(0, window.firstTrace + window.count), 0);
    const int nSamples = std::min(parm.view.nSamples, parm.stride);
    for (int i = window.firstTrace; i < window.firstTrace + window.count; ++i) {
        Column column;
        column.tr = parm.plotDirection == RightToLeft ? parm.nDataTraces - 1 - i : i;
        _ishift[i] = wholeOf(double(linearShift(parm, column.tr)) - parm.bulkshift);
        column.first = int64_t(window.firstSample) + _ishift[i];
        column.start = int(std::clamp<int64_t>(column.first, 0, nSamples));
        column.dest = int(std::clamp<int64_t>(-column.first, 0, mostShift));
        column.n = nSamples - column.start;
        if (column.n < 1) continue;
        if (tap)
            tap->pickTraceChange(parm.samples + size_t(column.tr) * parm.stride + column.start, column.start,
                                 column.n, column.tr);
        _columns.push_back(column);
    }
}

typedef float Lanes __attribute__((vector_size(32)));

/// Gain, bias and division of n samples; one that is not finite counts as 0.
static inline MERIDUNE_KERNEL void scaleKernel(const float* in, int n, float gain, float bias, float divisor,
                                               float* out)
{
    constexpr int nLanes = sizeof(Lanes) / sizeof(float);
    int i = 0;
    for (; i + nLanes <= n; i += nLanes) {
        Lanes v;
        std::memcpy(&v, in + i, sizeof v);
        v = v - v == 0.0f ? v : Lanes{};
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

/// The column's work trace, scaled, of at most `longest` samples; returns how many.
int TraceRaster::scaleColumn(const RasterParm& parm, const Column& column, int longest, float* trace) const
{
    const float bias = parm.applyBias ? parm.bias : 0.0f;
    float divisor = 1.0f;
    if (parm.normalize == Normalize::Trace && parm.divTrace) divisor = parm.divTrace[column.tr];
    if (parm.normalize == Normalize::Dataset) divisor = parm.divRecord;
    if (divisor == 0.0f) divisor = 1.0f;
    const int dest = std::min(column.dest, longest);
    const int n = std::min(column.n, longest - dest);
    std::fill_n(trace, dest, (0.0f * parm.gain + bias) / divisor);
    const float* in = parm.samples + size_t(column.tr) * parm.stride + column.start;
    (cpuVariant() == CpuVariant::V3 ? scaleV3 : scalePlain)(in, n, parm.gain, bias, divisor, trace + dest);
    return dest + n;
}

template <typename Number> static Number* atLeast(std::vector<Number>* buffer, size_t n)
{
    if (buffer->size() < n) buffer->resize(n);
    return buffer->data();
}

/// Positions in the work trace to read n samples from, so that the hyperbola of this offset becomes flat.
/// @param first  sample that place 0 of the work trace stands for, counted from time 0
static void hyperbolaPositions(double offset, double velocity, double dt, int64_t first, int n,
                               float* positions)
{
    const double q = offset * offset / (velocity * velocity);
    for (int j = 0; j < n; ++j) {
        const double t = double(j + first) * dt;
        positions[j] = t < 0.0 ? nowhere : float(std::sqrt(t * t + q) / dt - double(first));
    }
}

void TraceRaster::resampleColumn(const RasterParm& parm, const RasterWindow& window, const Column& column,
                                 int nOut, float* out, Work* work) const
{
    const float ratio = window.pixPerSample;
    const bool isFiltered = parm.antialias && ratio < 1.0f && !isMap(parm.displayType);
    int shown = visibleSamples(window, nOut);
    if (isFiltered) shown += std::min(wholeOf(std::ceil(10.0 / ratio)), mostShift);
    const bool isMoved = parm.moveout == 2 && parm.velocity > 0.0f;
    const int longest = isMoved ? column.dest + column.n : shown;  // a hyperbola reads from below
    float* trace = atLeast(&work->trace, std::min(longest, column.dest + column.n));
    int n = scaleColumn(parm, column, longest, trace);
    if (isMoved) {
        const int nMoved = std::min(n, shown);
        float* positions = atLeast(&work->positions, nMoved);
        hyperbolaPositions(parm.offsets ? parm.offsets[column.tr] : 0.0, parm.velocity,
                           parm.sampleRate / 1000.0, column.first + parm.startSample, nMoved, positions);
        float* moved = atLeast(&work->moved, nMoved);
        ints8r(n, 1.0f, 0.0f, trace, 0.0f, 0.0f, nMoved, positions, moved);
        trace = moved;
        n = nMoved;
    }
    if (isMap(parm.displayType)) {
        intlin(n, _nodes.data(), trace, nOut, _rows.data(), out, trace[0], trace[n - 1]);
        return;
    }
    if (isFiltered) {
        float* filtered = atLeast(&work->filtered, n);
        antialias(ratio, 0, n, trace, filtered);
        trace = filtered;
    }
    ress8r(n, ratio, 0.0f, trace, trace[0], 0.0f, nOut, 1.0f, 0.0f, out);
}

void TraceRaster::resampleColumns(const RasterParm& parm, const RasterWindow& window)
{
    const int nRows = window.height - window.top;
    const int nOut = std::min(nRows, window.rowstride);
    // an odd number of cache lines: the rows of neighbouring traces then don't fall on one cache set
    const size_t lines = (size_t(nRows) + 2 * rasterBand - 1) / rasterBand;
    _outstride = (lines | 1) * rasterBand;
    atLeast(&_outdata, _outstride * window.count);
    if (isMap(parm.displayType)) {
        const int nNodes = visibleSamples(window, nOut);
        for (int i = int(_rows.size()); i < nOut; ++i) _rows.push_back(float(i));
        atLeast(&_nodes, nNodes);
        for (int i = 0; i < nNodes; ++i) _nodes[i] = window.pixPerSample * i;
    }
    if (int(_work.size()) < omp_get_max_threads()) _work.resize(omp_get_max_threads());
    const int nColumns = int(_columns.size());
#pragma omp parallel for schedule(static) if (isWorthThreads(nRows, window.count))
    for (int k = 0; k < window.count; ++k) {
        float* const out = _outdata.data() + k * _outstride;
        int n = 0;  // traces without a column leave flat ones at the end
        if (k < nColumns) {
            resampleColumn(parm, window, _columns[k], nOut, out, &_work[omp_get_thread_num()]);
            n = nOut;
        }
        std::fill(out + n, out + _outstride, 0.0f);
    }
}

QImage TraceRaster::render(const RasterParm& parm, TraceTap* tap)
{
    RasterWindow window;
    if (!rasterWindow(parm, &window)) return QImage();
    collectColumns(parm, window, tap);
    if (_image.width() != window.width || _image.height() != window.height || !_image.isDetached())
        _image = QImage(window.width, window.height, QImage::Format_RGB32);
    if (_image.isNull()) return QImage();
    _image.setDevicePixelRatio(parm.pixelRatio);
    _image.fill(0xff000000u | parm.background);
    if (window.count < 1 || window.height <= window.top) return _image;

    resampleColumns(parm, window);
    RasterPainting painting;
    const int hidden = std::max(0, -window.top);  // rows above the picture
    painting.traces = _outdata.data() + hidden;
    painting.stride = _outstride;
    painting.nRows = window.height - window.top - hidden;
    painting.window = window;
    painting.window.top += hidden;
    painting.displayType = parm.displayType;
    painting.colors = parm.colors;
    painting.pixels = reinterpret_cast<QRgb*>(_image.bits());
    isMap(parm.displayType) ? paintMap(painting) : paintTraces(painting);
    return _image;
}

void TraceRaster::reserve(int rows, int nTraces, int nSamples)
{
    const size_t padded = size_t(std::max(rows, 0)) + 3 * rasterBand;
    _outdata.reserve(padded * std::max(nTraces, 0));
    _columns.reserve(std::max(nTraces, 0));
    if (_work.empty()) _work.resize(omp_get_max_threads());
    for (Work& work : _work) work.trace.reserve(std::max(nSamples, 0));
}
