#include "display/seismicdisplay.h"

#include "display/cliptip.h"
#include "display/displaygrid.h"
#include "display/displayhost.h"
#include "display/ensembleview.h"
#include "display/images/myqwtplotcanvas.h"
#include "display/picturefooter.h"
#include "display/seismicplot.h"
#include "display/tools/boxtool.h"
#include "display/tools/canvastools.h"
#include "display/tools/headerstrip.h"
#include "display/tools/velocityclicks.h"
#include "display/wordlookup.h"
#include "display/zoom/axisdrag.h"
#include "display/zoom/plotscrollbars.h"
#include "host/report.h"
#include "tracedata/parmmenu.h"
#include "tracedata/seismicdata.h"
#include "tracedata/seismicheader.h"

#include <QResizeEvent>
#include <qwt_scale_widget.h>

#include <algorithm>

constexpr int sliceDomain = 8;

SeismicDisplay::SeismicDisplay(QWidget* parent, const QString& title, QStatusBar* statusbar, QStatusBar* controlStatus,
                               bool enableLeft, bool enableRight, int windowNumber, DisplayHost* host)
    : MyQwtPlot(parent), _title(title), _host(host), _windowNumber(windowNumber), _lines(statusbar, controlStatus),
      _zoomLink(host), _view(new EnsembleView(this)), _axes(this), _layer(this, this, title),
      _overlay(this, this, host), _grid(makeGrid(this))
{
    _layer.plot()->setDataLent(true);  // the copy stays until the next ensemble
    // Qwt's own policy takes the room for every label as the least width: more traces, a wider window, more traces.
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setObjectName("SeismicDisplay");
    setCanvasBackground(Qt::white);
    enableVerticalAxis(enableLeft, enableRight);
    makeTools();
    makeBars();
    new ClipTip(canvas(), _layer.plot());
    connect(this, &SeismicDisplay::ensembleShown, _view, &EnsembleView::ensembleShown);
    showPictureLine();
    showTool();
}

SeismicDisplay::~SeismicDisplay()
{
    _tools->disconnect(this);  // its own tools go now, and one of them may be active
}

void SeismicDisplay::makeTools()
{
    _zoom = new ZoomTool(this);
    connect(_zoom, &ZoomTool::zoomed, this, &SeismicDisplay::catchZoom);
    connect(_zoom, &ZoomTool::panned, this, &SeismicDisplay::catchPan);
    _spectrumBox = new BoxTool(this);
    connect(_spectrumBox, &BoxTool::boxDrawn, this, &SeismicDisplay::boxSelected);
    _pickers[Picker::Spectrum].setHandler(_spectrumBox);
    _velocityClicks = new VelocityClicks(this);
    _pickers[Picker::Velocity].setHandler(_velocityClicks);
    _tools = new CanvasTools(canvas());
    _tools->addAlways(&_imageTool, CanvasTools::StoredPictures);
    _tools->addAlways(&_contextMenu, CanvasTools::Menu);
    _tools->addAlways(&_readoutTool, CanvasTools::Readout);
    _tools->setBase(_zoom);
    connect(_tools, &CanvasTools::toolChanged, this, &SeismicDisplay::showTool);
    connect(&_contextMenu, &ContextMenu::usageChanged, this, &SeismicDisplay::showTool);
    canvas()->installEventFilter(this);  // again: before what the tools are made of
}

void SeismicDisplay::makeBars()
{
    _axisDrag = new AxisDrag(this);
    // Its rubber band lies on the canvas, which a stored picture covers.
    connect(_axisDrag, &AxisDrag::started, myCanvas(), &MyQwtPlotCanvas::hideStored);
    connect(_axisDrag, &AxisDrag::resetWanted, this, [this] { resetZoom(-1); });
    connect(_axisDrag, &AxisDrag::dragged, this, [this](const QRectF& rect, bool onTraceAxis) {
        setTimeZoom(_zoom->isTimeOnly() || !onTraceAxis, _zoom->isTraceOnly() || onTraceAxis);
        setZoomRect(rect);
    });
    _scrollBars = new PlotScrollBars(this);
    connect(_scrollBars, &PlotScrollBars::horizontalMoved, this, &SeismicDisplay::horizontalScrollerMoved);
    connect(_scrollBars, &PlotScrollBars::verticalMoved, this, &SeismicDisplay::verticalScrollerMoved);
    for (const int axis : {xTop, yLeft})
        connect(axisWidget(axis), &QwtScaleWidget::scaleDivChanged, this, &SeismicDisplay::synchronizeScrollBars);
}

Report& SeismicDisplay::report() const
{
    static PrintReport standardOutput;
    return _host ? _host->report() : standardOutput;
}

void SeismicDisplay::setColorBar(ColorBarFrame* bar)
{
    _layer.plot()->setColorBar(bar);
}

void SeismicDisplay::setLists(const DisplayList* displays, const DisplayList* others)
{
    _zoomLink.setLists(displays, others);
}

// ---- The parameter record

void SeismicDisplay::setTimeWindow()
{
    _axes.setWindow(_menu->stime, _menu->etime, _menu->_orvinruntime.numsmp);
}

void SeismicDisplay::setNewData()
{
    const orvinRuntimeStruct& runtime = _menu->_orvinruntime;
    _nth = runtime.nth;
    _axes.setSampleRate(runtime.samprat);
    setTimeWindow();
    SeismicData* data = _layer.data();
    data->setSampleRate(runtime.samprat);
    if (data->traceCount() == 0) {  // traces in view keep the sizes that they have
        data->setNumSamples(_axes.nSamples());
        data->setNumHeaderWords(_nth);
    }
    _axisDrag->setSampleRate(runtime.samprat);
}

void SeismicDisplay::setMenu(parmmenu* menu)
{
    _menu = menu;
    _isTrevia = menu->dotrevia;
    _layer.plot()->setTrevia(menu->dotrevia != 0);
    setNewData();
    PlotParm parm = _layer.plot()->parm();
    takeFromMenu(*menu, &parm);
    _layer.plot()->setParm(parm);
    _axes.setDirection(menu->idirection);
    takeDomain();
    setOverlayMode(menu->ioverlay != 0);
    if (menu->ioverlay != 0) _overlay.setNext(false);
    takeKeys();
    _axes.setKeyMethod(menu->iskeymod, menu->iskeyinc);
}

void SeismicDisplay::takeDomain()
{
    _axes.setDomain(_menu->idomain);
    if (_axes.isSlice())
        _axes.nameVertical("Time (msec)");  // until its first traces tell the keys
    else
        _axes.setTimeAxis();
}

void SeismicDisplay::takeKeys()
{
    _keys = menuKeys(*_menu);
}

void SeismicDisplay::setNewKeys()
{
    setShowImage(false);
    setNewData();
    takeKeys();
    if (traceCount() > 0) axesFollowHeaders();
    rePlot();
}

void SeismicDisplay::setNewFile(parmmenu* menu)
{
    // Traces of the old file are shorter or longer than the record says now, and not every screen gets new ones.
    clearData();
    // The record has the gain control for displays that are still to come; this one may have got its own since.
    SeismicPlot* plot = _layer.plot();
    const bool isAGC = plot->isAGC();
    const int agcWindow = plot->conditioner().agcWindow();
    setMenu(menu);
    plot->applyAGC(isAGC, agcWindow);
    _state.isFirst = true;
    setTimeZoom(false, false);
    rePlot();
}

void SeismicDisplay::setDomain(int domain, int /*startTime*/, int numsmp, float samprat)
{
    if (!_menu) return;
    if (_axes.setDomain(domain)) _state.isFirst = true;
    _axes.setSampleRate(samprat);
    _menu->_orvinruntime.numsmp = numsmp;
    if (domain == sliceDomain) {
        _axes.setWindow(0, 0, numsmp);  // a window of times doesn't cut a slice
    } else {
        setTimeWindow();
        _axes.setTimeAxis();
    }
    _layer.data()->setSampleRate(samprat);
    _axisDrag->setSampleRate(samprat);
}

void SeismicDisplay::takeLook(const SeismicDisplay& other)
{
    const PlotParm look = other._layer.plot()->parm();
    _layer.plot()->setParm(look);
    _layer.plot()->setRange(look.rangeMin, look.rangeMax);  // an automatic one, too, until there are data
    setPlotDirection(other._layer.plot()->plotDirection());
    _keys = other._keys;
    _polarity = other._polarity;
    copyGridLines(*other._grid, _grid);
}

// ---- Ensembles

TraceBatch SeismicDisplay::batchOf(float** traces, int** heads, int n) const
{
    return {traces, heads, n, _axes.window().first, _axes.nSamples(), _nth, _host ? _host->headerWords() : nullptr};
}

bool SeismicDisplay::takeTraces(float** traces, int** heads, int n)
{
    if (n < 1) return false;
    if (hasData()) emit _view->ensembleLeaving();
    std::string error;
    if (_layer.take(batchOf(traces, heads, n), _keys, _isTrevia - 1, &error)) return true;
    report().line(error + "\n");
    return false;
}

int SeismicDisplay::loadTraces(float** traces, int** heads, int n)
{
    if (n > 0) _view->batchHooks().changeHeaders(heads, n, _nth);
    return takeTraces(traces, heads, n) ? 1 : 0;
}

int SeismicDisplay::loadSeismicData(float** traces, int** heads, int n, bool replot)
{
    if (n > 0) _view->batchHooks().changeHeaders(heads, n, _nth);
    const bool isOverlay = n > 0 && _menu->ioverlay != 0 && hasData() && _overlay.isNext();
    _state.isRepeated = n > 0 && !isOverlay && hasData() && _layer.holds(batchOf(traces, heads, n));
    if (!_state.isRepeated) _images.forgetStored();  // else its picture stands for it still
    setResizeImage(true);
    setShowImage(false);
    if (n < 1) {
        _state.isLast = true;
        return 0;
    }
    if (isOverlay) return takeOverlay(traces, heads, n, replot) ? 0 : 1;
    _overlay.setNext(true);
    if (!takeTraces(traces, heads, n)) return 1;
    _state.isLoaded = true;
    _state.isLast = false;
    if (!measureTraces()) return 1;
    layOutTraces(replot);
    storeImage(false);
    _pickers.ensembleShown();
    emit ensembleShown();
    return 0;
}

/// Conditions and measures new traces, and reads their keys. False when memory ran out.
bool SeismicDisplay::measureTraces()
{
    // A SEG-Y file has no slices, whatever domain a former one has left.
    if (_state.isFirst && _axes.isSlice() && _isTrevia) setSliceAxis();
    _layer.measure();
    _axes.takeShift();
    _axes.forgetShown();
    _zoom->setRange(_layer.data()->traceCount(), double(_axes.nSamples()) * _axes.sampleRate());
    if (buildHeaderAxis() != 0) return false;
    if (_state.isFirst) {
        if (_menu->ips != 0.0f) _layer.plot()->setSampleSpacing(samplesPerInch(_menu->ips, _axes.sampleRate()));
        _axes.restartTraceIncrement();
    }
    _layer.show(_axes.window().first, canvasRectangle());
    _layer.plot()->setShiftTime(_axes.shiftTime());
    return true;
}

/// Axes, title and picture of new traces; a zoom that the user chose stays.
void SeismicDisplay::layOutTraces(bool replot)
{
    const bool showsWhole = _state.isFirst || (!isZoomed() && !isPanned());
    if (showsWhole)
        setWholeAxes();
    else if (isZoomed() && _zoom->isTimeOnly() && !_zoom->isTraceOnly())
        setTraceIncrement(_axes.traceStep());
    setDisplayTitle();
    if (_state.isFirst) afterFirstLayout();
    updateAxes();
    if (showsWhole) setZoomBase();
    limitPan();
    _state.isFirst = false;
    if (replot) rePlot();
}

/// The vertical axis of a time slice: positions in the other direction than the secondary key runs.
void SeismicDisplay::setSliceAxis()
{
    SeismicHeader* first = _layer.data()->getTraceHeader(0);
    const int xline = first->headerIndex("XLINE_NO"), iline = first->headerIndex("ILINE_NO");
    const bool alongXline = _keys.sec.value == xline;
    int position = 0;
    float sliceTime = 0.0f;
    first->headerValue(alongXline ? iline : xline, &position);
    first->headerFloatValue(first->headerIndex("TFULL_E "), &sliceTime);
    _axes.setSliceAxis(alongXline ? "ILINE_NO" : "XLINE_NO", position, sliceTime);
}

int SeismicDisplay::saveSeismicData(float** /*traces*/, int** heads, int n)
{
    const SeismicData* data = _layer.data();
    if (!data->isChanged()) return 0;
    for (int i = 0; i < std::min(n, data->traceCount()); ++i)
        std::copy_n(data->getTraceHeaders()[i], data->numHeaderWords(), heads[i]);
    return 0;
}

void SeismicDisplay::getSeismicData(float* trace, int* header, int i) const
{
    const SeismicData* data = _layer.data();
    if (i < 0 || i >= data->traceCount()) return;
    std::copy_n(data->getTraceValues(i, 0), data->sampleCount(), trace);
    std::copy_n(data->getTraceHeaders()[i], data->numHeaderWords(), header);
}

void SeismicDisplay::clearData()
{
    if (hasData()) emit _view->ensembleLeaving();
    setShowImage(false);
    _images.forgetStored();
    _state.isLoaded = false;
    _layer.clear();
    _overlay.clear();
    _axes.forgetEnsemble();
    rePlot();
}

float SeismicDisplay::computeRMS(bool apply)
{
    const SeismicData& data = *_layer.data();
    const int typeWord = data.traceCount() > 0 ? data.getTraceHeader(0)->headerIndex("TRC_TYPE") : -1;
    const float rms = meanLiveAmplitude(data, typeWord);
    if (apply) _layer.plot()->setRMS(rms);
    return rms;
}

void SeismicDisplay::traceOffsets(const SeismicData& data, int nTraces, float* offsets) const
{
    std::fill_n(offsets, nTraces, 0.0f);
    if (nTraces < 1) return;
    const int index = data.getTraceHeader(0)->headerIndex("OFFSET  ");
    for (int i = 0; i < nTraces; ++i) data.getTraceHeader(i)->headerFloatValue(index, &offsets[i]);
}

void SeismicDisplay::sendPickTraceChange(const float* trace, int start, int n, int tr)
{
    _view->taps().pickTraceChange(trace, start, n, tr);
}

TraceTap* SeismicDisplay::traceChanger()
{
    return &_view->taps();
}

// ---- The overlay

void SeismicDisplay::setOverlayMode(bool on)
{
    if (_menu) _menu->ioverlay = on ? 1 : 0;
    if (!_overlay.isMade()) return;
    if (_images.isShown())
        _images.setOverlayBehind(on);
    else
        _overlay.plot()->setVisible(on);
    _overlay.setNext(true);
    if (_host) _host->setOverlayMode(on);
    rePlot();
}

int SeismicDisplay::loadOverlayData(float** traces, int** heads, int n, bool replot)
{
    _view->batchHooks().changeHeaders(heads, n, _nth);
    return takeOverlay(traces, heads, n, replot) ? 0 : 1;
}

bool SeismicDisplay::takeOverlay(float** traces, int** heads, int n, bool replot)
{
    std::string error;
    if (!_overlay.load(batchOf(traces, heads, n), _keys, _isTrevia - 1, *_layer.plot(), canvasRectangle(), &error)) {
        report().line(error + "\n");
        return false;
    }
    if (replot) rePlot();
    return true;
}

QString SeismicDisplay::overlayRecord() const
{
    return _overlay.record(_keys, _headerAxis.pri());
}

// ---- Axes

int SeismicDisplay::buildHeaderAxis()
{
    std::string error;
    const bool rightToLeft = _layer.plot()->plotDirection() == RightToLeft;
    if (!_headerAxis.build(*_layer.data(), _keys, rightToLeft, _isDifference, &error)) {
        report().line(error + "\n");
        return 1;
    }
    const KeyColumn& labels = _headerAxis.sec();
    _axes.setLabels(labels, _headerAxis.traceCount());
    _images.forgetLabels();
    if (_strip) _strip->updateCurves(labels.values.data(), _headerAxis.traceCount(), labels.type, labels.name);
    return 0;
}

void SeismicDisplay::setDisplayTitle()
{
    const KeyColumn& key = _headerAxis.pri();
    showTitle(QString(), key.values.size() > 1 ? key.values[1] : 0.0f, _headerAxis.parmTest());
}

void SeismicDisplay::showTitle(const QString& before, float primary, const QString& parm)
{
    _axes.showEnsemble(before, _headerAxis.pri(), primary, parm, _headerAxis.sec().name.trimmed());
}

void SeismicDisplay::enableVerticalAxis(bool left, bool right)
{
    enableAxis(yLeft, left);
    enableAxis(yRight, right);
}

void SeismicDisplay::setVAxisValues(bool on)
{
    _axes.setNumbersShown(on);
    rePlot();
}

void SeismicDisplay::axesFollowHeaders()
{
    if (!hasData() || buildHeaderAxis() != 0) return;
    setDisplayTitle();
    updateAxes();
    _imageTool.showAgain();
}

void SeismicDisplay::setPlotDirection(PlotDirection direction)
{
    _layer.plot()->setPlotDirection(direction);
    if (_overlay.isMade()) _overlay.plot()->setPlotDirection(direction);
    _axes.setDirection(direction);
    axesFollowHeaders();
}

void SeismicDisplay::setPriKey(WordFrom0 word)
{
    _keys.pri = word;
    axesFollowHeaders();
}

void SeismicDisplay::setSecKey(WordFrom0 word)
{
    _keys.sec = word;
    axesFollowHeaders();
}

void SeismicDisplay::setTraceIncrement(float incr)
{
    _zoom->setXIncrement(_axes.setTraceIncrement(incr, _layer.plot()->plotTraceCount()));
    if (_strip) _strip->setTraceIncrement(_axes.traceStep());
}

void SeismicDisplay::setTimeIncrement(float incr)
{
    _zoom->setYIncrement(_axes.setTimeIncrement(incr, _layer.plot()->plotSampleCount()));
    if (!_state.isFirst) rePlot();
}

void SeismicDisplay::typeTraceIncrement(float incr)
{
    _axes.typeTraceIncrement();
    setTraceIncrement(incr);
}

void SeismicDisplay::typeTimeIncrement(float incr)
{
    _axes.typeTimeIncrement();
    setTimeIncrement(incr);
}

QRect SeismicDisplay::canvasRectangle() const
{
    return canvas()->contentsRect();
}

void SeismicDisplay::setWholeAxes()
{
    _layer.plot()->setOutputBuffers(canvasRectangle());
    if (_overlay.isMade()) _overlay.plot()->setOutputBuffers(canvasRectangle());
    setTraceIncrement(_axes.traceStep());
    setTimeIncrement(_axes.timeStep());
}

/// The axes have changed the canvas by now, so that the spacings are worked out once more.
void SeismicDisplay::afterFirstLayout()
{
    if (_strip) alignVerticalAxes(this, _strip->stripPlot());
    replot1();
    updateLayout();
    setWholeAxes();
}

void SeismicDisplay::setVisibleRect(const QRectF& rect)
{
    _axes.setVisibleRect(rect);
    limitPan();
    replot1();
}

// ---- Zooming, panning, scrolling

void SeismicDisplay::setZoomBase()
{
    replot1();
    _axes.takeShown();
    _zoom->setBase(visibleRect(), QRectF(0.0, shiftTime(), _layer.data()->traceCount() + 1.0, wholeHeight()));
}

void SeismicDisplay::resetZoom(int /*index*/)
{
    const bool wasSpreading = _zoomLink.isSpreading();
    if (_host) _host->setZooming(true);
    _zoom->zoomBack();
    if (_host) _host->setZooming(wasSpreading);
    setTimeZoom(false, false);
}

void SeismicDisplay::catchZoom(const QRectF& rect)
{
    _imageTool.showAgain();
    if (!_images.isShown()) setImageStored(false);
    setResizeImage(true);
    if (_strip) _strip->setZoom(rect);
    if (_zoomLink.isSpreading()) return;
    if (isZoomed())
        _zoomLink.spreadZoom(this, rect, _zoom->isTimeOnly(), _zoom->isTraceOnly());
    else
        _zoomLink.spreadReset(this, _zoom->isTimeOnly(), _zoom->isTraceOnly());
    const SeismicPlot* plot = _layer.plot();
    const double wholeTime = double(plot->plotSampleCount()) * (isSlice() ? 1.0f : sampleRate());
    _zoom->dropOnlyAtWhole(rect.size(), QSizeF(plot->plotTraceCount(), wholeTime));
}

void SeismicDisplay::catchPan(int /*dx*/, int dy)
{
    if (!_images.isShown()) setImageStored(false);
    setResizeImage(true);
    _zoomLink.spreadPan(this, dy);
}

/// What scrolling and panning reach over: the picture on the screen, or the data, also where a fixed spacing shows
/// only a part of them.
QSizeF SeismicDisplay::panExtent() const
{
    return _images.number() >= 0 ? _images.extent() : _axes.panExtent(_layer.data()->traceCount());
}

void SeismicDisplay::limitPan()
{
    _zoom->limitPan(panExtent(), shiftTime(), timeDirection());
}

void SeismicDisplay::synchronizeScrollBars()
{
    const QRectF shown = visibleRect();
    const QSizeF extent = panExtent();
    _scrollBars->synchronize({0.0, extent.width(), shown.x(), shown.width()},
                             {shiftTime(), extent.height(), shown.y(), shown.height()});
    _zoomLink.alignBottoms();
}

void SeismicDisplay::horizontalScrollerMoved(double from)
{
    _axes.moveTraces(from);
    rePlot();
}

void SeismicDisplay::verticalScrollerMoved(double from)
{
    _axes.moveTimes(from);
    rePlot();
}

bool SeismicDisplay::hasHorizontalBar() const
{
    return _scrollBars->hasHorizontal();
}

void SeismicDisplay::reserveHorizontalBar(bool on)
{
    _scrollBars->reserveHorizontal(on);
}

void SeismicDisplay::reserveBelow(int nPixels)
{
    _scrollBars->reserveBelow(nPixels);
}

// ---- The mouse

void SeismicDisplay::setTool(CanvasTool* tool)
{
    _tools->setTool(tool);
}

const CanvasTool* SeismicDisplay::tool() const
{
    return _tools->tool();
}

void SeismicDisplay::setPicker(Picker picker, bool on)
{
    if (on)
        _tools->setTool(&_pickers[picker]);
    else
        _tools->endTool(&_pickers[picker]);
}

void SeismicDisplay::showDisplay(int mode)
{
    const CanvasTool* now = tool();
    const bool isPicking = !_pickers.is(Picker::Spectrum, now) && !_pickers.is(Picker::Headers, now);
    if (mode == 1 || mode == 2)
        setPicker(mode == 1 ? Picker::Spectrum : Picker::Headers, true);
    else if (mode == 0 || !isPicking)
        setTool(nullptr);
    else
        showTool();
}

void SeismicDisplay::showTool()
{
    setZoom(!tool()->takesPlainButtons() && !_images.isShown());
    setControlLabel(_images.isShown() ? imageModeText() : tool()->controlText());
}

void SeismicDisplay::setZoom(bool on)
{
    _zoom->setPlain(on);
    setControlLabel(QString());
}

void SeismicDisplay::setControlLabel(const QString& text)
{
    _lines.showControl(controlLine(_zoom->isPlain(), text, _contextMenu.isInUse()));
}

void SeismicDisplay::setVelocityOverlay(VelocityOverlay* overlay)
{
    _velocityClicks->setOverlay(overlay);
}

ReadoutFrame SeismicDisplay::readoutFrame() const
{
    const SeismicData* data = _layer.data();
    return _axes.readoutFrame(data->traceCount(), data->sampleCount(), _layer.plot()->plotDirection() == RightToLeft);
}

QString SeismicDisplay::readoutAt(const QPoint& pos) const
{
    return _readoutTool.lineAt(pos);
}

VelocityOverlay* SeismicDisplay::activeVelocities() const
{
    return _pickers.is(Picker::Velocity, tool()) ? _velocityClicks->overlay() : nullptr;
}

bool SeismicDisplay::eventFilter(QObject* object, QEvent* event)
{
    if (object != canvas()) return MyQwtPlot::eventFilter(object, event);
    if (event->type() == QEvent::Resize) showPictureLine();  // as much as has room now
    return (_tools && _tools->canvasEvent(event)) || MyQwtPlot::eventFilter(object, event);
}

// ---- Stored pictures

void SeismicDisplay::showImage(int i)
{
    _imageTool.restart();
    _images.showImage(i);
    if (_images.number() == i) emit imageShown(i + 1);
}

void SeismicDisplay::setShowImageList(bool on, const QVector<int>& list)
{
    _images.tracker().setList(on, list);
    _images.tracker().setNumber(_images.number());
}

void SeismicDisplay::tieImage(int number)
{
    if (VelocityOverlay* velocities = activeVelocities()) velocities->performTie(number);
}

// ---- Painting anew

void SeismicDisplay::rebuildDisplay(bool resetOthers)
{
    if (!hasData()) return;
    _state.isFirst = true;  // keeps the increments from replotting one by one
    setWholeAxes();
    _state.isFirst = false;
    setZoomBase();
    if (resetOthers) _zoomLink.resetOthers(this);
    setTimeZoom(false, false);
    limitPan();
    synchronizeScrollBars();
    if (_strip) _strip->resetZoom();
    rebuildPlot();
}

void SeismicDisplay::rebuildPlot()
{
    setImageStored(false);
    setResizeImage(true);
    rePlot();
    emit _view->rebuilt();
}

void SeismicDisplay::rePlot()
{
    replot();
    if (_strip) _strip->replotStrip();
}

void SeismicDisplay::replot()
{
    updateAxes();  // the line tells the part that they show from now on
    showPictureLine();
    MyQwtPlot::replot();
}

/// A stored picture tells nothing: it may have been made with other settings.
void SeismicDisplay::showPictureLine()
{
    if (traceCount() < 1 || _images.isShown()) return showFooter(this, nullptr);
    const PictureLine line =
        pictureLineOf(_headerAxis, visibleRect(), traceCount(), *_layer.plot(), overlayRecord(), _polarity);
    showFooter(this, &line);
}

void SeismicDisplay::setPolarity(const Polarity& polarity)
{
    _polarity = polarity;
    showPictureLine();
}

void SeismicDisplay::statePolarity(const Polarity& polarity)
{
    setPolarity(polarity);
    emit polarityStated(polarity);
}

QSize SeismicDisplay::minimumSizeHint() const
{
    // Qwt asks for room for every label, which would let a long record push the window off the screen.
    return QSize(200, 150);
}

void SeismicDisplay::resizeEvent(QResizeEvent* event)
{
    MyQwtPlot::resizeEvent(event);
    _scrollBars->place();
    // A scroll bar that comes or goes only changes the margins.
    if (event->size() == event->oldSize()) return;
    rebuildDisplay(false);
    _imageTool.restart();
    _imageTool.showAgain();
}
