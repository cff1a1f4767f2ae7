/// The mouse on a display: read-out, zoom, pan, axis drags and the mouse modes.
#include "display/seismicdisplay.h"

#include "display/axisdrag.h"
#include "display/displayhost.h"
#include "display/myqwtplotcanvas.h"
#include "display/myqwtplotmagnifier.h"
#include "display/myqwtplotpanner.h"
#include "display/myqwtplotzoomer.h"
#include "display/plotscrollbars.h"
#include "display/rasternumber.h"
#include "display/readout.h"
#include "display/seismicplot.h"
#include "tracedata/parmmenu.h"
#include "tracedata/seismicdata.h"

#include <QMouseEvent>
#include <QStatusBar>
#include <qwt_scale_div.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>

#include <algorithm>
#include <cmath>

constexpr int sliceDomain = 8;

void SeismicDisplay::makeMouseTools()
{
    _zoomer[0] = new MyQwtPlotZoomer(xTop, yLeft, canvas());
    _zoomer[1] = new MyQwtPlotZoomer(xBottom, yRight, canvas(), false);
    _zoomer[0]->setRubberBandPen(QPen(Qt::red));
    _zoomer[1]->setRubberBand(QwtPicker::NoRubberBand);
    _panner = new MyQwtPlotPanner(canvas());
    _magnifier = new MyQwtPlotMagnifier(canvas());
    _magnifier->setMouseButton(Qt::LeftButton, Qt::ControlModifier);
    _axisDrag = new AxisDrag(this);
    // The second zoomer follows on the other two axes and has no news of its own.
    connect(_zoomer[0], &MyQwtPlotZoomer::zoomed, this, &SeismicDisplay::catchZoom);
    connect(_panner, &QwtPanner::panned, this, &SeismicDisplay::catchPan);
    // Its rubber band lies on the canvas, which a stored picture covers.
    connect(_axisDrag, &AxisDrag::started, myCanvas(), &MyQwtPlotCanvas::hideStored);
    connect(_axisDrag, &AxisDrag::resetWanted, this, [this] { resetZoom(-1); });
    connect(_axisDrag, &AxisDrag::dragged, this, [this](const QRectF& rect, bool onTraceAxis) {
        (onTraceAxis ? _traceZoomOnly : _timeZoomOnly) = true;
        setZoomRect(rect);
    });
    _scrollBars = new PlotScrollBars(this);
    connect(_scrollBars, &PlotScrollBars::horizontalMoved, this, &SeismicDisplay::horizontalScrollerMoved);
    connect(_scrollBars, &PlotScrollBars::verticalMoved, this, &SeismicDisplay::verticalScrollerMoved);
    for (const int axis : {xTop, yLeft})
        connect(axisWidget(axis), &QwtScaleWidget::scaleDivChanged, this, &SeismicDisplay::synchronizeScrollBars);
    // Installed last, so it sees the mouse before the zoomers do.
    canvas()->installEventFilter(this);
}

void SeismicDisplay::setZoom(bool on)
{
    _zoomState = on;
    const Qt::KeyboardModifiers modifiers = on ? Qt::NoModifier : Qt::ControlModifier;
    for (MyQwtPlotZoomer* zoomer : _zoomer) {
        zoomer->setMousePattern(QwtEventPattern::MouseSelect1, Qt::LeftButton, modifiers);
        zoomer->setMousePattern(QwtEventPattern::MouseSelect2, Qt::RightButton, modifiers);
        zoomer->setMousePattern(QwtEventPattern::MouseSelect3, Qt::NoButton);
        zoomer->setMousePattern(QwtEventPattern::MouseSelect6, Qt::NoButton);
    }
    _panner->setMouseButton(Qt::MiddleButton, modifiers);
    _magnifier->setEnabled(on);
    setControlLabel(QString());
}

void SeismicDisplay::setMouseMode(MouseMode mode, bool on)
{
    if (!on && mode != _mouseMode) return;  // another mode owns the mouse
    _mouseMode = on ? mode : MouseMode::Zoom;
    setZoom(_mouseMode == MouseMode::Zoom && !_images.isShown());
    setControlLabel(_images.isShown() ? imageModeText() : mouseModeText(_mouseMode));
}

void SeismicDisplay::showDisplay(int mode)
{
    const bool isPicking = _mouseMode != MouseMode::Spectrum && _mouseMode != MouseMode::Headers;
    if (mode == 1 || mode == 2)
        setMouseMode(mode == 1 ? MouseMode::Spectrum : MouseMode::Headers, true);
    else
        setMouseMode(mode == 0 || !isPicking ? MouseMode::Zoom : _mouseMode, true);
}

void SeismicDisplay::setControlLabel(const QString& text)
{
    if (_controlStatus) _controlStatus->showMessage(controlLine(_zoomState, text, false));
}

void SeismicDisplay::addMessage(const QString& text)
{
    _messageAdd = text;
    if (_statusbar) _statusbar->showMessage(_messageMain + _messageAdd);
}

void SeismicDisplay::setTimeZoom(bool timeOnly, bool traceOnly)
{
    _timeZoomOnly = timeOnly;
    _traceZoomOnly = traceOnly;
}

void SeismicDisplay::setZoomRect(const QRectF& rect)
{
    for (MyQwtPlotZoomer* zoomer : {_zoomer[1], _zoomer[0]}) {
        // A sister that zooms out sends its whole times: that is our base, not another step on the stack.
        const QRectF rest = zoomer->restRect();
        if (nearlySameRect(rect, rest) || nearlySameRect(rect & zoomer->zoomBase(), rest))
            zoomer->zoom(0);
        else
            zoomer->zoom(rect);
    }
}

void SeismicDisplay::resetZoom(int /*index*/)
{
    const bool wasSpreading = _zoomLink.isSpreading();
    if (_host) _host->setZooming(true);
    for (MyQwtPlotZoomer* zoomer : {_zoomer[1], _zoomer[0]}) zoomer->zoom(0);
    if (_host) _host->setZooming(wasSpreading);
    _timeZoomOnly = _traceZoomOnly = false;
}

bool SeismicDisplay::isZoomed() const
{
    return _zoomer[0]->isZoomed();
}

bool SeismicDisplay::isPanned() const
{
    return _panner->isPanned();
}

void SeismicDisplay::panVertically(int dy)
{
    _panner->moveCanvas(0, dy);
}

void SeismicDisplay::catchZoom(const QRectF& rect)
{
    showImageAgain();
    if (!_images.isShown()) setImageStored(false);
    setResizeImage(true);
    if (_zoomLink.isSpreading()) return;
    if (isZoomed())
        _zoomLink.spreadZoom(this, rect, _timeZoomOnly, _traceZoomOnly);
    else
        _zoomLink.spreadReset(this, _timeZoomOnly, _traceZoomOnly);
    const double wholeTime = double(_seismicplot->plotSampleCount()) * (_idomain == sliceDomain ? 1.0 : _samprat);
    if (_timeZoomOnly && std::fabs(rect.height() - wholeTime) <= 1e-6 * wholeTime) _timeZoomOnly = false;
    const double wholeTraces = _seismicplot->plotTraceCount();
    if (_traceZoomOnly && std::fabs(rect.width() - wholeTraces) <= 1e-6 * wholeTraces) _traceZoomOnly = false;
}

void SeismicDisplay::catchPan(int /*dx*/, int dy)
{
    if (!_images.isShown()) setImageStored(false);
    setResizeImage(true);
    _zoomLink.spreadPan(this, dy);
}

void SeismicDisplay::synchronizeScrollBars()
{
    if (!_loadTraces) return;
    const QwtInterval x = axisScaleDiv(xTop).interval().normalized();
    const QwtInterval y = axisScaleDiv(yLeft).interval().normalized();
    const QSizeF extent = panExtent();
    _scrollBars->synchronize({0.0, extent.width(), x.minValue(), x.width()},
                             {_shiftTime, extent.height(), y.minValue(), y.width()});
    _zoomLink.alignBottoms();
}

bool SeismicDisplay::hasHorizontalBar() const
{
    return _scrollBars->hasHorizontal();
}

int SeismicDisplay::roomBelowCanvas() const
{
    return height() - contentsMargins().bottom() - (canvas()->y() + canvas()->height());
}

void SeismicDisplay::reserveBelow(int nPixels)
{
    _scrollBars->reserveBelow(nPixels);
}

void SeismicDisplay::reserveHorizontalBar(bool on)
{
    _scrollBars->reserveHorizontal(on);
}

/// Moves the axes of one direction, with their steps.
static void moveAxes(SeismicDisplay* display, int first, int second, double from)
{
    const QwtScaleDiv& div = display->axisScaleDiv(first);
    const double span = std::fabs(div.range()), step = display->axisStepSize(first);
    for (const int axis : {first, second}) {
        if (div.isIncreasing())
            display->setAxisScale(axis, from, from + span, step);
        else
            display->setAxisScale(axis, from + span, from, step);
    }
    display->rePlot();
}

void SeismicDisplay::horizontalScrollerMoved(double from)
{
    moveAxes(this, xTop, xBottom, from);
}

void SeismicDisplay::verticalScrollerMoved(double from)
{
    moveAxes(this, yLeft, yRight, from);
}

QString SeismicDisplay::readoutAt(const QPoint& pos) const
{
    if (!_loadTraces) return QString();
    const double x = canvasMap(xTop).invTransform(pos.x()), y = canvasMap(yLeft).invTransform(pos.y());
    ReadoutFrame frame = {_seismicdata->traceCount(),
                          _seismicdata->sampleCount(),
                          double(_samprat),
                          _seismicplot->plotDirection() == RightToLeft,
                          _idomain == sliceDomain,
                          _timeDirection != 0,
                          double(_dstime),
                          _stime};
    if (_images.number() >= 0) {  // the amplitudes of a stored picture have gone
        frame.nTraces = _images.traceCount();
        frame.nSamples = wholeOf(_images.extent().height() / _samprat + 0.5);
        return readoutText(readoutPosition(frame, x, y), _images.primary(), _images.secondary(), _ctaxis);
    }
    if (frame.nTraces < 1 || frame.nSamples < 1) return QString();
    const ReadoutPosition at = readoutPosition(frame, x, y);
    QString line = readoutText(at, _headerAxis.pri(), _headerAxis.sec(), _ctaxis);
    if (!at.isInside) return line;
    line += amplitudeText("Amp", *_seismicdata->getTraceValues(at.trace, at.sample));
    if (_menu->ioverlay != 0 && _overlaydata && at.trace < _overlaydata->traceCount() &&
        at.sample < _overlaydata->sampleCount())
        line += amplitudeText("Overlay Amp", *_overlaydata->getTraceValues(at.trace, at.sample));
    return line;
}

bool SeismicDisplay::eventFilter(QObject* object, QEvent* event)
{
    if (object != canvas()) return MyQwtPlot::eventFilter(object, event);
    if (event->type() == QEvent::Resize) showPictureLine();  // as much as has room now
    if (_images.isShown() && trackImage(event)) return true;
    if (event->type() == QEvent::MouseMove) {
        if (!_loadTraces) return true;
        _messageMain = readoutAt(static_cast<QMouseEvent*>(event)->pos());
        if (_statusbar) _statusbar->showMessage(_messageMain);
    } else if (event->type() == QEvent::Leave && _statusbar) {
        _statusbar->showMessage(QString());
    }
    return MyQwtPlot::eventFilter(object, event);
}
