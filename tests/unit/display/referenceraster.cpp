#include "tests/unit/display/referenceraster.h"

#include "display/colors/colortable.h"
#include "host/numeric/antialias.h"
#include "host/numeric/intlin.h"
#include "host/numeric/resample.h"

#include <QPainter>

#include <cmath>

static int cut(double v)
{
    if (std::isnan(v)) return 0;
    if (v > 2e9) return 2000000000;
    if (v < -2e9) return -2000000000;
    return static_cast<int>(v);
}

static int limited(int v, int low, int high)
{
    if (v < low) return low;
    return v > high ? high : v;
}

static QRgb colorOf(const ColorTable& colors, double value)
{
    double index = (colors.maxValue() - value) / colors.increment();
    if (std::isnan(index) || index < 0) index = 0;
    if (index > colors.numColors() - 1) index = colors.numColors() - 1;
    return colors.rgbArray()[int(index)];
}

/// QPainter rounds steps of 190 pixels and more, and lines cut at the picture's edge, by its fixed-point
/// slope: some then show a pixel beside the end. The former are drawn by the rule that holds for all others,
/// the latter on a strip of their own that needs no cut.
static constexpr int longestExactStep = 189;

template <typename Put>
static void drawSegment(int x0, int x1, int y, Put put)
{
    const int left = std::min(x0, x1);
    const int dx = std::abs(x1 - x0);
    if (dx > longestExactStep) {
        for (int x = x0; x != x1; x += x1 > x0 ? 1 : -1) put(x, y - 1, qRgb(0, 0, 0));
        put(x1, y, qRgb(0, 0, 0));
        return;
    }
    QImage strip(dx + 3, 2, QImage::Format_RGB32);
    strip.fill(Qt::white);
    QPainter painter(&strip);
    painter.setPen(QPen(Qt::black, 0));
    painter.drawLine(x0 - left + 1, 0, x1 - left + 1, 1);
    painter.end();
    for (int row = 0; row < 2; ++row)
        for (int x = 0; x < dx + 3; ++x)
            if (strip.pixel(x, row) == qRgb(0, 0, 0)) put(left - 1 + x, y - 1 + row, qRgb(0, 0, 0));
}

namespace {

/// One render, step by step.
struct Reference {
    explicit Reference(const RasterParm& given) : parm(given) {}
    bool findWindow();
    void resampleTraces();
    std::vector<float> workTrace(int tr, int start, int dest, int n) const;
    void resampleTrace(int tr, int start, int dest, int n, int place0, float* out) const;
    void paint();
    void paintMapRow(int r);
    void paintRow(int r, QPainter* painter);
    void fill(float value, int axis, int prevEnd, int end, int y);
    void put(int x, int y, QRgb color);
    float valueAt(int r, int k) const { return r < rowstride ? outdata[r + size_t(k) * rowstride] : 0.0f; }
    bool isMap() const { return parm.displayType == Map || parm.displayType == Velocity; }
    bool isHyperbolic() const { return parm.moveout == 2 && parm.velocity > 0.0f; }
    double dt() const { return parm.sampleRate / 1000.0; }

    const RasterParm& parm;
    ReferencePicture result;
    double nsamp = 0.0;
    int firstSample = 0, firstTrace = 0, count = 0, width = 0, height = 0, rowstride = 0, xbase = 0, top = 0;
    float pixPerTrace = 0.0f, pixPerSample = 0.0f;
    std::vector<float> outdata;
};

}  // namespace

bool Reference::findWindow()
{
    const float rate = parm.sampleRate;
    double t0;
    if (parm.timeDirection != 0) {
        t0 = parm.y.s2;
        nsamp = (parm.y.s1 - t0) / rate;
    } else {
        t0 = parm.y.s1;
        nsamp = (parm.y.s2 - t0) / rate;
    }
    firstSample = cut(t0 / rate - parm.startSample);
    if (firstSample < 0) firstSample = 0;
    const double ntr = parm.x.s2 - parm.x.s1;
    count = cut(ntr + 0.5);
    if (count < 1) count = 1;
    if (parm.x.s1 < 0) count = parm.x.s2 > 0 ? cut(parm.x.s2) : 0;  // trace i stands at i, so none is left of 0
    firstTrace = cut(parm.x.s1);
    if (firstTrace < 0) firstTrace = 0;
    if (firstTrace + count > parm.view.nTraces) count = parm.view.nTraces - firstTrace;
    int shownSamples = std::min(parm.view.nSamples, cut(nsamp));
    if (shownSamples + firstSample > parm.view.nSamples) shownSamples = parm.view.nSamples - firstSample;
    if (shownSamples < 2) return false;
    width = cut(parm.x.p2 - parm.x.p1);
    height = cut(parm.y.p1 - parm.y.p2);
    if (width < 1 || height < 1) return false;
    top = cut(parm.y.p2);
    rowstride = cut(parm.plotSampleCount);
    if (rowstride < height) rowstride = height;
    pixPerTrace = float(width / (ntr > 1.0 ? ntr : 1.0));
    pixPerSample = float(height / nsamp);
    int offset;
    if (parm.x.s1 != 0)
        offset = cut(pixPerTrace * (1.0 - (parm.x.s1 - firstTrace)));
    else
        offset = cut(pixPerTrace);
    xbase = offset + cut(parm.x.p1);
    return true;
}

/// The scaled samples with `dest` places before them.
std::vector<float> Reference::workTrace(int tr, int start, int dest, int n) const
{
    std::vector<float> trace(dest + n, 0.0f);
    for (int j = 0; j < n; ++j) trace[dest + j] = parm.samples[start + j + size_t(parm.stride) * tr];
    for (float& v : trace) {
        if (!std::isfinite(v)) v = 0.0f;
        v = v * parm.gain;
        if (parm.applyBias) v = v + parm.bias;
        if (parm.normalize == Normalize::Trace && parm.divTrace[tr] != 0.0f) v = v / parm.divTrace[tr];
        if (parm.normalize == Normalize::Dataset && parm.divRecord != 0.0f) v = v / parm.divRecord;
    }
    return trace;
}

/// @param place0  sample at the top of the work trace
void Reference::resampleTrace(int tr, int start, int dest, int n, int place0, float* out) const
{
    std::vector<float> trace = workTrace(tr, start, dest, n);
    const int m = dest + n;
    if (isHyperbolic()) {
        const double offs = parm.offsets ? parm.offsets[tr] : 0.0;
        const double q = offs * offs / (double(parm.velocity) * parm.velocity);
        std::vector<float> positions(m), moved(m);
        for (int j = 0; j < m; ++j) {
            const double time = double(j + place0 + parm.startSample) * dt();
            positions[j] = float(std::sqrt(time * time + q) / dt() - (place0 + parm.startSample));
            if (time < 0.0) positions[j] = -1000.0f;  // nothing is known before time 0
        }
        ints8r(m, 1.0f, 0.0f, trace.data(), 0.0f, 0.0f, m, positions.data(), moved.data());
        trace = moved;
    }
    if (isMap()) {
        std::vector<float> nodes(m), rows(rowstride);
        for (int j = 0; j < m; ++j) nodes[j] = pixPerSample * j;
        for (int j = 0; j < rowstride; ++j) rows[j] = j;
        intlin(m, nodes.data(), trace.data(), rowstride, rows.data(), out, trace[0], trace[m - 1]);
        return;
    }
    std::vector<float> low(trace);
    if (parm.antialias && pixPerSample < 1.0f) antialias(pixPerSample, 0, m, trace.data(), low.data());
    ress8r(m, pixPerSample, 0.0f, low.data(), low[0], 0.0f, rowstride, 1.0f, 0.0f, out);
}

void Reference::resampleTraces()
{
    outdata.assign(size_t(rowstride) * count, 0.0f);
    result.shifts.assign(parm.view.nTraces, 0);
    int col = 0;
    for (int i = firstTrace; i < firstTrace + count; ++i) {
        const int tr = parm.plotDirection == RightToLeft ? parm.nDataTraces - 1 - i : i;
        int shift = 0;
        if (parm.moveout == 1 && parm.velocity > 0.0f && parm.offsets)
            shift = cut((std::fabs(double(parm.offsets[tr])) / parm.velocity) / dt());
        result.shifts[i] = shift - parm.bulkshift;
        int start = firstSample + result.shifts[i];
        const int place0 = start;
        int dest = 0;
        int n = parm.view.nSamples;
        if (start < 0) {
            dest = -start;
            start = 0;
        } else if (start > 0) {
            n = parm.view.nSamples - start;
        }
        if (n <= 0) continue;
        const float* first = parm.samples + start + size_t(parm.stride) * tr;
        result.taps.push_back({std::vector<float>(first, first + n), start, tr});
        resampleTrace(tr, start, dest, n, place0, &outdata[col]);
        col += rowstride;
    }
}

void Reference::put(int x, int y, QRgb color)
{
    if (x >= 0 && x < width && y >= 0 && y < height) result.image.setPixel(x, y, color);
}

void Reference::paintMapRow(int r)
{
    const int columns = cut(pixPerTrace * count);
    std::vector<float> at(count), values(count), x(columns), spread(columns);
    for (int k = 0; k < count; ++k) {
        at[k] = float(k) * columns / count;
        values[k] = valueAt(r, k);
    }
    for (int k = 0; k < columns; ++k) x[k] = k;
    intlin(count, at.data(), values.data(), columns, x.data(), spread.data(), values[0], values[count - 1]);
    for (int k = 0; k < columns; ++k) put(k + xbase, top + r, colorOf(*parm.colors, spread[k]));
}

void Reference::fill(float value, int axis, int prevEnd, int end, int y)
{
    const bool isArea = parm.displayType == WiggleVA || parm.displayType == VA;
    const bool isColor = parm.displayType == ColorB || parm.displayType == ColorWiggle;
    if (isArea && value > 0)
        for (int x = std::max(axis, prevEnd); x <= end; ++x) put(x, y, qRgb(0, 0, 0));
    if (!isColor) return;
    if (value > 0) {
        for (int x = std::max(axis, prevEnd); x <= end; ++x) put(x, y, colorOf(*parm.colors, value));
    } else if (end <= axis) {
        for (int x = end; x <= axis; ++x) put(x, y, colorOf(*parm.colors, value));
    }
}

/// @param painter  null for a type without lines
void Reference::paintRow(int r, QPainter* painter)
{
    const int clipPix = cut(pixPerTrace * parm.clip);
    const int y = top + r;
    int prevEnd = xbase;
    for (int k = 0; k < count; ++k) {
        const int axis = limited(cut(k * pixPerTrace + xbase), 0, width - 1);
        const int a = limited(cut(valueAt(r, k) * pixPerTrace), -clipPix, clipPix);
        const int end = limited(a + axis, 0, width - 1);
        fill(valueAt(r, k), axis, prevEnd, end, y);
        if (painter && r == 0) painter->drawLine(end, y, end, y);
        if (painter && r > 0) {
            const int from = limited(cut(valueAt(r - 1, k) * pixPerTrace), -clipPix, clipPix) + axis;
            if (from < 0 || from >= width || y < 1 || std::abs(end - from) > longestExactStep)
                drawSegment(from, end, y, [this](int px, int py, QRgb color) { put(px, py, color); });
            else
                painter->drawLine(from, y - 1, end, y);
        }
        prevEnd = end;
    }
}

void Reference::paint()
{
    QPainter painter;
    const bool hasLines = parm.displayType == WiggleVA || parm.displayType == Wiggle || parm.displayType == ColorWiggle;
    if (hasLines) {
        painter.begin(&result.image);
        painter.setPen(QPen(Qt::black, 0));
    }
    for (int r = 0; r < height - top; ++r) isMap() ? paintMapRow(r) : paintRow(r, hasLines ? &painter : nullptr);
}

ReferencePicture referenceRender(const RasterParm& parm)
{
    Reference reference(parm);
    if (!reference.findWindow()) return {};
    reference.result.image = QImage(reference.width, reference.height, QImage::Format_RGB32);
    reference.result.image.fill(parm.background);
    if (reference.count < 1) return reference.result;
    reference.resampleTraces();
    reference.paint();
    return reference.result;
}
