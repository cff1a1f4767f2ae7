#include "frame/screenrow.h"

#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "tracedata/parmmenu.h"

#include <QSplitter>

#include <algorithm>

ScreenRow::ScreenRow(QSplitter* splitter, parmmenu* menu, const ScreenParts& parts)
    : _splitter(splitter), _menu(menu), _parts(parts)
{
}

ScreenRow::~ScreenRow()
{
    const QList<SeismicDisplay*> owned = _displays.all() + _spare;
    _displays.clear();
    // The last one first: the difference borrows from the first screen.
    std::for_each(owned.crbegin(), owned.crend(), [](const SeismicDisplay* display) { delete display; });
}

void ScreenRow::build()
{
    while (_displays.size() < _menu->iscreens) _displays.append(makeScreen());
    _lastScreen = _displays.last();
    layout();
}

/// @param column  place in the splitter
/// @param number  the display's window number
SeismicDisplay* ScreenRow::makeDisplay(const QString& title, bool hasLeft, bool hasRight, int column, int number)
{
    auto* home = new QSplitter(Qt::Vertical);
    _splitter->insertWidget(column, home);
    auto* display =
        new SeismicDisplay(home, title, _parts.status, _parts.control, hasLeft, hasRight, number, _parts.host);
    home->addWidget(display);
    display->setColorBar(_parts.bar);
    display->setImageStorage(_parts.images);
    display->setMenu(_menu);
    display->setLists(&_displays, &_others);
    return display;
}

/// A screen behind the last one, before the difference; one that was put aside comes back.
SeismicDisplay* ScreenRow::makeScreen()
{
    const int i = screenCount();
    if (!_spare.isEmpty()) {
        SeismicDisplay* spare = _spare.takeLast();
        spare->setMenu(_menu);
        spare->parentWidget()->show();
        return spare;
    }
    SeismicDisplay* screen = makeDisplay("Main Display", i == 0, false, i, i);
    emit screenMade(screen);
    return screen;
}

void ScreenRow::makeDifference()
{
    _difference = makeDisplay("Difference", false, true, _splitter->count(), _displays.size());
    _difference->takeLook(*_displays.first());
    _difference->setDifferenceFlag(true);
    // As loud as the data: a small difference looks small.
    _difference->seismicPlot()->setScaleSource(_displays.first()->seismicPlot());
    _displays.append(_difference);
}

void ScreenRow::showDifference(bool on)
{
    _isDifferenceShown = on;
    if (_difference)
        _difference->parentWidget()->setVisible(on);
    else
        makeDifference();
    layout();
}

int ScreenRow::setCount(int n)
{
    const int before = screenCount();
    for (int i = before - 1; i >= n; --i) {
        SeismicDisplay* last = _displays.takeAt(i);
        last->clearData();
        last->parentWidget()->hide();
        _spare.append(last);
    }
    for (int i = before; i < n; ++i) {
        SeismicDisplay* added = makeScreen();
        added->takeLook(*_displays.first());
        _displays.insert(i, added);
    }
    _lastScreen = _displays[n - 1];
    _menu->iscreens = n;
    layout();
    return before;
}

void ScreenRow::layout()
{
    const bool hasDifference = _difference && _isDifferenceShown && _menu->iscreens > 1;
    for (int i = 0; i < _menu->iscreens; ++i)
        _displays[i]->enableVerticalAxis(i == 0, i == _menu->iscreens - 1 && !hasDifference);
    if (!_splitter->window()->isVisible()) return;
    for (int i = 0; i < _displays.size(); ++i)
        _displays[i]->parentWidget()->setVisible(i < _menu->iscreens || hasDifference);
    QList<int> sizes;
    for (int i = 0; i < _splitter->count(); ++i) sizes.append(_splitter->width());
    _splitter->setSizes(sizes);
}

void ScreenRow::clearFrom(int i)
{
    for (int k = i; k < _displays.size(); ++k) _displays[k]->clearData();
}
