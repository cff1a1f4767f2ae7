/// The way to other records.
#include "frame/mainwindow.h"

#include "display/seismicdisplay.h"
#include "frame/recordnavigator.h"
#include "frame/sourcemenu.h"
#include "frame/windowactions.h"
#include "frame/windowrecords.h"
#include "frame/windowreport.h"
#include "sources/menus/segyrecdialog.h"
#include "sources/segyloader.h"
#include "tracedata/parmmenu.h"
#include "widgets/waitcursor.h"

#include <QMenu>
#include <QStatusBar>

void MainWindow::makeRecords()
{
    _records = std::make_unique<WindowRecords>(this, _screens.get(), _indexBar, _menu, [this](int screen) {
        loadEnsemble(source()->getTraces(), source()->getHeaders(), source()->numTraces(), screen);
        return _isEnsembleShown;
    });
    _navigator = std::make_unique<RecordNavigator>(_records.get(), _report.get());
    _records->setNavigator(_navigator.get());
    _actions->menu("&View")->addAction(_records->toggle());
    connect(_records.get(), &WindowRecords::recordChosen, this, &MainWindow::showEntry);
    connect(_records.get(), &WindowRecords::ended, this, [this] { setLastEnsemble(true); });
    connect(_records.get(), &WindowRecords::sortTaken, this, &MainWindow::takeSort);
}

/// After an index has come, or a new sort.
void MainWindow::listRecords()
{
    _records->list(*source(), _segyParm.files);
}

/// Axes and titles follow the source's sort; how the traces are shown doesn't.
void MainWindow::takeSort()
{
    _tools.beforeData();
    copySort(_menu, *source());
    if (_isStandAlone) fillGlobalRuntime();
    for (SeismicDisplay* display : *displays()) display->setNewKeys();
    listRecords();
}

EnsembleSource* MainWindow::source() const
{
    return _segyloader.get();
}

int MainWindow::numberOfRecords() const
{
    return _navigator->recordCount();
}

void MainWindow::nextRecord()
{
    if (!source()) return;
    goForward(&RecordNavigator::next);
}

void MainWindow::firstRecord()
{
    if (!source()) return;
    goForward(&RecordNavigator::first);
}

void MainWindow::goForward(bool (RecordNavigator::*go)())
{
    _dataReady = false;
    _tools.beforeRecord();
    _run.pressNext();
    enableBackKey(_navigator->canSeek());
    {
        const WaitCursor wait;
        (_navigator.get()->*go)();
    }
    if (_navigator->canSeek() && source()->numTraces() > 0 && display()->isRepeated())
        statusBar()->showMessage("Last record");
    _dataReady = true;
}

void MainWindow::previousRecord()
{
    if (!source()) return;
    _dataReady = false;
    _tools.beforeRecord();
    _run.pressPrevious();
    {
        const WaitCursor wait;
        if (!_navigator->canSeek() || _navigator->recordCount() == 0)
            enableBackKey(false);
        else if (_navigator->previous())
            setLastEnsemble(false);
    }
    _dataReady = true;
}

void MainWindow::seekRecord()
{
    if (!_navigator->canSeek()) return;
    SegyRecDialog dialog(_segyloader.get(), this);
    if (dialog.exec() != QDialog::Accepted) return;
    const WaitCursor wait;
    _tools.beforeRecord();
    if (!_navigator->seek(dialog.getSortKey(), dialog.prikey())) return;
    setLastEnsemble(false);
    enableBackKey(true);
}

void MainWindow::showEntry(int entry)
{
    if (!_navigator->canSeek() || entry < 0 || entry >= _navigator->recordCount()) return;
    if (entry == _navigator->firstEntry()) return;  // already on the screen
    _dataReady = false;
    _tools.beforeRecord();
    {
        const WaitCursor wait;
        _navigator->showEntry(entry);
    }
    setLastEnsemble(false);
    enableBackKey(true);
    _dataReady = true;
}
