#include "frame/mainwindow.h"

#include "display/colors/colorbarframe.h"
#include "display/images/imagestorage.h"
#include "display/seismicdisplay.h"
#include "frame/assumptionspanel.h"
#include "frame/barcolumn.h"
#include "frame/differencetool.h"
#include "frame/drawtool.h"
#include "frame/firstlookbar.h"
#include "frame/imagestoretool.h"
#include "frame/indexbar.h"
#include "frame/pagekeys.h"
#include "frame/parmtool.h"
#include "frame/presetmenu.h"
#include "frame/recordnavigator.h"
#include "frame/resources.h"
#include "frame/screenrow.h"
#include "frame/titletool.h"
#include "frame/windowactions.h"
#include "frame/windowdisplayhost.h"
#include "frame/windowexports.h"
#include "frame/windowhelp.h"
#include "frame/windowlook.h"
#include "frame/windowrecords.h"
#include "frame/windowreport.h"
#include "frame/windowsegyhost.h"
#include "frame/windowsession.h"
#include "sources/segyloader.h"
#include "tracedata/parmmenu.h"
#include "widgets/dialogprogress.h"
#include "widgets/wholefile.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFrame>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QSplitter>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

MainWindow::MainWindow(QWidget* parent, parmmenu* menu)
    : QMainWindow(parent), _report(std::make_unique<WindowReport>(this)),
      _progress(std::make_unique<DialogProgress>(this)), _menu(menu)
{
    initResources();
    setObjectName("MainWindow");
    setAcceptDrops(true);
    _run.resetDirection();
    makeCentre();
    _actions = std::make_unique<WindowActions>(this);
    _actions->setFlow(_menu->dotrevia == 1 || _menu->inputtool != 0);
    makeParts();
    makeTools();
    makeRecentMenu();
    makeScreensMenu();
    makeRecords();
    makeOptions();
    makeAssumptionsPanel();
    connect(WrittenFiles::all(), &WrittenFiles::written, statusBar(),
            [this](const QString& line) { statusBar()->showMessage(line); });
    statusBar()->showMessage("Ready");
    _session->restore();
    showTitle();
    setNavigation();
}

MainWindow::~MainWindow()
{
    // The displays borrow from the loader's parameter record and the header table, the tools from the displays.
    _tools.beforeDisplaysGo();
    _screens.reset();
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
    _bars = new BarColumn;
    row->addWidget(_splitter, 1);
    row->addLayout(_bars);
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

void MainWindow::makeParts()
{
    _help = std::make_unique<WindowHelp>(this);
    _session = std::make_unique<WindowSession>(this, _bars->bar(), _menu, _report.get());
    _imgstore = std::make_unique<ImageStorage>();
    _imgstore->setReport(_report.get());
    _displayHost = std::make_unique<WindowDisplayHost>(&_headerTable, _menu, _bars, &_tools, _report.get());
    _segyHost = std::make_unique<WindowSegyHost>(this);
    _screens = std::make_unique<ScreenRow>(
        _splitter, _menu, ScreenParts{statusBar(), _controlStatus, _bars->bar(), _imgstore.get(), _displayHost.get()});
    connect(_screens.get(), &ScreenRow::screenMade, this, &MainWindow::watchScreen);
    _look = std::make_unique<WindowLook>(
        _firstLookBar, [this](const SegyLoadParm& parm) { return loadSegyFile(parm) != 0; }, displays());
    _exports = std::make_unique<WindowExports>(this, _screens.get(), [this] {
        return SectionOrigin{_title.file, _segyloader.get()};
    });
}

/// In the order in which they hear of a record: the data come back before the difference is made, and the menu shows
/// what has come of both.
void MainWindow::makeTools()
{
    auto parms = std::make_unique<ParmTool>(this, displays(), _screens->others(), _imgstore.get());
    _imageStoreTool = _tools.add(
        std::make_unique<ImageStoreTool>(this, _imgstore.get(), parms.get(), displays(), _actions.get(), _menu));
    _differenceTool = _tools.add(std::make_unique<DifferenceTool>(_screens.get(), _menu));
    _parmTool = _tools.add(std::move(parms));
    _titleTool = _tools.add(std::make_unique<TitleTool>(this, displays(), statusBar()));
    _drawTool = _tools.add(std::make_unique<DrawTool>(this, displays(), &_tools));
    connect(_differenceTool, &DifferenceTool::shownChanged, this, &MainWindow::showScreens);
    connect(_imageStoreTool, &ImageStoreTool::viewingChanged, this, &MainWindow::checkRadioButtons);
    connect(_parmTool, &ParmTool::overlayWanted, _actions->box("overlayBox"), &QCheckBox::setChecked);
    connect(_titleTool, &TitleTool::areaLineTitleWanted, this, &MainWindow::setAreaLineTitle);
    connect(_firstLookBar, &FirstLookBar::densityWanted, _parmTool, &ParmTool::showAsColor);
}

void MainWindow::makeOptions()
{
    QMenu* tools = _actions->menu("&Tools");
    tools->addSeparator();
    auto* keys = new PageKeys(this, _actions->action("forwardAct"), _actions->action("backAct"));
    tools->addAction(keys->option());
    auto* presets = new PresetMenu(displays(), this);
    tools->addMenu(presets);
    connect(this, &MainWindow::fileShown, presets, &PresetMenu::applyToNewFile);
    connect(presets, &PresetMenu::applied, this, [this] { _tools.parametersChanged(); });
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
    _tools.beforeDisplaysCome();
    _screens->build();
    checkRadioButtons();
    if (_menu->idifference != 0 && _menu->iscreens > 1) _actions->box("differBox")->setChecked(true);
    showScreens();
    displays()->first()->canvas()->setFocus();
}

const DisplayList* MainWindow::displays() const
{
    return _screens->displays();
}
SeismicDisplay* MainWindow::display() const
{
    return _screens->lastScreen();
}
ColorBarFrame* MainWindow::colorBarFrame() const
{
    return _bars->bar();
}
FirstLook* MainWindow::firstLook() const
{
    return _look->firstLook();
}
ParmMenuDialog* MainWindow::parmMenuDialog() const
{
    return _parmTool->madeMenu();
}
const QString& MainWindow::companyName() const
{
    return _help->company();
}

int MainWindow::loadEnsemble(float** traces, int** heads, int n, int screen)
{
    if (screen < 0 || screen >= displays()->size()) return 0;
    _isEnsembleShown = (*displays())[screen]->loadSeismicData(traces, heads, n, true) == 0;
    _tools.afterRecord(screen);
    return 0;
}

int MainWindow::saveEnsemble(float** traces, int** heads, int n, int screen)
{
    if (screen < 0 || screen >= displays()->size()) return 0;
    return (*displays())[screen]->saveSeismicData(traces, heads, n);
}

void MainWindow::performProcessing()
{
    _tools.processEnsemble();
}

int MainWindow::getMoveUp() const
{
    return _menu->moveup;
}

void MainWindow::setLastEnsemble(bool last)
{
    _actions->action("forwardAct")->setEnabled(!last);
    if (last) _tools.endOfData();
    if (!last || !_run._contFlow) return;
    _tools.save();
    _run._doExit = true;
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

void MainWindow::saveBeforeClose()
{
    if (!_tools.hasUnsaved()) return;
    const auto answer =
        QMessageBox::warning(this, "Seismic Display", "Save edits?", QMessageBox::Yes | QMessageBox::No);
    if (answer == QMessageBox::Yes) _tools.save();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    saveBeforeClose();
    _session->keep();
    _tools.hide();
    _look->firstLook()->drop();  // nothing is opened in a window that has gone
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
    _tools.hide();
    _run.processFlow(false);
}

void MainWindow::closeProcessHide()
{
    _tools.hide();
    _run.processFlow(true);
    hide();
    _report->line("\nMERIDUNE: close window but continue processing this flow.\n");
}

void MainWindow::checkRadioButtons()
{
    _tools.leave(WindowTool::Group::Mouse);  // the tool bar takes the mouse
    const bool isOwned = _actions->box("showImageBox")->isChecked();
    _actions->radioBox()->setEnabled(!isOwned);
    for (const auto& [name, what] : {std::make_pair("radioSpectrum", "The amplitude spectrum"),
                                     std::make_pair("radioHeader", "The header view")}) {
        if (!_actions->radio(name)->isChecked()) continue;
        _actions->radio("radioZoom")->setChecked(true);
        tellNotBuilt(what);
    }
    for (SeismicDisplay* display : *displays()) display->showDisplay(isOwned ? -1 : 0);
}

void MainWindow::tellNotBuilt(const QString& what)
{
    statusBar()->showMessage(what + " is not built yet.");
}

void MainWindow::setAreaLineNames(const QString& area, const QString& line, const QString& flow)
{
    _title.area = area;
    _title.line = line;
    _title.flow = flow;
    showTitle();
}

void MainWindow::setAreaLineTitle(bool show)
{
    _title.isShown = show;
    showTitle();
}

void MainWindow::showTitle()
{
    setWindowTitle(_title.text());
}

void MainWindow::parameterMenu()
{
    _parmTool->show();
}
void MainWindow::titleMenu()
{
    _titleTool->show();
}
void MainWindow::drawMenu()
{
    _drawTool->show();
}
void MainWindow::print()
{
    _exports->print();
}
void MainWindow::exportPDF()
{
    _exports->exportPdf();
}
void MainWindow::exportSection()
{
    _exports->exportSection();
}
void MainWindow::exportImage()
{
    _exports->exportImage();
}
void MainWindow::exportScreen()
{
    _exports->exportScreen();
}
void MainWindow::contentHelp()
{
    _help->showContents();
}
void MainWindow::about()
{
    _help->showAbout();
}
void MainWindow::saveImage(int state)
{
    _imageStoreTool->setStored(state != 0);
}
void MainWindow::showImage(int state)
{
    _imageStoreTool->showPictures(state != 0);
}
void MainWindow::showOverlay(int state)
{
    _parmTool->showOverlay(state != 0);
}
void MainWindow::setOverlayMode(bool on)
{
    _displayHost->setOverlayMode(on);
}
bool MainWindow::isCollectImage(int* n) const
{
    return _imageStoreTool->isCollecting(n);
}
void MainWindow::setCollecting(bool on)
{
    _imageStoreTool->setCollecting(on);
}
void MainWindow::pickMenu()
{
    tellNotBuilt("The application menu");
}
void MainWindow::addNewDisplay()
{
    tellNotBuilt("Adding a display");
}
void MainWindow::menuViewer() {}
void MainWindow::getMapViewer()
{
    tellNotBuilt("The map");
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
