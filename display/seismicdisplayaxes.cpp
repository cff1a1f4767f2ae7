/// The axes of a display: their scales and steps, titles, and the base of the zoom.
#include "display/seismicdisplay.h"

#include "display/displayhost.h"
#include "display/myqwtplotmagnifier.h"
#include "display/myqwtplotpanner.h"
#include "display/myqwtplotzoomer.h"
#include "display/plotscrollbars.h"
#include "display/recordaxisscaledraw.h"
#include "display/seismicaxisscaledraw.h"
#include "display/seismicplot.h"
#include "host/report.h"
#include "tracedata/headertable.h"
#include "tracedata/parmmenu.h"
#include "tracedata/seismicdata.h"

#include <QFontMetrics>
#include <QResizeEvent>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>
#include <qwt_text.h>

#include <algorithm>
#include <cmath>

constexpr int sliceDomain = 8;

int SeismicDisplay::buildHeaderAxis()
{
    std::string error;
    const bool rightToLeft = _seismicplot->plotDirection() == RightToLeft;
    if (!_headerAxis.build(*_seismicdata, _keys, rightToLeft, _isDifference, &error)) {
        PrintReport().line(error + "\n");
        return 1;
    }
    const KeyColumn& labels = _headerAxis.sec();
    _recordaxis->setAxisArray(labels.values.data(), _headerAxis.traceCount(), labels.type);
    _images.forgetLabels();
    relayAxes();
    return 0;
}

void SeismicDisplay::setDisplayTitle()
{
    const KeyColumn& key = _headerAxis.pri();
    showTitle(QString(), key.values.size() > 1 ? key.values[1] : 0.0f, _headerAxis.parmTest());
}

void SeismicDisplay::showTitle(const QString& before, float primary, const QString& parm)
{
    QString title = _headerAxis.pri().name + ":" + QString::number(double(primary), 'g', 6) + "    " + parm;
    if (_idomain == sliceDomain) {
        title = "SLC_TIME:" + QString::number(double(_sliceTime), 'g', 6) + "  msec    " + parm +
                "    Time: " + QString::number(double(_sliceTime), 'g', 6) + "  msec";
    }
    QwtText text(before + title);
    QFont font = axisFont(xTop);
    font.setBold(true);
    text.setFont(font);
    _recordaxis->setName(_headerAxis.sec().name.trimmed(), text.textSize(font).width());
    MyQwtPlot::setAxisTitle(xTop, text);
}

void SeismicDisplay::setAxisTitle(const QString& text)
{
    _ctaxis = text;
    for (const int axis : {yLeft, yRight}) {
        QwtText title(text, QwtText::PlainText);
        title.setFont(axisFont(axis));
        MyQwtPlot::setAxisTitle(axis, title);
    }
}

void SeismicDisplay::enableVerticalAxis(bool left, bool right)
{
    enableAxis(yLeft, left);
    enableAxis(yRight, right);
}

void SeismicDisplay::setVAxisValues(bool on)
{
    _recordaxis->setFake(!on);
    _seismicaxisl->setFake(!on);
    _seismicaxisr->setFake(!on);
    relayAxes();
    rePlot();
}

/// New labels on the old steps: a scale lays them out and paints them only when it is told to.
void SeismicDisplay::relayAxes()
{
    for (const int axis : {xTop, yLeft, yRight}) axisWidget(axis)->setLabelRotation(0.0);
}

void SeismicDisplay::axesFollowHeaders()
{
    if (!_loadTraces || buildHeaderAxis() != 0) return;
    setDisplayTitle();
    updateAxes();
    showImageAgain();
}

void SeismicDisplay::setPlotDirection(PlotDirection direction)
{
    _seismicplot->setPlotDirection(direction);
    if (_overlayplot) _overlayplot->setPlotDirection(direction);
    _recordaxis->setPlotDirection(direction);
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
    const double plotTraces = _seismicplot->plotTraceCount();
    _traceIncr = std::max(incr > 0.0f ? incr : 1.0f, 1.0f);
    if (!_isTraceIncrTyped) _traceIncr = float(axisStep(plotTraces, _traceIncr, 3, 1.0));
    const AxisRule rule = traceRule();
    const double step = rule.step(plotTraces);
    for (const int axis : {xTop, xBottom}) setAxisScale(axis, 0.0, plotTraces, step);
    for (MyQwtPlotZoomer* zoomer : _zoomer) zoomer->setXIncrement(rule);
    _panner->setXIncrement(rule);
    _magnifier->setXIncrement(rule);
}

void SeismicDisplay::typeTraceIncrement(float incr)
{
    _isTraceIncrTyped = true;
    setTraceIncrement(incr);
}

void SeismicDisplay::typeTimeIncrement(float incr)
{
    _isTimeIncrTyped = true;
    setTimeIncrement(incr);
}

/// A step every few pixels at most: labels are thinned out where they stand. Those that stand only at some traces ask
/// each trace.
AxisRule SeismicDisplay::traceRule() const
{
    constexpr int mostSteps = 10000;  // the plot makes no more
    const bool asksEach = !_isTraceIncrTyped && (_iskeymod == 1 || _iskeymod == 3);
    AxisRule rule(_traceIncr);
    rule.isTyped = _isTraceIncrTyped;
    rule.smallest = 1.0;
    rule.most = asksEach ? mostSteps : std::clamp(canvas()->width() / (_isTraceIncrTyped ? 2 : 4), 1, mostSteps);
    return rule;
}

/// Half a second is too coarse for short records, whose axis would be bare, and too fine for long ones.
AxisRule SeismicDisplay::timeRule() const
{
    const int labelHeight = std::max(1, QFontMetrics(axisFont(yLeft)).height());
    AxisRule rule(_timeIncr);
    rule.isTyped = _isTimeIncrTyped;
    rule.most = std::max(1, _isTimeIncrTyped ? canvas()->height() / 2 : canvas()->height() * 4 / (5 * labelHeight));
    return rule;
}

void SeismicDisplay::setTimeIncrement(float incr)
{
    _timeIncr = incr;
    const double plotSamples = _seismicplot->plotSampleCount();
    const double plotTime = plotSamples * (_idomain == sliceDomain ? 1.0 : _samprat);
    const AxisRule rule = timeRule();
    const double step = rule.step(plotTime);
    for (const int axis : {yLeft, yRight}) {
        const double shift = double(_stime) * _samprat;
        if (_idomain != sliceDomain)
            setAxisScale(axis, plotTime + shift, shift, step);
        else if (_timeDirection)
            setAxisScale(axis, plotSamples, 0.0, step);
        else
            setAxisScale(axis, std::max(_numsmp - plotSamples, 0.0), _numsmp, -step);
        setAxisMaxMajor(axis, int(std::clamp(plotTime / std::max(step, 1e-9), 1.0, 10000.0)));
    }
    for (MyQwtPlotZoomer* zoomer : _zoomer) zoomer->setYIncrement(rule);
    _panner->setYIncrement(rule);
    _magnifier->setYIncrement(rule);
    if (!_firstTime) rePlot();
}

void SeismicDisplay::setZoomBase()
{
    replot1();
    const QRectF shown = visibleRect();
    _panTraces = shown.width();
    _panSamples = shown.height();
    // A fixed spacing shows a part of the data, or more than there is; zooms reach over the data all the same.
    const QRectF data(0.0, _shiftTime, _seismicdata->traceCount() + 1.0, wholeHeight());
    for (MyQwtPlotZoomer* zoomer : _zoomer) zoomer->setZoomBase(nearlySameRect(shown, data) ? shown : data);
}

bool SeismicDisplay::isSlice() const
{
    return _idomain == sliceDomain;
}

double SeismicDisplay::wholeHeight() const
{
    return isSlice() ? double(_numsmp) : double(_numsmp) * _samprat;
}

/// What scrolling and panning reach over: the picture on the screen, or the data, also where a fixed spacing shows
/// only a part of them.
QSizeF SeismicDisplay::panExtent() const
{
    if (_images.number() >= 0) return _images.extent();
    return QSizeF(std::max(_panTraces, _seismicdata->traceCount() + 1.0), std::max(_panSamples, wholeHeight()));
}

void SeismicDisplay::limitPan()
{
    const QSizeF extent = panExtent();
    _panner->setMinMax(0.0, extent.width(), 0.0, extent.height(), _shiftTime, _timeDirection);
}

QRectF SeismicDisplay::zoomBase() const
{
    return _zoomer[0]->zoomBase();
}

QRectF SeismicDisplay::restRect() const
{
    return _zoomer[0]->restRect();
}

void SeismicDisplay::rebuildDisplay(bool resetOthers)
{
    if (!_loadTraces) return;
    _firstTime = true;  // keeps the increments from replotting one by one
    setWholeAxes();
    _firstTime = false;
    setZoomBase();
    if (resetOthers) _zoomLink.resetOthers(this);
    _timeZoomOnly = _traceZoomOnly = false;
    limitPan();
    synchronizeScrollBars();
    rebuildPlot();
}

void SeismicDisplay::rebuildPlot()
{
    setImageStored(false);
    setResizeImage(true);
    rePlot();
    if (_host && _menu && _menu->iscreens <= 1) _host->doFBPicking(_mouseMode == MouseMode::FirstBreaks);
}

void SeismicDisplay::rePlot()
{
    replot();
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
    _nShownAgain = 0;
    showImageAgain();
}
