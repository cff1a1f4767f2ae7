#include "frame/drawtool.h"

#include "display/displaylist.h"
#include "display/menus/drawdialog.h"
#include "frame/toolbench.h"
#include "widgets/bringup.h"

DrawTool::DrawTool(QWidget* window, const DisplayList* displays, const ToolBench* bench)
    : _window(window), _displays(displays), _bench(bench)
{
}

void DrawTool::show()
{
    if (!_dialog) {
        _dialog = new DrawDialog(_window, [this] {
            QList<DrawTarget> targets;
            for (SeismicDisplay* display : *_displays) targets.append(displayTarget(display));
            return targets;
        });
        connect(_dialog, &DrawDialog::drawingBegun, this, [this] { _bench->switchedOn(this); });
    }
    bringUp(_dialog);
}

void DrawTool::hide()
{
    if (_dialog) _dialog->hide();
}

void DrawTool::leave()
{
    if (_dialog) _dialog->endDrawing();
}
