/// Where among the records the window is: the status line, the list of records and the bar of the index.
#include "frame/mainwindow.h"

#include "frame/indexbar.h"
#include "frame/recordlist.h"
#include "frame/windowactions.h"
#include "sources/segyloader.h"
#include "tracedata/parmmenu.h"
#include "widgets/waitcursor.h"

#include <QLabel>
#include <QMenu>
#include <QStatusBar>

#include <algorithm>

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
    _recordList->setCurrent(_firstEntry);
}

/// "n of m" of what has just been loaded; without an index only the records read so far are known.
void MainWindow::tellRecord()
{
    _recordList->setCurrent(_firstEntry);
    const bool isIndexed = _segyloader->isIndexBuilt() && _firstEntry >= 0;
    const int first = isIndexed ? _firstEntry + 1 : _nRead;
    QString text = _nShown > 1 ? QString("Records %1 to %2").arg(first).arg(first + (_nShown - 1) * (isIndexed ? _menu->moveup : 1))
                               : QString("Record %1").arg(first);
    if (isIndexed) text += QString(" of %1").arg(_segyloader->numEnsembles());
    _recordLabel->setText(text);
    const bool isEmptyScreen = _nShown < _menu->iscreens;
    statusBar()->showMessage(isEmptyScreen ? text + "; the file has no more for the other screens" : text);
}

void MainWindow::showEntry(int entry)
{
    if (!_segyloader || !_segyloader->canSeek() || entry < 0 || entry >= _segyloader->numEnsembles()) return;
    if (entry == _firstEntry) return;  // already on the screen
    _dataReady = false;
    _tools.beforeRecord();
    {
        const WaitCursor wait;
        showLoaded([this, entry] {
            _segyloader->setEnsemble(entry);
            return _segyloader->loadNextEnsemble(0);
        });
    }
    setLastEnsemble(false);
    enableBackKey(true);
    _dataReady = true;
}
