#include "frame/windowactions.h"

#include "frame/mainwindow.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QToolBar>

/// Actions in menu order. An action without menu stands in the tool bar alone, or nowhere. "Ctrl+A"
/// opens the Application menu; adding a display only shows that key, for Qt fires neither of two actions
/// with the same one.
static const struct {
    const char* name;
    const char* text;
    const char* key;
    const char* tip;
    const char* icon;
    const char* menu;
    void (MainWindow::*slot)();
} actionRows[] = {
    {"openAct", "&Open SEG-Y...", "", "Choose a SEG-Y file and show its first ensemble", "", "&File",
     &MainWindow::openSegyFile},
    {"printAct", "&Print", "Ctrl+P", "Print the seismic display", "print.png", "&File", &MainWindow::print},
    {"pdfAct", "E&xport PDF", "Ctrl+X", "Export the seismic display to a PDF file", "exportpdf.png", "&File",
     &MainWindow::exportPDF},
    {"sectionAct", "Export Sec&tion", "", "Export the whole ensemble true to scale to a PDF or SVG file", "", "&File",
     &MainWindow::exportSection},
    {"imageAct", "Export &Image", "Ctrl+I", "Export the seismic display to a image file", "filesave.png", "&File",
     &MainWindow::exportImage},
    {"screenAct", "S&nap Shot", "Ctrl+N", "Take a snapshot of this window and any overlapping children.",
     "Hardware/Camera.png", "&File", &MainWindow::exportScreen},
    {"exitProcAct", "Interactive/P&rocess Flow", "Ctrl+R", "Continue flow but allow interactive processing", "",
     "&File", &MainWindow::closeProcess},
    {"exitProcHideAct", "Exit/Pr&ocess Flow", "Ctrl+O", "Exit display and hide but continue processing in tool", "",
     "&File", &MainWindow::closeProcessHide},
    {"exitContAct", "Exit/&Continue Flow", "Ctrl+C", "Exit the seismic display but continue the flow", "", "&File",
     &MainWindow::closeContinue},
    {"exitAct", "&Exit", "Ctrl+E", "Exit the seismic display", "exit.png", "&File", &MainWindow::closeWindow},
    {"parmAct", "Parameters Men&u", "Ctrl+U", "Show the tabbed menu of parameters", "System/Display2.png", "&Tools",
     &MainWindow::parameterMenu},
    {"pickAct", "&Application Menu", "Ctrl+A", "Show the Application menu", "System/Task_Manager.png", "&Tools",
     &MainWindow::pickMenu},
    {"statusAct", "Edit &Titles", "Ctrl+T", "Edit the main, statusbar, or vertical axis titles", "", "&Tools",
     &MainWindow::titleMenu},
    {"drawAct", "Dra&w on canvas", "Ctrl+W", "Draw lines or text on the canvas", "", "&Tools", &MainWindow::drawMenu},
    {"dispAct", "&Add New Display\tCtrl+A", "", "Add a new seismic display", "", "&Dataset",
     &MainWindow::addNewDisplay},
    {"segyAct", "SEG&Y Menu", "Ctrl+L", "Display the SEGY menu", "", "&Dataset", &MainWindow::segyMenu},
    {"viewAct", "3D &Viewer", "Ctrl+V", "3D View of seismic data", "", "", &MainWindow::menuViewer},
    {"mapAct", "View &Map", "Ctrl+M", "View X/Y coordinate map of seismic dataset", "System/Globe.png", "&Map",
     &MainWindow::getMapViewer},
    {"contentAct", "C&ontents", "", "Show the help files", "Symbols/Help.png", "&Help", &MainWindow::contentHelp},
    {"aboutAct", "&About", "", "Show the About box", "", "&Help", &MainWindow::about},
    {"forwardAct", "&Next Record (N)", "", "Get the next record (press key: N)", "forward.png", "",
     &MainWindow::nextRecord},
    {"backAct", "Previous Record (B)", "", "Get the previous record (press key: B)", "back.png", "",
     &MainWindow::previousRecord},
    {"seekAct", "&Seek Record (S)", "Ctrl+S", "Seek a record (press key: S)", "nextunfinished.png", "",
     &MainWindow::seekRecord},
};

/// The tool bar from left to right; "|" is a separator.
static const char* const toolBarOrder[] = {"exitAct",   "|",       "contentAct", "printAct",   "pdfAct",  "imageAct",
                                           "screenAct", "|",       "backAct",    "forwardAct", "seekAct", "|",
                                           "parmAct",   "pickAct", "mapAct",     "|"};

static const struct {
    const char* name;
    const char* label;
    const char* tip;
    void (MainWindow::*slot)(int);
    bool onToolBar;
} boxRows[] = {
    {"overlayBox", "Overlay", "Plot next ensemble as an overlay on the current data.", &MainWindow::showOverlay, true},
    {"differBox", "Difference", "Show the difference between two windows in a new window", &MainWindow::plotDifference,
     false},
    {"savImageBox", "Save Images", "Save a pix map of the data image to view with 'Show Images'",
     &MainWindow::saveImage, true},
    {"showImageBox", "Show Images", "Show all saved pix maps", &MainWindow::showImage, true},
    {"showVelocityBox", "CVS Velocity", "Show the Trevia PVL velocty parameter data over the seismic",
     &MainWindow::showVelocity, true},
    {"showGatPickerBox", "Trevia", "Pick Trevia gates, mutes, horizons, and holes", &MainWindow::showGatPicker, true},
    {"showFBPickerBox", "First Breaks", "Show/pick the first break picks", &MainWindow::showFBPicker, true},
};

static const struct {
    const char* name;
    const char* label;
    const char* tip;
} radioRows[] = {
    {"radioZoom", "Zoom", "MB1+drag: zoom over range     MB3: un-zoom     MB1+Ctrl: magnify"},
    {"radioSpectrum", "Spectrum", "MB1+drag: show amp. spectrum over trace/time range'"},
    {"radioHeader", "Headers", "MB1: new or update header, MB1+drag: new headers over trace range   MB3: new header'"},
};

/// What stands in menus and tool bar already, and has no tool behind it yet.
static const struct {
    const char* name;
    const char* what;
} notBuiltRows[] = {
    {"pickAct", "The application menu"},
    {"dispAct", "Adding a display"},
    {"viewAct", "The 3D viewer"},
    {"mapAct", "The map"},
    {"radioSpectrum", "The amplitude spectrum"},
    {"radioHeader", "The header view"},
    {"showVelocityBox", "CVS velocity picking"},
    {"showGatPickerBox", "Trevia picking"},
    {"showFBPickerBox", "First-break picking"},
};

static const char* const flowActions[] = {"exitProcAct", "exitProcHideAct", "exitContAct"};

WindowActions::WindowActions(MainWindow* window) : _window(window)
{
    makeActions();
    makeMenus();
    makeToolBar();
    for (const auto& row : notBuiltRows) disable(row.name, QString(row.what) + " is not built yet.");
}

void WindowActions::setFlow(bool isRunning)
{
    if (isRunning) return;
    for (const char* name : flowActions) disable(name, "No flow is running.");
}

/// Switches an action, a box or a radio button off and tells why in its tip.
void WindowActions::disable(const QString& name, const QString& reason)
{
    if (QAction* action = _actions.value(name)) {
        action->setEnabled(false);
        action->setStatusTip(action->statusTip() + ". " + reason);
        action->setToolTip(action->toolTip() + "\n" + reason);
        return;
    }
    QAbstractButton* button = _boxes.value(name);
    if (!button) button = _radios.value(name);
    button->setEnabled(false);
    button->setToolTip(button->toolTip() + "\n" + reason);
}

void WindowActions::makeActions()
{
    for (const auto& row : actionRows) {
        auto* action = new QAction(QString(row.text), _window);
        action->setObjectName(row.name);
        if (*row.key) action->setShortcut(QKeySequence(row.key));
        if (*row.icon) action->setIcon(QIcon(QString(":/images/") + row.icon));
        action->setStatusTip(row.tip);
        // The tool bar shows pictures alone, so that the tip must tell what they do.
        action->setToolTip(*row.key ? QString("%1 (%2)").arg(row.tip, row.key) : QString(row.tip));
        QObject::connect(action, &QAction::triggered, _window, row.slot);
        _actions.insert(row.name, action);
    }
}

void WindowActions::makeMenus()
{
    for (const char* title : {"&File", "&View", "&Tools", "&Dataset", "&Map", "&Help"}) {
        QMenu* menu = _window->menuBar()->addMenu(title);
        menu->setObjectName(QString(title).remove('&') + "Menu");
        menu->setToolTipsVisible(true);
        _menus.insert(title, menu);
    }
    for (const auto& row : actionRows)
        if (*row.menu) _menus[row.menu]->addAction(_actions[row.name]);
}

QGroupBox* WindowActions::makeRadioBox()
{
    auto* group = new QGroupBox(_window);
    group->setObjectName("radioBox");
    group->setFlat(true);
    auto* layout = new QHBoxLayout(group);
    layout->setContentsMargins(4, 0, 4, 0);
    for (const auto& row : radioRows) {
        auto* radio = new QRadioButton(row.label, group);
        radio->setObjectName(row.name);
        radio->setToolTip(row.tip);
        layout->addWidget(radio);
        _radios.insert(row.name, radio);
    }
    _radios["radioZoom"]->setChecked(true);
    for (QRadioButton* radio : qAsConst(_radios))
        QObject::connect(radio, &QRadioButton::clicked, _window, &MainWindow::checkRadioButtons);
    return group;
}

void WindowActions::makeToolBar()
{
    _toolBar = _window->addToolBar("Tool bar");
    _toolBar->setObjectName("fileToolBar");
    for (const char* name : toolBarOrder) {
        if (*name == '|')
            _toolBar->addSeparator();
        else
            _toolBar->addAction(_actions[name]);
    }
    _radioBox = makeRadioBox();
    _toolBar->addWidget(_radioBox);
    _toolBar->addSeparator();
    for (const auto& row : boxRows) {
        auto* box = new QCheckBox(row.label, _window);
        box->setObjectName(row.name);
        box->setToolTip(row.tip);
        QObject::connect(box, &QCheckBox::stateChanged, _window, row.slot);
        _boxes.insert(row.name, box);
        if (row.onToolBar)
            _toolBar->addWidget(box);
        else
            box->hide();
    }
}
