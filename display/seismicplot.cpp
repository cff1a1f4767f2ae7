#include "display/seismicplot.h"

#include "display/colors/colorbarframe.h"
#include "display/plotowner.h"
#include "display/raster/dataview.h"
#include "display/raster/displaytype.h"
#include "display/raster/rasternumber.h"
#include "display/raster/tracetap.h"
#include "tracedata/seismicdata.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

SeismicPlot::SeismicPlot(PlotOwner* owner, SeismicData* data, const QString& title)
    : QwtPlotRasterItem(title), _owner(owner), _data(data)
{
    setItemAttribute(QwtPlotItem::AutoScale, false);
    setItemAttribute(QwtPlotItem::Legend, false);
    _look.normalize = Normalize::None;  // until somebody tells
}

SeismicPlot::~SeismicPlot() = default;

void SeismicPlot::setRMS(float rms)
{
    _rms = rms;
    _peak = float(rms * 1.4);
}

void SeismicPlot::setMaxAmp(float value)
{
    _maxAmp = value;
    setMinMax();
}

void SeismicPlot::setMinAmp(float value)
{
    _minAmp = value;
    setMinMax();
}

void SeismicPlot::setMinMax()
{
    _look.applyBias = _minAmp != _maxAmp;
    _look.bias = _look.applyBias ? (_maxAmp + _minAmp) / ((_maxAmp - _minAmp) + (_maxAmp - _minAmp)) : 0.0f;
}

void SeismicPlot::passRangeToBar()
{
    if (!_colorBar) return;
    _colorBar->setMinMaxValue(_look.rangeMin, _look.rangeMax);
    _colorBar->setDataMinMaxValue(_look.rangeMin, _look.rangeMax);
}

void SeismicPlot::setRange(float rmin, float rmax)
{
    _look.rangeMin = rmin;
    _look.rangeMax = rmax;
    passRangeToBar();
}

static QString unitOf(DisplayType type)
{
    return type == Velocity ? "velocity" : "amplitude";
}

void SeismicPlot::setColorBar(ColorBarFrame* bar)
{
    _colorBar = bar;
    if (!_colorBar) return;
    _colorBar->setColorType(isColorType(_look.displayType) ? ColorYes : ColorNo);
    _colorBar->setUnit(unitOf(_look.displayType));
    passRangeToBar();
}

void SeismicPlot::setNormalization(Normalize normalize)
{
    const bool wasScaled = isScaled();
    _look.normalize = normalize;
    if (_firstTime) return;
    computeNormalizer();
    if (_look.autoRange || wasScaled == isScaled()) return;
    // The same numbers would be amplitudes of another unit.
    _rangeOf[wasScaled] = QPointF(_look.rangeMin, _look.rangeMax);
    if (_rangeOf[isScaled()])
        setRange(float(_rangeOf[isScaled()]->x()), float(_rangeOf[isScaled()]->y()));
    else if (_conditioner.countedTraces() > 0) {
        takeAutomaticRange();
        passRangeToBar();
    }
}

void SeismicPlot::setDisplayType(DisplayType type)
{
    _look.displayType = type;
    for (auto& range : _rangeOf) range.reset();
    if (!_colorBar) return;
    const bool isAmplitude = type == ColorB || type == ColorWiggle;
    if (isAmplitude && _colorBar->colorType() == ColorNo) setRange(-3.0f, 3.0f);
    _colorBar->setColorType(isColorType(type) ? ColorYes : ColorNo);
    _colorBar->setUnit(unitOf(type));
    if (type == Velocity) _look.normalize = Normalize::None;
    setAutoGain(!isAmplitude);
    computeNormalizer();
    passRangeToBar();
    _colorBar->update();
}

/// All but what has consequences of its own: type, scaling and range.
void SeismicPlot::takePlain(const LookParm& parm)
{
    const LookParm before = _look;
    _look = parm;
    _look.displayType = before.displayType;
    _look.normalize = before.normalize;
    _look.autoRange = before.autoRange;
    _look.rangeMin = before.rangeMin;
    _look.rangeMax = before.rangeMax;
}

void SeismicPlot::setParm(const PlotParm& parm)
{
    _conditioner.setParm(parm);
    takePlain(parm);
    setDisplayType(parm.displayType);
    _look.normalize = parm.normalize;
    _look.autoRange = parm.autoRange;
    if (!_firstTime) computeNormalizer();
    if (!parm.autoRange) setRange(parm.rangeMin, parm.rangeMax);
}

void SeismicPlot::changeParm(const PlotParm& parm)
{
    const PlotParm before = this->parm();
    _conditioner.setParm(parm);
    takePlain(parm);
    if (parm.displayType != before.displayType) setDisplayType(parm.displayType);
    if (parm.autoRange != before.autoRange) setAutoGain(parm.autoRange);
    setNormalization(parm.normalize);  // also conditions
    if (parm.rangeMin != before.rangeMin || parm.rangeMax != before.rangeMax) setRange(parm.rangeMin, parm.rangeMax);
}

void SeismicPlot::applyAGC(bool state, int winlen)
{
    _conditioner.applyAGC(state, winlen);
}

void SeismicPlot::applyPhase(bool state, int angle)
{
    _conditioner.applyPhase(state, float(angle));
}

void SeismicPlot::applyFilter(bool state, int lc, int lp, int hp, int hc, bool isTime)
{
    _conditioner.applyFilter(state, lc, lp, hp, hc, isTime);
}

void SeismicPlot::applyMoveout(int moveout, float velocity)
{
    _look.moveout = moveout;
    _look.velocity = velocity;
}

void SeismicPlot::applyProcessing(float* trace, int num)
{
    _conditioner.applyProcessing(trace, num, _data->sampleCount(), _data->sampleRate());
}

/// The range that follows the data. Of scaled colours it is that of what is painted, of others that of the samples.
void SeismicPlot::takeAutomaticRange()
{
    if (_scaleSource) {
        _look.rangeMin = _scaleSource->rangeMin();
        _look.rangeMax = _scaleSource->rangeMax();
    } else if (!isScaled()) {
        _look.rangeMin = _conditioner.minimum();
        _look.rangeMax = _conditioner.maximum();
    } else {
        _look.rangeMax = isColorType(_look.displayType) ? float(1.4 * _conditioner.meanScaled(_look.normalize)) : _peak;
        _look.rangeMin = -_look.rangeMax;
    }
}

void SeismicPlot::computeNormalizer()
{
    _conditioner.computeNormalizer(*_data);
    setRMS(_scaleSource ? _scaleSource->rms() : _conditioner.rms());
    const bool isFirstRange =
        _firstTime && _look.displayType != ColorB && _look.displayType != ColorWiggle && _look.displayType != Map;
    const bool isMeasured = _conditioner.countedTraces() > 0 || _scaleSource;
    if (isMeasured && (_look.autoRange || isFirstRange)) takeAutomaticRange();
    if (!isMeasured && _look.autoRange) _look.rangeMin = _look.rangeMax = 0.0f;
    _firstTime = false;
    if (!_colorBar) return;
    if (_colorBar->colorType() == ColorYes) _colorBar->setMinMaxValue(_look.rangeMin, _look.rangeMax);
    _colorBar->setDataMinMaxValue(_look.rangeMin, _look.rangeMax);
}

void SeismicPlot::setSeismicView(int traceNum, int sampleNum, int nTraces, int nSamples, int startSample)
{
    _seisRect.traceNum = traceNum;
    _seisRect.sampleNum = sampleNum;
    _seisRect.nTraces = nTraces;
    _seisRect.nSamples = nSamples;
    _startSample = startSample;
}

void SeismicPlot::setOutputBuffers(const QRect& rect)
{
    const int w = rect.width(), h = rect.height();
    if (!_dataLoaded || w <= 0 || h <= 0) return;
    if (_look.autoTraceSpacing) {
        _look.traceSpacing = (_data->traceCount() + 1) * _dpi / w;
        if (_look.traceSpacing < 1.0f) _look.traceSpacing = 1.0f;
    }
    _plotTraceCount = w * _look.traceSpacing / _dpi;
    if (_look.autoSampleSpacing) _look.sampleSpacing = _data->sampleCount() * _dpi / h;
    _plotSampleCount = h * _look.sampleSpacing / _dpi;
    setOutput(rect);
}

void SeismicPlot::setOutput(const QRect& rect)
{
    _raster.reserve(rect.height(), _seisRect.nTraces, _seisRect.nSamples);
}

int SeismicPlot::timeDirection() const
{
    return _owner ? _owner->timeDirection() : 1;
}

static AxisMap axisMap(const QwtScaleMap& map)
{
    return {map.s1(), map.s2(), map.p1(), map.p2()};
}

/// The map in device pixels, counted from `origin`.
static AxisMap deviceMap(const QwtScaleMap& map, double origin, double ratio)
{
    return {map.s1(), map.s2(), (map.p1() - origin) * ratio, (map.p2() - origin) * ratio};
}

/// Hands the conditioned traces on to the display.
struct OwnerTap : TraceTap {
    explicit OwnerTap(PlotOwner* plotOwner) : owner(plotOwner), changer(owner ? owner->traceChanger() : nullptr) {}
    void pickTraceChange(const float* trace, int start, int n, int tr) override
    {
        owner->sendPickTraceChange(trace, start, n, tr);
    }
    bool changesTraces() const override { return changer && changer->changesTraces(); }
    void changeTrace(float* trace, int start, int n, int tr) override { changer->changeTrace(trace, start, n, tr); }
    PlotOwner* owner;
    TraceTap* changer;
};

RasterParm SeismicPlot::rasterParm(std::vector<float>* offsets) const
{
    static const ColorTable blackAndWhite;
    RasterParm parm;
    parm.nDataTraces = _conditioner.traceCount();
    parm.stride = _conditioner.sampleCount();
    parm.samples = _conditioner.samples();
    if (_conditioner.isInPlace()) {
        // A load that ran out of memory may have left other data, or none.
        const bool isThere = _data->traceCount() >= parm.nDataTraces && _data->sampleCount() == parm.stride;
        parm.samples = isThere ? _data->getTraceValues(0, 0) : nullptr;
        if (!isThere) parm.nDataTraces = 0;
    }
    parm.sampleRate = _owner && _owner->isSlice() ? 1.0f : _data->sampleRate();
    const TraceConditioner& scale = _scaleSource && _scaleSource->conditioner().traceCount() >= parm.nDataTraces
                                        ? _scaleSource->conditioner()
                                        : _conditioner;
    parm.divTrace = scale.divTrace();
    parm.divRecord = scale.divRecord();
    parm.view = _seisRect;
    parm.startSample = _startSample;
    parm.timeDirection = timeDirection();
    parm.displayType = _look.displayType;
    parm.plotDirection = _look.plotDirection;
    parm.normalize = _look.normalize;
    parm.gain = float(std::pow(10.0, _look.gain / 20.0));
    parm.bias = _look.bias;
    parm.applyBias = _look.applyBias;
    parm.clip = _look.clip;
    parm.antialias = _look.antialias;
    parm.bulkshift = _look.bulkshift;
    parm.moveout = _look.moveout;
    parm.velocity = _look.velocity;
    parm.plotSampleCount = _plotSampleCount;
    parm.colors = _colorBar ? &_colorBar->table() : &blackAndWhite;
    if (_colorBar) parm.background = _colorBar->backRGB();

    if (_owner && _look.moveout != 0 && _look.velocity > 0.0f) {
        offsets->resize(parm.nDataTraces);  // of the conditioned copy, which may be older than the data
        _owner->traceOffsets(*_data, std::min(_data->traceCount(), parm.nDataTraces), offsets->data());
        parm.offsets = offsets->data();
    }
    return parm;
}

/// A picture of background with `part` from row `first` on.
static QImage withBackground(const QImage& part, int first, const QSize& size, QRgb background, double pixelRatio)
{
    constexpr int64_t mostPixels = 1 << 29;
    if (size.isEmpty() || int64_t(size.width()) * size.height() > mostPixels) return QImage();
    QImage picture(size, QImage::Format_RGB32);
    if (picture.isNull()) return picture;
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(0xff000000u | background);
    for (int row = 0; row < part.height(); ++row)
        std::copy_n(part.constScanLine(row), part.bytesPerLine(), picture.scanLine(first + row));
    return picture;
}

QImage SeismicPlot::renderMaps(const AxisMap& x, const AxisMap& y, double pixelRatio) const
{
    std::vector<float> offsets;
    RasterParm parm = rasterParm(&offsets);
    parm.x = x;
    parm.pixelRatio = pixelRatio;
    const double least = double(_startSample) * parm.sampleRate;
    const double largest = least + double(_seisRect.nSamples) * parm.sampleRate;
    const AxisMap shown = parm.timeDirection != 0 ? y : turnedAxis(y, largest);
    const DataRows rows = dataRows(shown, parm.timeDirection, least, largest);
    const QSize size(wholeOf(x.p2 - x.p1), wholeOf(y.p1 - y.p2));
    const bool isWhole = (rows.first == 0 && rows.end == size.height()) || wholeOf(y.p2) != 0;
    parm.y = isWhole ? shown : rows.y;
    OwnerTap tap(_owner);
    const QImage picture = _raster.render(parm, _owner ? &tap : nullptr);
    return isWhole ? picture : withBackground(picture, rows.first, size, parm.background, pixelRatio);
}

QImage SeismicPlot::renderImage2(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& area) const
{
    if (!_dataLoaded || !(area.width() > 0.0 && area.height() > 0.0)) return QImage();
    return renderMaps(axisMap(xMap), axisMap(yMap), 1.0);
}

QImage SeismicPlot::saveImage(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& rect) const
{
    if (rect.isEmpty()) return QImage();
    return renderImage2(xMap, yMap, QwtScaleMap::invTransform(xMap, yMap, rect));
}

void SeismicPlot::setupStored(const QwtScaleMap& xMap, const QwtScaleMap& yMap, bool isPixmap, bool isBitmap)
{
    _xMap = xMap;
    _yMap = yMap;
    _doDrawPixmap = isPixmap;
    _doDrawBitmap = isBitmap;
    _doDrawImage = true;
}

void SeismicPlot::setupDrawImage(const QImage& image, const QwtScaleMap& xMap, const QwtScaleMap& yMap)
{
    _image = image;
    setupStored(xMap, yMap, false, false);
}

void SeismicPlot::setupDrawPixmap(const QPixmap& pixmap, const QwtScaleMap& xMap, const QwtScaleMap& yMap)
{
    _pixmap = pixmap;
    setupStored(xMap, yMap, true, false);
}

void SeismicPlot::setupDrawBitmap(const QBitmap& bitmap, const QwtScaleMap& xMap, const QwtScaleMap& yMap)
{
    _bitmap = bitmap;
    setupStored(xMap, yMap, false, true);
}

void SeismicPlot::forgetStored()
{
    setDoDrawImage(false);
    _image = QImage();
    _pixmap = QPixmap();
    _bitmap = QBitmap();
}

void SeismicPlot::draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                       const QRectF& canvasRect) const
{
    if (!_dataLoaded || !canvasRect.isValid()) return;
    if (_transparent) painter->setOpacity(_look.opacity);
    if (_doDrawImage)
        drawStored(painter, xMap, yMap, canvasRect);
    else
        drawRendered(painter, xMap, yMap, canvasRect);
}

void SeismicPlot::drawRendered(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                               const QRectF& canvasRect) const
{
    const QRectF area = QwtScaleMap::invTransform(xMap, yMap, canvasRect);
    if (!(area.width() > 0.0 && area.height() > 0.0)) return;
    const double ratio = painter->device()->devicePixelRatioF();
    const QImage image =
        renderMaps(deviceMap(xMap, canvasRect.left(), ratio), deviceMap(yMap, canvasRect.top(), ratio), ratio);
    if (image.isNull()) return;
    const QSizeF size(image.width() / ratio, image.height() / ratio);
    const QSizeF shown = size.boundedTo(canvasRect.size());
    if (shown == size)
        painter->drawImage(canvasRect.topLeft(), image);  // pixel for pixel
    else
        painter->drawImage(QRectF(canvasRect.topLeft(), shown), image, QRectF(image.rect()));
}

QRect storedPictureCrop(const QSize& picture, const AxisMap& savedX, const AxisMap& savedY, const AxisMap& x,
                        const AxisMap& y, double yStart, double shiftTime)
{
    const double xPixels = std::abs(savedX.p2 - savedX.p1), xScale = std::abs(savedX.s2 - savedX.s1);
    const double yPixels = std::abs(savedY.p2 - savedY.p1), yScale = std::abs(savedY.s2 - savedY.s1);
    // Scales went through pixels and back, and counts are single precision; neither must cost a pixel.
    const auto whole = [](double pixels) { return wholeOf(pixels * (1.0 + 1e-6) + 1e-6); };
    return QRect(whole(xPixels * x.s1 / xScale), whole(yPixels * (yStart - shiftTime) / yScale),
                 std::min(picture.width(), wholeOf(xPixels)),
                 std::min(picture.height(), whole(yPixels * std::abs(y.s2 - y.s1) / yScale)));
}

QRect SeismicPlot::storedPart(const QwtScaleMap& xMap, const QwtScaleMap& yMap) const
{
    const QSize size = _doDrawBitmap ? _bitmap.size() : _doDrawPixmap ? _pixmap.size() : _image.size();
    const double yStart = timeDirection() == 0 ? std::abs(_yMap.s2() - _yMap.s1()) - yMap.s2() : yMap.s2();
    QRect crop =
        storedPictureCrop(size, axisMap(_xMap), axisMap(_yMap), axisMap(xMap), axisMap(yMap), yStart, _shiftTime);
    crop.setSize(crop.size().boundedTo(QSize(size.width() - crop.x(), size.height() - crop.y())));
    return crop.isEmpty() ? QRect(QPoint(0, 0), size) : crop;
}

void SeismicPlot::drawStored(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                             const QRectF& canvasRect) const
{
    const QPixmap* pixmap = _doDrawBitmap ? &_bitmap : _doDrawPixmap ? &_pixmap : nullptr;
    const QRectF crop = storedPart(xMap, yMap);
    if (pixmap)
        painter->drawPixmap(canvasRect.topLeft(), *pixmap, crop);
    else
        painter->drawImage(canvasRect.topLeft(), _image, crop);
}
