#include "frame/barcolumn.h"

#include "display/colors/colorbarframe.h"

BarColumn::BarColumn() : _bar(new ColorBarFrame)
{
    _bar->setObjectName("colorBarFrame");
    addStretch();
    addWidget(_bar);
    addStretch();
}

ColorBarFrame* BarColumn::overlayBar()
{
    if (!_overlayBar) {
        _overlayBar = new ColorBarFrame;
        _overlayBar->setObjectName("overlayColorBarFrame");
        addWidget(_overlayBar);
        addStretch();
    }
    return _overlayBar;
}

void BarColumn::showOverlayBar(bool on)
{
    overlayBar()->setVisible(on);
    // The room below a bar that isn't shown would push the other one up.
    for (int i = 0; i < count(); i += 2) setStretch(i, i < 4 || on ? 1 : 0);
}
