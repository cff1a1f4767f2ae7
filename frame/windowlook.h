/// The bar above the screens of a main window: better settings for a misread file, a better picture for too many traces.
#ifndef WINDOWLOOK_H
#define WINDOWLOOK_H

#include "frame/firstlook.h"

#include <QObject>

class DisplayList;
class FirstLookBar;
class QDialog;
class SeismicDisplay;

/// Puts the bar where the user looks, and tells it when traces outnumber pixels.
class WindowLook : public QObject
{
    Q_OBJECT

public:
    /// @param bar   stands in the layout of its parent, where it comes back to
    /// @param open  opens a file by settings; false if it was refused
    /// All are lent and outlive this.
    WindowLook(FirstLookBar* bar, FirstLook::Open open, const DisplayList* displays);

    FirstLook* firstLook() const { return _firstLook; }
    /// The menu that comes up for a refused file, from now on.
    void setMenu(QDialog* menu);
    /// Hears when a display is painted.
    void watch(SeismicDisplay* display);

private:
    void placeBar(bool isInMenu);
    void tellDensity();

    FirstLookBar* _bar;
    QWidget* _home;  // of the bar
    const DisplayList* _displays;
    QDialog* _menu = nullptr;
    FirstLook* _firstLook;  // child
};

#endif
