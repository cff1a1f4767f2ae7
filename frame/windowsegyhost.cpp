#include "frame/windowsegyhost.h"

#include "frame/mainwindow.h"

int WindowSegyHost::segyLoadFromMenu()
{
    return _window->segyLoadFromMenu();
}

SegyLoader* WindowSegyHost::segyLoader() const
{
    return _window->segyLoader();
}

SegyLoadParm WindowSegyHost::segyLoadParm() const
{
    return _window->segyLoadParm();
}
