/// Several screens side by side, each with an ensemble of its own.
#include "frame/mainwindow.h"

#include "display/seismicdisplay.h"
#include "frame/differencetool.h"
#include "frame/recordnavigator.h"
#include "frame/screenrow.h"
#include "frame/screensmenu.h"
#include "frame/windowactions.h"
#include "frame/windowlook.h"
#include "frame/windowrecords.h"
#include "tracedata/parmmenu.h"
#include "widgets/appsettings.h"
#include "widgets/waitcursor.h"

#include <QCheckBox>

void MainWindow::makeScreensMenu()
{
    _screensMenu = new ScreensMenu(_actions->menu("&View"));
    connect(_screensMenu, &ScreensMenu::countWanted, this, &MainWindow::setScreens);
    connect(_screensMenu, &ScreensMenu::differenceWanted, _actions->box("differBox"), &QCheckBox::setChecked);
}

/// Brings the menu up to what is on the screen.
void MainWindow::showScreens()
{
    _screensMenu->show(_menu->iscreens, _actions->box("differBox")->isChecked());
}

void MainWindow::watchScreen(SeismicDisplay* screen)
{
    _look->watch(screen);
    connect(screen, &SeismicDisplay::polarityStated, this, [this](const Polarity& polarity) {
        AppSettings settings;
        if (!_segyParm.files.isEmpty()) writePolarity(&settings, _segyParm.files, polarity);
    });
}

void MainWindow::plotDifference(int state)
{
    _differenceTool->show(state != 0);
}

void MainWindow::setScreens(int n)
{
    if (n == _menu->iscreens || displays()->isEmpty()) return;
    const WaitCursor wait;
    if (n == 1) _actions->box("differBox")->setChecked(false);
    const int before = _screens->setCount(n);
    showScreens();
    if (!source() || displays()->first()->traceCount() == 0) return;
    if (n > before) return _navigator->fillScreens(before);
    _navigator->dropScreens();
    _records->recordsShown();
    _tools.screensDropped();
}
