/// A picture held by the X server, where it is copied to a window without travelling again.
#ifndef SERVERPICTURE_H
#define SERVERPICTURE_H

#include <QImage>
#include <QRect>

#include <memory>

/// Owns a pixmap of the X server. Main thread only; goes before the application does.
class ServerPicture
{
public:
    /// Whether there is an X server with pixels of 8 bits a colour, and the size is one for it.
    static bool isPossible(const QSize& size);
    /// Sends a picture; null where it isn't possible, or the server has no memory for it.
    static std::shared_ptr<const ServerPicture> upload(const QImage& image);
    ~ServerPicture();
    ServerPicture(const ServerPicture&) = delete;
    ServerPicture& operator=(const ServerPicture&) = delete;

    QSize size() const { return _size; }
    /// Copies a part to a window's top left; what the window has room for beside it becomes white. All in pixels
    /// of the device.
    /// @param window  of the screen's own depth
    void copyTo(unsigned long window, const QRect& part, const QSize& windowSize) const;

private:
    ServerPicture(unsigned long pixmap, const QSize& size) : _pixmap(pixmap), _size(size) {}

    unsigned long _pixmap;
    QSize _size;
};

#endif
