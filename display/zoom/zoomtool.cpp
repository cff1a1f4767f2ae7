#include "display/zoom/zoomtool.h"

#include "display/zoom/myqwtplotmagnifier.h"
#include "display/zoom/myqwtplotpanner.h"
#include "display/zoom/myqwtplotzoomer.h"

#include <QEvent>
#include <QPen>

#include <cmath>

ZoomTool::ZoomTool(QwtPlot* plot) : QObject(plot)
{
    QWidget* canvas = plot->canvas();
    _zoomer[0] = new MyQwtPlotZoomer(QwtPlot::xTop, QwtPlot::yLeft, canvas);
    _zoomer[1] = new MyQwtPlotZoomer(QwtPlot::xBottom, QwtPlot::yRight, canvas, false);
    _zoomer[0]->setRubberBandPen(QPen(Qt::red));
    _zoomer[1]->setRubberBand(QwtPicker::NoRubberBand);
    _panner = new MyQwtPlotPanner(canvas);
    _magnifier = new MyQwtPlotMagnifier(canvas);
    _magnifier->setMouseButton(Qt::LeftButton, Qt::ControlModifier);
    // Each has installed itself, in the order of their making.
    for (QObject* part : std::initializer_list<QObject*>{_zoomer[0], _zoomer[1], _panner})
        canvas->removeEventFilter(part);
    // The second zoomer follows on the other two axes and has no news of its own.
    connect(_zoomer[0], &MyQwtPlotZoomer::zoomed, this, &ZoomTool::zoomed);
    connect(_panner, &QwtPanner::panned, this, &ZoomTool::panned);
    setPlain(true);
}

bool ZoomTool::canvasEvent(QWidget* canvas, QEvent* event)
{
    if (_magnifier->isEnabled() && _magnifier->eventFilter(canvas, event)) return true;
    for (QObject* part : std::initializer_list<QObject*>{_panner, _zoomer[1], _zoomer[0]})
        if (part->eventFilter(canvas, event)) return true;
    return false;
}

void ZoomTool::setPlain(bool on)
{
    _isPlain = on;
    const Qt::KeyboardModifiers modifiers = on ? Qt::NoModifier : Qt::ControlModifier;
    for (MyQwtPlotZoomer* zoomer : _zoomer) {
        zoomer->setMousePattern(QwtEventPattern::MouseSelect1, Qt::LeftButton, modifiers);
        zoomer->setMousePattern(QwtEventPattern::MouseSelect2, Qt::RightButton, modifiers);
        zoomer->setMousePattern(QwtEventPattern::MouseSelect3, Qt::NoButton);
        zoomer->setMousePattern(QwtEventPattern::MouseSelect6, Qt::NoButton);
    }
    _panner->setMouseButton(Qt::MiddleButton, modifiers);
    _magnifier->setEnabled(on);
    _zoomer[0]->plot()->canvas()->removeEventFilter(_magnifier);  // which being enabled has installed
}

void ZoomTool::setXIncrement(const AxisRule& rule)
{
    for (MyQwtPlotZoomer* zoomer : _zoomer) zoomer->setXIncrement(rule);
    _panner->setXIncrement(rule);
    _magnifier->setXIncrement(rule);
}

void ZoomTool::setYIncrement(const AxisRule& rule)
{
    for (MyQwtPlotZoomer* zoomer : _zoomer) zoomer->setYIncrement(rule);
    _panner->setYIncrement(rule);
    _magnifier->setYIncrement(rule);
}

void ZoomTool::setRange(double nTraces, double ms)
{
    for (MyQwtPlotZoomer* zoomer : _zoomer) zoomer->setRange(0.0, 0.0, nTraces, ms);
}

void ZoomTool::zoomTo(const QRectF& rect)
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

void ZoomTool::zoomBack()
{
    for (MyQwtPlotZoomer* zoomer : {_zoomer[1], _zoomer[0]}) zoomer->zoom(0);
}

void ZoomTool::setBase(const QRectF& shown, const QRectF& data)
{
    // A fixed spacing shows a part of the data, or more than there is; zooms reach over the data all the same.
    for (MyQwtPlotZoomer* zoomer : _zoomer) zoomer->setZoomBase(nearlySameRect(shown, data) ? shown : data);
}

QRectF ZoomTool::base() const
{
    return _zoomer[0]->zoomBase();
}

QRectF ZoomTool::restRect() const
{
    return _zoomer[0]->restRect();
}

bool ZoomTool::isZoomed() const
{
    return _zoomer[0]->isZoomed();
}

bool ZoomTool::isPanned() const
{
    return _panner->isPanned();
}

void ZoomTool::panVertically(int dy)
{
    _panner->moveCanvas(0, dy);
}

void ZoomTool::limitPan(const QSizeF& extent, double shift, int timeDirection)
{
    _panner->setMinMax(0.0, extent.width(), 0.0, extent.height(), shift, timeDirection);
}

void ZoomTool::setOnly(bool time, bool trace)
{
    _isTimeOnly = time;
    _isTraceOnly = trace;
}

void ZoomTool::dropOnlyAtWhole(const QSizeF& shown, const QSizeF& whole)
{
    const auto isWhole = [](double span, double all) { return std::fabs(span - all) <= 1e-6 * all; };
    if (isWhole(shown.height(), whole.height())) _isTimeOnly = false;
    if (isWhole(shown.width(), whole.width())) _isTraceOnly = false;
}
