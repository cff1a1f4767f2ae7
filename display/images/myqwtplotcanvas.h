/// The canvas of a seismic plot: paints from a picture of its own in device pixels, or shows a stored one.
#ifndef MYQWTPLOTCANVAS_H
#define MYQWTPLOTCANVAS_H

#include <qwt_plot_canvas.h>

#include <QBitmap>
#include <QImage>
#include <QPixmap>
#include <QRect>

#include <memory>

class PictureWindow;
class QwtPlotCurve;
class ServerPicture;

class MyQwtPlotCanvas : public QwtPlotCanvas
{
    Q_OBJECT

public:
    explicit MyQwtPlotCanvas(QwtPlot* plot = nullptr);

    /// A stored picture, and the part of it, in its own pixels, to show.
    void setImage(const QImage& image, const QRect& r);
    void setPixmap(const QPixmap& pixmap, const QRect& r);
    void setBitmap(const QBitmap& bitmap, const QRect& r);
    /// The X server's copy of that picture; null where there is none.
    void setServerPicture(std::shared_ptr<const ServerPicture> picture) { _server = std::move(picture); }
    /// Which of them is shown: 0 image, 1 pixmap, 2 bitmap, -1 normal painting.
    void setImageType(int type) { _typeImage = type; }
    /// The next paint shows the stored picture, once.
    void setShowImage(bool show) { _show = show; }
    /// Shows the stored picture at once: copied within the X server where it has a copy, else painted.
    void showStored();
    /// Uncovers the canvas, which paints the plot.
    void hideStored();
    /// The same, and lets go of the stored picture.
    void forgetStored();

    /// The next paint renders the plot anew.
    void invalidatePicture() { _pictureIsValid = false; }

    /// Paints the points from to to, both counted from 0, of a curve of this plot over the picture as it stands: a
    /// line that grows under the mouse costs no render. The next render shows the same.
    void paintOver(const QwtPlotCurve& curve, int from, int to);

    /// How often the plot was rendered since the canvas was made: a repaint that only uncovers doesn't count.
    int renderCount() const { return _renderCount; }
    /// Of the picture last rendered, in device pixels.
    QSize pictureSize() const { return _picture.size(); }

public slots:
    /// Called by the plot's replot, by name.
    void replot();

signals:
    /// The plot was rendered and is on the screen.
    void rendered();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool paintStored();
    void render();

    QImage _image;
    QPixmap _pixmap;
    QBitmap _bitmap;
    std::shared_ptr<const ServerPicture> _server;
    PictureWindow* _pictureWindow = nullptr;  // child, made for the first picture of the server
    QRect _r;
    int _typeImage = -1;
    bool _show = false;
    QPixmap _picture;
    bool _pictureIsValid = false;
    int _renderCount = 0;
};

#endif
