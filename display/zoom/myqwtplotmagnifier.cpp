#include "display/zoom/myqwtplotmagnifier.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>
#include <qwt_scale_div.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

MyQwtPlotMagnifier::MyQwtPlotMagnifier(QWidget* canvas) : QObject(canvas)
{
    std::fill(std::begin(_axisIsEnabled), std::end(_axisIsEnabled), true);
    setEnabled(true);
}

QWidget* MyQwtPlotMagnifier::canvas() const
{
    return qobject_cast<QWidget*>(parent());
}

QwtPlot* MyQwtPlotMagnifier::plot() const
{
    return canvas() ? qobject_cast<QwtPlot*>(canvas()->parentWidget()) : nullptr;
}

void MyQwtPlotMagnifier::setEnabled(bool on)
{
    if (_isEnabled == on || !canvas()) return;
    _isEnabled = on;
    if (on) {
        canvas()->installEventFilter(this);
        return;
    }
    canvas()->removeEventFilter(this);
    stopTracking();  // the release of a drag that is under way will not come here
}

void MyQwtPlotMagnifier::setMouseButton(Qt::MouseButton button, Qt::KeyboardModifiers state)
{
    _mouseButton = button;
    _mouseButtonState = state;
}

void MyQwtPlotMagnifier::setZoomInKey(int key, Qt::KeyboardModifiers state)
{
    _zoomInKey = key;
    _zoomInState = state;
}

void MyQwtPlotMagnifier::setZoomOutKey(int key, Qt::KeyboardModifiers state)
{
    _zoomOutKey = key;
    _zoomOutState = state;
}

void MyQwtPlotMagnifier::setAxisEnabled(int axis, bool on)
{
    if (axis >= 0 && axis < QwtPlot::axisCnt) _axisIsEnabled[axis] = on;
}

void MyQwtPlotMagnifier::rescale(double factor)
{
    QwtPlot* plot = this->plot();
    if (!plot || factor == 1.0 || factor == 0.0 || !std::isfinite(factor)) return;
    bool isChanged = false;
    const bool autoReplot = plot->autoReplot();
    plot->setAutoReplot(false);
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
        const QwtScaleDiv& div = plot->axisScaleDiv(axis);
        if (!_axisIsEnabled[axis] || div.isEmpty()) continue;
        const double middle = div.lowerBound() + (div.upperBound() - div.lowerBound()) / 2;
        const double half = factor * (div.upperBound() - div.lowerBound()) / 2;
        // Nothing can be drawn on a scale without end, nor on one whose ends fall together.
        if (!std::isfinite(4.0 * half) || !(middle - half != middle + half)) continue;
        const bool isVertical = axis == QwtPlot::yLeft || axis == QwtPlot::yRight;
        // Far out the step would cut the scale into thousands of ticks, more than the axis has pixels.
        const int pixels = isVertical ? canvas()->height() : canvas()->width();
        const double step = (isVertical ? _yIncrement : _xIncrement).step(2.0 * half);
        plot->setAxisScale(axis, middle - half, middle + half, roomyStep(2.0 * half, step, pixels));
        isChanged = true;
    }
    plot->setAutoReplot(autoReplot);
    if (isChanged) plot->replot();
}

bool MyQwtPlotMagnifier::eventFilter(QObject* object, QEvent* event)
{
    if (object == canvas()) {
        switch (event->type()) {
        case QEvent::MouseButtonPress: widgetMousePressEvent(static_cast<QMouseEvent*>(event)); break;
        case QEvent::MouseButtonRelease: widgetMouseReleaseEvent(static_cast<QMouseEvent*>(event)); break;
        case QEvent::MouseMove: widgetMouseMoveEvent(static_cast<QMouseEvent*>(event)); break;
        case QEvent::Wheel: widgetWheelEvent(static_cast<QWheelEvent*>(event)); break;
        case QEvent::KeyPress: {
            // The zoomers take the same keys for redo and undo, and would take the step back at once.
            event->ignore();
            widgetKeyPressEvent(static_cast<QKeyEvent*>(event));
            if (event->isAccepted()) return true;
            break;
        }
        default: break;
        }
    }
    return QObject::eventFilter(object, event);
}

/// The modifiers that a user means; the keypad's own flag is none of them.
static Qt::KeyboardModifiers meantModifiers(Qt::KeyboardModifiers modifiers)
{
    return modifiers & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

void MyQwtPlotMagnifier::widgetMousePressEvent(QMouseEvent* event)
{
    if (event->button() != _mouseButton || meantModifiers(event->modifiers()) != _mouseButtonState) return;
    _hadMouseTracking = canvas()->hasMouseTracking();
    canvas()->setMouseTracking(true);
    _mousePos = event->pos();
    _isTracking = true;
}

void MyQwtPlotMagnifier::widgetMouseReleaseEvent(QMouseEvent*)
{
    stopTracking();
}

void MyQwtPlotMagnifier::stopTracking()
{
    if (!_isTracking) return;
    _isTracking = false;
    canvas()->setMouseTracking(_hadMouseTracking);
}

void MyQwtPlotMagnifier::widgetMouseMoveEvent(QMouseEvent* event)
{
    if (!_isTracking) return;
    const int dy = event->pos().y() - _mousePos.y();
    if (dy != 0) rescale(dy > 0 ? _mouseFactor : 1.0 / _mouseFactor);
    _mousePos = event->pos();
}

double wheelTurnFactor(double wheelFactor, int delta)
{
    const double factor = std::pow(wheelFactor, std::abs(delta / 120));
    return delta > 0 ? 1.0 / factor : factor;
}

void MyQwtPlotMagnifier::widgetWheelEvent(QWheelEvent* event)
{
    if (meantModifiers(event->modifiers()) != _wheelButtonState || _wheelFactor == 0.0) return;
    rescale(wheelTurnFactor(_wheelFactor, event->angleDelta().y()));
}

void MyQwtPlotMagnifier::widgetKeyPressEvent(QKeyEvent* event)
{
    // "+" needs Shift on many keyboards, so that modifier alone doesn't disqualify the key.
    const Qt::KeyboardModifiers state = meantModifiers(event->modifiers()) & ~Qt::KeyboardModifiers(Qt::ShiftModifier);
    if (event->key() == _zoomInKey && state == _zoomInState)
        rescale(_keyFactor);
    else if (event->key() == _zoomOutKey && state == _zoomOutState)
        rescale(1.0 / _keyFactor);
    else
        return;
    event->accept();
}
