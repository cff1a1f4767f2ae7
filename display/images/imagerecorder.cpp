#include "display/images/imagerecorder.h"

#include "display/images/imagestorage.h"
#include "display/images/myqwtplotcanvas.h"
#include "display/images/picturesize.h"
#include "display/images/serverpicture.h"
#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "display/zoom/recordaxisscaledraw.h"
#include "host/report.h"
#include "tracedata/seismicdata.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

ImageRecorder::ImageRecorder(SeismicDisplay* display) : _display(display) {}

void ImageRecorder::forgetStored()
{
    _isImageStored = _doImageStored = false;
    _saveImage = QImage();  // as large as one in the store
    _resizeImage = true;
}

void ImageRecorder::checkSavedImage()
{
    if (_resizeImage) buildImage();
}

/// Size of the whole ensemble at the scale of the data's view, in pixels of the device. While another picture is up
/// the axes have that one's scale.
PictureSize ImageRecorder::presentSize() const
{
    const QwtScaleMap x = _display->canvasMap(QwtPlot::xTop), y = _display->canvasMap(QwtPlot::yLeft);
    const double ratio = _display->canvas()->devicePixelRatioF();
    const SeismicData& data = *_display->seismicData();
    const double timeSpan = double(data.sampleCount()) * (_display->isSlice() ? 1.0 : _display->sampleRate());
    const QSizeF pixels = _isShown ? _pixelsBefore : QSizeF(x.pDist(), y.pDist());
    const QSizeF units = _isShown ? _viewBefore.size() : QSizeF(x.sDist(), y.sDist());
    return wholePictureSize({pixels.width() * ratio, units.width(), data.traceCount() + 1.0},
                            {pixels.height() * ratio, units.height(), timeSpan});
}

void ImageRecorder::buildMaps()
{
    const SeismicData& data = *_display->seismicData();
    const double timeSpan = double(data.sampleCount()) * (_display->isSlice() ? 1.0 : _display->sampleRate());
    const double left = _display->canvas()->contentsRect().left();
    _saveMap1.setPaintInterval(left, left + _saveWidth);
    _saveMap1.setScaleInterval(0.0, data.traceCount() + 1.0);
    _saveMap2.setPaintInterval(_saveHeight, 0.0);
    if (_display->timeDirection() != 0)
        _saveMap2.setScaleInterval(timeSpan, 0.0);
    else
        _saveMap2.setScaleInterval(0.0, timeSpan);
}

/// The times that the picture shows; its own scale starts at 0 also where the data are a later part of the record.
QwtScaleMap ImageRecorder::timeMap() const
{
    QwtScaleMap times = _saveMap2;
    times.setScaleInterval(times.s1() + _display->shiftTime(), times.s2() + _display->shiftTime());
    return times;
}

void ImageRecorder::paintOverlay(const QRectF& area)
{
    const SeismicPlot* overlay = _display->overlayPlot();
    if (!overlay || !overlay->isVisible() || !overlay->isDataLoaded()) return;
    QPainter painter(&_saveImage);
    painter.setOpacity(overlay->opacity());
    painter.drawImage(QPoint(0, 0), overlay->saveImage(_saveMap1, timeMap(), area));
}

void ImageRecorder::buildImage()
{
    if (_display->lastEnsemble() || _display->traceCount() < 1) return;
    const PictureSize wanted = presentSize();
    _saveWidth = wanted.size.width();
    _saveHeight = wanted.size.height();
    if (wanted.size.isEmpty()) {
        _saveImage = QImage();
        return;
    }
    if (wanted.isReduced)
        _display->report().line("MERIDUNE: the image is too large for this scale, it is stored with " +
                                std::to_string(_saveWidth) + " by " + std::to_string(_saveHeight) + " pixels.\n");
    const QRect rstore(0, 0, _saveWidth - 1, _saveHeight - 1);
    _display->seismicPlot()->setOutput(rstore);
    buildMaps();
    const QRectF area(0.0, 0.0, _saveWidth, _saveHeight);
    _saveImage = _display->seismicPlot()->saveImage(_saveMap1, timeMap(), area);
    if (!_saveImage.isNull()) paintOverlay(area);
    _saveImage.setDevicePixelRatio(_display->canvas()->devicePixelRatioF());
    setResizeImage(false);
}

bool ImageRecorder::wantsImage() const
{
    return _imgstore->isStored() || (_imgstore->isCollecting() && _imgstore->count() < _imgstore->collectTotal());
}

void ImageRecorder::put()
{
    if (_drawType == AsImage)
        _imgstore->putImage(_saveImage.copy(), _saveMap1, _saveMap2, _display);
    else if (_drawType == AsPixmap)
        _imgstore->putPixmap(QPixmap::fromImage(_saveImage), _saveMap1, _saveMap2, _display);
    else
        _imgstore->putBitmap(QBitmap::fromImage(_saveImage), _saveMap1, _saveMap2, _display);
    if (_imgstore->isCollecting() && _imgstore->count() >= _imgstore->collectTotal()) _imgstore->endCollection();
    const HeaderAxis& axis = _display->headerAxis();
    const float primary = axis.pri().values.size() > 1 ? axis.pri().values[1] : 0.0f;
    _imgstore->putAxis(axis.sec().values.data(), axis.traceCount(), primary, axis.panelVelocity(), axis.parmTest());
}

void ImageRecorder::printStatistics() const
{
    const StoredPicture* first = _imgstore->picture(0);
    const int depth = !first->pixmap.isNull()   ? first->pixmap.depth()
                      : !first->bitmap.isNull() ? first->bitmap.depth()
                                                : first->image.depth();
    const double size = double(_saveHeight) * _saveWidth * depth * 9.5367431640625e-7;
    _display->report().line(QString::asprintf("\n\nMERIDUNE: Image Storage statistics\n"
                                              "     screen depth: %d   pixel width: %d   pixel height: %d\n"
                                              "     file size: %f mbytes\n\n\n",
                                              depth, _saveWidth, _saveHeight, size)
                                .toStdString());
}

void ImageRecorder::storeImage(bool extra)
{
    if (!_imgstore || (_isImageStored && !extra)) return;
    if (_display->lastEnsemble() || _display->traceCount() < 1 || !wantsImage()) return;
    // What is held goes only when another one takes its place: a store that is full, or a collection that has its
    // pictures, must not lose one.
    const bool replaces = _doImageStored && !extra;
    if (!_imgstore->hasRoom(storedBytes(presentSize().size), replaces ? _display : nullptr)) return _imgstore->stop();
    if (_imgstore->isCollecting()) {
        _display->replot1();
        _display->replot2();
    }
    buildImage();
    if (_saveImage.isNull()) return;
    if (replaces) _imgstore->removeLastImage(_display);
    put();
    saveToFile(_imgstore->savedFile(), true);
    if (!extra) _isImageStored = _doImageStored = true;
    if (_imgstore->storeTotal() == 1) printStatistics();
}

void ImageRecorder::saveToFile(const QString& name, bool check)
{
    if (!_imgstore) return;
    // Also those that a full disk refused before.
    for (int i = _imgstore->performSaveFile(check); i >= 0; i = _imgstore->performSaveFile(check)) {
        // While another picture is up, or for an older one, the window doesn't show what is to be written.
        const bool isOnScreen = i == _imgstore->newest() && !_isShown;
        const QPixmap pixmap =
            isOnScreen ? _display->window()->grab() : QPixmap::fromImage(_imgstore->picture(i)->toImage());
        if (savePictureFile(pixmap, numberedName(name, i + 1), &_display->report())) continue;
        _imgstore->setUnsaved(i);
        return;
    }
}

void ImageRecorder::setShowImage(bool state)
{
    if (_isShown == state) return;
    _isShown = state;
    MyQwtPlotCanvas* canvas = _display->myCanvas();
    canvas->setImageType(state ? int(_drawType) : -1);
    if (state) {
        _number = -1;  // the data stay in view until a picture comes
        _hasLabels = false;
        _viewBefore = _display->visibleRect();
        _pixelsBefore = QSizeF(_display->canvasMap(QwtPlot::xTop).pDist(), _display->canvasMap(QwtPlot::yLeft).pDist());
        _sizeBefore = _display->size();
        _hadOverlay = _display->overlayPlot() && _display->overlayPlot()->isVisible();
    } else {
        canvas->forgetStored();
        _display->seismicPlot()->forgetStored();
    }
    if (_display->overlayPlot()) _display->overlayPlot()->setVisible(!state && _hadOverlay);
    _display->showTool();  // without a picker the buttons change hands
    if (state) return;
    _display->axesFollowHeaders();
    if (_display->size() == _sizeBefore)
        _display->setVisibleRect(_viewBefore);
    else
        _display->rebuildDisplay(false);
    _display->rePlot();
}

QSizeF ImageRecorder::extent() const
{
    const StoredPicture* picture = _imgstore ? _imgstore->picture(number()) : nullptr;
    return picture ? QSizeF(std::fabs(picture->xMap.sDist()), std::fabs(picture->yMap.sDist())) : QSizeF();
}

void ImageRecorder::takeAxis(const StoredPicture& picture)
{
    _nTraces = picture.nTraces;
    _primary = _display->headerAxis().pri();
    _primary.values.assign(size_t(_nTraces) + 1, picture.pri);
    const KeyColumn& labels = _display->headerAxis().sec();
    _secondary.name = labels.name;
    _secondary.type = labels.type;
    // Most pictures of a movie have the same labels, and laying these out takes most of a step's time. The axis
    // borrows the values, so it gets new ones at once.
    if (_hasLabels && _secondary.values == picture.axis) return;
    _secondary.values = picture.axis;
    _display->recordAxis()->setAxisArray(_secondary.values.data(), _nTraces, _secondary.type);
    _hasLabels = true;
}

/// A start and a span on one axis, for a picture of `whole` units from `least` on.
static double startInside(double from, double span, double least, double whole)
{
    return std::clamp(from, least, least + std::max(0.0, whole - span));
}

/// What the canvas shows of a picture at the picture's own scale, from the corner that is in view now.
QRectF ImageRecorder::pictureView(const StoredPicture& picture) const
{
    const double ratio = _display->canvas()->devicePixelRatioF();
    const double wholeX = std::fabs(picture.xMap.sDist()), wholeY = std::fabs(picture.yMap.sDist());
    const double perTrace = picture.xMap.pDist() / wholeX, perMs = picture.yMap.pDist() / wholeY;
    const double spanX = _display->canvasMap(QwtPlot::xTop).pDist() * ratio / perTrace;
    const double spanY = _display->canvasMap(QwtPlot::yLeft).pDist() * ratio / perMs;
    const QRectF now = _display->visibleRect();
    const QRectF view(startInside(now.left(), spanX, 0.0, wholeX),
                      startInside(now.top(), spanY, _display->shiftTime(), wholeY), spanX, spanY);
    // A picture has whole pixels, so its scale may differ by a part of one from the plot's.
    const bool isSame =
        std::fabs(view.left() - now.left()) * perTrace < 0.5 && std::fabs(view.top() - now.top()) * perMs < 0.5 &&
        std::fabs(view.width() - now.width()) * perTrace < 1.0 && std::fabs(view.height() - now.height()) * perMs < 1.0;
    return isSame ? now : view;
}

void ImageRecorder::setupPlot(const StoredPicture& picture)
{
    SeismicPlot* plot = _display->seismicPlot();
    if (!picture.pixmap.isNull())
        plot->setupDrawPixmap(picture.pixmap, picture.xMap, picture.yMap);
    else if (!picture.bitmap.isNull())
        plot->setupDrawBitmap(picture.bitmap, picture.xMap, picture.yMap);
    else
        plot->setupDrawImage(picture.image, picture.xMap, picture.yMap);
}

void ImageRecorder::showOnCanvas(const StoredPicture& picture)
{
    if (!picture.hasTriedServer) {
        picture.hasTriedServer = true;
        picture.server = ServerPicture::upload(picture.toImage());
    }
    MyQwtPlotCanvas* canvas = _display->myCanvas();
    const QRect part =
        _display->seismicPlot()->storedPart(_display->canvasMap(QwtPlot::xTop), _display->canvasMap(QwtPlot::yLeft));
    if (!picture.pixmap.isNull())
        canvas->setPixmap(picture.pixmap, part);
    else if (!picture.bitmap.isNull())
        canvas->setBitmap(picture.bitmap, part);
    else
        canvas->setImage(picture.image, part);
    canvas->setServerPicture(picture.server);
    canvas->showStored();
}

void ImageRecorder::showImage(int i)
{
    const StoredPicture* picture = _imgstore ? _imgstore->picture(i) : nullptr;
    if (!picture) return;
    setShowImage(true);
    _number = i;
    _tracker.setNumber(i);
    setupPlot(*picture);
    takeAxis(*picture);
    // Wider labels make a smaller canvas, which shows less at the same scale.
    for (int i = 0; i < 3 && pictureView(*picture) != _display->visibleRect(); ++i)
        _display->setVisibleRect(pictureView(*picture));
    showOnCanvas(*picture);
    showImageAxis(i);
}

void ImageRecorder::showImageAxis(int i)
{
    const StoredPicture* picture = _imgstore ? _imgstore->picture(i) : nullptr;
    if (!picture) return;
    takeAxis(*picture);
    _display->showTitle(QString::asprintf("Image: %3d", i + 1) + QString(15, ' '), picture->pri, picture->parm);
}
