#include "display/zoom/axisdrag.h"

#include <QMouseEvent>
#include <QPalette>
#include <QRubberBand>
#include <qwt_plot.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>

AxisDrag::AxisDrag(QwtPlot* plot) : QObject(plot), _plot(plot)
{
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) _plot->axisWidget(axis)->installEventFilter(this);
}

static bool isTraceAxis(const QwtScaleWidget* axis)
{
    return axis->alignment() == QwtScaleDraw::TopScale || axis->alignment() == QwtScaleDraw::BottomScale;
}

bool AxisDrag::eventFilter(QObject* object, QEvent* event)
{
    auto* axis = qobject_cast<QwtScaleWidget*>(object);
    if (!axis) return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress: press(axis, static_cast<QMouseEvent*>(event)); return true;
    case QEvent::MouseMove: move(axis, static_cast<QMouseEvent*>(event)); return true;
    case QEvent::MouseButtonRelease: release(axis, static_cast<QMouseEvent*>(event)); return true;
    case QEvent::Hide: cancel(); break;
    default: break;
    }
    return false;
}

QPoint AxisDrag::onCanvas(QwtScaleWidget* axis, const QPoint& pos) const
{
    return _plot->canvas()->mapFrom(_plot, axis->mapTo(_plot, pos));
}

void AxisDrag::press(QwtScaleWidget* axis, const QMouseEvent* event)
{
    if (event->button() == Qt::RightButton) {
        cancel();
        emit resetWanted();
        return;
    }
    if (event->button() != Qt::LeftButton) return;
    _state = State::Dragging;
    emit started();
    _from = onCanvas(axis, event->pos());
    if (!_rubberBand) {
        _rubberBand = new QRubberBand(QRubberBand::Rectangle, _plot->canvas());
        QPalette palette;
        palette.setBrush(QPalette::Highlight, QColor(Qt::blue));
        _rubberBand->setPalette(palette);
    }
    _rubberBand->setGeometry(QRect(_from, QSize()));
    _rubberBand->show();
}

void AxisDrag::move(QwtScaleWidget* axis, const QMouseEvent* event)
{
    if (_state != State::Dragging) return;
    const QPoint to = onCanvas(axis, event->pos());
    const QRect whole = _plot->canvas()->rect();
    const QRect band = isTraceAxis(axis) ? QRect(QPoint(_from.x(), whole.top()), QPoint(to.x(), whole.bottom()))
                                         : QRect(QPoint(whole.left(), _from.y()), QPoint(whole.right(), to.y()));
    _rubberBand->setGeometry(band.normalized() & whole);
}

QRectF AxisDrag::draggedRect(QwtScaleWidget* axis, const QPoint& end) const
{
    const QwtScaleMap x = _plot->canvasMap(QwtPlot::xTop), y = _plot->canvasMap(QwtPlot::yLeft);
    const QRectF rect =
        isTraceAxis(axis)
            ? QRectF(QPointF(x.invTransform(_from.x()), y.s1()), QPointF(x.invTransform(end.x()), y.s2()))
            : QRectF(QPointF(x.s1(), y.invTransform(_from.y())), QPointF(x.s2(), y.invTransform(end.y())));
    return rect.normalized();
}

void AxisDrag::release(QwtScaleWidget* axis, const QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || _state != State::Dragging) return;
    cancel();
    const QRectF rect = draggedRect(axis, onCanvas(axis, event->pos()));
    if (rect.width() > 1.0 && rect.height() / _sampleRate > 2.0) emit dragged(rect, isTraceAxis(axis));
}

void AxisDrag::cancel()
{
    _state = State::Idle;
    if (_rubberBand) _rubberBand->hide();
}
