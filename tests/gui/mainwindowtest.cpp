/// The main window on real files: opening, paging, and what happens when a file is not what it should be.
#include "frame/mainwindow.h"
#include "display/colors/colorbarframe.h"
#include "display/images/imagestorage.h"
#include "display/seismicplot.h"
#include "frame/assumptionspanel.h"
#include "frame/windowactions.h"
#include "host/globals.h"
#include "sources/segyloader.h"
#include "sources/segyloadparm.h"
#include "tests/gui/displayfixture.h"
#include "tests/gui/guitestdata.h"
#include "tests/gui/windowfixture.h"
#include "tracedata/menudefaults.h"
#include "tracedata/parmmenu.h"
#include "tracedata/seismicdata.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGroupBox>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QToolBar>
#include <QtTest>

class MainWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theActionsStandInTheirMenusWithTheirKeys();
    void theToolBarStandsInOrder();
    void aFileIsShownAndNextPagesThroughIt();
    void nextPastTheEndKeepsTheLastEnsemble();
    void withoutAnIndexPreviousIsDisabledAndSaysWhy();
    void withAnIndexPreviousGoesBack();
    void aBackgroundIndexEnablesPreviousAndNextGoesOnFromTheScreen();
    void aFileThatCannotBeReadLeavesTheOneOnTheScreen();
    void aBadReelAsksForTheFileType();
    void aDroppedFileOpens();
    void whatWasAssumedIsListedAndCanBeCopied();
    void theExitChoicesSetTheRunState();
    void theFirstRecordIsReachedWhateverTheMoveUp();
    void theMoveUpIsThatOfTheRecord();
    void aProcessedFlowEndsWithTheLastEnsemble();
    void withoutAFlowItsWaysOutAreDisabledAndSayWhy();
    void modesThatAreNotBuiltNeitherStayCheckedNorTakeTheMouse();
    void aFileFillsTheHostsRunTimeRecord();
    void theDifferenceIsThatOfTheTwoScreensBeforeIt();
    void theDifferenceIsAsLoudAsTheData();
    void ofSeveralScreensTheOutermostHaveTheTimeAxes();
    void oneEnsembleIsOnePictureAlsoAtTheEndOfAnIndex();
    void theColorBarKeepsItsPlaceWhenAnOverlayGoes();
    void showImagesWithoutImagesUnchecksItself();
    void aboutNamesTheCompany();
    void theWindowComesBackWithItsPanels();
    void aDarkDesktopLeavesTheCanvasWhite();

private:
    QTemporaryDir _home;
};

/// Accepts the message boxes that come up until it goes, and keeps their titles and texts.
class BoxWatcher : public QObject
{
public:
    BoxWatcher()
    {
        connect(&_timer, &QTimer::timeout, this, [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) return;
            titles.append(box->windowTitle());
            texts.append(box->text());
            box->accept();
        });
        _timer.start(10);
    }
    QStringList titles, texts;

private:
    QTimer _timer;
};

void MainWindowTest::initTestCase()
{
    QVERIFY(_home.isValid());
    qputenv("TREVIA_HOME", _home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", _home.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _home.path());
}

void MainWindowTest::theActionsStandInTheirMenusWithTheirKeys()
{
    WindowFixture fixture;
    const struct {
        const char* name;
        const char* text;
        const char* key;
        const char* menu;
    } rows[] = {
        {"printAct", "&Print", "Ctrl+P", "&File"},
        {"pdfAct", "E&xport PDF", "Ctrl+X", "&File"},
        {"exitContAct", "Exit/&Continue Flow", "Ctrl+C", "&File"},
        {"exitAct", "&Exit", "Ctrl+E", "&File"},
        {"parmAct", "Parameters Men&u", "Ctrl+U", "&Tools"},
        {"pickAct", "&Application Menu", "Ctrl+A", "&Tools"},
        {"dispAct", "&Add New Display\tCtrl+A", "", "&Dataset"},
        {"segyAct", "SEG&Y Menu", "Ctrl+L", "&Dataset"},
        {"mapAct", "View &Map", "Ctrl+M", "&Map"},
        {"aboutAct", "&About", "", "&Help"},
    };
    for (const auto& row : rows) {
        QAction* action = fixture.action(row.name);
        QVERIFY2(action, row.name);
        QCOMPARE(action->text(), QString(row.text));
        QCOMPARE(action->shortcut().toString(), QString(row.key));
        QVERIFY(fixture.window->actionTable()->menu(row.menu)->actions().contains(action));
    }
    QCOMPARE(fixture.action("viewAct")->text(), QString("3D &Viewer"));  // stands in no menu
    QVERIFY(fixture.action("forwardAct")->shortcut().isEmpty());
    QCOMPARE(fixture.action("seekAct")->shortcut().toString(), QString("Ctrl+S"));
}

void MainWindowTest::theToolBarStandsInOrder()
{
    WindowFixture fixture;
    QStringList names;
    for (QAction* action : fixture.window->actionTable()->fileToolBar()->actions())
        if (!action->objectName().isEmpty()) names.append(action->objectName());
    QCOMPARE(names, QStringList({"exitAct", "contentAct", "printAct", "pdfAct", "imageAct", "screenAct", "backAct",
                                 "forwardAct", "seekAct", "parmAct", "pickAct", "mapAct"}));
    for (const char* name : {"exitAct", "printAct", "forwardAct", "mapAct"})
        QVERIFY2(!fixture.action(name)->icon().pixmap(24, 24).isNull(), name);
    QVERIFY(!fixture.window->actionTable()->box("differBox")->isVisible());
}

void MainWindowTest::aFileIsShownAndNextPagesThroughIt()
{
    NEEDS_TEST_DATA();
    WindowFixture fixture;
    QCOMPARE(fixture.open(dataFile("prestack-marine/viking_small.segy")), 1);
    QCOMPARE(fixture.traces(), 120);
    QCOMPARE(fixture.shownKey(), QString("FFID :3"));
    QVERIFY(fixture.window->windowTitle().contains("viking_small.segy"));
    fixture.action("forwardAct")->trigger();
    QCOMPARE(fixture.shownKey(), QString("FFID :4"));
    QCOMPARE(fixture.traces(), 120);
}

void MainWindowTest::nextPastTheEndKeepsTheLastEnsemble()
{
    NEEDS_TEST_DATA();
    WindowFixture fixture;
    fixture.open(dataFile("prestack-marine/viking_small.segy"));
    for (int i = 0; i < 4; ++i) fixture.action("forwardAct")->trigger();
    QCOMPARE(fixture.shownKey(), QString("FFID :6"));
    QCOMPARE(fixture.traces(), 120);
    QVERIFY(!fixture.action("forwardAct")->isEnabled());
}

void MainWindowTest::withoutAnIndexPreviousIsDisabledAndSaysWhy()
{
    NEEDS_TEST_DATA();
    WindowFixture fixture;
    fixture.open(dataFile("prestack-marine/viking_small.segy"));
    QVERIFY(!fixture.action("backAct")->isEnabled());
    QVERIFY(!fixture.action("seekAct")->isEnabled());
    QVERIFY(fixture.action("backAct")->toolTip().contains("Build Now"));
}

void MainWindowTest::withAnIndexPreviousGoesBack()
{
    NEEDS_TEST_DATA();
    WindowFixture fixture;
    fixture.open(dataFile("prestack-marine/viking_small.segy"), 1, 1);
    QCOMPARE(fixture.window->numberOfRecords(), 4);
    fixture.action("forwardAct")->trigger();
    QVERIFY(fixture.action("backAct")->isEnabled());
    fixture.action("backAct")->trigger();
    QCOMPARE(fixture.shownKey(), QString("FFID :3"));
    fixture.window->nextRecord();
    fixture.window->nextRecord();
    fixture.window->firstRecord();
    QCOMPARE(fixture.shownKey(), QString("FFID :3"));
}

void MainWindowTest::aBackgroundIndexEnablesPreviousAndNextGoesOnFromTheScreen()
{
    NEEDS_TEST_DATA();
    WindowFixture fixture;
    fixture.open(dataFile("prestack-marine/viking_small.segy"), 1);
    fixture.window->nextRecord();
    QCOMPARE(fixture.shownKey(), QString("FFID :4"));
    QVERIFY(fixture.window->segyLoader()->startIndexBuild());
    QTRY_VERIFY(fixture.action("backAct")->isEnabled());
    fixture.window->nextRecord();
    QCOMPARE(fixture.shownKey(), QString("FFID :5"));
    fixture.window->previousRecord();
    QCOMPARE(fixture.shownKey(), QString("FFID :4"));
}

void MainWindowTest::aFileThatCannotBeReadLeavesTheOneOnTheScreen()
{
    NEEDS_TEST_DATA();
    WindowFixture fixture;
    fixture.open(dataFile("prestack-marine/viking_small.segy"), 1, 1);
    BoxWatcher boxes;
    QCOMPARE(fixture.open("/nowhere/none.sgy"), 0);
    QCOMPARE(boxes.titles, QStringList({"SEGY Load Error"}));
    QCOMPARE(boxes.texts, QStringList({"Error while open or read from file: /nowhere/none.sgy"}));
    QCOMPARE(fixture.traces(), 120);
    fixture.action("forwardAct")->trigger();
    QCOMPARE(fixture.shownKey(), QString("FFID :4"));
    QVERIFY(fixture.window->windowTitle().contains("viking_small.segy"));
}

void MainWindowTest::aBadReelAsksForTheFileType()
{
    NEEDS_TEST_DATA();
    WindowFixture fixture;
    BoxWatcher boxes;
    QCOMPARE(fixture.open(dataFile("not-segy/small.su")), 0);
    QVERIFY(boxes.titles.contains("SEGY Load Error"));
    QCOMPARE(fixture.traces(), 0);
}

void MainWindowTest::aDroppedFileOpens()
{
    NEEDS_TEST_DATA();
    WindowFixture fixture;
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(dataFile("prestack-marine/viking_small.segy"))});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(fixture.window.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(fixture.window.get(), &drop);
    QCOMPARE(fixture.traces(), 120);
}

void MainWindowTest::whatWasAssumedIsListedAndCanBeCopied()
{
    NEEDS_TEST_DATA();
    WindowFixture fixture;
    AssumptionsPanel* panel = fixture.window->assumptionsPanel();
    QVERIFY(!panel->isVisible());
    fixture.window->findChild<QAction*>("assumedAct")->trigger();
    QVERIFY(panel->isVisible());
    fixture.open(dataFile("prestack-synthetic/f11_02673_45Hz.segy"));
    // A text header in ASCII, 41 traces with another trace id, and a delay of -183 ms.
    QCOMPARE(panel->lineCount(), 3);
    QVERIFY(panel->text().contains("read as EBCDIC\tSEGY file type:"));
    QVERIFY(panel->text().contains("trace id other than 1 in 41 of 41 traces"));
    QVERIFY(panel->text().contains("(-183)"));
    QTest::mouseClick(panel->findChild<QPushButton*>("copyButton"), Qt::LeftButton);
    QCOMPARE(QGuiApplication::clipboard()->text(), panel->text());
    fixture.open(dataFile("odd-headers/small-traceheader-samplerate.sgy"));
    QVERIFY(panel->text().contains("fixed sample rate from first trace header: 4000\tInput sample rate:"));
    QVERIFY(!panel->text().contains("-183"));
    const QString before = panel->text();
    BoxWatcher boxes;
    QCOMPARE(fixture.open("/nowhere/none.sgy"), 0);
    QCOMPARE(panel->text(), before);
}

void MainWindowTest::theExitChoicesSetTheRunState()
{
    {
        WindowFixture fixture;
        fixture.action("exitAct")->trigger();
        QVERIFY(fixture.window->atExit());
        QCOMPARE(fixture.window->resetDirection(), 99);
    }
    {
        WindowFixture fixture(1);
        fixture.action("exitContAct")->trigger();
        QVERIFY(fixture.window->atExit());
        QCOMPARE(fixture.window->resetDirection(), 98);
    }
    {
        WindowFixture fixture(1);
        fixture.action("parmAct")->trigger();
        auto* parameters = fixture.window->findChild<QDialog*>("ParmMenuDialog");
        QVERIFY(parameters && parameters->isVisible());
        fixture.action("exitProcHideAct")->trigger();
        QVERIFY(!parameters->isVisible());
        QVERIFY(!fixture.window->isVisible());
        QCOMPARE(fixture.window->getDirection(), 2);
        QCOMPARE(fixture.window->resetDirection(), 97);
    }
}

void MainWindowTest::theFirstRecordIsReachedWhateverTheMoveUp()
{
    NEEDS_TEST_DATA();
    WindowFixture fixture;
    QCOMPARE(fixture.open(dataFile("prestack-marine/viking_small.segy"), 0, 1), 1);
    QCOMPARE(fixture.shownKey(), QString("FFID :3"));
    for (const int moveup : {1, 2, 3}) {
        fixture.menu->moveup = moveup;
        fixture.window->nextRecord();
        QCOMPARE(fixture.shownKey(), QString("FFID :%1").arg(3 + moveup));
        fixture.window->firstRecord();
        QCOMPARE(fixture.shownKey(), QString("FFID :3"));
    }
}

void MainWindowTest::theMoveUpIsThatOfTheRecord()
{
    WindowFixture fixture;
    for (const int moveup : {1, 3, 12}) {
        fixture.menu->moveup = moveup;
        QCOMPARE(fixture.window->getMoveUp(), moveup);
    }
}

void MainWindowTest::aProcessedFlowEndsWithTheLastEnsemble()
{
    WindowFixture fixture(1);
    fixture.window->setLastEnsemble(true);  // the user is at work: the last record stays on the screen
    QVERIFY(!fixture.window->atExit());
    QVERIFY(!fixture.action("forwardAct")->isEnabled());
    fixture.window->setLastEnsemble(false);
    QVERIFY(fixture.action("forwardAct")->isEnabled());
    fixture.action("exitProcAct")->trigger();
    fixture.window->setLastEnsemble(false);
    QVERIFY(!fixture.window->atExit());
    fixture.window->setLastEnsemble(true);
    QVERIFY(fixture.window->atExit());
}

void MainWindowTest::withoutAFlowItsWaysOutAreDisabledAndSayWhy()
{
    for (const char* name : {"exitProcAct", "exitProcHideAct", "exitContAct"}) {
        WindowFixture fixture;
        QAction* action = fixture.action(name);
        QVERIFY2(!action->isEnabled(), name);
        QVERIFY(action->toolTip().contains("No flow is running."));
        fixture.window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(fixture.window.get()));
        QTest::keySequence(fixture.window.get(), action->shortcut());
        QVERIFY(fixture.window->isVisible() && !fixture.window->contFlow());
        QVERIFY(WindowFixture(1).action(name)->isEnabled());
    }
    QVERIFY(WindowFixture().action("exitAct")->isEnabled());
}

void MainWindowTest::modesThatAreNotBuiltNeitherStayCheckedNorTakeTheMouse()
{
    WindowFixture fixture;
    WindowActions* table = fixture.window->actionTable();
    const SeismicDisplay* display = fixture.window->display();
    for (const char* name : {"showVelocityBox", "showGatPickerBox", "showFBPickerBox"}) {
        QVERIFY(!table->box(name)->isEnabled());
        QVERIFY(table->box(name)->toolTip().endsWith("is not built yet."));
        table->box(name)->setChecked(true);
        QVERIFY2(!table->box(name)->isChecked(), name);
        QVERIFY(display->tool() == display->zoomTool());
        QVERIFY(table->radioBox()->isEnabled());
    }
    for (const char* name : {"radioSpectrum", "radioHeader"}) {
        QVERIFY(!table->radio(name)->isEnabled());
        table->radio(name)->setChecked(true);
        fixture.window->checkRadioButtons();
        QVERIFY2(table->radio("radioZoom")->isChecked(), name);
        QVERIFY(display->tool() == display->zoomTool());
    }
    for (const char* name : {"pickAct", "dispAct", "mapAct"}) {
        QVERIFY2(!fixture.action(name)->isEnabled(), name);
        QVERIFY(fixture.action(name)->toolTip().endsWith("is not built yet."));
    }
}

void MainWindowTest::aFileFillsTheHostsRunTimeRecord()
{
    NEEDS_TEST_DATA();
    globalRuntime = GlobalRuntime();
    WindowFixture fixture;
    QCOMPARE(fixture.open(dataFile("prestack-marine/viking_small.segy"), 4), 1);
    // Bytes 3217 and 3221 of the file.
    QCOMPARE(globalRuntime.samprat, 4.0f);
    QCOMPARE(globalRuntime.numsmp, 600);
    const orvinRuntimeStruct& own = fixture.menu->_orvinruntime;
    QCOMPARE(globalRuntime.maxdtr, own.maxdtr);
    QCOMPARE(globalRuntime.ipkey, own.ipkey);
    QCOMPARE(globalRuntime.iskey, own.iskey);
    QCOMPARE(globalRuntime.ipsort, own.ipsort);
    QCOMPARE(globalRuntime.idtyp, own.idtyp);
    QVERIFY(globalRuntime.maxdtr > 0 && globalRuntime.ipkey > 0 && globalRuntime.iskey > 0);
}

void MainWindowTest::theColorBarKeepsItsPlaceWhenAnOverlayGoes()
{
    WindowFixture f;
    f.window->resize(900, 900);  // room for two bars
    QTRY_COMPARE(f.window->height(), 900);
    QApplication::processEvents();
    const QPoint before = f.window->colorBarFrame()->pos();
    f.window->setOverlayMode(true);
    QTRY_VERIFY(f.window->colorBarFrame()->pos().y() < before.y());
    f.window->setOverlayMode(false);
    QTRY_COMPARE(f.window->colorBarFrame()->pos(), before);
}

void MainWindowTest::oneEnsembleIsOnePictureAlsoAtTheEndOfAnIndex()
{
    if (!hasTestData()) QSKIP("no real data files");
    WindowFixture f;
    f.open(QString::fromStdString(testDataFile("prestack-marine/viking_small.segy")), 0, 1);
    QCheckBox* save = f.window->actionTable()->box("savImageBox");
    save->setChecked(true);
    const ImageStorage* store = f.window->display()->images().storage();
    for (int i = 1; i < 4; ++i) {  // four shots
        f.window->nextRecord();
        QVERIFY(f.window->statusBar()->currentMessage() != "Last record");
    }
    for (int i = 0; i < 3; ++i) {
        f.window->nextRecord();
        QCOMPARE(f.window->statusBar()->currentMessage(), QString("Last record"));
        QCOMPARE(store->storeTotal(), 4);
    }
    save->setChecked(false);
    save->setChecked(true);
    f.window->nextRecord();
    QCOMPARE(store->storeTotal(), 4);
    QVector<float> keys;
    for (int i = 0; i < store->storeTotal(); ++i) keys.append(store->picture(i)->pri);
    QCOMPARE(keys, QVector<float>({3.0f, 4.0f, 5.0f, 6.0f}));
}

void MainWindowTest::ofSeveralScreensTheOutermostHaveTheTimeAxes()
{
    const struct {
        int screens, difference;
        const char* axes;  // of each screen: l left, r right, b both, - none
    } cases[] = {{1, 0, "b"}, {1, 1, "b"}, {2, 0, "lr"}, {3, 0, "l-r"}, {2, 1, "l-r"}};
    for (const auto& c : cases) {
        auto menu = std::make_unique<parmmenu>();
        setDisplayDefaults(menu.get());
        menu->iscreens = c.screens;
        menu->idifference = c.difference;
        MainWindow window(nullptr, menu.get());
        window.buildMainPlot();
        QString axes;
        for (const SeismicDisplay* display : window.displayList()) {
            const bool left = display->axisEnabled(QwtPlot::yLeft), right = display->axisEnabled(QwtPlot::yRight);
            axes += left && right ? "b" : left ? "l" : right ? "r" : "-";
        }
        QCOMPARE(axes, QString(c.axes));
    }
}

void MainWindowTest::theDifferenceIsAsLoudAsTheData()
{
    auto menu = std::make_unique<parmmenu>();
    setDisplayDefaults(menu.get());
    menu->iscreens = 2;
    menu->idifference = 1;
    menu->iscale = 1;
    menu->_orvinruntime.numsmp = 100;
    menu->_orvinruntime.nth = standardWordCount;
    MainWindow window(nullptr, menu.get());
    window.buildMainPlot();
    window.show();
    TestEnsemble a(6, 100), b(6, 100);
    for (auto& trace : b.samples)
        for (float& v : trace) v *= 0.999f;
    for (int pass = 0; pass < 2; ++pass) {
        window.loadEnsemble(a.traces.data(), a.headers.data(), 6, 0);
        window.loadEnsemble(b.traces.data(), b.headers.data(), 6, 1);
        const SeismicPlot* data = window.displayList()[0]->seismicPlot();
        SeismicPlot* difference = window.displayList()[2]->seismicPlot();
        std::vector<float> offsets;
        for (const Normalize scaling : {Normalize::Trace, Normalize::Dataset}) {
            for (SeismicDisplay* display : window.displayList()) display->seismicPlot()->setNormalization(scaling);
            const RasterParm parm = difference->rasterParm(&offsets);
            // sample j of trace i is 1000 i + j: the mean of trace i is 1000 i + 49.5, and 50 of the first, without its 0
            for (int i = 0; i < 6; ++i) QCOMPARE(parm.divTrace[i], 2.0f * (i == 0 ? 50.0f : 1000.0f * i + 49.5f));
            QCOMPARE(parm.divRecord, data->conditioner().divRecord());
            QCOMPARE(difference->rangeMax(), data->rangeMax());
            QCOMPARE(difference->rms(), data->rms());
        }
    }
}

void MainWindowTest::theDifferenceIsThatOfTheTwoScreensBeforeIt()
{
    auto menu = std::make_unique<parmmenu>();
    setDisplayDefaults(menu.get());
    menu->iscreens = 2;
    menu->idifference = 1;
    menu->_orvinruntime.numsmp = 100;
    menu->_orvinruntime.nth = standardWordCount;
    MainWindow window(nullptr, menu.get());
    window.buildMainPlot();
    window.show();
    QCOMPARE(window.displayList().size(), 3);
    TestEnsemble a(6, 100), b(5, 100);
    for (auto& trace : b.samples)
        for (float& v : trace) v = 0.5f * v;
    b.words[2][7] = 55;
    window.loadEnsemble(a.traces.data(), a.headers.data(), 6, 0);
    window.loadEnsemble(b.traces.data(), b.headers.data(), 5, 1);
    const SeismicData* difference = window.displayList()[2]->seismicData();
    QCOMPARE(difference->traceCount(), 5);
    QCOMPARE(*difference->getTraceValues(3, 40), 3040.0f - 1520.0f);
    QCOMPARE(difference->getTraceHeaders()[2][7], 55);
    QVERIFY(window.displayList()[2]->axisTitle(QwtPlot::xTop).text().contains("Difference"));
    window.actionTable()->box("differBox")->setChecked(false);
    QVERIFY(!window.displayList()[2]->isVisible());
}

void MainWindowTest::showImagesWithoutImagesUnchecksItself()
{
    WindowFixture fixture;
    BoxWatcher boxes;
    fixture.window->actionTable()->box("showImageBox")->click();
    QCOMPARE(boxes.titles, QStringList({"Image Error"}));
    QCOMPARE(boxes.texts, QStringList({"No images are saved."}));
    QVERIFY(!fixture.window->actionTable()->box("showImageBox")->isChecked());
}

void MainWindowTest::aboutNamesTheCompany()
{
    {
        WindowFixture fixture;
        QCOMPARE(fixture.window->companyName(), QString());
    }
    QDir().mkpath(_home.path() + "/linux/lib");
    QFile file(_home.path() + "/linux/lib/company.txt");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("Aurora Geoservices\nsecond line\n");
    file.close();
    WindowFixture fixture;
    QCOMPARE(fixture.window->companyName(), QString("Aurora Geoservices"));
    BoxWatcher boxes;
    fixture.window->about();
    QCOMPARE(boxes.titles, QStringList({"About Seismic Display"}));
    QVERIFY(boxes.texts.first().contains("Aurora Geoservices"));
    QVERIFY(boxes.texts.first().contains("A interactive seismic data display and processing application.\n"));
    for (const char* word : {"Meridune 0.1.0", "GNU General Public License, version 3", "Qt 5.15", "Qwt 6.1", "fftw-3"})
        QVERIFY2(boxes.texts.first().contains(word), word);
}

void MainWindowTest::theWindowComesBackWithItsPanels()
{
    {
        WindowFixture fixture;
        fixture.window->findChild<QAction*>("assumedAct")->trigger();
        fixture.window->resize(701, 557);
        fixture.window->close();
    }
    WindowFixture fixture;
    QCOMPARE(fixture.window->size(), QSize(701, 557));
    QVERIFY(fixture.window->assumptionsPanel()->isVisible());
    fixture.window->findChild<QAction*>("assumedAct")->trigger();
    fixture.window->close();
}

void MainWindowTest::aDarkDesktopLeavesTheCanvasWhite()
{
    NEEDS_TEST_DATA();
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(50, 50, 50));
    dark.setColor(QPalette::WindowText, QColor(230, 230, 230));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    QApplication::setPalette(dark);
    {
        WindowFixture fixture;
        fixture.open(dataFile("prestack-marine/viking_small.segy"));
        SeismicDisplay* display = fixture.window->display();
        const QImage canvas = display->canvas()->grab().toImage();
        // Between the traces, before the first break: the canvas has colours of its own.
        int nWhite = 0;
        for (int x = 0; x < 200; ++x) nWhite += canvas.pixelColor(x, 40) == QColor(Qt::white);
        QVERIFY2(nWhite > 120, qPrintable(QString::number(nWhite)));
        // Around it, the desktop's: light numbers on a dark ground.
        const QImage axis = display->axisWidget(QwtPlot::yLeft)->grab().toImage();
        int nLight = 0, nDark = 0;
        for (int y = 0; y < axis.height(); ++y)
            for (int x = 0; x < axis.width(); ++x) {
                nLight += qGray(axis.pixel(x, y)) > 200;
                nDark += qGray(axis.pixel(x, y)) < 70;
            }
        QVERIFY2(nLight > 50 && nDark > 10 * nLight, qPrintable(QString("%1 light, %2 dark").arg(nLight).arg(nDark)));
    }
    QApplication::setPalette(before);
}

QTEST_MAIN(MainWindowTest)
#include "mainwindowtest.moc"
