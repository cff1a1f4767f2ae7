#include "display/raster/traceraster.h"

#include "display/raster/columnresampler.h"
#include "display/raster/rasternumber.h"
#include "display/raster/rasterpaint.h"
#include "display/raster/tracetap.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstring>

/// No picture is larger a side, whatever the maps say.
static constexpr int mostPixels = 1 << 20;
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
    w.xbase = std::clamp(wholeOf(left), -mostShift, mostShift) + std::clamp(wholeOf(parm.x.p1), -mostShift, mostShift);
    w.clipPix = wholeOf(w.pixPerTrace * parm.clip);
    *window = w;
    return true;
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
        RasterColumn column;
        column.tr = parm.plotDirection == RightToLeft ? parm.nDataTraces - 1 - i : i;
        _ishift[i] = wholeOf(double(linearShift(parm, column.tr)) - parm.bulkshift);
        column.first = int64_t(window.firstSample) + _ishift[i];
        column.start = int(std::clamp<int64_t>(column.first, 0, nSamples));
        column.dest = int(std::clamp<int64_t>(-column.first, 0, mostShift));
        column.n = nSamples - column.start;
        if (column.n < 1) continue;
        column.samples = parm.samples + size_t(column.tr) * parm.stride + column.start;
        _columns.push_back(column);
    }
    if (tap) tapColumns(tap);
}

/// In trace order, on this thread: the columns are shared out to others only afterwards.
void TraceRaster::tapColumns(TraceTap* tap)
{
    if (tap->changesTraces()) changeColumns(tap);
    for (const RasterColumn& column : _columns) tap->pickTraceChange(column.samples, column.start, column.n, column.tr);
}

/// The samples are lent and stay as they are: the columns look at changed copies.
void TraceRaster::changeColumns(TraceTap* tap)
{
    size_t nAll = 0;
    for (const RasterColumn& column : _columns) nAll += size_t(column.n);
    if (_changed.size() < nAll) _changed.resize(nAll);
    float* out = _changed.data();
    for (RasterColumn& column : _columns) {
        std::copy_n(column.samples, column.n, out);
        tap->changeTrace(out, column.start, column.n, column.tr);
        column.samples = out;
        out += column.n;
    }
}

TraceRaster::TraceRaster() : _resampler(std::make_unique<ColumnResampler>()) {}

TraceRaster::~TraceRaster() = default;

QImage TraceRaster::render(const RasterParm& parm, TraceTap* tap)
{
    RasterWindow window;
    if (!rasterWindow(parm, &window)) return QImage();
    collectColumns(parm, window, tap);
    if (_image.width() != window.width || _image.height() != window.height || !_image.isDetached())
        _image = QImage(window.width, window.height, QImage::Format_RGB32);
    if (_image.isNull()) return QImage();
    _image.setDevicePixelRatio(parm.pixelRatio);
    const QRgb background = 0xff000000u | parm.background;
    // Grey is a choice of colours, not a way of painting.
    if (window.count < 1 || window.height <= window.top || parm.displayType == Grayscale) {
        _image.fill(background);
        return _image;
    }

    _resampler->resample(parm, window, _columns);
    RasterPainting painting;
    const int hidden = std::max(0, -window.top);  // rows above the picture
    painting.rows = _resampler->rows() + hidden * _resampler->stride();
    painting.stride = _resampler->stride();
    painting.nRows = window.height - window.top - hidden;
    painting.window = window;
    painting.window.top += hidden;
    painting.displayType = parm.displayType;
    painting.colors = parm.colors;
    painting.pixels = reinterpret_cast<QRgb*>(_image.bits());
    painting.background = background;
    std::fill_n(painting.pixels, size_t(painting.window.top) * window.width, background);
    isMap(parm.displayType) ? paintMap(painting) : paintTraces(painting);
    return _image;
}

void TraceRaster::reserve(int rows, int nTraces, int nSamples)
{
    _columns.reserve(std::max(nTraces, 0));
    _resampler->reserve(rows, nTraces, nSamples);
}
