/// Several screens side by side, each with an ensemble of its own.
#include "frame/mainwindow.h"

#include "display/myqwtplotcanvas.h"
#include "display/seismicdisplay.h"
#include "frame/windowactions.h"
#include "tracedata/parmmenu.h"
#include "widgets/waitcursor.h"

#include <QActionGroup>
#include <QCheckBox>
#include <QMenu>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>

#include <algorithm>

void MainWindow::makeViewMenu()
{
    QMenu* view = _actions->menu("&View");
    auto* group = new QActionGroup(this);
    for (int n = 1; n <= mostScreens; ++n) {
        QAction* action = view->addAction(n == 1 ? QString("&1 Screen") : QString("&%1 Screens").arg(n), this,
                                          [this, n] { setScreens(n); });
        action->setObjectName(QString("screens%1Act").arg(n));
        action->setStatusTip("Show so many ensembles side by side");
        action->setCheckable(true);
        group->addAction(action);
    }
    view->addSeparator();
    QAction* difference = view->addAction("&Difference");
    difference->setObjectName("differenceAct");
    difference->setCheckable(true);
    difference->setStatusTip("Show the difference of the last two screens beside them");
    connect(difference, &QAction::toggled, _actions->box("differBox"), &QCheckBox::setChecked);
}

/// Brings the menu up to what is on the screen.
void MainWindow::showScreens()
{
    findChild<QAction*>(QString("screens%1Act").arg(std::clamp(_menu->iscreens, 1, mostScreens)))->setChecked(true);
    auto* difference = findChild<QAction*>("differenceAct");
    const bool isPossible = _menu->iscreens > 1;
    difference->setEnabled(isPossible);
    difference->setToolTip(isPossible ? difference->statusTip() : difference->statusTip() + "\nNeeds two screens.");
    difference->setChecked(isPossible && _actions->box("differBox")->isChecked());
}

/// A screen behind the last one, before the difference; one that was put aside comes back.
SeismicDisplay* MainWindow::makeScreen()
{
    const int i = _displaylist.size();
    if (!_spareScreens.isEmpty()) {
        SeismicDisplay* spare = _spareScreens.takeLast();
        spare->setMenu(_menu);
        spare->parentWidget()->show();
        return spare;
    }
    auto* column = new QSplitter(Qt::Vertical);
    _splitter->insertWidget(i, column);
    auto* display = new SeismicDisplay(column, "Main Display", statusBar(), _controlStatus, i == 0, false, i, this);
    column->addWidget(display);
    display->setColorBar(_colorBarFrame);
    display->setImageStorage(_imgstore.get());
    display->setMenu(_menu);
    connect(display->myCanvas(), &MyQwtPlotCanvas::rendered, this, &MainWindow::tellDensity, Qt::QueuedConnection);
    display->setLists(&_displaylist, &_otherlist);
    connect(display, &SeismicDisplay::polarityStated, this, [this](const Polarity& polarity) {
        QSettings settings("Brenlake", "SEISMICDISPLAY");
        if (!_segyParm.files.isEmpty()) writePolarity(&settings, _segyParm.files, polarity);
    });
    return display;
}

/// The first screen has the left axis, the last one in view the right axis; all are as wide as the others. A new one
/// gets its size at once, for its first ensemble is spaced by it.
void MainWindow::layoutScreens()
{
    const bool hasDifference = _showDifference && _actions->box("differBox")->isChecked() && _menu->iscreens > 1;
    for (int i = 0; i < _menu->iscreens; ++i)
        _displaylist[i]->enableVerticalAxis(i == 0, i == _menu->iscreens - 1 && !hasDifference);
    if (!isVisible()) return;
    for (int i = 0; i < _displaylist.size(); ++i)
        _displaylist[i]->parentWidget()->setVisible(i < _menu->iscreens || hasDifference);
    QList<int> sizes;
    for (int i = 0; i < _splitter->count(); ++i) sizes.append(_splitter->width());
    _splitter->setSizes(sizes);
}

void MainWindow::setScreens(int n)
{
    if (n == _menu->iscreens || _displaylist.isEmpty()) return;
    const WaitCursor wait;
    if (n == 1) _actions->box("differBox")->setChecked(false);
    SeismicDisplay* difference = _showDifference ? _displaylist.takeLast() : nullptr;
    const int before = _displaylist.size();
    while (_displaylist.size() > n) {
        SeismicDisplay* last = _displaylist.takeLast();
        last->clearData();
        last->parentWidget()->hide();
        _spareScreens.append(last);
    }
    while (_displaylist.size() < n) {
        SeismicDisplay* added = makeScreen();
        added->takeLook(*_displaylist.first());
        _displaylist.append(added);
    }
    _display = _displaylist.last();
    if (difference) _displaylist.append(difference);
    _menu->iscreens = n;
    layoutScreens();
    showScreens();
    if (!_segyloader || _displaylist.first()->traceCount() == 0) return;
    if (n > before) return _navigator->fillScreens(before);
    _navigator->dropScreens();
    recordsShown();
    if (_actions->box("differBox")->isChecked()) loadDifference();
}
