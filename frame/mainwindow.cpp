#include "frame/mainwindow.h"

#include "analysis/parmmenudialog.h"
#include "display/colorbarframe.h"
#include "display/drawdialog.h"
#include "display/imagedialog.h"
#include "display/imagestorage.h"
#include "display/seismicdisplay.h"
#include "frame/assumptionspanel.h"
#include "frame/firstlook.h"
#include "frame/firstlookbar.h"
#include "frame/helpkeys.h"
#include "frame/indexbar.h"
#include "frame/pagekeys.h"
#include "frame/presetmenu.h"
#include "frame/windowactions.h"
#include "frame/windowreport.h"
#include "frame/windowsettings.h"
#include "host/home.h"
#include "sources/segyloader.h"
#include "tracedata/parmmenu.h"
#include "widgets/bringup.h"
#include "widgets/dialogprogress.h"
#include "widgets/screenplace.h"
#include "widgets/wholefile.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFile>
#include <QFrame>
#include <QGroupBox>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QRadioButton>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QTextStream>
#include <QVBoxLayout>

#include <algorithm>

/// Resources of a static library are only linked in when they are asked for by name.
static void initPictures()
{
    Q_INIT_RESOURCE(meridune);
}

MainWindow::MainWindow(QWidget* parent, parmmenu* menu)
    : QMainWindow(parent), _report(std::make_unique<WindowReport>(this)),
      _progress(std::make_unique<DialogProgress>(this)),
      _navigator(std::make_unique<RecordNavigator>(static_cast<RecordScreens*>(this), _report.get())),
      _menu(menu)
{
    initPictures();
    setObjectName("MainWindow");
    setAcceptDrops(true);
    _run.resetDirection();
    makeCentre();
    _actions = std::make_unique<WindowActions>(this);
    _actions->setFlow(_menu->dotrevia == 1 || _menu->inputtool != 0);
    makeRecentMenu();
    makeViewMenu();
    makeRecordList();
    makeOptions();
    makeAssumptionsPanel();
    makeFirstLook();
    new HelpKeys(this, [this](QWidget* window, const QString& page) { showHelp(window, page); });
    connect(WrittenFiles::all(), &WrittenFiles::written, statusBar(), [this](const QString& line) { statusBar()->showMessage(line); });
    statusBar()->showMessage("Ready");
    readSettings();
    _COMPANY = setCompanyName();
    setAreaLineTitle(true);
    setNavigation();
}

MainWindow::~MainWindow()
{
    // The displays borrow from the loader's parameter record and the header table.
    delete _parmmenu;
    qDeleteAll(_displaylist);
    qDeleteAll(_spareScreens);
}

void MainWindow::makeCentre()
{
    auto* frame = new QFrame(this);
    frame->setFrameShape(QFrame::Panel);
    frame->setFrameShadow(QFrame::Raised);
    frame->setLineWidth(1);
    auto* vLayout = new QVBoxLayout(frame);
    vLayout->setContentsMargins(2, 2, 2, 2);
    auto* row = new QHBoxLayout;
    _splitter = new QSplitter(Qt::Horizontal);
    _cvLayout = new QVBoxLayout;
    _colorBarFrame = new ColorBarFrame;
    _colorBarFrame->setObjectName("colorBarFrame");
    _cvLayout->addStretch();
    _cvLayout->addWidget(_colorBarFrame);
    _cvLayout->addStretch();
    row->addWidget(_splitter, 1);
    row->addLayout(_cvLayout);
    _firstLookBar = new FirstLookBar;
    vLayout->addWidget(_firstLookBar);
    vLayout->addLayout(row, 1);
    _indexBar = new IndexBar;
    vLayout->addWidget(_indexBar);
    _controlStatus = new QStatusBar;
    _controlStatus->setObjectName("controlStatus");
    _controlStatus->setSizeGripEnabled(false);
    _controlStatus->showMessage("Ready");
    vLayout->addWidget(_controlStatus);
    setCentralWidget(frame);
}

void MainWindow::makeOptions()
{
    QMenu* tools = _actions->menu("&Tools");
    tools->addSeparator();
    auto* keys = new PageKeys(this, _actions->action("forwardAct"), _actions->action("backAct"));
    tools->addAction(keys->option());
    auto* presets = new PresetMenu(&_displaylist, this);
    tools->addMenu(presets);
    connect(this, &MainWindow::fileShown, presets, &PresetMenu::applyToNewFile);
    connect(presets, &PresetMenu::applied, this, [this] {
        if (_parmmenu) _parmmenu->updateAll();
    });
}

void MainWindow::makeAssumptionsPanel()
{
    _assumptionsPanel = new AssumptionsPanel(this);
    addDockWidget(Qt::BottomDockWidgetArea, _assumptionsPanel);
    _assumptionsPanel->hide();
    QAction* toggle = _assumptionsPanel->toggleViewAction();
    toggle->setObjectName("assumedAct");
    toggle->setText("&What Was Assumed");
    toggle->setStatusTip("Show what the program took for granted or skipped in this file");
    _actions->menu("&Dataset")->addAction(toggle);
    statusBar()->addPermanentWidget(_assumptionsPanel->badge());
}

void MainWindow::buildMainPlot()
{
    makeImageStorage();
    for (int i = 0; i < _menu->iscreens; ++i) _displaylist.append(makeScreen());
    _display = _displaylist.last();
    layoutScreens();
    checkRadioButtons();
    if (_menu->idifference != 0 && _menu->iscreens > 1) _actions->box("differBox")->setChecked(true);
    showScreens();
    _displaylist.first()->canvas()->setFocus();
}

int MainWindow::loadEnsemble(float** traces, int** heads, int n, int screen)
{
    if (screen < 0 || screen >= _displaylist.size()) return 0;
    _isEnsembleShown = _displaylist[screen]->loadSeismicData(traces, heads, n, true) == 0;
    endViewing();
    if (_showDifference && _actions->box("differBox")->isChecked() && screen == _menu->iscreens - 1) loadDifference();
    if (_parmmenu) _parmmenu->update();
    return 0;
}

int MainWindow::saveEnsemble(float** traces, int** heads, int n, int screen)
{
    if (screen < 0 || screen >= _displaylist.size()) return 0;
    return _displaylist[screen]->saveSeismicData(traces, heads, n);
}

int MainWindow::getMoveUp() const
{
    return _menu->moveup;
}

void MainWindow::setLastEnsemble(bool last)
{
    _actions->action("forwardAct")->setEnabled(!last);
    if (last && _run._contFlow) _run._doExit = true;
}

void MainWindow::enableBackKey(bool on)
{
    _actions->action("backAct")->setEnabled(on);
    _actions->action("seekAct")->setEnabled(on);
    for (const char* name : {"backAct", "seekAct"}) {
        QAction* action = _actions->action(name);
        action->setToolTip(on ? action->statusTip()
                              : action->statusTip() + "\nNeeds an index: press \"Build Now\" in the SEGY Menu.");
    }
}

QString MainWindow::setCompanyName() const
{
    QFile file(QString(GetHome()) + "/linux/lib/company.txt");
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return QString();
    return QTextStream(&file).readLine();
}

static QSettings* openSettings(QObject* parent)
{
    return new QSettings("Brenlake", "SEISMICDISPLAY", parent);
}

void MainWindow::readSettings()
{
    const std::unique_ptr<QSettings> settings(openSettings(nullptr));
    const QRect area = screen() ? screen()->geometry() : QRect(0, 0, 1280, 1024);
    const WindowSettings window =
        clampedSettings(readWindowSettings(settings.get(), area, _menu->ireset != 0), presentScreens());
    // A flow's menu tells how many; a record that asks for several gets them.
    if (_menu->dotrevia == 0 && _menu->inputtool == 0 && _menu->iscreens == 1) {
        _menu->iscreens = std::clamp(settings->value("screens", _menu->iscreens).toInt(), 1, mostScreens);
        _menu->idifference = settings->value("difference", _menu->idifference).toInt() != 0;
    }
    resize(window.size);
    move(window.pos);
    if (!window.state.isEmpty()) restoreState(window.state);
    if (!window.colormap.isEmpty() && !_colorBarFrame->loadColorMapFile(window.colormap))
        _report->line("MERIDUNE: the colour file " + window.colormap.toStdString() + " can't be read, using the built-in map\n");
}

void MainWindow::writeSettings()
{
    const std::unique_ptr<QSettings> settings(openSettings(nullptr));
    writeWindowSettings(settings.get(), {pos(), size(), _colorBarFrame->colorFile(), saveState()});
    if (_menu->dotrevia != 0) return;
    settings->setValue("screens", _menu->iscreens);
    settings->setValue("difference", _menu->idifference);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    writeSettings();
    hideMenus();
    _firstLook->drop();  // nothing is opened in a window that has gone
    _run._doExit = true;
    event->accept();
}

void MainWindow::closeWindow()
{
    close();
}

void MainWindow::closeContinue()
{
    _run.continueFlow();
    close();
}

void MainWindow::closeProcess()
{
    hideMenus();
    _run.processFlow(false);
}

void MainWindow::closeProcessHide()
{
    hideMenus();
    _run.processFlow(true);
    hide();
    _report->line("\nMERIDUNE: close window but continue processing this flow.\n");
}

void MainWindow::checkRadioButtons()
{
    if (_drawMenu) _drawMenu->endDrawing();  // another tool takes the mouse
    const bool isOwned = _actions->box("showImageBox")->isChecked();
    _actions->radioBox()->setEnabled(!isOwned);
    for (const auto& [name, what] : {std::make_pair("radioSpectrum", "The amplitude spectrum"),
                                     std::make_pair("radioHeader", "The header view")}) {
        if (!_actions->radio(name)->isChecked()) continue;
        _actions->radio("radioZoom")->setChecked(true);
        tellNotBuilt(what);
    }
    for (SeismicDisplay* display : qAsConst(_displaylist)) display->showDisplay(isOwned ? -1 : 0);
}

void MainWindow::tellNotBuilt(const QString& what)
{
    statusBar()->showMessage(what + " is not built yet.");
}

void MainWindow::makeParmMenu()
{
    if (_parmmenu) return;
    _parmmenu = new ParmMenuDialog(this, &_displaylist, _imgstore.get(), &_otherlist);
    QCheckBox* box = _actions->box("overlayBox");
    connect(_parmmenu, &ParmMenuDialog::overlayChanged, box, &QCheckBox::setChecked);
    connect(_parmmenu->imageDialog(), &ImageDialog::viewChanged, _actions->box("showImageBox"), &QCheckBox::setChecked);
}

void MainWindow::parameterMenu()
{
    makeParmMenu();
    bringUp(_parmmenu);
}

void MainWindow::pickMenu() { tellNotBuilt("The application menu"); }
void MainWindow::addNewDisplay() { tellNotBuilt("Adding a display"); }
void MainWindow::menuViewer() {}
void MainWindow::getMapViewer() { tellNotBuilt("The map"); }


void MainWindow::showOverlay(int state)
{
    makeParmMenu();
    _parmmenu->showOverlay(state != 0);
}

ColorBarFrame* MainWindow::overlayColorBarFrame()
{
    if (!_overlayColorBarFrame) {
        _overlayColorBarFrame = new ColorBarFrame;
        _overlayColorBarFrame->setObjectName("overlayColorBarFrame");
        _cvLayout->addWidget(_overlayColorBarFrame);
        _cvLayout->addStretch();
    }
    return _overlayColorBarFrame;
}

void MainWindow::setOverlayMode(bool on)
{
    overlayColorBarFrame()->setVisible(on);
    // The room below a bar that isn't shown would push the other one up.
    for (int i = 0; i < _cvLayout->count(); i += 2) _cvLayout->setStretch(i, i < 4 || on ? 1 : 0);
    if (_parmmenu) _parmmenu->setOverlayMode(on);
}

/// A mode without a tool gives the mouse to nobody, so that its box doesn't stay checked.
void MainWindow::refuseMode(const char* box, const QString& what)
{
    _actions->box(box)->setChecked(false);
    tellNotBuilt(what);
}

void MainWindow::showVelocity(int state)
{
    if (state) refuseMode("showVelocityBox", "CVS velocity picking");
}

void MainWindow::showGatPicker(int state)
{
    if (state) refuseMode("showGatPickerBox", "Trevia picking");
}

void MainWindow::showFBPicker(int state)
{
    if (state) refuseMode("showFBPickerBox", "First-break picking");
}

Report& MainWindow::report()
{
    return *_report;
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    QStringList names;
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile()) names.append(url.toLocalFile());
    if (names.isEmpty()) return;
    event->acceptProposedAction();
    openSegy(names.join(","));
}
