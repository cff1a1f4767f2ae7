/// A native child window of a canvas that shows pictures of the X server.
#ifndef PICTUREWINDOW_H
#define PICTUREWINDOW_H

#include <QRect>
#include <QWidget>

#include <memory>

class ServerPicture;

/// Covers the canvas with a part of a picture, copied within the server. Qt neither paints nor grabs it, and the
/// mouse goes through it to the canvas. While it is up the canvas gets no paint events: hide it before the canvas
/// is to change.
class PictureWindow : public QWidget
{
    Q_OBJECT

public:
    explicit PictureWindow(QWidget* canvas);

    /// Shows the part at the top left, at once; the rest is white. False, and nothing shown, where the window
    /// isn't one that the picture can be copied to.
    /// @param part  in pixels of the device
    bool showPart(std::shared_ptr<const ServerPicture> picture, const QRect& part);
    /// Lets go of the picture; for a hidden window.
    void forget() { _picture.reset(); }

    QPaintEngine* paintEngine() const override { return nullptr; }
    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool prepare();
    void place();
    void copy() const;

    std::shared_ptr<const ServerPicture> _picture;
    QRect _part;
    int _isFit = -1;  // whether pictures can be copied here; not known at first
};

#endif
