#include "display/tools/boxtool.h"

#include <QMouseEvent>
#include <QRubberBand>
#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <algorithm>

BoxTool::BoxTool(QwtPlot* plot) : QObject(plot), _plot(plot) {}

bool BoxTool::canvasEvent(QWidget* canvas, QEvent* event)
{
    const auto* mouse = static_cast<QMouseEvent*>(event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (mouse->button() != Qt::LeftButton || mouse->modifiers() & Qt::ControlModifier) return false;
        press(canvas, mouse->pos());
        return true;
    case QEvent::MouseMove:
        if (_isDragging) drag(canvas, mouse->pos());
        return false;  // the read-out follows
    case QEvent::MouseButtonRelease:
        if (!_isDragging || mouse->button() != Qt::LeftButton) return false;
        release(canvas, mouse->pos());
        return true;
    default: return false;
    }
}

void BoxTool::leave()
{
    _isDragging = false;
    if (_band) _band->hide();
}

static QPoint inside(const QWidget* canvas, const QPoint& pos)
{
    const QRect whole = canvas->rect();
    return QPoint(std::clamp(pos.x(), whole.left(), whole.right()), std::clamp(pos.y(), whole.top(), whole.bottom()));
}

/// The pixels between two corners, whichever comes first.
static QRect between(const QPoint& a, const QPoint& b)
{
    return QRect(QPoint(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
                 QPoint(std::max(a.x(), b.x()), std::max(a.y(), b.y())));
}

void BoxTool::press(QWidget* canvas, const QPoint& pos)
{
    if (!_band) _band = new QRubberBand(QRubberBand::Rectangle, canvas);
    _isDragging = true;
    _from = inside(canvas, pos);
    _band->setGeometry(QRect(_from, QSize()));
    _band->show();
}

void BoxTool::drag(const QWidget* canvas, const QPoint& pos)
{
    _band->setGeometry(between(_from, inside(canvas, pos)));
}

void BoxTool::release(const QWidget* canvas, const QPoint& pos)
{
    leave();
    const QwtScaleMap x = _plot->canvasMap(QwtPlot::xTop), y = _plot->canvasMap(QwtPlot::yLeft);
    const QPoint to = inside(canvas, pos);
    const QPointF a(x.invTransform(_from.x()), y.invTransform(_from.y()));
    const QPointF b(x.invTransform(to.x()), y.invTransform(to.y()));
    emit boxDrawn(QRectF(a, b).normalized());
}
