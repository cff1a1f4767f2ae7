#include "frame/windowlook.h"

#include "display/displaylist.h"
#include "display/images/myqwtplotcanvas.h"
#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "frame/firstlookbar.h"

#include <QBoxLayout>
#include <QDialog>

#include <algorithm>

WindowLook::WindowLook(FirstLookBar* bar, FirstLook::Open open, const DisplayList* displays)
    : _bar(bar), _home(bar->parentWidget()), _displays(displays)
{
    const auto openThere = [this, open = std::move(open)](const SegyLoadParm& parm) {
        const bool isOpen = open(parm);
        placeBar(false);
        if (isOpen && _menu) _menu->hide();  // it came up for the file that was refused
        return isOpen;
    };
    _firstLook = new FirstLook(bar, openThere, this);
    connect(_firstLook, &FirstLook::offering, this,
            [this](bool isOpen) { placeBar(!isOpen && _menu && _menu->isVisible()); });
}

void WindowLook::setMenu(QDialog* menu)
{
    _menu = menu;
    connect(menu, &QDialog::finished, this, [this] { placeBar(false); });
}

/// The menu that comes up for a refused file covers the screens: the bar is then in the menu, until that goes.
void WindowLook::placeBar(bool isInMenu)
{
    QWidget* place = isInMenu ? _menu : _home;
    if (_bar->parentWidget() == place) return;
    const bool isShown = !_bar->isHidden();
    static_cast<QBoxLayout*>(place->layout())->insertWidget(0, _bar);
    _bar->setVisible(isShown);
}

/// Wiggles of more traces than there are pixels across the screen.
static bool isTooDense(const SeismicDisplay* display)
{
    const SeismicPlot* plot = display->seismicPlot();
    if (display->isHidden() || display->traceCount() == 0 || plot->displayType() >= ColorB) return false;
    const QwtInterval shown = display->axisInterval(plot->xAxis()).normalized();
    const double first = std::max(shown.minValue(), 0.5),
                 last = std::min(shown.maxValue(), display->traceCount() + 0.5);
    return last - first > display->canvas()->width() * display->devicePixelRatioF();
}

void WindowLook::watch(SeismicDisplay* display)
{
    connect(display->myCanvas(), &MyQwtPlotCanvas::rendered, this, &WindowLook::tellDensity, Qt::QueuedConnection);
}

void WindowLook::tellDensity()
{
    _bar->offerDensity(std::any_of(_displays->begin(), _displays->end(), isTooDense));
}
