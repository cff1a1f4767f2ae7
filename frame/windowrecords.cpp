#include "frame/windowrecords.h"

#include "frame/indexbar.h"
#include "frame/recordlist.h"
#include "frame/screenrow.h"
#include "tracedata/parmmenu.h"

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>

#include <vector>

WindowRecords::WindowRecords(QMainWindow* window, ScreenRow* screens, IndexBar* bar, const parmmenu* menu, Show show)
    : _window(window), _screens(screens), _bar(bar), _menu(menu), _show(std::move(show)), _list(new RecordList(window)),
      _label(new QLabel), _toggle(_list->toggleViewAction())
{
    window->addDockWidget(Qt::RightDockWidgetArea, _list);
    _list->hide();
    _label->setObjectName("recordLabel");
    window->statusBar()->addPermanentWidget(_label);
    _toggle->setObjectName("recordsAct");
    _toggle->setText("&Records");
    _toggle->setStatusTip("Show a list of all records beside the picture");
    connect(_list, &RecordList::recordChosen, this, &WindowRecords::recordChosen);
}

void WindowRecords::list(const EnsembleSource& source, const QString& files)
{
    std::vector<RecordRow> rows(source.isIndexBuilt() ? size_t(source.numEnsembles()) : 0);
    for (size_t i = 0; i < rows.size(); ++i) rows[i] = {source.ensembleValue(int(i)), source.ensembleTraces(int(i))};
    _list->setRecords(files, source.priName().trimmed(), std::move(rows));
    _list->setCurrent(_navigator->firstEntry());
}

int WindowRecords::screenCount() const
{
    return _menu->iscreens;
}

int WindowRecords::moveUp() const
{
    return _menu->moveup;
}

void WindowRecords::clearScreens(int from)
{
    _screens->clearFrom(from);
}

void WindowRecords::recordsShown()
{
    _list->setCurrent(_navigator->firstEntry());
    const QString text = _navigator->text();
    _label->setText(text);
    const bool isEmptyScreen = _navigator->shownCount() < _menu->iscreens;
    _window->statusBar()->showMessage(isEmptyScreen ? text + "; the file has no more for the other screens" : text);
}

void WindowRecords::recordsEnded()
{
    emit ended();
    _window->statusBar()->showMessage("No more records.");
    _bar->offer();
}
