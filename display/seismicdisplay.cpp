#include "display/seismicdisplay.h"

#include "display/axisdrag.h"
#include "display/cliptip.h"
#include "display/colorbarframe.h"
#include "display/displayhost.h"
#include "display/myqwtplotcanvas.h"
#include "display/myqwtplotmagnifier.h"
#include "display/myqwtplotpanner.h"
#include "display/myqwtplotzoomer.h"
#include "display/recordaxisscaledraw.h"
#include "display/seismicaxisscaledraw.h"
#include "display/seismicplot.h"
#include "host/report.h"
#include "tracedata/headertable.h"
#include "tracedata/parmmenu.h"
#include "tracedata/seismicdata.h"
#include "tracedata/seismicheader.h"

#include <QStatusBar>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_div.h>
#include <qwt_text.h>

#include <algorithm>
#include <cmath>

constexpr int sliceDomain = 8;
constexpr int stackType = 7;

SeismicDisplay::SeismicDisplay(QWidget* parent, const QString& title, QStatusBar* statusbar,
                               QStatusBar* controlStatus, bool enableLeft, bool enableRight, int windowNumber,
                               DisplayHost* host)
    : MyQwtPlot(parent), _title(title), _statusbar(statusbar), _controlStatus(controlStatus), _host(host),
      _zoomLink(host), _windowNumber(windowNumber), _seismicdata(std::make_unique<SeismicData>()),
      _seismicplot(new SeismicPlot(this, _seismicdata.get(), title))
{
    _seismicplot->setDataLent(true);  // the copy stays until the next ensemble
    // Qwt's own policy takes the room for every label as the least width: more traces, a wider window, more traces.
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setObjectName("SeismicDisplay");
    setCanvasBackground(Qt::white);
    makeAxes(enableLeft, enableRight);
    makeGrid();
    _seismicplot->attach(this);
    makeMouseTools();
    new ClipTip(canvas(), _seismicplot);
    showPictureLine();
    setZoom(true);
}

SeismicDisplay::~SeismicDisplay() = default;

void SeismicDisplay::makeAxes(bool enableLeft, bool enableRight)
{
    _recordaxis = new RecordAxisScaleDraw;
    _seismicaxisl = new SeismicAxisScaleDraw;
    _seismicaxisr = new SeismicAxisScaleDraw;
    setAxisScaleDraw(xTop, _recordaxis);
    setAxisScaleDraw(yLeft, _seismicaxisl);
    setAxisScaleDraw(yRight, _seismicaxisr);
    const double labelHeight = QwtText("0").textSize(axisFont(xTop)).height();
    _recordaxis->setMinimumExtent(_recordaxis->tickLength(QwtScaleDiv::MajorTick) + _recordaxis->spacing() + labelHeight);
    enableAxis(xTop, true);
    enableAxis(xBottom, false);
    enableVerticalAxis(enableLeft, enableRight);
    setAxisTitle("Time (msec)");
    for (const int axis : {yLeft, yRight}) setAxisScale(axis, 1000.0, 0.0);  // times run down, also without data
    // Maps of the disabled axes follow the canvas, so nothing may stand between it and the scales.
    plotLayout()->setAlignCanvasToScales(true);
    plotLayout()->setCanvasMargin(0);
    for (const int axis : {yLeft, yRight}) axisWidget(axis)->setMargin(0);
    axisWidget(xTop)->setMargin(0);
}

/// Attached before the data; its z keeps it in view above the opaque picture.
void SeismicDisplay::makeGrid()
{
    _grid = new QwtPlotGrid;
    _grid->setAxes(xTop, yLeft);
    _grid->setMajorPen(QPen(QColor(0, 120, 120), 0));
    _grid->setMinorPen(QPen(QColor(0, 120, 120), 0, Qt::DotLine));
    _grid->enableX(false);
    _grid->enableXMin(false);
    _grid->enableY(false);
    _grid->enableYMin(false);
    _grid->attach(this);
}

void SeismicDisplay::setColorBar(ColorBarFrame* bar)
{
    _seismicplot->setColorBar(bar);
}

void SeismicDisplay::setLists(const DisplayList* displays, const DisplayList* others)
{
    _zoomLink.setLists(displays, others);
}

/// Truncates ms to whole samples inside [0, largest].
static int samplesOf(int ms, float rate, int largest)
{
    if (!(rate > 0.0f)) return 0;
    return int(std::clamp(std::trunc(double(float(ms) / rate)), 0.0, double(largest)));
}

void SeismicDisplay::setTimeWindow()
{
    const int whole = _menu->_orvinruntime.numsmp;
    _stime = 0;
    _etime = whole;
    if (_menu->stime != 0 || _menu->etime != 0) {
        _stime = samplesOf(_menu->stime, _samprat, whole);
        if (_menu->etime != 0) _etime = samplesOf(_menu->etime, _samprat, whole);
    }
    _etime = std::max(_etime, _stime);
    _numsmp = _etime - _stime;
}

void SeismicDisplay::setNewData()
{
    const orvinRuntimeStruct& runtime = _menu->_orvinruntime;
    _samprat = runtime.samprat;
    _maxdtr = runtime.maxdtr;
    _nth = runtime.nth;
    _istack = runtime.idtyp;
    _isStacked = _istack == stackType;
    setTimeWindow();
    _seismicdata->setSampleRate(_samprat);
    if (_seismicdata->traceCount() == 0) {  // traces in view keep the sizes that they have
        _seismicdata->setNumSamples(_numsmp);
        _seismicdata->setNumHeaderWords(_nth);
    }
    _axisDrag->setSampleRate(_samprat);
}

void SeismicDisplay::setMenu(parmmenu* menu)
{
    _menu = menu;
    _isTrevia = menu->dotrevia;
    _seismicplot->setTrevia(menu->dotrevia != 0);
    setNewData();
    PlotParm parm = _seismicplot->parm();
    takeFromMenu(*menu, &parm);
    _seismicplot->setParm(parm);
    _recordaxis->setPlotDirection(menu->idirection);

    _idomain = menu->idomain;
    if (_idomain == sliceDomain)
        _ctaxis = "Time (msec)";  // until its first traces tell the keys
    else
        setTimeAxis();
    setOverlayMode(menu->ioverlay != 0);
    if (menu->ioverlay != 0) _lastOverlay = true;

    takeKeys();
    _iskeyinc = menu->iskeyinc;
    _iskeymod = menu->iskeymod;
    _traceIncrMult = _iskeymod == 2 ? float(_iskeyinc) : 1.0f;
    _recordaxis->setMethod(_iskeymod, _iskeyinc);
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
    const bool isAGC = _seismicplot->isAGC();
    const int agcWindow = _seismicplot->conditioner().agcWindow();
    setMenu(menu);
    _seismicplot->applyAGC(isAGC, agcWindow);
    _firstTime = true;
    _timeZoomOnly = _traceZoomOnly = false;
    rePlot();
}

void SeismicDisplay::setDomain(int domain, int /*startTime*/, int numsmp, float samprat)
{
    if (!_menu) return;
    if (domain != _idomain || domain == sliceDomain) _firstTime = true;
    _idomain = domain;
    _samprat = samprat;
    _menu->_orvinruntime.numsmp = numsmp;
    _numsmp = numsmp;
    if (domain == sliceDomain) {
        _stime = 0;  // a window of times doesn't cut a slice
        _etime = _numsmp;
    } else {
        setTimeWindow();
        setTimeAxis();
    }
    _seismicdata->setSampleRate(_samprat);
    _axisDrag->setSampleRate(_samprat);
}

int SeismicDisplay::loadTraces(float** traces, int** heads, int n)
{
    if (n < 1) return 0;
    std::string error;
    if (!_copy.copy(traces, heads, n, _stime, _numsmp, _nth, &error)) {
        PrintReport().line(error + "\n");
        return 0;
    }
    _seismicdata->clear();
    if (_host) _seismicdata->setHeaderWords(_host->headerWords());
    _seismicdata->setNumHeaderWords(_nth);
    _seismicdata->loadAllTraces(_copy.traces(), _copy.headers(), _numsmp, n);
    _seismicdata->setPriKey(_keys.pri.value);
    _seismicdata->setSecKey(_keys.sec.value);
    _seismicdata->setTreviaVersion(_isTrevia - 1);
    return 1;
}

/// Times run down from 0; a slice shown before leaves nothing behind.
void SeismicDisplay::setTimeAxis()
{
    setAxisTitle("Time (msec)");
    _timeDirection = 1;
    _seismicaxisl->setStart(0.0f);
    _seismicaxisr->setStart(0.0f);
}

/// The vertical axis of a time slice: positions in the other direction than the secondary key runs.
void SeismicDisplay::setSliceAxis()
{
    SeismicHeader* first = _seismicdata->getTraceHeader(0);
    const int xline = first->headerIndex("XLINE_NO"), iline = first->headerIndex("ILINE_NO");
    const bool alongXline = _keys.sec.value == xline;
    setAxisTitle(alongXline ? "ILINE_NO" : "XLINE_NO");
    int value = 0;
    first->headerValue(alongXline ? iline : xline, &value);
    _dstime = std::fabs(float(value));
    _timeDirection = value < 0 ? 0 : 1;
    if (value < 0) _dstime -= float(_numsmp);
    _seismicaxisl->setStart(_dstime);
    _seismicaxisr->setStart(_dstime);
    first->headerFloatValue(first->headerIndex("TFULL_E "), &_sliceTime);
}

QRectF SeismicDisplay::canvasRectangle() const
{
    return canvas()->contentsRect();
}

void SeismicDisplay::setWholeAxes()
{
    _seismicplot->setOutputBuffers(canvasRectangle().toRect());
    if (_overlayplot) _overlayplot->setOutputBuffers(canvasRectangle().toRect());
    setTraceIncrement(_traceIncr);
    setTimeIncrement(_timeIncr);
}

/// The axes have changed the canvas by now, so that the spacings are worked out once more.
void SeismicDisplay::afterFirstLayout()
{
    replot1();
    updateLayout();
    setWholeAxes();
}

int SeismicDisplay::loadSeismicData(float** traces, int** heads, int n, bool replot)
{
    const bool isOverlay = n > 0 && _menu->ioverlay != 0 && _loadTraces && !_lastOverlay;
    _isRepeated = n > 0 && !isOverlay && _loadTraces && _copy.holds(traces, heads, n, _stime, _numsmp, _nth);
    if (!_isRepeated) _images.forgetStored();  // else its picture stands for it still
    setResizeImage(true);
    setShowImage(false);
    if (n < 1) {
        _lastEnsemble = true;
        return 0;
    }
    if (isOverlay) return loadOverlayData(traces, heads, n, replot);
    _lastOverlay = false;
    if (!loadTraces(traces, heads, n)) return 1;
    _loadTraces = true;
    _lastEnsemble = false;
    // A SEG-Y file has no slices, whatever domain a former one has left.
    if (_firstTime && _idomain == sliceDomain && _isTrevia) setSliceAxis();
    _seismicplot->invalidateImage();
    _seismicplot->computeNormalizer();

    _shiftTime = double(_stime) * _samprat;
    _panSamples = wholeHeight();
    _panTraces = n + 1.0;
    for (MyQwtPlotZoomer* zoomer : _zoomer) zoomer->setRange(0.0, 0.0, n, double(_numsmp) * _samprat);
    if (buildHeaderAxis() != 0) return 1;
    if (_firstTime) {
        if (_menu->ips != 0.0f)
            _seismicplot->setSampleSpacing(float((1.0 / _menu->ips) / (_samprat / 1000.0)));
        _traceIncr = std::max(_traceIncrMult, 1.0f);
        _isTraceIncrTyped = false;
    }
    _seismicplot->setSeismicView(0, 0, n, _numsmp, _stime);
    _seismicplot->setDataLoaded(true);
    _seismicplot->setOutputBuffers(canvasRectangle().toRect());
    _seismicplot->setShiftTime(_shiftTime);

    const bool showsWhole = _firstTime || (!isZoomed() && !isPanned());
    if (showsWhole)
        setWholeAxes();
    else if (isZoomed() && _timeZoomOnly && !_traceZoomOnly)
        setTraceIncrement(_traceIncr);
    setDisplayTitle();
    if (_firstTime) afterFirstLayout();
    updateAxes();
    if (showsWhole) setZoomBase();
    limitPan();
    _firstTime = false;
    if (replot) rePlot();
    storeImage(false);
    emit ensembleShown();
    return 0;
}

int SeismicDisplay::saveSeismicData(float** /*traces*/, int** heads, int n)
{
    if (!_seismicdata->isChanged()) return 0;
    const int words = _seismicdata->numHeaderWords();
    for (int i = 0; i < std::min(n, _seismicdata->traceCount()); ++i)
        std::copy_n(_seismicdata->getTraceHeaders()[i], words, heads[i]);
    return 0;
}

void SeismicDisplay::getSeismicData(float* trace, int* header, int i) const
{
    if (i < 0 || i >= _seismicdata->traceCount()) return;
    std::copy_n(_seismicdata->getTraceValues(i, 0), _seismicdata->sampleCount(), trace);
    std::copy_n(_seismicdata->getTraceHeaders()[i], _seismicdata->numHeaderWords(), header);
}

float SeismicDisplay::computeRMS(bool apply)
{
    double sum = 0.0;
    int nLive = 0;
    const int n = _seismicdata->traceCount(), nSamples = _seismicdata->sampleCount();
    const int index = n > 0 ? _seismicdata->getTraceHeader(0)->headerIndex("TRC_TYPE") : -1;
    for (int i = 0; i < n; ++i) {
        int type = 0;
        _seismicdata->getTraceHeader(i)->headerValue(index, &type);
        if (type != 1) continue;
        const float* trace = _seismicdata->getTraceValues(i, 0);
        double roots = 0.0;
        int count = 0;
        for (int j = 0; j < nSamples; ++j) {
            if (trace[j] == 0.0f || !std::isfinite(trace[j])) continue;
            roots += std::sqrt(double(trace[j] * trace[j]));
            ++count;
        }
        if (count <= 3) continue;
        sum += roots / count;
        ++nLive;
    }
    const float rms = nLive > 0 ? float(std::max(0.0, sum / nLive)) : 0.0f;
    if (apply) _seismicplot->setRMS(rms);
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
    if (_host) _host->pickTraceChange(trace, start, n, tr);
}
