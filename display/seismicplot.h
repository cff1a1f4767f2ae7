/// The raster item of a display: one data set as a picture.
#ifndef SEISMICPLOT_H
#define SEISMICPLOT_H

#include "display/colors/colorbarframe.h"
#include "display/raster/traceconditioner.h"
#include "display/raster/traceraster.h"

#include <QBitmap>
#include <QImage>
#include <QPixmap>
#include <QPointer>
#include <QRectF>

#include <qwt_plot_rasteritem.h>
#include <qwt_scale_map.h>

#include <optional>

class PlotOwner;
class SeismicData;

/// Turns one SeismicData into a picture at each repaint. Conditioning and measuring are done by computeNormalizer,
/// whole at each call, also those of setDisplayType and setNormalization; a repaint only scales and resamples.
///
/// Operations that don't say otherwise only store: the caller replots. A new ensemble takes setSeismicView,
/// invalidateImage, computeNormalizer, setOutputBuffers and a replot, and setDataLoaded(true) the first time.
/// Main thread only; the render itself uses all processors.
class SeismicPlot : public QwtPlotRasterItem
{
public:
    /// @param owner  the display, lent; null where none stands behind the plot
    /// @param data   lent, outlives the plot
    SeismicPlot(PlotOwner* owner, SeismicData* data, const QString& title);
    ~SeismicPlot() override;

    /// Paints into the canvas; nothing while no data are loaded. Renders in the pixels of the paint device.
    void draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
              const QRectF& canvasRect) const override;
    /// Renders at the maps' own pixels; null without data or if rect, in pixels, is empty.
    QImage saveImage(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& rect) const;
    /// Renders; null without data, for an empty area (in scale values) or fewer than two samples.
    QImage renderImage2(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& area) const;

    /// Copies, conditions and measures all traces, sets the divisors and, if automatic, the range.
    void computeNormalizer();
    /// The present conditioning of num samples, in place.
    void applyProcessing(float* trace, int num);
    void applyAGC(bool state, int winlen);
    void applyPhase(bool state, int angle);
    void applyFilter(bool state, int lc, int lp, int hp, int hc, bool isTime);
    void applyMoveout(int moveout, float velocity);

    /// Sets the spacings, where automatic, so that all data fill the rectangle, the counts that it shows, and
    /// makes room for a render.
    void setOutputBuffers(const QRect& rect);
    void setOutput(const QRect& rect);
    void setAntiAlias(bool state) { _look.antialias = state; }

    /// With a colour bar: also its type, the range, and a computeNormalizer.
    void setDisplayType(DisplayType type);
    /// All parameters of the plot; a copy, put together from those of the conditioning and those of the painting.
    PlotParm parm() const { return {_conditioner.parm(), _look}; }
    /// Takes all of them, as for other data: also a computeNormalizer, and the record's range where it isn't automatic.
    void setParm(const PlotParm& parm);
    /// Takes what differs from the present ones, each as if it alone were set: another scaling brings its own range.
    /// Conditions once.
    void changeParm(const PlotParm& parm);

    /// Also a computeNormalizer, once there has been one.
    void setNormalization(Normalize normalize);
    /// Takes the bar over: its type follows the display type, its ranges the plot's. Lent; may go before the
    /// plot, which then paints without colours.
    void setColorBar(ColorBarFrame* bar);
    /// Amplitudes of the colours, given on to the bar.
    void setRange(float rmin, float rmax);
    /// Divisors and automatic range are those of another plot, so that both are equally loud, with those of its own
    /// only where that one has fewer traces. Lent: goes after this plot, or is taken back with null.
    void setScaleSource(const SeismicPlot* source) { _scaleSource = source; }
    /// As TraceConditioner::setLent.
    void setDataLent(bool lent) { _conditioner.setLent(lent); }
    /// In dB.
    void setGain(float db) { _look.gain = db; }
    float gain() const { return _look.gain; }
    void setRMS(float rms);
    /// The amplitude limits define the bias.
    void setMaxAmp(float value);
    void setMinAmp(float value);
    void setMinMax();

    void setClip(float clip) { _look.clip = clip; }
    void setBias(float bias) { _look.bias = bias; }
    void setApplyBias(bool state) { _look.applyBias = state; }
    void setAutoTraceSpacing(bool state) { _look.autoTraceSpacing = state; }
    void setTraceSpacing(float spacing) { _look.traceSpacing = spacing; }
    void setPlotTraceCount(float count) { _plotTraceCount = count; }
    void setAutoSampleSpacing(bool state) { _look.autoSampleSpacing = state; }
    void setSampleSpacing(float spacing) { _look.sampleSpacing = spacing; }
    void setPlotSampleCount(float count) { _plotSampleCount = count; }
    void setDataLoaded(bool state) { _dataLoaded = state; }
    void setZoomFlag(bool state) { _isZoomed = state; }
    void setPlotDirection(PlotDirection direction) { _look.plotDirection = direction; }
    void setTransparent(bool state) { _transparent = state; }
    void setOpacity(float opacity) { _look.opacity = opacity; }
    void setBulkshift(int samples) { _look.bulkshift = samples; }
    void setTrevia(bool state) { _isTrevia = state; }
    void setAutoGain(bool state) { _look.autoRange = state; }
    void setShiftTime(double ms) { _shiftTime = ms; }
    void setDoDrawImage(bool state) { _doDrawImage = state; }
    /// Draws the data again, and lets go of the stored picture.
    void forgetStored();
    void setPrintOut(bool state) { _doPrint = state; }
    void setSeismicView(int traceNum, int sampleNum, int nTraces, int nSamples, int startSample);
    void invalidateImage() { _invalidImage = true; }

    /// A stored picture to show in place of a render, with the maps that it was rendered by.
    void setupDrawImage(const QImage& image, const QwtScaleMap& xMap, const QwtScaleMap& yMap);
    void setupDrawPixmap(const QPixmap& pixmap, const QwtScaleMap& xMap, const QwtScaleMap& yMap);
    void setupDrawBitmap(const QBitmap& bitmap, const QwtScaleMap& xMap, const QwtScaleMap& yMap);
    /// The part of the stored picture that these maps show, in its pixels; all of it where they show none.
    QRect storedPart(const QwtScaleMap& xMap, const QwtScaleMap& yMap) const;

    SeismicData* data() const { return _data; }
    ColorBarFrame* colorBar() const { return _colorBar; }
    /// Shift in samples of a trace at the last render.
    int getTraceShift(int itrace) const { return _raster.traceShift(itrace); }
    const SeisRect& seisRect() const { return _seisRect; }
    int startSample() const { return _startSample; }
    Normalize normalization() const { return _look.normalize; }
    DisplayType displayType() const { return _look.displayType; }
    PlotDirection plotDirection() const { return _look.plotDirection; }
    float bias() const { return _look.bias; }
    bool isApplyBias() const { return _look.applyBias; }
    float rms() const { return _rms; }
    float peak() const { return _peak; }
    float clip() const { return _look.clip; }
    float minAmp() const { return _minAmp; }
    float maxAmp() const { return _maxAmp; }
    /// Traces, samples an inch.
    float traceSpacing() const { return _look.traceSpacing; }
    float sampleSpacing() const { return _look.sampleSpacing; }
    bool isAutoTraceSpacing() const { return _look.autoTraceSpacing; }
    bool isAutoSampleSpacing() const { return _look.autoSampleSpacing; }
    /// How many traces and samples the plot shows at the current spacing.
    float plotTraceCount() const { return _plotTraceCount; }
    float plotSampleCount() const { return _plotSampleCount; }
    float dpi() const { return _dpi; }
    float rangeMin() const { return _look.rangeMin; }
    float rangeMax() const { return _look.rangeMax; }
    bool isAutoGain() const { return _look.autoRange; }
    bool isAntiAlias() const { return _look.antialias; }
    bool isDataLoaded() const { return _dataLoaded; }
    bool isZoomed() const { return _isZoomed; }
    bool isTransparent() const { return _transparent; }
    float opacity() const { return _look.opacity; }
    int bulkshift() const { return _look.bulkshift; }
    int moveout() const { return _look.moveout; }
    float velocity() const { return _look.velocity; }
    bool isTrevia() const { return _isTrevia; }
    double shiftTime() const { return _shiftTime; }
    bool isDrawImage() const { return _doDrawImage; }
    bool isPrintOut() const { return _doPrint; }
    bool isImageInvalid() const { return _invalidImage; }
    bool isAGC() const { return _conditioner.isAGC(); }
    bool isPhase() const { return _conditioner.isPhase(); }
    bool isFilter() const { return _conditioner.isFilter(); }
    /// The conditioned traces and their measures.
    const TraceConditioner& conditioner() const { return _conditioner; }
    /// What a render takes, but for the maps; valid until the next change of the plot or its data.
    /// @param offsets  room for the traces' offsets, which the result may point into
    RasterParm rasterParm(std::vector<float>* offsets) const;

protected:
    /// Always null: the base class's cache isn't used.
    QImage renderImage(const QwtScaleMap&, const QwtScaleMap&, const QRectF&, const QSize&) const override
    {
        return QImage();
    }

private:
    int timeDirection() const;
    QImage renderMaps(const AxisMap& x, const AxisMap& y, double pixelRatio) const;
    void drawRendered(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                      const QRectF& canvasRect) const;
    void drawStored(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                    const QRectF& canvasRect) const;
    void setupStored(const QwtScaleMap& xMap, const QwtScaleMap& yMap, bool isPixmap, bool isBitmap);
    void passRangeToBar();
    void takeAutomaticRange();
    void takePlain(const LookParm& parm);
    bool isScaled() const { return _look.normalize != Normalize::None; }

    PlotOwner* _owner;   // lent, may be null
    SeismicData* _data;  // lent
    TraceConditioner _conditioner;
    mutable TraceRaster _raster;  // its buffers change at every paint
    QPointer<ColorBarFrame> _colorBar;
    SeisRect _seisRect;
    int _startSample = 0;
    LookParm _look;  // what is done to the traces before is the conditioner's

    QImage _image;
    QPixmap _pixmap;
    QBitmap _bitmap;
    QwtScaleMap _xMap, _yMap;  // of the stored picture
    bool _doDrawImage = false;
    bool _doDrawBitmap = false;
    bool _doDrawPixmap = false;
    double _shiftTime = 0.0;  // ms at the top of a stored picture

    float _rms = 1.0f;
    float _peak = 1.0f;
    float _minAmp = -1000.0f;
    float _maxAmp = 1000.0f;
    std::optional<QPointF> _rangeOf[2];         // ranges left behind: of samples as they are, of scaled ones
    const SeismicPlot* _scaleSource = nullptr;  // lent
    bool _firstTime = true;                     // no computeNormalizer so far

    float _plotTraceCount = 0.0f;
    float _plotSampleCount = 0.0f;
    float _dpi = 115.0f;

    bool _dataLoaded = false;
    bool _isZoomed = false;
    bool _transparent = false;
    bool _isTrevia = false;
    bool _invalidImage = true;
    bool _doPrint = false;
};

/// The part of a stored picture that maps now in use show, at the same scale.
/// @param shiftTime  ms at the picture's top
/// @param yStart     ms at the top of the plot
QRect storedPictureCrop(const QSize& picture, const AxisMap& savedX, const AxisMap& savedY, const AxisMap& x,
                        const AxisMap& y, double yStart, double shiftTime);

#endif
