/// Position, size and colour map of the main window, kept from session to session.
#ifndef WINDOWSETTINGS_H
#define WINDOWSETTINGS_H

#include <QByteArray>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <QVector>

class QSettings;

struct WindowSettings {
    QPoint pos;
    QSize size;
    QString colormap;  ///< colour file, empty for the built-in map
    QByteArray state;  ///< tool bars and panels, as the window tells them; empty for none
};

/// Nine tenths of the screen, a quarter of the free space from its corner. A screen wider than 2000 pixels
/// counts as two monitors side by side, of which one is used.
WindowSettings defaultWindowSettings(const QRect& screen);

/// The stored settings, the defaults where there are none. With reset the stored position and size are
/// ignored; the colour map never is.
WindowSettings readWindowSettings(QSettings* settings, const QRect& screen, bool reset);
/// The same with a place on the present screens, of which the areas free of panels are told: a monitor may have gone
/// since the place was stored.
WindowSettings clampedSettings(const WindowSettings& settings, const QVector<QRect>& screens);
void writeWindowSettings(QSettings* settings, const WindowSettings& window);

#endif
