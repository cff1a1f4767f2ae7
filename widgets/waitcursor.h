/// The wait cursor while it lives.
#ifndef WAITCURSOR_H
#define WAITCURSOR_H

#include <QGuiApplication>

struct WaitCursor {
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

#endif
