#include "frame/parmtool.h"

#include "analysis/parmmenudialog.h"
#include "widgets/bringup.h"

ParmTool::ParmTool(QWidget* window, const DisplayList* displays, const DisplayList* others, ImageStorage* store)
    : _window(window), _displays(displays), _others(others), _store(store)
{
}

ParmMenuDialog* ParmTool::menu()
{
    if (_menu) return _menu;
    _menu = new ParmMenuDialog(_window, _displays, _store, _others);
    connect(_menu, &ParmMenuDialog::overlayChanged, this, &ParmTool::overlayWanted);
    emit menuMade(_menu);
    return _menu;
}

void ParmTool::show()
{
    bringUp(menu());
}

void ParmTool::showOverlay(bool on)
{
    menu()->showOverlay(on);
}

void ParmTool::showAsColor()
{
    menu()->setDisplayType(ColorB);
}

void ParmTool::afterRecord(int)
{
    if (_menu) _menu->update();
}

void ParmTool::parametersChanged()
{
    if (_menu) _menu->updateAll();
}

void ParmTool::overlayShown(bool on)
{
    if (_menu) _menu->setOverlayMode(on);
}

void ParmTool::hide()
{
    if (_menu) _menu->hide();
}

/// A number that is just being typed is taken while the displays still stand.
void ParmTool::beforeDisplaysGo()
{
    delete _menu;
    _menu = nullptr;
}
