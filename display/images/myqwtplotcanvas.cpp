#include "display/images/myqwtplotcanvas.h"

#include "display/images/picturewindow.h"
#include "display/images/serverpicture.h"

#include <QPaintEvent>
#include <QPainter>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_scale_map.h>

MyQwtPlotCanvas::MyQwtPlotCanvas(QwtPlot* plot) : QwtPlotCanvas(plot)
{
    // Qwt's own store rounds the device-pixel ratio down, and its frame would shift the pixels.
    setPaintAttribute(QwtPlotCanvas::BackingStore, false);
    setPaintAttribute(QwtPlotCanvas::ImmediatePaint, false);
    setFrameStyle(QFrame::NoFrame);
    setLineWidth(0);
    setAutoFillBackground(false);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
}

void MyQwtPlotCanvas::setImage(const QImage& image, const QRect& r)
{
    _image = image;
    _r = r;
    _typeImage = 0;
}

void MyQwtPlotCanvas::setPixmap(const QPixmap& pixmap, const QRect& r)
{
    _pixmap = pixmap;
    _r = r;
    _typeImage = 1;
}

void MyQwtPlotCanvas::setBitmap(const QBitmap& bitmap, const QRect& r)
{
    _bitmap = bitmap;
    _r = r;
    _typeImage = 2;
}

void MyQwtPlotCanvas::showStored()
{
    invalidatePicture();  // what the plot paints once this is uncovered
    if (_server) {
        if (!_pictureWindow) _pictureWindow = new PictureWindow(this);
        if (_pictureWindow->showPart(_server, _r)) return;
    }
    hideStored();
    setShowImage(true);
    repaint();
}

void MyQwtPlotCanvas::hideStored()
{
    if (!_pictureWindow || _pictureWindow->isHidden()) return;
    _pictureWindow->hide();
    update();  // what was uncovered of the window's buffer is from before
}

void MyQwtPlotCanvas::forgetStored()
{
    hideStored();
    if (_pictureWindow) _pictureWindow->forget();
    _server.reset();
    _image = QImage();
    _pixmap = QPixmap();
    _bitmap = QBitmap();
    _show = false;
}

void MyQwtPlotCanvas::replot()
{
    hideStored();
    invalidatePicture();
    update(contentsRect());
}

void MyQwtPlotCanvas::resizeEvent(QResizeEvent* event)
{
    hideStored();
    invalidatePicture();
    QwtPlotCanvas::resizeEvent(event);
}

bool MyQwtPlotCanvas::paintStored()
{
    if (!_show || _typeImage < 0 || _typeImage > 2) return false;
    _show = false;
    QPainter painter(this);
    painter.fillRect(rect(), plot()->canvasBackground());  // a small picture leaves room, a bitmap has holes
    if (_typeImage == 0)
        painter.drawImage(QPoint(0, 0), _image, _r);
    else
        painter.drawPixmap(QPoint(0, 0), _typeImage == 1 ? _pixmap : _bitmap, _r);
    return true;
}

void MyQwtPlotCanvas::render()
{
    const qreal ratio = devicePixelRatioF();
    const QSize wanted = (QSizeF(size()) * ratio).toSize();
    if (_picture.size() != wanted) {
        _picture = QPixmap(wanted);
        _picture.setDevicePixelRatio(ratio);
    }
    _picture.fill(plot()->canvasBackground().color());
    QPainter painter(&_picture);
    plot()->drawCanvas(&painter);
    _pictureIsValid = true;
    ++_renderCount;
}

void MyQwtPlotCanvas::paintOver(const QwtPlotCurve& curve, int from, int to)
{
    if (_pictureIsValid) {
        QPainter painter(&_picture);
        painter.setRenderHint(QPainter::Antialiasing, curve.testRenderHint(QwtPlotItem::RenderAntialiased));
        curve.drawSeries(&painter, plot()->canvasMap(curve.xAxis()), plot()->canvasMap(curve.yAxis()), contentsRect(),
                         from, to);
    }
    update(contentsRect());
}

void MyQwtPlotCanvas::paintEvent(QPaintEvent* event)
{
    if (size().isEmpty() || paintStored()) return;
    const bool isNew = !_pictureIsValid || _picture.devicePixelRatioF() != devicePixelRatioF();
    if (isNew) render();
    QPainter painter(this);
    painter.setClipRegion(event->region());
    painter.drawPixmap(QPoint(0, 0), _picture);
    if (isNew) emit rendered();
}
