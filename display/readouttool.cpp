#include "display/readouttool.h"

#include "display/seismicdisplay.h"
#include "display/statuslines.h"

#include <QMouseEvent>

bool ReadoutTool::canvasEvent(QWidget* /*canvas*/, QEvent* event)
{
    if (event->type() == QEvent::Leave) _lines->clear();
    if (event->type() != QEvent::MouseMove) return false;
    if (!_display->hasData()) return true;
    _lines->showReadout(_display->readoutAt(static_cast<QMouseEvent*>(event)->pos()));
    return false;
}
