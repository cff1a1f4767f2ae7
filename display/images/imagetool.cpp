#include "display/images/imagetool.h"

#include "display/images/imagestorage.h"
#include "display/images/myqwtplotcanvas.h"
#include "display/seismicdisplay.h"
#include "display/statuslines.h"

#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>

bool ImageTool::canvasEvent(QWidget* /*canvas*/, QEvent* event)
{
    if (!_display->images().isShown()) return false;
    switch (event->type()) {
    case QEvent::Resize: resized(); return false;
    case QEvent::MouseButtonPress: pressed(static_cast<QMouseEvent*>(event)); return false;
    case QEvent::MouseMove: moved(static_cast<QMouseEvent*>(event)); return false;
    case QEvent::Wheel: turned(static_cast<QWheelEvent*>(event)); return true;
    default: return false;
    }
}

void ImageTool::showAgain()
{
    if (_display->images().isShown())
        QTimer::singleShot(0, _display, [display = _display] { display->images().showAgain(); });
}

/// A scroll bar came or went, or labels of another width. Two layouts that bring each other about must end.
void ImageTool::resized()
{
    if (_nShownAgain >= 4) return;
    ++_nShownAgain;
    showAgain();
}

void ImageTool::pressed(const QMouseEvent* event)
{
    _oldX = event->x();
    // Zooming and panning want the canvas, which paints the same picture.
    if (event->modifiers() & Qt::ControlModifier) _display->myCanvas()->hideStored();
}

void ImageTool::moved(const QMouseEvent* event)
{
    const bool isDrag = (event->buttons() & Qt::MiddleButton) && !(event->modifiers() & Qt::ControlModifier);
    const int direction = event->x() > _oldX ? 1 : event->x() < _oldX ? -1 : 0;
    _oldX = event->x();
    if (isDrag) step(direction);
}

void ImageTool::turned(const QWheelEvent* event)
{
    step(_display->images().tracker().notches(event->angleDelta().y()));
    _lines->showReadout(_display->readoutAt(event->position().toPoint()));
}

void ImageTool::step(int steps)
{
    const ImageStorage* store = _display->images().storage();
    const int number = store && steps != 0 ? _display->images().tracker().step(steps, store->storeTotal()) : -1;
    if (number < 0) return;
    _display->showImage(number);
    _display->tieImage(number);
}
