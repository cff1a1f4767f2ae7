#include "display/images/serverpicture.h"

#include "display/images/picturesize.h"

#include <QGuiApplication>
#include <QX11Info>

#include <algorithm>

// Last: its macros take names that Qt uses.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

static bool isXcb()
{
    return QGuiApplication::platformName() == "xcb" && QX11Info::display();
}

bool ServerPicture::isPossible(const QSize& size)
{
    if (size.isEmpty() || std::max(size.width(), size.height()) > mostPictureSide || !isXcb()) return false;
    Display* display = QX11Info::display();
    const Visual* visual = DefaultVisual(display, QX11Info::appScreen());
    return DefaultDepth(display, QX11Info::appScreen()) == 24 && visual->red_mask == 0xff0000 &&
           visual->green_mask == 0xff00 && visual->blue_mask == 0xff;
}

static bool hasFailed = false;

static int noteFailure(Display*, XErrorEvent*)
{
    hasFailed = true;
    return 0;
}

std::shared_ptr<const ServerPicture> ServerPicture::upload(const QImage& picture)
{
    if (!isPossible(picture.size())) return nullptr;
    const QImage image = picture.convertToFormat(QImage::Format_RGB32);
    Display* display = QX11Info::display();
    const int screen = QX11Info::appScreen();
    const unsigned width = unsigned(image.width()), height = unsigned(image.height());
    // The lines are lent to the record, which is never asked to free them.
    XImage* lines = XCreateImage(display, DefaultVisual(display, screen), 24, ZPixmap, 0,
                                 reinterpret_cast<char*>(const_cast<uchar*>(image.constBits())), width, height, 32,
                                 image.bytesPerLine());
    if (!lines) return nullptr;
    lines->byte_order = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? LSBFirst : MSBFirst;

    // A server without memory answers later, and only to a handler.
    XSync(display, False);
    hasFailed = false;
    const auto formerHandler = XSetErrorHandler(noteFailure);
    const Pixmap pixmap = XCreatePixmap(display, RootWindow(display, screen), width, height, 24);
    const GC context = XCreateGC(display, pixmap, 0, nullptr);
    XPutImage(display, pixmap, context, lines, 0, 0, 0, 0, width, height);
    XFreeGC(display, context);
    XSync(display, False);
    XSetErrorHandler(formerHandler);
    lines->data = nullptr;
    XDestroyImage(lines);
    if (hasFailed) return nullptr;
    return std::shared_ptr<const ServerPicture>(new ServerPicture(pixmap, image.size()));
}

ServerPicture::~ServerPicture()
{
    if (isXcb()) XFreePixmap(QX11Info::display(), _pixmap);
}

void ServerPicture::copyTo(unsigned long window, const QRect& part, const QSize& windowSize) const
{
    const QRect inside = part & QRect(QPoint(0, 0), _size);
    const int width = std::min(inside.width(), windowSize.width());
    const int height = std::min(inside.height(), windowSize.height());
    Display* display = QX11Info::display();
    XGCValues values;
    values.graphics_exposures = False;
    values.foreground = 0xffffff;
    const GC context = XCreateGC(display, window, GCGraphicsExposures | GCForeground, &values);
    if (width > 0 && height > 0)
        XCopyArea(display, _pixmap, window, context, inside.x(), inside.y(), unsigned(width), unsigned(height), 0, 0);
    if (width < windowSize.width())
        XFillRectangle(display, window, context, width, 0, unsigned(windowSize.width() - width),
                       unsigned(windowSize.height()));
    if (height < windowSize.height())
        XFillRectangle(display, window, context, 0, height, unsigned(windowSize.width()),
                       unsigned(windowSize.height() - height));
    XFreeGC(display, context);
    XFlush(display);
}
