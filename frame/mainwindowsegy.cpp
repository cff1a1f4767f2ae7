/// SEG-Y in the main window: opening files.
#include "frame/mainwindow.h"

#include "display/seismicdisplay.h"
#include "frame/assumptionspanel.h"
#include "frame/indexbar.h"
#include "frame/recordnavigator.h"
#include "frame/sourcemenu.h"
#include "frame/windowactions.h"
#include "frame/windowlook.h"
#include "frame/windowrecords.h"
#include "frame/windowreport.h"
#include "host/globals.h"
#include "sources/menus/segymenudialog.h"
#include "sources/segyloader.h"
#include "tracedata/menudefaults.h"
#include "tracedata/parmmenu.h"
#include "widgets/appsettings.h"
#include "widgets/bringup.h"
#include "widgets/dialogprogress.h"
#include "widgets/recentfiles.h"
#include "widgets/waitcursor.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>

#include <vector>

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

void MainWindow::openSegyFile()
{
    const QString folder = AppSettings().value(SettingsKey::lastFolder, QDir::homePath()).toString();
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
    AppSettings settings;
    settings.setValue(SettingsKey::lastFolder, QFileInfo(files.section(',', 0, 0)).absolutePath());
    if (files.contains(',')) return;
    writeRecentFiles(&settings, withRecentFile(readRecentFiles(&settings), QFileInfo(files).absoluteFilePath()));
}

int MainWindow::loadSegyFile(const SegyLoadParm& parm)
{
    WaitCursor wait;
    _look->firstLook()->drop();
    SegyLoadParm wanted = parm;
    wanted.isStandAlone = _isStandAlone;
    if (_segy) wanted.remapTable = _segy->remapTable();
    // The index and the first ensemble may be refused, too: all is read before anything is let go.
    QString file;
    auto loader = SegyLoader::open(wanted, _report.get(), _progress.get(), &_headerTable, &file);
    if (!loader || !loader->loadNextEnsemble(1)) {
        _progress->close();
        QGuiApplication::restoreOverrideCursor();
        _report->box("SEGY Load Error", ("Error while open or read from file: " + parm.files).toStdString());
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        _look->firstLook()->look(file, parm, segyReading(nullptr, parm));
        return 0;
    }
    _progress->close();
    const SegyReading reading = segyReading(loader.get(), parm);
    connect(loader.get(), &SegyLoader::indexBuilt, this, [this] {
        _navigator->takeIndex();
        enableBackKey(true);
        listRecords();
        _records->recordsShown();
    });
    connect(loader.get(), &SegyLoader::assumptionsChanged, this, &MainWindow::showAssumptions);
    if (!takeLoader(&loader, parm)) return 0;
    setNavigation();
    _dataReady = true;
    keepFileName(parm.files);
    emit fileShown(parm.files);
    _look->firstLook()->look(_segyloader->currentFile(), parm, reading);
    return 1;
}

/// Puts a loader that stands on its first ensemble in place of the present one. When there is no memory to show
/// it, the old one and its record come back; false.
bool MainWindow::takeLoader(std::unique_ptr<SegyLoader>* loader, const SegyLoadParm& parm)
{
    const parmmenu menuBefore = *_menu;
    const SegyLoadParm parmBefore = _segyParm;
    const QString nameBefore = _title.file;
    const SegyLoader* opened = loader->get();
    const auto takeNew = [&] {
        _tools.beforeData();  // all that is known of the old data is there still
        std::swap(_segyloader, *loader);
        setSourceDefaults(_menu, *source());
        _menu->iscreens = menuBefore.iscreens;  // the window has as many as before
        _menu->idifference = menuBefore.idifference;
        _isSegy = true;
        _dataReady = false;
        SegyLoadParm taken = parm;
        taken.iremap = _segyloader->applyRemap();  // a useless table has switched itself off
        showLoader(taken, QFileInfo(parm.files.section(',', 0, 0)).fileName());
    };
    const auto takeOld = [&] {
        _tools.beforeData();
        if (_segyloader.get() == opened) std::swap(_segyloader, *loader);
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
    _title.file = name;
    _navigator->setSource(source());
    if (_segy) _segy->buildConnections(_segyloader.get());
    if (_segyloader) {
        _segyloader->dataLoaded();
        copySource(_menu, *source());
    }
    _indexBar->setSource(source());
    showAssumptions();
    if (_segy) _segy->setLoadParm(_segyParm);
    if (_isStandAlone) fillGlobalRuntime();
    if (_segyloader) {
        saveHeader();
        _segyloader->saveHeaders();
    }
    const Polarity polarity = readPolarity(AppSettings(), parm.files);
    for (SeismicDisplay* display : *displays()) {
        display->setNewFile(_menu);
        display->setPolarity(polarity);
    }
    showTitle();
    if (_segyloader) {
        _navigator->show();
        listRecords();
    }
    _tools.parametersChanged();
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

void MainWindow::saveHeader()
{
    _headerTable.fill(source()->headerWords(), source()->numHeaderWords());
}

void MainWindow::setNavigation()
{
    _actions->action("forwardAct")->setEnabled(source() != nullptr);
    enableBackKey(_navigator->canSeek());
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
        _segy = new SegyMenuDialog(_segyHost.get(), this);
        _look->setMenu(_segy);
        connect(_segy, &QDialog::rejected, this, [this] {
            if (_isFirstMenu && !_segyloader) close();
        });
    }
    if (_isStandAlone) {
        bringUp(_segy);
        return;
    }
    while (_segy->exec() == QDialog::Accepted && _segy->isLoadFailed()) {
    }
}

void MainWindow::makeRecentMenu()
{
    auto* recent = new QMenu("&Recent Files", this);
    recent->setObjectName("recentMenu");
    _actions->menu("&File")->insertMenu(_actions->action("printAct"), recent);
    connect(recent, &QMenu::aboutToShow, this, [this, recent] {
        recent->clear();
        AppSettings settings;
        for (const QString& name : readRecentFiles(&settings))
            recent->addAction(name, this, [this, name] { openSegy(name); });
        if (recent->isEmpty()) recent->addAction("No files yet")->setEnabled(false);
    });
}
