/// SEG-Y in the main window: opening files and going from record to record.
#include "frame/mainwindow.h"

#include "analysis/parmmenudialog.h"
#include "display/seismicdisplay.h"
#include "frame/assumptionspanel.h"
#include "frame/menudefaults.h"
#include "frame/windowactions.h"
#include "frame/windowreport.h"
#include "host/signal/bytes.h"
#include "sources/menus/segymenudialog.h"
#include "sources/menus/segyrecdialog.h"
#include "sources/segyloader.h"
#include "tracedata/parmmenu.h"
#include "widgets/bringup.h"
#include "widgets/dialogprogress.h"
#include "widgets/recentfiles.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QSettings>
#include <QStatusBar>

#include <vector>

namespace {

/// The wait cursor while it lives.
struct WaitCursor {
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
};

}  // namespace

/// How the record says that its file is to be read.
static SegyLoadParm loadParm(const parmmenu& menu)
{
    SegyLoadParm parm;
    parm.files = QString::fromLocal8Bit(menu.cfile);
    parm.isort = menu.segysort;
    parm.itype = menu.segytype;
    parm.iformat = menu.segyformat;
    parm.ivariable = menu.segylength;
    parm.icscale = menu.segycscalar;
    parm.iescale = menu.segydscalar;
    parm.nsamp = menu.segysample;
    parm.maxtr = menu.segymaxtr;
    parm.srate = menu.segysamprat;
    return parm;
}

int MainWindow::showSegyMenu(bool fromStart, bool inputMode)
{
    _isStandAlone = !inputMode;
    _actions->action("segyAct")->setEnabled(fromStart);
    if (!fromStart) return 1;
    if (_menu->cfile[0] == '\0') {
        segyMenu();
        return 1;
    }
    if (!loadSegyFile(loadParm(*_menu))) segyMenu();
    return 1;
}

void MainWindow::openSegy(const QString& name)
{
    SegyLoadParm parm = loadParm(*_menu);
    parm.files = name;
    if (_segy) parm.iremap = _segy->loadParm().iremap;
    loadSegyFile(parm);
}

int MainWindow::segyLoadFromMenu()
{
    const int isLoaded = loadSegyFile(_segy->loadParm());
    // A modal menu comes again by itself, when its own event loop has ended.
    if (!isLoaded && _isStandAlone) segyMenu();
    return isLoaded;
}

SegyLoadParm MainWindow::segyLoadParm() const
{
    return _segyloader ? _segyParm : loadParm(*_menu);
}

int MainWindow::loadSegyFile(const SegyLoadParm& parm)
{
    WaitCursor wait;
    const QStringList assumedBefore = _assumptionsPanel->lines();
    _assumptionsPanel->setLines({});
    auto loader = std::make_unique<SegyLoader>(1, parm.files, 0, parm.isort, parm.itype, parm.iformat, parm.ivariable,
                                               littleEndian() ? 1 : 0, parm.icscale, parm.iescale, parm.nsamp,
                                               parm.maxtr, parm.srate, parm.iremap, parm.indexbuilt, _isStandAlone,
                                               _report.get(), _progress.get(), &_headerTable);
    if (_segy) loader->setRemapTable(parm.iremap, _segy->remapTable());
    if (!loader->openFiles()) {
        _assumptionsPanel->setLines(assumedBefore);
        QGuiApplication::restoreOverrideCursor();
        QMessageBox::critical(this, "SEGY Load Error", "Error while open or read from file: " + parm.files);
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        return 0;
    }
    // The new file is open and sound: only now does the old one go.
    loader->setMenu(_menu);
    if (_segy) _segy->buildConnections(loader.get());
    loader->initBuild();
    _progress->close();
    connect(loader.get(), &SegyLoader::indexBuilt, this, [this] { enableBackKey(true); });
    _segyloader = std::move(loader);
    _segyParm = parm;
    _segyParm.iremap = _segyloader->applyRemap();  // a useless table has switched itself off
    if (_segy) _segy->setLoadParm(_segyParm);
    _isSegy = true;
    _dataReady = false;
    saveHeader();
    _segyloader->saveHeaders();
    _segyloader->loadNextEnsemble(1);
    endViewing();
    for (SeismicDisplay* display : qAsConst(_displaylist)) display->setNewFile(_menu);
    _fileName = QFileInfo(parm.files.section(',', 0, 0)).fileName();
    setAreaLineTitle(_showAreaLine);
    showRecord(_segyloader->numTraces() > 0);
    if (_parmmenu) _parmmenu->updateAll();
    setNavigation();
    _dataReady = true;
    if (!parm.files.contains(',')) {
        QSettings settings("Brenlake", "SEISMICDISPLAY");
        writeRecentFiles(&settings, withRecentFile(readRecentFiles(&settings), QFileInfo(parm.files).absoluteFilePath()));
    }
    emit fileShown(parm.files);
    return 1;
}

void MainWindow::saveHeader()
{
    _segyloader->fillHeaderTable(&_headerTable);
}

/// Shows the loader's present ensemble, or says that there is none.
void MainWindow::showRecord(bool found)
{
    if (found) {
        loadEnsemble(_segyloader->getTraces(), _segyloader->getHeaders(), _segyloader->numTraces(), 0);
        return;
    }
    setLastEnsemble(true);
    statusBar()->showMessage("No more records.");
}

void MainWindow::setNavigation()
{
    const bool isOpen = _segyloader != nullptr;
    _actions->action("forwardAct")->setEnabled(isOpen);
    enableBackKey(isOpen && _segyloader->canSeek());
}

int MainWindow::numberOfRecords() const
{
    return _segyloader ? _segyloader->numEnsembles() : 0;
}

void MainWindow::nextRecord()
{
    if (!_segyloader) return;
    _dataReady = false;
    storeImages();
    _run.pressNext();
    enableBackKey(_segyloader->canSeek());
    {
        WaitCursor wait;
        _segyloader->loadNextEnsemble(_menu->moveup);
        showRecord(_segyloader->numTraces() > 0);
    }
    if (_segyloader->canSeek() && _segyloader->numTraces() > 0 && display()->isRepeated()) statusBar()->showMessage("Last record");
    _dataReady = true;
}

void MainWindow::previousRecord()
{
    if (!_segyloader) return;
    _dataReady = false;
    storeImages();
    _run.pressPrevious();
    {
        WaitCursor wait;
        if (_segyloader->loadLastEnsemble(_menu->moveup) && _segyloader->numTraces() > 0) {
            showRecord(true);
            setLastEnsemble(false);
        } else {
            enableBackKey(false);
        }
    }
    _dataReady = true;
}

void MainWindow::firstRecord()
{
    if (!_segyloader) return;
    _segyloader->setEnsemble(-_menu->moveup);
    nextRecord();
}

void MainWindow::seekRecord()
{
    if (!_segyloader || !_segyloader->canSeek()) return;
    SegyRecDialog dialog(_segyloader.get(), this);
    if (dialog.exec() != QDialog::Accepted) return;
    WaitCursor wait;
    if (dialog.getSortKey() != _segyloader->currentSortKey()) {
        _segyloader->buildNewSort(dialog.getSortKey());
        takeLoaderKeys();
        _segyloader->dataLoaded();  // the trace tab counts in the new order
    }
    _segyloader->seekEnsemble(dialog.prikey());
    showRecord(_segyloader->numTraces() > 0);
    storeImages();
    setLastEnsemble(false);
    enableBackKey(true);
}

/// Axes and titles follow the loader's sort; ensembles of another sort have a size of their own.
void MainWindow::takeLoaderKeys()
{
    orvinRuntimeStruct& runtime = _menu->_orvinruntime;
    runtime.ipkey = _menu->ipkey = _menu->ipkeyreal = _segyloader->priEKey();
    runtime.iskey = _menu->iskey = _menu->iskeyreal = _segyloader->secEKey();
    endViewing();
    for (SeismicDisplay* display : qAsConst(_displaylist)) display->setNewFile(_menu);
}

/// A window on a dataset or a flow keeps its data: SEG-Y gets a window of its own, with a record of its own.
void MainWindow::openSegyWindow()
{
    static std::vector<std::unique_ptr<parmmenu>> menus;  // live until the process ends
    menus.push_back(std::make_unique<parmmenu>());
    parmmenu* menu = menus.back().get();
    setDisplayDefaults(menu);
    menu->iskeyinc = 5;
    auto* window = new MainWindow(this, menu);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setVelSemblance(_velsemblance);
    window->setFBPickMenu(_fbpickmenu);
    window->buildMainPlot();
    window->show();
    window->segyMenu();
}

void MainWindow::segyMenu()
{
    if (_menu->dotrevia != 0) return openSegyWindow();
    if (!_segy) _segy = new SegyMenuDialog(this, this);
    if (_isStandAlone) {
        bringUp(_segy);
        return;
    }
    while (_segy->exec() == QDialog::Accepted && _segy->isLoadFailed()) {}
}

void MainWindow::makeRecentMenu()
{
    auto* recent = new QMenu("&Recent Files", this);
    recent->setObjectName("recentMenu");
    _actions->menu("&File")->insertMenu(_actions->action("printAct"), recent);
    connect(recent, &QMenu::aboutToShow, this, [this, recent] {
        recent->clear();
        QSettings settings("Brenlake", "SEISMICDISPLAY");
        for (const QString& name : readRecentFiles(&settings))
            recent->addAction(name, this, [this, name] { openSegy(name); });
        if (recent->isEmpty()) recent->addAction("No files yet")->setEnabled(false);
    });
}
