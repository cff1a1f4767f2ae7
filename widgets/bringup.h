/// Brings a window before the user's eyes.
#ifndef BRINGUP_H
#define BRINGUP_H

#include <QWidget>

/// Shows the window, over the others and with the focus, whether or not it was open already.
inline void bringUp(QWidget* window)
{
    window->show();
    window->raise();
    window->activateWindow();
}

#endif
