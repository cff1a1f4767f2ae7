/// SEG-Y in the main window: opening files and going from record to record.
#include "frame/mainwindow.h"

#include "analysis/parmmenudialog.h"
#include "display/seismicdisplay.h"
#include "frame/assumptionspanel.h"
#include "frame/firstlook.h"
#include "frame/indexbar.h"
#include "frame/menudefaults.h"
#include "frame/windowactions.h"
#include "frame/windowreport.h"
#include "host/globals.h"
#include "host/signal/bytes.h"
#include "sources/menus/segymenudialog.h"
#include "sources/menus/segyrecdialog.h"
#include "sources/segyloader.h"
#include "sources/segywords.h"
#include "tracedata/parmmenu.h"
#include "widgets/bringup.h"
#include "widgets/dialogprogress.h"
#include "widgets/recentfiles.h"
#include "widgets/waitcursor.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QSettings>
#include <QStatusBar>

#include <algorithm>
#include <new>
#include <vector>

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
    _isFirstMenu = _isStandAlone;
    if (_menu->cfile[0] == '\0' || !loadSegyFile(loadParm(*_menu))) segyMenu();
    return 1;
}

void MainWindow::openSegy(const QString& name)
{
    SegyLoadParm parm = loadParm(*_menu);
    parm.files = name;
    if (_segy) parm.iremap = _segy->loadParm().iremap;
    loadSegyFile(parm);
}

static const char lastFolderKey[] = "lastfolder";

void MainWindow::openSegyFile()
{
    const QString folder = QSettings("Brenlake", "SEISMICDISPLAY").value(lastFolderKey, QDir::homePath()).toString();
    const QString name = QFileDialog::getOpenFileName(this, "Open SEG-Y", folder,
                                                      "SEG-Y Files (*.sgy *.segy *.SGY *.SEGY);;All files (*)");
    if (!name.isEmpty()) openSegy(name);
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

/// For the next session: the folder, and a single file among the recent ones.
static void keepFileName(const QString& files)
{
    QSettings settings("Brenlake", "SEISMICDISPLAY");
    settings.setValue(lastFolderKey, QFileInfo(files.section(',', 0, 0)).absolutePath());
    if (files.contains(',')) return;
    writeRecentFiles(&settings, withRecentFile(readRecentFiles(&settings), QFileInfo(files).absoluteFilePath()));
}

int MainWindow::loadSegyFile(const SegyLoadParm& parm)
{
    WaitCursor wait;
    _firstLook->drop();
    auto loader = std::make_unique<SegyLoader>(1, parm.files, 0, parm.isort, parm.itype, parm.iformat, parm.ivariable,
                                               littleEndian() ? 1 : 0, parm.icscale, parm.iescale, parm.nsamp,
                                               parm.maxtr, parm.srate, parm.iremap, parm.indexbuilt, _isStandAlone,
                                               _report.get(), _progress.get(), &_headerTable);
    loader->setLayout(parm.layout);
    if (_segy) loader->setRemapTable(parm.iremap, _segy->remapTable());
    // The index and the first ensemble may be refused, too: all is read before anything is let go.
    if (!loader->openFiles() || !loader->buildAskedIndex() || !loader->loadNextEnsemble(1)) {
        _progress->close();
        QGuiApplication::restoreOverrideCursor();
        _report->box("SEGY Load Error", ("Error while open or read from file: " + parm.files).toStdString());
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        _firstLook->look(loader->currentFile(), parm, segyReading(nullptr, parm));
        return 0;
    }
    _progress->close();
    const SegyReading reading = segyReading(loader.get(), parm);
    connect(loader.get(), &SegyLoader::indexBuilt, this, [this] {
        // The loader stands at the last screen.
        _firstEntry = std::max(0, _segyloader->priCurKey() - _menu->moveup * (_nShown - 1));
        enableBackKey(true);
        listRecords();
        tellRecord();
    });
    connect(loader.get(), &SegyLoader::assumptionsChanged, this, &MainWindow::showAssumptions);
    if (!takeLoader(&loader, parm)) return 0;
    setNavigation();
    _dataReady = true;
    keepFileName(parm.files);
    emit fileShown(parm.files);
    _firstLook->look(_segyloader->currentFile(), parm, reading);
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
        _menu->iscreens = menuBefore.iscreens;  // the window has as many as before
        _menu->idifference = menuBefore.idifference;
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

void MainWindow::showAssumptions()
{
    _assumptionsPanel->setAssumptions(_segyloader ? _segyloader->assumptions() : std::vector<SegyAssumption>());
}

/// Menu, titles and displays follow the loader, which may be none.
void MainWindow::showLoader(const SegyLoadParm& parm, const QString& name)
{
    _segyParm = parm;
    _fileName = name;
    _nRead = _nShown = 0;
    if (_segy) _segy->buildConnections(_segyloader.get());
    if (_segyloader) _segyloader->initBuild();
    _indexBar->setLoader(_segyloader.get());
    showAssumptions();
    if (_segy) _segy->setLoadParm(_segyParm);
    if (_isStandAlone) fillGlobalRuntime();
    if (_segyloader) {
        saveHeader();
        _segyloader->saveHeaders();
    }
    endViewing();
    const Polarity polarity = readPolarity(QSettings("Brenlake", "SEISMICDISPLAY"), parm.files);
    for (SeismicDisplay* display : qAsConst(_displaylist)) {
        display->setNewFile(_menu);
        display->setPolarity(polarity);
    }
    setAreaLineTitle(_showAreaLine);
    if (_segyloader) {
        showRecord(_segyloader->numTraces() > 0);
        listRecords();
    }
    if (_parmmenu) _parmmenu->updateAll();
}

/// Shows the ensemble that `load` brings. False with the old one in place when it was refused, or when there is
/// no memory to show it.
bool MainWindow::showLoaded(const std::function<bool()>& load)
{
    const SegyLoader::Place before = _segyloader->place();
    const int entryBefore = _firstEntry, readBefore = _nRead;
    bool isLoaded = false;
    const auto show = [&] {
        isLoaded = load();
        if (isLoaded) showRecord(_segyloader->numTraces() > 0);
    };
    const auto back = [&] {
        _segyloader->setPlace(before);
        bool isBack = false;
        if (_menu->iscreens > 1 && _segyloader->canSeek()) {  // the loader stood at the last screen
            _segyloader->setEnsemble(entryBefore);
            isBack = _segyloader->loadNextEnsemble(0);
        } else {
            isBack = _segyloader->reloadEnsemble();
        }
        if (isBack) showRecord(_segyloader->numTraces() > 0);
        _nRead = readBefore;
        tellRecord();
    };
    return runLoad(_report.get(), show, back) && isLoaded;
}

/// What the host's own routines ask of the data at hand. Where a flow runs, the host fills it.
void MainWindow::fillGlobalRuntime() const
{
    const orvinRuntimeStruct& from = _menu->_orvinruntime;
    globalRuntime.samprat = from.samprat;
    globalRuntime.numsmp = from.numsmp;
    globalRuntime.maxdtr = from.maxdtr;
    globalRuntime.ipkey = from.ipkey;
    globalRuntime.iskey = from.iskey;
    globalRuntime.idtyp = from.idtyp;
    globalRuntime.ipsort = from.ipsort;
    globalRuntime.idomain = from.idomain;
}

/// Before anything is loaded a SEG-Y window has the standard words; in a flow the host's lists answer until then.
const HeaderWords* MainWindow::headerWords() const
{
    if (_headerTable._headerSaved || _menu->dotrevia != 0) return &_headerTable;
    return &segyWords();
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
        _firstEntry = _segyloader->priCurKey();
        _nRead += std::max(1, _nShown);
        _nShown = 1;
        loadEnsemble(_segyloader->getTraces(), _segyloader->getHeaders(), _segyloader->numTraces(), 0);
        if (!_isEnsembleShown) throw std::bad_alloc();
        fillScreens(1);
        return;
    }
    setLastEnsemble(true);
    statusBar()->showMessage("No more records.");
    _indexBar->offer();
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
        if (!_segyloader->canSeek() || _segyloader->numEnsembles() == 0) {
            enableBackKey(false);
        } else {
            if (_menu->iscreens > 1) _segyloader->setEnsemble(_firstEntry);
            if (showLoaded([this] { return _segyloader->loadLastEnsemble(_menu->moveup * _menu->iscreens); }))
                setLastEnsemble(false);
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
    const SortCode sortBefore = _segyloader->currentSortKey();
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
        listRecords();
        return true;
    };
    if (!showLoaded(seek)) {
        if (!isNewSort) return;
        _segyloader->buildNewSort(sortBefore);
        _segyloader->setPlace(before);
        if (!isTaken) return;
        takeLoaderKeys();
        listRecords();
        showLoaded([this] { return _segyloader->reloadEnsemble(); });
        return;
    }
    storeImages();
    setLastEnsemble(false);
    enableBackKey(true);
}

/// Axes and titles follow the loader's sort; how the traces are shown doesn't.
void MainWindow::takeLoaderKeys()
{
    _segyloader->tellSort();
    if (_isStandAlone) fillGlobalRuntime();
    endViewing();
    for (SeismicDisplay* display : qAsConst(_displaylist)) display->setNewKeys();
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
    if (!_segy) {
        _segy = new SegyMenuDialog(this, this);
        connect(_segy, &QDialog::finished, this, [this] { placeLookBar(false); });
        connect(_segy, &QDialog::rejected, this, [this] {
            if (_isFirstMenu && !_segyloader) close();
        });
    }
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
