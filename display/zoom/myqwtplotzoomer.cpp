#include "display/zoom/myqwtplotzoomer.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <qwt_picker_machine.h>
#include <qwt_plot.h>
#include <qwt_scale_div.h>

#include <algorithm>
#include <cmath>

MyQwtPlotZoomer::MyQwtPlotZoomer(int xAxis, int yAxis, QWidget* canvas, bool doReplot)
    : QwtPlotPicker(xAxis, yAxis, canvas), _doReplot(doReplot)
{
    setTrackerMode(AlwaysOff);
    setRubberBand(RectRubberBand);
    setStateMachine(new QwtPickerDragRectMachine());
    setZoomBase(axesRect());
}

static bool sameValue(double a, double b)
{
    return std::fabs(a - b) <= 1e-12 * std::min(std::fabs(a), std::fabs(b));
}

bool sameRect(const QRectF& a, const QRectF& b)
{
    return sameValue(a.left(), b.left()) && sameValue(a.top(), b.top()) && sameValue(a.width(), b.width()) &&
           sameValue(a.height(), b.height());
}

bool nearlySameRect(const QRectF& a, const QRectF& b)
{
    const double share = 1e-5, dx = share * std::fabs(b.width()), dy = share * std::fabs(b.height());
    return std::fabs(a.left() - b.left()) <= dx && std::fabs(a.right() - b.right()) <= dx &&
           std::fabs(a.top() - b.top()) <= dy && std::fabs(a.bottom() - b.bottom()) <= dy;
}

void MyQwtPlotZoomer::setRange(double xmin, double ymin, double xmax, double ymax)
{
    _range = QRectF(QPointF(xmin, ymin), QPointF(xmax, ymax));
}

QRectF MyQwtPlotZoomer::axesRect() const
{
    const QwtScaleDiv& x = plot()->axisScaleDiv(xAxis());
    const QwtScaleDiv& y = plot()->axisScaleDiv(yAxis());
    return QRectF(QPointF(x.lowerBound(), y.lowerBound()), QPointF(x.upperBound(), y.upperBound())).normalized();
}

bool MyQwtPlotZoomer::isZoomed() const
{
    return _zoomRectIndex > restIndex();
}

void MyQwtPlotZoomer::setZoomBase(bool doReplot)
{
    if (doReplot) plot()->replot();
    setZoomBase(axesRect());
}

void MyQwtPlotZoomer::setZoomBase(const QRectF& base)
{
    const QRectF shown = axesRect();
    _zoomStack = {base.normalized()};
    _zoomRectIndex = 0;
    _hasSpareBase = !sameRect(shown, _zoomStack.first());
    if (_hasSpareBase) {
        _zoomStack.append(shown);
        _zoomRectIndex = 1;
    }
}

void MyQwtPlotZoomer::setMaxStackDepth(int depth)
{
    _maxStackDepth = depth;
    if (depth < 0 || _zoomStack.size() <= depth + 1) return;
    const int excess = _zoomRectIndex - depth;
    if (excess > 0) zoom(-excess);
    _zoomStack.resize(depth + 1);
}

void MyQwtPlotZoomer::zoom(const QRectF& rect)
{
    if (_maxStackDepth >= 0 && _zoomRectIndex >= _maxStackDepth) return;
    const QRectF wanted = rect.normalized() & zoomBase();
    const bool isFinite = std::isfinite(rect.left() + rect.top() + rect.width() + rect.height());
    _zoomStack[restIndex()] = restRect();  // it may have been panned
    if (!isFinite || wanted.isEmpty() || sameRect(wanted, zoomRect())) return;
    _zoomStack.resize(_zoomRectIndex + 1);
    _zoomStack.append(wanted);
    ++_zoomRectIndex;
    rescale();
    emit zoomed(zoomRect());
}

void MyQwtPlotZoomer::zoom(int offset)
{
    _zoomRectIndex =
        offset == 0 ? restIndex() : std::clamp(_zoomRectIndex + offset, restIndex(), int(_zoomStack.size()) - 1);
    rescale();
    emit zoomed(zoomRect());
}

/// Sets an axis to an interval in the direction that it has.
static void setScale(QwtPlot* plot, int axis, double least, double largest, const AxisRule& rule)
{
    const double step = rule.step(largest - least);
    if (plot->axisScaleDiv(axis).isIncreasing())
        plot->setAxisScale(axis, least, largest, step);
    else
        plot->setAxisScale(axis, largest, least, step);
}

void MyQwtPlotZoomer::rescale()
{
    const QRectF rect = zoomRect();
    if (sameRect(rect, axesRect())) return;
    const bool autoReplot = plot()->autoReplot();
    plot()->setAutoReplot(false);
    setScale(plot(), xAxis(), rect.left(), rect.right(), _xIncrement);
    setScale(plot(), yAxis(), rect.top(), rect.bottom(), _yIncrement);
    plot()->setAutoReplot(autoReplot);
    if (_doReplot) plot()->replot();
}

QSizeF MyQwtPlotZoomer::minZoomSize() const
{
    return zoomBase().size() / 100000.0;
}

void MyQwtPlotZoomer::moveBy(double dx, double dy)
{
    move(zoomRect().left() + dx, zoomRect().top() + dy);
}

void MyQwtPlotZoomer::move(double x, double y)
{
    const QRectF base = zoomBase(), shown = zoomRect();
    x = std::max(base.left(), std::min(x, base.right() - shown.width()));
    y = std::max(base.top(), std::min(y, base.bottom() - shown.height()));
    if (x == shown.left() && y == shown.top()) return;
    _zoomStack[_zoomRectIndex].moveTo(x, y);
    rescale();
}

bool MyQwtPlotZoomer::accept(QPolygon& polygon) const
{
    if (polygon.count() < 2) return false;
    // Not by QRect::normalized, which takes two neighbouring pixels from right to left for none.
    const QPoint a = polygon.first(), b = polygon.last();
    const QPoint least(std::min(a.x(), b.x()), std::min(a.y(), b.y()));
    const QPoint largest(std::max(a.x(), b.x()), std::max(a.y(), b.y()));
    const QRect rect(least, largest);
    if (rect.width() < 2 && rect.height() < 2) return false;
    polygon = QPolygon(QVector<QPoint>{least, largest});
    return true;
}

void MyQwtPlotZoomer::begin()
{
    if (_maxStackDepth >= 0 && _zoomRectIndex >= _maxStackDepth) return;
    const QSizeF least = minZoomSize();
    if (least.isValid() && least.width() >= zoomRect().width() * 0.9999 &&
        least.height() >= zoomRect().height() * 0.9999)
        return;
    QwtPlotPicker::begin();
}

bool MyQwtPlotZoomer::end(bool ok)
{
    ok = QwtPlotPicker::end(ok);
    if (!ok) return false;
    const QPolygon corners = selection();
    if (corners.count() < 2) return false;
    QRectF rect = invTransform(QRect(corners.first(), corners.last()).normalized()).normalized();
    const QSizeF least = minZoomSize();
    if (rect.width() < least.width() || rect.height() < least.height()) {
        const QPointF middle = rect.center();
        rect.setSize(rect.size().expandedTo(least));
        rect.moveCenter(middle);
    }
    zoom(rect);
    return true;
}

void MyQwtPlotZoomer::widgetMouseReleaseEvent(QMouseEvent* event)
{
    if (mouseMatch(MouseSelect2, event))
        zoom(0);
    else if (mouseMatch(MouseSelect3, event))
        zoom(-1);
    else if (mouseMatch(MouseSelect6, event))
        zoom(+1);
    else
        QwtPlotPicker::widgetMouseReleaseEvent(event);
}

void MyQwtPlotZoomer::widgetKeyPressEvent(QKeyEvent* event)
{
    if (!isActive()) {
        if (keyMatch(KeyUndo, event))
            zoom(-1);
        else if (keyMatch(KeyRedo, event))
            zoom(+1);
        else if (keyMatch(KeyHome, event))
            zoom(0);
    }
    QwtPlotPicker::widgetKeyPressEvent(event);
}
