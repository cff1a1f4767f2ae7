/// The bar above the screens: better settings for a misread file, a better picture for too many traces.
#include "frame/mainwindow.h"

#include "analysis/parmmenudialog.h"
#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "frame/firstlook.h"
#include "frame/firstlookbar.h"
#include "sources/menus/segymenudialog.h"

#include <QBoxLayout>

#include <algorithm>

void MainWindow::makeFirstLook()
{
    const auto open = [this](const SegyLoadParm& parm) {
        const bool isOpen = loadSegyFile(parm) != 0;
        placeLookBar(false);
        if (isOpen && _segy) _segy->hide();  // it came up for the file that was refused
        return isOpen;
    };
    _firstLook = new FirstLook(_firstLookBar, open, this);
    connect(_firstLook, &FirstLook::offering, this, [this](bool isOpen) { placeLookBar(!isOpen && _segy && _segy->isVisible()); });
    connect(_firstLookBar, &FirstLookBar::densityWanted, this, [this] {
        makeParmMenu();
        _parmmenu->setDisplayType(ColorB);
    });
}

/// The menu that comes up for a refused file covers the screens: the bar is then in the menu, until that goes.
void MainWindow::placeLookBar(bool isInMenu)
{
    QWidget* place = isInMenu ? _segy : centralWidget();
    if (_firstLookBar->parentWidget() == place) return;
    const bool isShown = !_firstLookBar->isHidden();
    static_cast<QBoxLayout*>(place->layout())->insertWidget(0, _firstLookBar);
    _firstLookBar->setVisible(isShown);
}

/// Wiggles of more traces than there are pixels across the screen.
static bool isTooDense(const SeismicDisplay* display)
{
    const SeismicPlot* plot = display->seismicPlot();
    if (display->isHidden() || display->traceCount() == 0 || plot->displayType() >= ColorB) return false;
    const QwtInterval shown = display->axisInterval(plot->xAxis()).normalized();
    const double first = std::max(shown.minValue(), 0.5), last = std::min(shown.maxValue(), display->traceCount() + 0.5);
    return last - first > display->canvas()->width() * display->devicePixelRatioF();
}

void MainWindow::tellDensity()
{
    _firstLookBar->offerDensity(std::any_of(_displaylist.begin(), _displaylist.end(), isTooDense));
}
