/// The top window of a seismic display.
#ifndef MAINWINDOW_H
#define MAINWINDOW_H

#include "display/displaylist.h"
#include "frame/runstate.h"
#include "frame/toolbench.h"
#include "frame/windowtitle.h"
#include "sources/segyloadparm.h"
#include "tracedata/headertable.h"

#include <QMainWindow>
#include <QString>

#include <memory>

class AssumptionsPanel;
class BarColumn;
class ColorBarFrame;
class DialogProgress;
class DifferenceTool;
class DisplayHost;
class DrawTool;
class EnsembleSource;
class FirstLook;
class FirstLookBar;
class ImageStorage;
class ImageStoreTool;
class IndexBar;
class ParmMenuDialog;
class ParmTool;
class QSplitter;
class QStatusBar;
class RecordNavigator;
class ScreenRow;
class ScreensMenu;
class SegyLoader;
class SegyMenuDialog;
class SegyMenuHost;
class SeismicDisplay;
class TitleTool;
class WindowActions;
class WindowExports;
class WindowHelp;
class WindowLook;
class WindowRecords;
class WindowReport;
class WindowSession;
struct fbPickMenuStruct;
struct parmmenu;
struct velSemblanceStruct;

/// The top window: it opens files, goes from record to record, and hands on what the user asks for to the classes behind
/// it. Its tools are on a bench that it calls without knowing them. The three parameter records are lent and live until
/// the process ends.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow(QWidget* parent, parmmenu* menu);
    ~MainWindow() override;

    /// Makes the screens that the record asks for.
    void buildMainPlot();
    /// Hands a batch of traces to a screen, counted from 0. Always 0.
    int loadEnsemble(float** traces, int** heads, int n, int screen);
    /// Copies edited header words of a screen back.
    int saveEnsemble(float** traces, int** heads, int n, int screen);
    int getMoveUp() const;
    /// With true "next" is disabled and the tools hear that the data end; in a flow that is processed they save, and
    /// the window goes next.
    void setLastEnsemble(bool last);
    int resetDirection() { return _run.resetDirection(); }
    bool getMoreRecords() { return _run.getMoreRecords(); }
    int numberOfRecords() const;

    /// Loads the file named in the record, or opens the SEG-Y menu where none is named or it can't be read. Without
    /// fromStart it only disables the menu. Returns 1.
    int showSegyMenu(bool fromStart, bool inputMode);
    /// Opens a file, or a comma-separated list, and shows its first ensemble. Returns 1; 0 with a box, and
    /// what was on the screen stays.
    int loadSegyFile(const SegyLoadParm& parm);
    void setVelSemblance(velSemblanceStruct* velsemblance) { _velsemblance = velsemblance; }
    void setFBPickMenu(fbPickMenuStruct* fbpickmenu) { _fbpickmenu = fbpickmenu; }

    /// The last screen.
    SeismicDisplay* display() const;
    const QList<SeismicDisplay*>& displayList() const { return displays()->all(); }
    /// The same with signals for what comes and goes; lives as long as the window.
    const DisplayList* displays() const;
    ColorBarFrame* colorBarFrame() const;
    AssumptionsPanel* assumptionsPanel() const { return _assumptionsPanel; }
    SegyLoader* segyLoader() const { return _segyloader.get(); }
    /// Where the records come from, whatever it is; null before the first.
    EnsembleSource* source() const;
    /// The pictures of all screens.
    ImageStorage* imageStorage() const { return _imgstore.get(); }
    FirstLook* firstLook() const;
    /// Null before its first use.
    ParmMenuDialog* parmMenuDialog() const;
    /// The tools, for whoever brings another one.
    ToolBench* tools() { return &_tools; }
    /// How many pictures a collection takes; true if more than one.
    bool isCollectImage(int* n) const;
    /// Switches the collection on or off.
    void setCollecting(bool on);
    QSplitter* splitter() const { return _splitter; }
    WindowActions* actionTable() const { return _actions.get(); }
    velSemblanceStruct* getVelSemblance() const { return _velsemblance; }
    fbPickMenuStruct* getFBPickMenu() const { return _fbpickmenu; }
    bool isSegy() const { return _isSegy; }
    bool isStandAlone() const { return _isStandAlone; }
    bool headerSaved() const { return _headerTable._headerSaved; }
    bool atExit() const { return _run._doExit; }
    bool contFlow() const { return _run._contFlow; }
    int getDirection() const { return _run._direction; }
    const QString& companyName() const;
    /// What the data are called, for the main title: names of the line that they come from, empty where unknown.
    void setAreaLineNames(const QString& area, const QString& line, const QString& flow);
    /// Shows what the data are called in the main title, or not.
    void setAreaLineTitle(bool show);
    /// Lets "previous" and "seek" act, or not.
    void enableBackKey(bool on);

    /// Opens what the SEG-Y menu says. Returns 1; 0 when that failed and the user knows it.
    int segyLoadFromMenu();
    /// The file on screen and how it was read; before the first one what the menu starts with.
    SegyLoadParm segyLoadParm() const;

    /// An ensemble of a flow that isn't to be drawn: the tools do with it what is to be done with each.
    void performProcessing();
    /// Asks whether unsaved edits are to be saved, where a tool has some.
    void saveBeforeClose();

    /// An overlay came or went: its colour bar and the tools follow.
    void setOverlayMode(bool on);

public slots:
    /// Asks for a file, in the folder of the last one.
    void openSegyFile();
    void print();
    void exportPDF();
    /// The whole ensemble of the first screen, true to scale.
    void exportSection();
    void exportImage();
    void exportScreen();
    void closeProcess();
    void closeProcessHide();
    void closeContinue();
    void closeWindow();
    void parameterMenu();
    void pickMenu();
    void titleMenu();
    void drawMenu();
    void addNewDisplay();
    void segyMenu();
    void menuViewer();
    void getMapViewer();
    void contentHelp();
    void about();
    void nextRecord();
    void previousRecord();
    void firstRecord();
    void seekRecord();
    void showOverlay(int state);
    void plotDifference(int state);
    void saveImage(int state);
    void showImage(int state);
    void showVelocity(int state);
    void showGatPicker(int state);
    void showFBPicker(int state);
    void checkRadioButtons();

signals:
    /// The first ensemble of a file is on the screen.
    void fileShown(const QString& name);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makeCentre();
    void makeParts();
    void makeTools();
    void makeScreensMenu();
    void makeRecords();
    void makeRecentMenu();
    void makeOptions();
    void makeAssumptionsPanel();
    void setScreens(int n);
    void showScreens();
    void watchScreen(SeismicDisplay* screen);
    void listRecords();
    void showEntry(int entry);
    void showAssumptions();
    void openSegy(const QString& name);
    void openSegyWindow();
    void saveHeader();
    void setNavigation();
    void goForward(bool (RecordNavigator::*go)());
    void takeSort();
    bool takeLoader(std::unique_ptr<SegyLoader>* loader, const SegyLoadParm& parm);
    void showLoader(const SegyLoadParm& parm, const QString& name);
    void showTitle();
    void tellNotBuilt(const QString& what);
    void refuseMode(const char* box, const QString& what);
    void fillGlobalRuntime() const;

    QSplitter* _splitter = nullptr;
    QStatusBar* _controlStatus = nullptr;
    BarColumn* _bars = nullptr;  // in the layout of the centre
    FirstLookBar* _firstLookBar = nullptr;
    IndexBar* _indexBar = nullptr;
    AssumptionsPanel* _assumptionsPanel = nullptr;
    std::unique_ptr<WindowActions> _actions;
    std::unique_ptr<WindowReport> _report;
    std::unique_ptr<WindowHelp> _help;
    std::unique_ptr<WindowSession> _session;
    std::unique_ptr<WindowLook> _look;
    std::unique_ptr<WindowExports> _exports;
    ScreensMenu* _screensMenu = nullptr;  // child of the menu

    std::unique_ptr<ImageStorage> _imgstore;    // lent to the displays
    std::unique_ptr<DisplayHost> _displayHost;  // the same
    std::unique_ptr<ScreenRow> _screens;
    ToolBench _tools;
    ImageStoreTool* _imageStoreTool = nullptr;  // these are on the bench, each for the slots that are its own
    DifferenceTool* _differenceTool = nullptr;
    ParmTool* _parmTool = nullptr;
    TitleTool* _titleTool = nullptr;
    DrawTool* _drawTool = nullptr;

    std::unique_ptr<SegyMenuHost> _segyHost;
    SegyMenuDialog* _segy = nullptr;            // child, made on first use
    std::unique_ptr<DialogProgress> _progress;  // lent to the loader, so it goes after it
    std::unique_ptr<SegyLoader> _segyloader;
    std::unique_ptr<WindowRecords> _records;      // what the navigator asks of the window
    std::unique_ptr<RecordNavigator> _navigator;  // over the loader
    SegyLoadParm _segyParm;                       // how the loader reads its file

    parmmenu* _menu;                              // lent
    velSemblanceStruct* _velsemblance = nullptr;  // lent
    fbPickMenuStruct* _fbpickmenu = nullptr;      // lent
    HeaderTable _headerTable;
    RunState _run;
    WindowTitle _title;
    bool _isSegy = false;
    bool _isEnsembleShown = true;  // of the last ensemble handed to a display: there was memory for it
    bool _isStandAlone = true;
    bool _dataReady = false;
    bool _isFirstMenu = false;  // nothing was shown before the menu that is up: with it the program ends
};

#endif
