#include "display/statuslines.h"

#include <QStatusBar>

void StatusLines::showReadout(const QString& line)
{
    _main = line;
    if (_readout) _readout->showMessage(line);
}

void StatusLines::add(const QString& message)
{
    if (_readout) _readout->showMessage(_main + message);
}

void StatusLines::clear()
{
    if (_readout) _readout->showMessage(QString());
}

void StatusLines::showControl(const QString& line)
{
    if (_control) _control->showMessage(line);
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
