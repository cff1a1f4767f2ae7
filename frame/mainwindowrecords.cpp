/// Where among the records the window is, and the way to others: what the navigator asks of the window, the status
/// line and the list of records.
#include "frame/mainwindow.h"

#include "display/seismicdisplay.h"
#include "frame/indexbar.h"
#include "frame/recordlist.h"
#include "frame/sourcemenu.h"
#include "frame/windowactions.h"
#include "sources/menus/segyrecdialog.h"
#include "sources/segyloader.h"
#include "tracedata/parmmenu.h"
#include "widgets/waitcursor.h"

#include <QLabel>
#include <QMenu>
#include <QStatusBar>

#include <vector>

void MainWindow::makeRecordList()
{
    _recordList = new RecordList(this);
    addDockWidget(Qt::RightDockWidgetArea, _recordList);
    _recordList->hide();
    _recordLabel = new QLabel;
    _recordLabel->setObjectName("recordLabel");
    statusBar()->addPermanentWidget(_recordLabel);
    QAction* toggle = _recordList->toggleViewAction();
    toggle->setObjectName("recordsAct");
    toggle->setText("&Records");
    toggle->setStatusTip("Show a list of all records beside the picture");
    _actions->menu("&View")->addAction(toggle);
    connect(_recordList, &RecordList::recordChosen, this, &MainWindow::showEntry);
}

/// After an index has come, or a new sort.
void MainWindow::listRecords()
{
    std::vector<RecordRow> rows(_segyloader->isIndexBuilt() ? size_t(_segyloader->numEnsembles()) : 0);
    for (size_t i = 0; i < rows.size(); ++i)
        rows[i] = {_segyloader->ensembleValue(int(i)), _segyloader->ensembleTraces(int(i))};
    _recordList->setRecords(_segyParm.files, _segyloader->priName().trimmed(), std::move(rows));
    _recordList->setCurrent(_navigator->firstEntry());
}

int MainWindow::screenCount() const
{
    return _menu->iscreens;
}

int MainWindow::moveUp() const
{
    return _menu->moveup;
}

bool MainWindow::showEnsemble(int screen)
{
    loadEnsemble(_segyloader->getTraces(), _segyloader->getHeaders(), _segyloader->numTraces(), screen);
    return _isEnsembleShown;
}

void MainWindow::clearScreens(int from)
{
    for (int k = from; k < _displaylist.size(); ++k) _displaylist[k]->clearData();
}

void MainWindow::recordsShown()
{
    _recordList->setCurrent(_navigator->firstEntry());
    const QString text = _navigator->text();
    _recordLabel->setText(text);
    const bool isEmptyScreen = _navigator->shownCount() < _menu->iscreens;
    statusBar()->showMessage(isEmptyScreen ? text + "; the file has no more for the other screens" : text);
}

void MainWindow::recordsEnded()
{
    setLastEnsemble(true);
    statusBar()->showMessage("No more records.");
    _indexBar->offer();
}

/// Axes and titles follow the source's sort; how the traces are shown doesn't.
void MainWindow::sortChanged()
{
    copySort(_menu, *_segyloader);
    if (_isStandAlone) fillGlobalRuntime();
    endViewing();
    for (SeismicDisplay* display : qAsConst(_displaylist)) display->setNewKeys();
    listRecords();
}

int MainWindow::numberOfRecords() const
{
    return _navigator->recordCount();
}

void MainWindow::nextRecord()
{
    if (!_segyloader) return;
    goForward(&RecordNavigator::next);
}

void MainWindow::firstRecord()
{
    if (!_segyloader) return;
    goForward(&RecordNavigator::first);
}

void MainWindow::goForward(bool (RecordNavigator::*go)())
{
    _dataReady = false;
    storeImages();
    _run.pressNext();
    enableBackKey(_navigator->canSeek());
    {
        const WaitCursor wait;
        (_navigator.get()->*go)();
    }
    if (_navigator->canSeek() && _segyloader->numTraces() > 0 && display()->isRepeated()) statusBar()->showMessage("Last record");
    _dataReady = true;
}

void MainWindow::previousRecord()
{
    if (!_segyloader) return;
    _dataReady = false;
    storeImages();
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
    if (!_navigator->seek(dialog.getSortKey(), dialog.prikey())) return;
    storeImages();
    setLastEnsemble(false);
    enableBackKey(true);
}

void MainWindow::showEntry(int entry)
{
    if (!_navigator->canSeek() || entry < 0 || entry >= _navigator->recordCount()) return;
    if (entry == _navigator->firstEntry()) return;  // already on the screen
    _dataReady = false;
    storeImages();
    {
        const WaitCursor wait;
        _navigator->showEntry(entry);
    }
    setLastEnsemble(false);
    enableBackKey(true);
    _dataReady = true;
}
