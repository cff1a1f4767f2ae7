/// Several screens side by side, each with an ensemble of its own.
#include "frame/mainwindow.h"

#include "display/seismicdisplay.h"
#include "frame/differencetool.h"
#include "frame/screenrow.h"
#include "frame/screensmenu.h"
#include "frame/windowactions.h"
#include "frame/windowlook.h"
#include "sources/segyloader.h"
#include "tracedata/parmmenu.h"
#include "widgets/appsettings.h"
#include "widgets/waitcursor.h"

#include <QCheckBox>

#include <algorithm>

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
    if (_differenceTool->show(state != 0)) showScreens();
}

void MainWindow::setScreens(int n)
{
    if (n == _menu->iscreens || displays()->isEmpty()) return;
    const WaitCursor wait;
    if (n == 1) _actions->box("differBox")->setChecked(false);
    const int before = _screens->setCount(n);
    _nShown = std::min(_nShown, n);
    showScreens();
    if (!_segyloader || displays()->first()->traceCount() == 0) return;
    if (n > before) return fillScreens(before);
    if (_segyloader->canSeek()) {  // the next ensemble is the one behind the last screen
        _segyloader->setEnsemble(_firstEntry + _menu->moveup * (n - 1));
        _segyloader->loadNextEnsemble(0);
    }
    tellRecord();
    _differenceTool->load();
}

/// Loads the ensembles behind the loader's present one into the screens from `from` on; a screen for which none is left
/// is cleared.
void MainWindow::fillScreens(int from)
{
    for (int i = from; i < _menu->iscreens; ++i) {
        const int entry = _segyloader->priCurKey();
        _segyloader->loadNextEnsemble(_menu->moveup);
        const bool isNew = _segyloader->numTraces() > 0 && (!_segyloader->isIndexBuilt() || _segyloader->priCurKey() != entry);
        if (isNew) {
            loadEnsemble(_segyloader->getTraces(), _segyloader->getHeaders(), _segyloader->numTraces(), i);
            ++_nShown;
            continue;
        }
        _screens->clearFrom(i);
        break;
    }
    tellRecord();
}
