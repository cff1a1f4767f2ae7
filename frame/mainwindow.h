/// The top window of a seismic display.
#ifndef MAINWINDOW_H
#define MAINWINDOW_H

#include "display/displayhost.h"
#include "frame/recordnavigator.h"
#include "frame/runstate.h"
#include "sources/menus/segymenuhost.h"
#include "tracedata/headertable.h"

#include <QList>
#include <QMainWindow>
#include <QString>

#include <memory>

class AssumptionsPanel;
class ColorBarFrame;
class ParmMenuDialog;
class DialogProgress;
class DrawDialog;
class FirstLook;
class FirstLookBar;
class ImageStorage;
class IndexBar;
class QLabel;
class QSplitter;
class QStatusBar;
class QVBoxLayout;
class RecordList;
class SegyLoader;
class SegyMenuDialog;
class SeismicDisplay;
class Titles;
class WindowActions;
class WindowReport;
struct fbPickMenuStruct;
struct parmmenu;
struct velSemblanceStruct;

/// Holds the screens, the loaders, the navigation through the records and the ways out. The three
/// parameter records are lent and live until the process ends.
class MainWindow : public QMainWindow, public DisplayHost, public SegyMenuHost, private RecordScreens
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
    /// With true "next" is disabled; the picks of a processed flow are saved.
    void setLastEnsemble(bool last);
    int resetDirection() { return _run.resetDirection(); }
    bool getMoreRecords() { return _run.getMoreRecords(); }
    int numberOfRecords() const;

    /// Loads the file named in the record, or opens the SEG-Y menu where none is named. Returns 0 when
    /// the load failed and the user has given up.
    int showSegyMenu(bool fromStart, bool inputMode);
    /// Opens a file, or a comma-separated list, and shows its first ensemble. Returns 1; 0 with a box, and
    /// what was on the screen stays.
    int loadSegyFile(const SegyLoadParm& parm);
    void setVelSemblance(velSemblanceStruct* velsemblance) { _velsemblance = velsemblance; }
    void setFBPickMenu(fbPickMenuStruct* fbpickmenu) { _fbpickmenu = fbpickmenu; }

    SeismicDisplay* display() const { return _display; }
    const QList<SeismicDisplay*>& displayList() const { return _displaylist; }
    ColorBarFrame* colorBarFrame() const { return _colorBarFrame; }
    AssumptionsPanel* assumptionsPanel() const { return _assumptionsPanel; }
    SegyLoader* segyLoader() const override { return _segyloader.get(); }
    /// The pictures of all screens; null before buildMainPlot.
    ImageStorage* imageStorage() const { return _imgstore.get(); }
    FirstLook* firstLook() const { return _firstLook; }
    /// Null before its first use.
    ParmMenuDialog* parmMenuDialog() const { return _parmmenu; }
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
    const QString& companyName() const { return _COMPANY; }
    /// What the data are called, for the main title: names of the line that they come from, empty where unknown.
    void setAreaLineNames(const QString& area, const QString& line, const QString& flow);
    /// Shows what the data are called in the main title, or not.
    void setAreaLineTitle(bool show);
    /// Lets "previous" and "seek" act, or not.
    void enableBackKey(bool on);

    int segyLoadFromMenu() override;
    SegyLoadParm segyLoadParm() const override;

    bool isZooming() const override { return _isZoom; }
    void setZooming(bool on) override { _isZoom = on; }
    const HeaderWords* headerWords() const override;
    void setOverlayMode(bool on) override;
    ColorBarFrame* overlayColorBarFrame() override;
    Report& report() override;

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
    static constexpr int mostScreens = 3;

    void makeCentre();
    void showHelp(QWidget* window, const QString& page);
    void makeImageStorage();
    void storeImages();
    void endViewing();
    QPixmap wholePicture();
    void makeViewMenu();
    void makeRecordList();
    void listRecords();
    void showEntry(int entry);
    SeismicDisplay* makeScreen();
    void setScreens(int n);
    void layoutScreens();
    void showScreens();
    void makeParmMenu();
    void hideMenus();
    void makeDifference();
    void loadDifference();
    void makeRecentMenu();
    void makeOptions();
    void makeAssumptionsPanel();
    void showAssumptions();
    void makeFirstLook();
    void placeLookBar(bool isInMenu);
    void tellDensity();
    void openSegy(const QString& name);
    void openSegyWindow();
    void readSettings();
    void writeSettings();
    QString setCompanyName() const;
    void saveHeader();
    void setNavigation();
    void goForward(bool (RecordNavigator::*go)());
    int screenCount() const override;
    int moveUp() const override;
    bool showEnsemble(int screen) override;
    void clearScreens(int from) override;
    void recordsShown() override;
    void recordsEnded() override;
    void sortChanged() override;
    bool takeLoader(std::unique_ptr<SegyLoader>* loader, const SegyLoadParm& parm);
    void showLoader(const SegyLoadParm& parm, const QString& name);
    void tellNotBuilt(const QString& what);
    void refuseMode(const char* box, const QString& what);
    void fillGlobalRuntime() const;

    QVBoxLayout* _cvLayout = nullptr;
    QSplitter* _splitter = nullptr;
    QStatusBar* _controlStatus = nullptr;
    ColorBarFrame* _colorBarFrame = nullptr;
    ColorBarFrame* _overlayColorBarFrame = nullptr;  // child, made for the first overlay
    std::unique_ptr<WindowActions> _actions;
    std::unique_ptr<WindowReport> _report;
    AssumptionsPanel* _assumptionsPanel = nullptr;
    RecordList* _recordList = nullptr;
    QLabel* _recordLabel = nullptr;  // in the status bar, where the read-out doesn't cover it
    IndexBar* _indexBar = nullptr;
    FirstLookBar* _firstLookBar = nullptr;
    FirstLook* _firstLook = nullptr;
    std::unique_ptr<ImageStorage> _imgstore;  // lent to the displays
    QList<SeismicDisplay*> _displaylist;
    QList<SeismicDisplay*> _otherlist;
    QList<SeismicDisplay*> _spareScreens;  // hidden until more screens are wanted again
    SeismicDisplay* _display = nullptr;    // the last screen
    ParmMenuDialog* _parmmenu = nullptr;  // child, made on first use
    Titles* _titleMenu = nullptr;         // child, made on first use
    DrawDialog* _drawMenu = nullptr;      // child, made on first use
    SegyMenuDialog* _segy = nullptr;     // child, made on first use
    std::unique_ptr<DialogProgress> _progress;  // lent to the loader, so it goes after it
    std::unique_ptr<SegyLoader> _segyloader;
    std::unique_ptr<RecordNavigator> _navigator;  // over the loader
    SegyLoadParm _segyParm;  // how the loader reads its file

    parmmenu* _menu;                            // lent
    velSemblanceStruct* _velsemblance = nullptr;  // lent
    fbPickMenuStruct* _fbpickmenu = nullptr;      // lent
    HeaderTable _headerTable;
    RunState _run;
    bool _showDifference = false;  // the last display is a difference
    bool _isZoom = false;
    bool _isViewing = false;       // stored pictures are shown
    bool _couldGoForward = false;  // before they were
    bool _isSegy = false;
    bool _isEnsembleShown = true;  // of the last ensemble handed to a display: there was memory for it
    bool _isStandAlone = true;
    bool _dataReady = false;
    bool _isFirstMenu = false;  // nothing was shown before the menu that is up: with it the program ends
    QString _fileName, _areaName, _lineName, _flowName;
    bool _showAreaLine = true;
    QString _COMPANY;
};

#endif
