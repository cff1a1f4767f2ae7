#include "display/rasterpaint.h"

#include "display/colortable.h"
#include "display/rasternumber.h"
#include "host/cpuvariant.h"
#include "host/numeric/intlin.h"

#include <algorithm>
#include <cstring>
#include <vector>

static constexpr QRgb black = 0xff000000u;

typedef float FloatBand __attribute__((vector_size(rasterBand * sizeof(float))));
typedef int IntBand __attribute__((vector_size(rasterBand * sizeof(int))));
typedef double DoubleBand __attribute__((vector_size(rasterBand * sizeof(double))));

/// Excursions in whole pixels, limited; 0 for NaN.
static inline MERIDUNE_KERNEL IntBand excursions(const float* values, float pixPerTrace, float clipPix)
{
    FloatBand v;
    std::memcpy(&v, values, sizeof v);
    v *= pixPerTrace;
    v = v == v ? v : FloatBand{};
    v = v < -clipPix ? FloatBand{} - clipPix : v;
    v = v > clipPix ? FloatBand{} + clipPix : v;
    return __builtin_convertvector(v, IntBand);
}

static int excursionOf(float value, float pixPerTrace, float clipPix)
{
    const float v = value * pixPerTrace;
    return v == v ? int(std::clamp(v, -clipPix, clipPix)) : 0;
}

/// As ColorTable::index for each value.
static inline MERIDUNE_KERNEL IntBand colorIndices(const float* values, const ColorTable& colors)
{
    FloatBand v;
    std::memcpy(&v, values, sizeof v);
    const double last = colors.numColors() - 1;
    DoubleBand step = (colors.maxValue() - __builtin_convertvector(v, DoubleBand)) / colors.increment();
    step = step > 0.0 ? step : DoubleBand{};
    step = step < last ? step : DoubleBand{} + last;
    return __builtin_convertvector(step, IntBand);
}

/// What the traces of one painting have in common.
struct TraceGeometry {
    explicit TraceGeometry(const RasterPainting& p);

    std::vector<int> axis;
    float clipPix;
};

TraceGeometry::TraceGeometry(const RasterPainting& p) : axis(p.window.count)
{
    // beyond this every excursion has left the picture, and below it a float holds each pixel
    clipPix = float(std::clamp(p.window.clipPix, 0, 1 << 24));
    for (int k = 0; k < p.window.count; ++k)
        axis[k] = std::clamp(wholeOf(k * p.window.pixPerTrace + p.window.xbase), 0, p.window.width - 1);
}

static constexpr bool hasLines(DisplayType type)
{
    return type == WiggleVA || type == Wiggle || type == ColorWiggle;
}

static constexpr bool isBlackLine(DisplayType type)
{
    return type == WiggleVA || type == Wiggle;
}

static inline MERIDUNE_KERNEL void fillRun(QRgb* line, int first, int last, QRgb color)
{
    for (int x = first; x <= last; ++x) line[x] = color;
}

/// As upperRun for the segments from the row above's `at` to each row's `end`. The first row has none above.
static inline MERIDUNE_KERNEL void upperRuns(IntBand at, IntBand end, int right, IntBand* first, IntBand* last)
{
    int excursion[rasterBand + 1] = {};
    std::memcpy(excursion + 1, &at, sizeof at);
    IntBand from;
    std::memcpy(&from, excursion, sizeof from);
    *first = end < from ? end + 1 : from;
    *last = end > from ? end - 1 : from;
    *first = *first < 0 ? IntBand{} : *first;
    *last = *last > right ? IntBand{} + right : *last;
}

/// Fills, and the ends of the line segments, of nRows rows from row r0. Where all is black, and the order
/// doesn't matter, the rest of the segments too, but for what they take in the row above the band.
template <DisplayType type>
static inline MERIDUNE_KERNEL void paintBand(const RasterPainting& p, const TraceGeometry& geometry, int r0,
                                             int nRows)
{
    const int right = p.window.width - 1;
    QRgb* const lines = p.pixels + ptrdiff_t(p.window.top + r0) * p.window.width;
    const QRgb* const table = p.colors->rgbArray();
    IntBand prevEnd = IntBand{} + p.window.xbase;
    for (int k = 0; k < p.window.count; ++k) {
        const float* const values = p.traces + k * p.stride + r0;
        const int axis = geometry.axis[k];
        const IntBand at = excursions(values, p.window.pixPerTrace, geometry.clipPix) + axis;
        IntBand end = at < 0 ? IntBand{} : at;
        end = end > right ? IntBand{} + right : end;
        IntBand first = prevEnd > axis ? prevEnd : IntBand{} + axis;
        IntBand last = end;
        IntBand index{}, runFirst{}, runLast{};
        if constexpr (isBlackLine(type)) upperRuns(at, end, right, &runFirst, &runLast);
        if constexpr (type == ColorB || type == ColorWiggle) {
            FloatBand v;
            std::memcpy(&v, values, sizeof v);
            const IntBand isPositive = v > 0.0f;
            first = isPositive ? first : end;
            last = isPositive ? end : IntBand{} + axis;
            index = colorIndices(values, *p.colors);
        }
        for (int b = 0; b < nRows; ++b) {
            QRgb* const line = lines + ptrdiff_t(b) * p.window.width;
            if constexpr (type == ColorB || type == ColorWiggle) {
                fillRun(line, first[b], last[b], black | table[index[b]]);
            } else if constexpr (type == WiggleVA || type == VA) {
                if (values[b] > 0.0f) fillRun(line, first[b], last[b], black);
            }
            if constexpr (hasLines(type)) line[end[b]] = black;
            if constexpr (isBlackLine(type)) {
                if (b > 0) fillRun(line - p.window.width, runFirst[b], runLast[b], black);
            }
        }
        prevEnd = end;
    }
}

/// The parts that the segments of rows r0 + begin to r0 + end take in the rows above them.
static inline MERIDUNE_KERNEL void paintUpper(const RasterPainting& p, const TraceGeometry& geometry, int r0,
                                              int begin, int end)
{
    const int right = p.window.width - 1;
    QRgb* const lines = p.pixels + ptrdiff_t(p.window.top + r0 - 1) * p.window.width;
    for (int k = 0; k < p.window.count; ++k) {
        const int axis = geometry.axis[k];
        const float* const values = p.traces + k * p.stride + r0;
        const IntBand at = excursions(values, p.window.pixPerTrace, geometry.clipPix) + axis;
        int from = begin > 0 ? at[begin - 1]
                             : excursionOf(values[-1], p.window.pixPerTrace, geometry.clipPix) + axis;
        for (int b = begin; b < end; ++b) {
            const PixelRun run = upperRun(from, std::clamp(at[b], 0, right), p.window.width);
            fillRun(lines + ptrdiff_t(b) * p.window.width, run.first, run.last, black);
            from = at[b];
        }
    }
}

/// A band of rows, with the segments' parts inside the band.
template <DisplayType type>
static inline MERIDUNE_KERNEL void paintWholeBand(const RasterPainting& p, const TraceGeometry& geometry,
                                                  int r0, int nRows)
{
    paintBand<type>(p, geometry, r0, nRows);
    if constexpr (hasLines(type) && !isBlackLine(type)) paintUpper(p, geometry, r0, 1, nRows);
}

static inline MERIDUNE_KERNEL void paintBandOf(const RasterPainting& p, const TraceGeometry& geometry, int r0,
                                               int nRows)
{
    switch (p.displayType) {
    case WiggleVA: return paintWholeBand<WiggleVA>(p, geometry, r0, nRows);
    case Wiggle: return paintWholeBand<Wiggle>(p, geometry, r0, nRows);
    case VA: return paintWholeBand<VA>(p, geometry, r0, nRows);
    case ColorB: return paintWholeBand<ColorB>(p, geometry, r0, nRows);
    case ColorWiggle: return paintWholeBand<ColorWiggle>(p, geometry, r0, nRows);
    default: return;
    }
}

static void paintBandPlain(const RasterPainting& p, const TraceGeometry& geometry, int r0, int nRows)
{
    paintBandOf(p, geometry, r0, nRows);
}

MERIDUNE_V3 static void paintBandV3(const RasterPainting& p, const TraceGeometry& geometry, int r0, int nRows)
{
    paintBandOf(p, geometry, r0, nRows);
}

void paintTraces(const RasterPainting& p)
{
    if (p.displayType == Grayscale) return;  // grey is a choice of colours, not a way of painting
    const TraceGeometry geometry(p);
    const auto paint = cpuVariant() == CpuVariant::V3 ? paintBandV3 : paintBandPlain;
    const int nBands = (p.nRows + rasterBand - 1) / rasterBand;
#pragma omp parallel for schedule(static) if (isWorthThreads(p.nRows, p.window.count))
    for (int band = 0; band < nBands; ++band)
        paint(p, geometry, band * rasterBand, std::min(rasterBand, p.nRows - band * rasterBand));
    if (!hasLines(p.displayType)) return;
#pragma omp parallel for schedule(static) if (isWorthThreads(p.nRows, p.window.count))
    for (int band = 1; band < nBands; ++band)  // only now is the last row of each band done
        paintUpper(p, geometry, band * rasterBand, 0, 1);
}

/// Positions of a map: of its traces in pixels, and of its pixels.
struct MapGeometry {
    explicit MapGeometry(const RasterPainting& p);

    int columns;
    std::vector<float> traceAt, pixelAt;
};

MapGeometry::MapGeometry(const RasterPainting& p)
    : columns(wholeOf(p.window.pixPerTrace * p.window.count)), traceAt(p.window.count),
      pixelAt(std::max(columns, 0))
{
    for (int i = 0; i < p.window.count; ++i) traceAt[i] = float(i) * float(columns) / float(p.window.count);
    for (int i = 0; i < columns; ++i) pixelAt[i] = float(i);
}

/// Work arrays of one thread.
struct MapWork {
    std::vector<float> traces;  // rasterBand rows of one value a trace
    std::vector<float> pixels;  // a row, padded to whole bands
};

/// Up to rasterBand rows from row r0, turned from traces to rows in one go.
static void gatherRows(const RasterPainting& p, int r0, int nRows, float* rows)
{
    const int count = p.window.count;
    for (int k = 0; k < count; ++k)
        for (int b = 0; b < nRows; ++b) rows[size_t(b) * count + k] = p.traces[k * p.stride + r0 + b];
}

static inline MERIDUNE_KERNEL void colorPixels(const RasterPainting& p, const float* values, int begin,
                                               int end, QRgb* line)
{
    const QRgb* const table = p.colors->rgbArray();
    for (int k = begin; k < end; k += rasterBand) {
        const IntBand index = colorIndices(values + k, *p.colors);
        const int n = std::min(rasterBand, end - k);
        for (int b = 0; b < n; ++b) line[k + b] = black | table[index[b]];
    }
}

static void colorPixelsPlain(const RasterPainting& p, const float* values, int begin, int end, QRgb* line)
{
    colorPixels(p, values, begin, end, line);
}

MERIDUNE_V3 static void colorPixelsV3(const RasterPainting& p, const float* values, int begin, int end,
                                      QRgb* line)
{
    colorPixels(p, values, begin, end, line);
}

static void paintMapBand(const RasterPainting& p, const MapGeometry& geometry, int r0, int nRows)
{
    const auto color = cpuVariant() == CpuVariant::V3 ? colorPixelsV3 : colorPixelsPlain;
    const int count = p.window.count, columns = geometry.columns;
    static thread_local MapWork work;
    work.traces.resize(std::max(work.traces.size(), size_t(count) * rasterBand));
    work.pixels.resize(std::max(work.pixels.size(), size_t(columns) + rasterBand));
    gatherRows(p, r0, nRows, work.traces.data());
    const int begin = std::clamp(-p.window.xbase, 0, columns);
    const int end = std::clamp(p.window.width - p.window.xbase, begin, columns);
    for (int b = 0; b < nRows; ++b) {
        const float* const row = work.traces.data() + size_t(b) * count;
        intlin(count, geometry.traceAt.data(), row, columns, geometry.pixelAt.data(), work.pixels.data(),
               row[0], row[count - 1]);
        QRgb* const line = p.pixels + ptrdiff_t(p.window.top + r0 + b) * p.window.width + p.window.xbase;
        color(p, work.pixels.data(), begin, end, line);
    }
}

void paintMap(const RasterPainting& p)
{
    const MapGeometry geometry(p);
    if (geometry.columns < 1) return;
    const int nBands = (p.nRows + rasterBand - 1) / rasterBand;
#pragma omp parallel for schedule(static) if (isWorthThreads(p.nRows, p.window.count))
    for (int band = 0; band < nBands; ++band)
        paintMapBand(p, geometry, band * rasterBand, std::min(rasterBand, p.nRows - band * rasterBand));
}
