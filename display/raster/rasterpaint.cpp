// Wiggles, areas and colours, row by row: the pixels of all traces of a row are worked out as vectors, then
// written as spans. A span per trace and row holds all that the trace blackens there: its fill, the end of its
// line from the row above, and the part of the line to the row below, which begins at that end.
#include "display/raster/rasterpaint.h"

#include "display/raster/displaytype.h"
#include "display/raster/rasterband.h"
#include "display/raster/rasternumber.h"

#include <vector>

#include <immintrin.h>

/// Rows that one thread paints in a go.
static constexpr int rowsTogether = 64;

/// What the rows of one painting have in common.
struct TraceGeometry {
    explicit TraceGeometry(const RasterPainting& p);

    std::vector<int> axis;  // pixel column of each trace, padded to whole bands
    std::vector<QRgb> colors;
    float clipPix;
};

TraceGeometry::TraceGeometry(const RasterPainting& p)
    : axis(p.window.count + rasterBand), colors(p.colors->rgbArray(), p.colors->rgbArray() + p.colors->numColors())
{
    // beyond this every excursion has left the picture, and below it a float holds each pixel
    clipPix = float(std::clamp(p.window.clipPix, 0, 1 << 24));
    for (int k = 0; k < p.window.count; ++k)
        axis[k] = std::clamp(wholeOf(k * p.window.pixPerTrace + p.window.xbase), 0, p.window.width - 1);
    for (QRgb& color : colors) color |= opaqueBlack;
}

/// Where each trace stands in a row: its excursion from the axis, in pixels.
struct RowEnds {
    void setRoom(int nTraces);
    const int* at() const { return _at.data() + rasterBand; }
    int* at() { return _at.data() + rasterBand; }
    /// Cut to the picture. The one before the first is the first trace's axis.
    const int* end() const { return _end.data() + rasterBand; }
    int* end() { return _end.data() + rasterBand; }

private:
    std::vector<int> _at, _end;
};

void RowEnds::setRoom(int nTraces)
{
    const size_t n = size_t(nTraces) + 2 * rasterBand;
    if (_at.size() < n) _at.resize(n);
    if (_end.size() < n) _end.resize(n);
}

/// Work arrays of one thread.
struct RowWork {
    void setRoom(int nTraces);

    RowEnds ends[2];                                               // of the row that is painted and of the next
    std::vector<int> first, length, color, lineFirst, lineLength;  // spans, and for colours those of the lines
};

void RowWork::setRoom(int nTraces)
{
    for (RowEnds& row : ends) row.setRoom(nTraces);
    for (auto* spans : {&first, &length, &color, &lineFirst, &lineLength})
        if (spans->size() < size_t(nTraces) + rasterBand) spans->resize(size_t(nTraces) + rasterBand);
}

static constexpr bool hasColors(DisplayType type)
{
    return type == ColorB || type == ColorWiggle;
}

static inline MERIDUNE_KERNEL IntBand larger(const IntBand& a, const IntBand& b)
{
    return a > b ? a : b;
}

static inline MERIDUNE_KERNEL IntBand smaller(const IntBand& a, const IntBand& b)
{
    return a < b ? a : b;
}

/// Excursions in whole pixels, limited; 0 for NaN.
static inline MERIDUNE_KERNEL IntBand excursions(FloatBand v, float pixPerTrace, float clipPix)
{
    v *= pixPerTrace;
    v = v == v ? v : FloatBand{};
    v = v < -clipPix ? FloatBand{} - clipPix : v;
    v = v > clipPix ? FloatBand{} + clipPix : v;
    return __builtin_convertvector(v, IntBand);
}

static inline MERIDUNE_KERNEL void findEnds(const RasterPainting& p, const TraceGeometry& geometry, int r,
                                            RowEnds* ends)
{
    const float* const row = p.rows + r * p.stride;
    const IntBand right = IntBand{} + (p.window.width - 1);
    ends->end()[-1] = p.window.xbase;
    for (int k = 0; k < p.window.count; k += rasterBand) {
        const IntBand at = excursions(loadBand<FloatBand>(row + k), p.window.pixPerTrace, geometry.clipPix) +
                           loadBand<IntBand>(&geometry.axis[k]);
        storeBand(at, ends->at() + k);
        storeBand(smaller(larger(at, IntBand{}), right), ends->end() + k);
    }
}

struct SpanBand {
    IntBand first, last;
};

/// The part in a row of the lines to the next row's ends; empty where these lie outside the picture.
static inline MERIDUNE_KERNEL SpanBand lineSpans(const IntBand& at, const IntBand& next, int right)
{
    return {larger(next < at ? next + 1 : at, IntBand{}), smaller(next > at ? next - 1 : at, IntBand{} + right)};
}

static inline MERIDUNE_KERNEL void storeSpans(const SpanBand& spans, int* first, int* length)
{
    storeBand(spans.first, first);
    storeBand(larger(spans.last - spans.first + 1, IntBand{}), length);
}

/// The spans of row r.
/// @param next  of the row below, null for none
template <DisplayType type>
static inline MERIDUNE_KERNEL void findSpans(const RasterPainting& p, const TraceGeometry& geometry, int r,
                                             const RowEnds& row, const RowEnds* next, RowWork* work)
{
    const float* const values = p.rows + r * p.stride;
    const int right = p.window.width - 1;
    for (int k = 0; k < p.window.count; k += rasterBand) {
        const FloatBand v = loadBand<FloatBand>(values + k);
        const IntBand axis = loadBand<IntBand>(&geometry.axis[k]), end = loadBand<IntBand>(row.end() + k);
        const IntBand fill = larger(loadBand<IntBand>(row.end() + k - 1), axis);
        const IntBand isPositive = v > 0.0f;
        SpanBand line = {end, end - 1};
        if (isWiggleType(type) && next)
            line = lineSpans(loadBand<IntBand>(row.at() + k), loadBand<IntBand>(next->end() + k), right);
        if constexpr (hasColors(type)) {
            storeSpans({isPositive ? fill : end, isPositive ? end : axis}, &work->first[k], &work->length[k]);
            colorIndices(values + k, rasterBand, *p.colors, &work->color[k]);
            if constexpr (isWiggleType(type)) storeSpans(line, &work->lineFirst[k], &work->lineLength[k]);
        } else if constexpr (type == VA) {
            storeSpans({fill, isPositive ? end : fill - 1}, &work->first[k], &work->length[k]);
        } else {
            line = {smaller(line.first, end), larger(line.last, end)};  // all begin at the end: one span
            if constexpr (type == WiggleVA) line.first = isPositive ? smaller(line.first, fill) : line.first;
            storeSpans(line, &work->first[k], &work->length[k]);
        }
    }
}

/// Writes spans of one colour.
static void writeBlackPlain(QRgb* line, const int* first, const int* length, int n)
{
    for (int k = 0; k < n; ++k) std::fill_n(line + first[k], length[k], opaqueBlack);
}

// Most spans are a few pixels long: writing eight under a mask needs no branch that could be guessed wrongly.
static constexpr int masked = 8;
alignas(64) static const int masks[2 * masked] = {-1, -1, -1, -1, -1, -1, -1, -1};

MERIDUNE_V3 static inline void writeSpanV3(QRgb* to, int length, __m256i color)
{
    for (; __builtin_expect(length > masked, 0); length -= masked, to += masked)
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), color);
    const auto* const mask = reinterpret_cast<const __m256i*>(masks + masked - length);
    _mm256_maskstore_epi32(reinterpret_cast<int*>(to), _mm256_loadu_si256(mask), color);
}

MERIDUNE_V3 static void writeBlackV3(QRgb* line, const int* first, const int* length, int n)
{
    const __m256i black = _mm256_set1_epi32(int(opaqueBlack));
    for (int k = 0; k < n; ++k) writeSpanV3(line + first[k], length[k], black);
}

/// Writes spans in colours, in the order of the traces.
/// @param end  of each trace, blackened after its span; null for none
static void writeColorsPlain(QRgb* line, const QRgb* colors, const RowWork& work, const int* end, int n)
{
    for (int k = 0; k < n; ++k) {
        std::fill_n(line + work.first[k], work.length[k], colors[work.color[k]]);
        if (end) line[end[k]] = opaqueBlack;
    }
}

MERIDUNE_V3 static void writeColorsV3(QRgb* line, const QRgb* colors, const RowWork& work, const int* end, int n)
{
    const int *const first = work.first.data(), *const length = work.length.data(), *const color = work.color.data();
    for (int k = 0; k < n; ++k) {
        writeSpanV3(line + first[k], length[k], _mm256_set1_epi32(int(colors[color[k]])));
        if (end) line[end[k]] = opaqueBlack;
    }
}

/// The functions of one processor variant.
struct RowWriters {
    void (*black)(QRgb* line, const int* first, const int* length, int n);
    void (*colors)(QRgb* line, const QRgb* colors, const RowWork& work, const int* end, int n);
};

/// Rows r0 to r1 - 1.
template <DisplayType type>
static inline MERIDUNE_KERNEL void paintRows(const RasterPainting& p, const TraceGeometry& geometry, int r0, int r1,
                                             const RowWriters& write, RowWork* work)
{
    findEnds(p, geometry, r0, &work->ends[r0 % 2]);
    for (int r = r0; r < r1; ++r) {
        const RowEnds& row = work->ends[r % 2];
        RowEnds* const next = r + 1 < p.nRows ? &work->ends[(r + 1) % 2] : nullptr;
        if (next) findEnds(p, geometry, r + 1, next);
        findSpans<type>(p, geometry, r, row, next, work);
        QRgb* const line = p.pixels + ptrdiff_t(p.window.top + r) * p.window.width;
        std::fill_n(line, p.window.width, p.background);
        if constexpr (hasColors(type)) {
            write.colors(line, geometry.colors.data(), *work, isWiggleType(type) ? row.end() : nullptr, p.window.count);
            if constexpr (isWiggleType(type))
                write.black(line, work->lineFirst.data(), work->lineLength.data(), p.window.count);
        } else {
            write.black(line, work->first.data(), work->length.data(), p.window.count);
        }
    }
}

static inline MERIDUNE_KERNEL void paintRowsOf(const RasterPainting& p, const TraceGeometry& geometry, int r0, int r1,
                                               const RowWriters& write, RowWork* work)
{
    switch (p.displayType) {
    case WiggleVA: return paintRows<WiggleVA>(p, geometry, r0, r1, write, work);
    case Wiggle: return paintRows<Wiggle>(p, geometry, r0, r1, write, work);
    case VA: return paintRows<VA>(p, geometry, r0, r1, write, work);
    case ColorB: return paintRows<ColorB>(p, geometry, r0, r1, write, work);
    case ColorWiggle: return paintRows<ColorWiggle>(p, geometry, r0, r1, write, work);
    default: return;
    }
}

static void paintRowsPlain(const RasterPainting& p, const TraceGeometry& geometry, int r0, int r1, RowWork* work)
{
    paintRowsOf(p, geometry, r0, r1, {writeBlackPlain, writeColorsPlain}, work);
}

MERIDUNE_V3 static void paintRowsV3(const RasterPainting& p, const TraceGeometry& geometry, int r0, int r1,
                                    RowWork* work)
{
    paintRowsOf(p, geometry, r0, r1, {writeBlackV3, writeColorsV3}, work);
}

void paintTraces(const RasterPainting& p)
{
    const TraceGeometry geometry(p);
    const auto paint = cpuVariant() == CpuVariant::V3 ? paintRowsV3 : paintRowsPlain;
#pragma omp parallel for schedule(static) if (isWorthThreads(p.nRows, p.window.count))
    for (int r0 = 0; r0 < p.nRows; r0 += rowsTogether) {
        static thread_local RowWork work;
        work.setRoom(p.window.count);
        paint(p, geometry, r0, std::min(r0 + rowsTogether, p.nRows), &work);
    }
}
