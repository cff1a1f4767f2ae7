#include "display/mousemode.h"

QString mouseModeText(MouseMode mode)
{
    switch (mode) {
    case MouseMode::Spectrum: return "   MB1 down/drag: show spectrum";
    case MouseMode::Headers: return "   MB1 down/drag: show trace headers";
    case MouseMode::Velocity: return "   Velocity picking is on";
    case MouseMode::Gates: return "   Trevia picking is on";
    case MouseMode::FirstBreaks: return "   First break picking is on";
    case MouseMode::Drawing: return "   Drawing is on";
    case MouseMode::Zoom:
    case MouseMode::Moveout: break;
    }
    return QString();
}

QString imageModeText()
{
    return ",   MB2 down and drag or wheel: change image";
}

QString controlLine(bool plainZoom, const QString& text, bool hasContextMenu)
{
    const QString buttons =
        plainZoom ? "MB1 down and drag: zoom,   MB2 down and drag: pann,    MB3 down: unzoom"
                  : "CTRL MB1 down and drag: zoom,   CTRL MB2 down and drag: pann,    CTRL MB3 down: unzoom";
    return buttons + text + (hasContextMenu ? ",   SHFT MB3: context menu" : "");
}
