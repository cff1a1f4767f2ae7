#include "frame/windowdisplayhost.h"

#include "frame/barcolumn.h"
#include "frame/toolbench.h"

void WindowDisplayHost::setOverlayMode(bool on)
{
    _bars->showOverlayBar(on);
    _bench->overlayShown(on);
}

ColorBarFrame* WindowDisplayHost::overlayColorBarFrame()
{
    return _bars->overlayBar();
}
