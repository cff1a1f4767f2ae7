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

#include <new>
#include <vector>

namespace {

/// The wait cursor while it lives.
struct WaitCursor {
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
};

}  // namespace

/// Runs a step of a load. False after a box when there is not enough memory for it; `back` then undoes it.
template <class Step, class Back>
static bool runLoad(Report* report, Step step, Back back)
{
    try {
        step();
        return true;
    } catch (const std::bad_alloc&) {
        try {
            back();
        } catch (const std::bad_alloc&) {  // not even for what was there: the display is then empty
        }
        report->box("SEGY Memory", "There is not enough memory to show this data. Nothing has been changed.");
        return false;
    }
}

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
    loader->setLayout(parm.layout);
    if (_segy) loader->setRemapTable(parm.iremap, _segy->remapTable());
    // The index and the first ensemble may be refused, too: all is read before anything is let go.
    if (!loader->openFiles() || !loader->buildAskedIndex() || !loader->loadNextEnsemble(1)) {
        _progress->close();
        _assumptionsPanel->setLines(assumedBefore);
        QGuiApplication::restoreOverrideCursor();
        QMessageBox::critical(this, "SEGY Load Error", "Error while open or read from file: " + parm.files);
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        return 0;
    }
    _progress->close();
    connect(loader.get(), &SegyLoader::indexBuilt, this, [this] { enableBackKey(true); });
    if (!takeLoader(&loader, parm)) {
        _assumptionsPanel->setLines(assumedBefore);
        return 0;
    }
    setNavigation();
    _dataReady = true;
    if (!parm.files.contains(',')) {
        QSettings settings("Brenlake", "SEISMICDISPLAY");
        writeRecentFiles(&settings, withRecentFile(readRecentFiles(&settings), QFileInfo(parm.files).absoluteFilePath()));
    }
    emit fileShown(parm.files);
    return 1;
}

/// Puts a loader that stands on its first ensemble in place of the present one. When there is no memory to show
/// it, the old one and its record come back; false.
bool MainWindow::takeLoader(std::unique_ptr<SegyLoader>* loader, const SegyLoadParm& parm)
{
    const parmmenu menuBefore = *_menu;
    const SegyLoadParm parmBefore = _segyParm;
    const QString nameBefore = _fileName;
    std::swap(_segyloader, *loader);
    const auto takeNew = [&] {
        _segyloader->setMenu(_menu);
        _isSegy = true;
        _dataReady = false;
        SegyLoadParm taken = parm;
        taken.iremap = _segyloader->applyRemap();  // a useless table has switched itself off
        showLoader(taken, QFileInfo(parm.files.section(',', 0, 0)).fileName());
    };
    const auto takeOld = [&] {
        std::swap(_segyloader, *loader);
        *_menu = menuBefore;
        _isSegy = _segyloader != nullptr;
        if (_segyloader) _segyloader->reloadEnsemble();
        showLoader(parmBefore, nameBefore);
        _dataReady = true;
    };
    return runLoad(_report.get(), takeNew, takeOld);
}

/// Menu, titles and displays follow the loader, which may be none.
void MainWindow::showLoader(const SegyLoadParm& parm, const QString& name)
{
    _segyParm = parm;
    _fileName = name;
    if (_segy) _segy->buildConnections(_segyloader.get());
    if (_segyloader) _segyloader->initBuild();
    if (_segy) _segy->setLoadParm(_segyParm);
    if (_segyloader) {
        saveHeader();
        _segyloader->saveHeaders();
    }
    endViewing();
    for (SeismicDisplay* display : qAsConst(_displaylist)) display->setNewFile(_menu);
    setAreaLineTitle(_showAreaLine);
    if (_segyloader) showRecord(_segyloader->numTraces() > 0);
    if (_parmmenu) _parmmenu->updateAll();
}

/// Shows the ensemble that `load` brings. False with the old one in place when it was refused, or when there is
/// no memory to show it.
template <class Load>
bool MainWindow::showLoaded(Load load)
{
    const SegyLoader::Place before = _segyloader->place();
    bool isLoaded = false;
    const auto show = [&] {
        isLoaded = load();
        if (isLoaded) showRecord(_segyloader->numTraces() > 0);
    };
    const auto back = [&] {
        _segyloader->setPlace(before);
        if (_segyloader->reloadEnsemble()) showRecord(_segyloader->numTraces() > 0);
    };
    return runLoad(_report.get(), show, back) && isLoaded;
}

void MainWindow::saveHeader()
{
    _segyloader->fillHeaderTable(&_headerTable);
}

/// Shows the loader's present ensemble, or says that there is none. Throws std::bad_alloc when there is no memory
/// to show it.
void MainWindow::showRecord(bool found)
{
    if (found) {
        loadEnsemble(_segyloader->getTraces(), _segyloader->getHeaders(), _segyloader->numTraces(), 0);
        if (!_isEnsembleShown) throw std::bad_alloc();
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
        showLoaded([this] { return _segyloader->loadNextEnsemble(_menu->moveup); });
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
        if (!_segyloader->canSeek() || _segyloader->numEnsembles() == 0)
            enableBackKey(false);
        else if (showLoaded([this] { return _segyloader->loadLastEnsemble(_menu->moveup); }))
            setLastEnsemble(false);
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
    const int sortBefore = _segyloader->currentSortKey();
    const SegyLoader::Place before = _segyloader->place();
    const bool isNewSort = dialog.getSortKey() != sortBefore;
    if (isNewSort) _segyloader->buildNewSort(dialog.getSortKey());
    bool isTaken = false;
    const auto seek = [&] {
        if (!_segyloader->seekEnsemble(dialog.prikey())) return false;
        isTaken = isNewSort;
        if (!isTaken) return true;
        takeLoaderKeys();
        _segyloader->dataLoaded();  // the trace tab counts in the new order
        return true;
    };
    if (!showLoaded(seek)) {
        if (!isNewSort) return;
        _segyloader->buildNewSort(sortBefore);
        _segyloader->setPlace(before);
        if (!isTaken) return;
        takeLoaderKeys();
        showLoaded([this] { return _segyloader->reloadEnsemble(); });
        return;
    }
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
