/// Stored pictures on a display: the axes, the mouse and the order of things while they are shown.
#include "display/seismicdisplay.h"

#include "display/imagestorage.h"
#include "display/myqwtplotcanvas.h"

#include <QMouseEvent>
#include <QStatusBar>
#include <QTimer>
#include <QWheelEvent>
#include <qwt_interval.h>
#include <qwt_scale_div.h>

QRectF SeismicDisplay::visibleRect() const
{
    const QwtInterval x = axisScaleDiv(xTop).interval().normalized();
    const QwtInterval y = axisScaleDiv(yLeft).interval().normalized();
    return QRectF(x.minValue(), y.minValue(), x.width(), y.width());
}

void SeismicDisplay::setVisibleRect(const QRectF& rect)
{
    const double xStep = traceRule().step(rect.width()), yStep = timeRule().step(rect.height());
    for (const int axis : {xTop, xBottom}) setAxisScale(axis, rect.left(), rect.right(), xStep);
    for (const int axis : {yLeft, yRight}) {
        if (axisScaleDiv(axis).isIncreasing())
            setAxisScale(axis, rect.top(), rect.bottom(), yStep);
        else
            setAxisScale(axis, rect.bottom(), rect.top(), yStep);
    }
    limitPan();
    replot1();
}

void SeismicDisplay::showImage(int i)
{
    _nShownAgain = 0;
    _images.showImage(i);
    if (_images.number() == i) emit imageShown(i + 1);
}

void SeismicDisplay::setShowImageList(bool on, const QVector<int>& list)
{
    _images.tracker().setList(on, list);
    _images.tracker().setNumber(_images.number());
}

/// Once the axes have come to rest: the second zoomer sets two of them after the first has told of the zoom.
void SeismicDisplay::showImageAgain()
{
    if (_images.isShown())
        QTimer::singleShot(0, this, [this] { _images.showAgain(); });
}

/// The mouse on stored pictures. Returns whether nobody else is to hear of the event.
bool SeismicDisplay::trackImage(QEvent* event)
{
    const auto show = [this](int steps) {
        const ImageStorage* store = _images.storage();
        const int number = store && steps != 0 ? _images.tracker().step(steps, store->storeTotal()) : -1;
        if (number >= 0) showImage(number);
    };
    if (event->type() == QEvent::Wheel) {
        const auto* wheel = static_cast<QWheelEvent*>(event);
        show(_images.tracker().notches(wheel->angleDelta().y()));
        if (_statusbar) _statusbar->showMessage(readoutAt(wheel->position().toPoint()));
        return true;
    }
    // A scroll bar came or went, or labels of another width. Two layouts that bring each other about must end.
    if (event->type() == QEvent::Resize && _nShownAgain < 4) {
        ++_nShownAgain;
        showImageAgain();
    }
    if (event->type() == QEvent::MouseButtonPress) {
        const auto* press = static_cast<QMouseEvent*>(event);
        _imageTrackerOldX = press->x();
        // Zooming and panning want the canvas, which paints the same picture.
        if (press->modifiers() & Qt::ControlModifier) myCanvas()->hideStored();
    }
    if (event->type() == QEvent::MouseMove) {
        const auto* move = static_cast<QMouseEvent*>(event);
        const bool isDrag = (move->buttons() & Qt::MiddleButton) && !(move->modifiers() & Qt::ControlModifier);
        const int step = move->x() > _imageTrackerOldX ? 1 : move->x() < _imageTrackerOldX ? -1 : 0;
        _imageTrackerOldX = move->x();
        if (isDrag) show(step);
    }
    return false;
}
