/// What the SEG-Y menu asks of its main window.
#ifndef WINDOWSEGYHOST_H
#define WINDOWSEGYHOST_H

#include "sources/menus/segymenuhost.h"

class MainWindow;

/// Hands each question on to the window.
class WindowSegyHost : public SegyMenuHost
{
public:
    /// @param window  lent, outlives the menu
    explicit WindowSegyHost(MainWindow* window) : _window(window) {}

    int segyLoadFromMenu() override;
    SegyLoader* segyLoader() const override;
    SegyLoadParm segyLoadParm() const override;

private:
    MainWindow* _window;
};

#endif
