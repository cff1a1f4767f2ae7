#include "frame/windowdisplayhost.h"

#include "frame/barcolumn.h"
#include "frame/toolbench.h"
#include "sources/segywords.h"
#include "tracedata/headertable.h"
#include "tracedata/parmmenu.h"

const HeaderWords* WindowDisplayHost::headerWords() const
{
    if (_table->_headerSaved || _menu->dotrevia != 0) return _table;
    return &segyWords();
}

void WindowDisplayHost::setOverlayMode(bool on)
{
    _bars->showOverlayBar(on);
    _bench->overlayShown(on);
}

ColorBarFrame* WindowDisplayHost::overlayColorBarFrame()
{
    return _bars->overlayBar();
}
