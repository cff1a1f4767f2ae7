#include "display/myqwtplotcanvas.h"

#include <QBitmap>
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

void MyQwtPlotCanvas::setImage(QImage* image, const QRect& r)
{
    _image = image;
    _r = r;
}

void MyQwtPlotCanvas::setPixmap(QPixmap* pixmap, const QRect& r)
{
    _pixmap = pixmap;
    _r = r;
}

void MyQwtPlotCanvas::setBitmap(QBitmap* bitmap, const QRect& r)
{
    _bitmap = bitmap;
    _r = r;
}

void MyQwtPlotCanvas::replot()
{
    invalidatePicture();
    update(contentsRect());
}

void MyQwtPlotCanvas::resizeEvent(QResizeEvent* event)
{
    invalidatePicture();
    QwtPlotCanvas::resizeEvent(event);
}

bool MyQwtPlotCanvas::paintStored()
{
    if (!_show || _typeImage < 0 || _typeImage > 2) return false;
    _show = false;
    QPainter painter(this);
    if (_typeImage == 0 && _image)
        painter.drawImage(QPoint(0, 0), *_image, _r);
    else if (_typeImage == 1 && _pixmap)
        painter.drawPixmap(QPoint(0, 0), *_pixmap, _r);
    else if (_typeImage == 2 && _bitmap)
        painter.drawPixmap(QPoint(0, 0), *_bitmap, _r);
    else
        return false;
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
