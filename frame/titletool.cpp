#include "frame/titletool.h"

#include "display/menus/titles.h"
#include "widgets/bringup.h"

TitleTool::TitleTool(QWidget* window, const DisplayList* displays, QStatusBar* statusBar)
    : _window(window), _displays(displays), _statusBar(statusBar)
{
}

void TitleTool::show()
{
    if (!_dialog) {
        _dialog = new Titles(_window, _displays, _statusBar);
        connect(_dialog, &Titles::areaLineTitleWanted, this, &TitleTool::areaLineTitleWanted);
    }
    bringUp(_dialog);
}

void TitleTool::hide()
{
    if (_dialog) _dialog->hide();
}
