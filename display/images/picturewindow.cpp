#include "display/images/picturewindow.h"

#include "display/images/serverpicture.h"

#include <QEvent>
#include <QWindow>
#include <QX11Info>

// Last: their macros take names that Qt uses.
#include <X11/Xlib.h>
#include <X11/extensions/shape.h>

PictureWindow::PictureWindow(QWidget* canvas) : QWidget(canvas)
{
    setObjectName("pictureWindow");
    // The canvas and its parents stay as they are: they would lose their common buffer.
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAttribute(Qt::WA_NativeWindow);
    setAttribute(Qt::WA_PaintOnScreen);
    setAttribute(Qt::WA_NoSystemBackground);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

bool PictureWindow::prepare()
{
    if (_isFit >= 0) return _isFit == 1;
    Display* display = QX11Info::display();
    XWindowAttributes attributes;
    _isFit = XGetWindowAttributes(display, winId(), &attributes) && attributes.depth == 24 ? 1 : 0;
    for (QWidget* above = parentWidget(); above && above != nativeParentWidget(); above = above->parentWidget())
        above->installEventFilter(this);
    // Without a shape for input the server gives the mouse to the window below.
    XShapeCombineRectangles(display, winId(), ShapeInput, 0, 0, nullptr, 0, ShapeSet, Unsorted);
    return _isFit == 1;
}

bool PictureWindow::showPart(std::shared_ptr<const ServerPicture> picture, const QRect& part)
{
    if (!prepare()) return false;
    _picture = std::move(picture);
    _part = part;
    if (geometry() != parentWidget()->rect()) setGeometry(parentWidget()->rect());
    if (!isVisible()) show();
    place();
    copy();
    return true;
}

/// Where the canvas is now. Qt moves a native window along with its parent only if that is native too.
void PictureWindow::place()
{
    const QPoint at = parentWidget()->mapTo(nativeParentWidget(), QPoint(0, 0));
    if (windowHandle() && windowHandle()->position() != at) windowHandle()->setPosition(at);
}

bool PictureWindow::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::Move) place();
    return QWidget::eventFilter(object, event);
}

void PictureWindow::copy() const
{
    if (_picture) _picture->copyTo(winId(), _part, (QSizeF(size()) * devicePixelRatioF()).toSize());
}

/// What was uncovered; the server doesn't keep it.
void PictureWindow::paintEvent(QPaintEvent*)
{
    copy();
}
