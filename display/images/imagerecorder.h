/// The pictures of a display: sized, rendered and stored, and shown again.
#ifndef IMAGERECORDER_H
#define IMAGERECORDER_H

#include "display/headeraxis.h"
#include "display/images/imagetracker.h"

#include <QImage>
#include <QRectF>
#include <QString>

#include <qwt_scale_map.h>

class ImageStorage;
class SeismicDisplay;
struct PictureSize;
struct StoredPicture;

/// Stands behind SeismicDisplay, which it is a part of. Does nothing without a store.
class ImageRecorder
{
public:
    /// Kind of the pictures that a display stores.
    enum DrawType { AsImage = 0, AsPixmap = 1, AsBitmap = 2 };

    explicit ImageRecorder(SeismicDisplay* display);

    /// The store of the window; lent, outlives the display.
    void setStorage(ImageStorage* imgstore) { _imgstore = imgstore; }
    ImageStorage* storage() const { return _imgstore; }
    void setDrawType(DrawType type) { _drawType = type; }

    /// The picture of the ensemble has another size than the last one built.
    void setResizeImage(bool on) { _resizeImage = on; }
    /// False: the stored picture isn't the one on the screen any more.
    void setImageStored(bool on) { _isImageStored = on; }
    bool isImageStored() const { return _isImageStored; }
    /// Another ensemble is on the screen: nothing of it is stored yet. Frees the picture last built.
    void forgetStored();

    /// Builds the picture if its size has changed.
    void checkSavedImage();
    /// Renders all data of the ensemble at the present scale, whether or not a part is zoomed.
    void buildImage();
    /// The picture last built, and the maps of it: traces, ms.
    const QImage& saveImage() const { return _saveImage; }
    /// Stores the ensemble's picture, if the store or a collection wants it and it isn't stored already; a stored
    /// one that is out of date is replaced.
    /// @param extra  store it once more, whatever is stored
    void storeImage(bool extra);
    /// Writes a picture of the window as the first picture that was not yet written.
    void saveToFile(const QString& name, bool check);

    /// Pictures come in place of the data, or go.
    void setShowImage(bool state);
    bool isShown() const { return _isShown; }
    /// Whether the overlay comes back with the data; a stored picture has its own.
    void setOverlayBehind(bool on) { _hadOverlay = on; }
    /// Shows picture i, from 0; nothing where there is none.
    void showImage(int i);
    /// Trace labels and title of picture i.
    void showImageAxis(int i);
    /// The trace axis got other labels than the picture's.
    void forgetLabels() { _hasLabels = false; }
    /// Shows the present picture anew, after the axes or the canvas have changed.
    void showAgain()
    {
        if (_isShown) showImage(_number);
    }
    /// Picture on the screen, from 0; -1 if there is none.
    int number() const { return _isShown ? _number : -1; }
    /// Extent of the picture on the screen: traces + 1, and ms.
    QSizeF extent() const;
    /// Keys of the picture on the screen, for the read-out.
    const KeyColumn& primary() const { return _primary; }
    const KeyColumn& secondary() const { return _secondary; }
    int traceCount() const { return _nTraces; }

    /// Which picture the mouse has come to.
    ImageTracker& tracker() { return _tracker; }

private:
    bool wantsImage() const;
    PictureSize presentSize() const;
    void buildMaps();
    QwtScaleMap timeMap() const;
    void paintOverlay(const QRectF& area);
    void put();
    void printStatistics() const;
    void takeAxis(const StoredPicture& picture);
    QRectF pictureView(const StoredPicture& picture) const;
    void setupPlot(const StoredPicture& picture);
    void showOnCanvas(const StoredPicture& picture);

    SeismicDisplay* _display;           // this is a part of it
    ImageStorage* _imgstore = nullptr;  // lent
    DrawType _drawType = AsPixmap;
    bool _resizeImage = true;
    bool _isImageStored = false;
    bool _doImageStored = false;  // the last picture of this display is of the ensemble on the screen

    QImage _saveImage;
    QwtScaleMap _saveMap1, _saveMap2;
    int _saveWidth = 0, _saveHeight = 0;

    bool _isShown = false;
    int _number = 0;
    QRectF _viewBefore;    // what the axes showed of the data
    QSizeF _pixelsBefore;  // over which they showed it
    QSize _sizeBefore;     // of the display
    bool _hadOverlay = false;
    KeyColumn _primary, _secondary;
    int _nTraces = 0;
    bool _hasLabels = false;  // the axis shows these values
    ImageTracker _tracker;
};

#endif
