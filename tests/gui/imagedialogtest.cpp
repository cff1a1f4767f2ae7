/// The tab "Image", the movie, and the window's boxes "Save Images" and "Show Images".
#include "display/menus/imagedialog.h"
#include "analysis/parmmenudialog.h"
#include "display/seismicplot.h"
#include "frame/mainwindow.h"
#include "tests/gui/imagefixture.h"
#include "tests/gui/windowfixture.h"
#include "tests/testdata.h"
#include "widgets/numberedit.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSlider>
#include <QTabWidget>
#include <QTemporaryDir>

class ImageDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theControlsSayWhatTheyDo();
    void buttonsThatWouldDoNothingAreOff();
    void theSliderFollowsTheStore();
    void theSliderCountsACollection();
    void theSliderShowsItsPicture();
    void twoDisplaysShowTwoPictures();
    void theMovieRunsAndWraps();
    void theMovieAlternatesBetweenTwoDisplays();
    void theDelayChangesWhilePlaying();
    void playTurnsTheShowOn();
    void saveExtraAndResave();
    void resaveShowsTheNewPicture();
    void clearAllEndsTheShow();
    void theSelectedNumbersReachTheMouse();
    void anEmptySelectionShowsNothingNew();
    void theListEndsAtAnEmptyPiece();
    void whatIsHeldIsWrittenWhenFilesAreSwitchedOn();
    void filesWrittenWhileAPictureIsUpHoldTheirOwn();
    void anotherNameWritesAllAnew();
    void theFileButtonAsksForAName();
    void theSameNameChosenAgainWritesAllAnew();
    void theMouseMovesTheSlider();
    void escapeLeavesTheTabInPlace();
    void theWindowsBoxesAndTheTabAgree();
    void aStoreIsFilledWhilePaging();
    void showImagesDisablesNextAndTheMouseModes();
    void previousEndsTheShow();
    void switchingTheStoreOffKeepsWhatItHolds();
    void aStoreOfTheStartIsOn();
    void aCollectionOfTenTakesTen();
    void inAFlowACollectionStartsAnew();
    void aFullStoreIsABox();
    void anExportWhileShowingHoldsThePicture();
    void anotherFileEndsTheShow();
    void aClosedWindowPlaysNoMovie();
    void theDifferenceHasAPictureOfItsOwn();
    void aDifferenceIsCollectedAtItsOwnScale();

private:
    QTemporaryDir _home;
};

void ImageDialogTest::initTestCase()
{
    QVERIFY(_home.isValid());
    qputenv("TREVIA_HOME", _home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", _home.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _home.path());
}

/// The tab on displays with nPictures stored.
struct DialogFixture : ImageFixture {
    std::unique_ptr<ImageDialog> dialog;

    explicit DialogFixture(int nPictures = 0, int nDisplays = 1) : ImageFixture(nDisplays)
    {
        for (int i = 0; i < nPictures; ++i) next(i % nDisplays);
        dialog = std::make_unique<ImageDialog>(&store, &displays);
        dialog->show();
    }
    template <typename Control>
    Control* find(const char* name)
    {
        auto* control = dialog->findChild<Control*>(name);
        if (!control) qFatal("no control %s", name);
        return control;
    }
    QCheckBox* box(const char* name) { return find<QCheckBox>(name); }
    QSlider* slider() { return find<QSlider>("imgSlider"); }
    void click(const char* name) { QTest::mouseClick(find<QPushButton>(name), Qt::LeftButton); }
    int shown(int i = 0) { return displays[i]->images().number(); }
    void type(const char* name, const QString& text)
    {
        find<QLineEdit>(name)->setText(text);
        QTest::keyClick(find<QLineEdit>(name), Qt::Key_Return);
    }
};

void ImageDialogTest::theControlsSayWhatTheyDo()
{
    DialogFixture f;
    QCOMPARE(f.dialog->windowTitle(), QString("Image Viewer"));
    const struct {
        const char* name;
        const char* title;
    } groups[] = {{"groupBox1", "Save"},
                  {"groupBox2", "View"},
                  {"groupBox3", "Movie"},
                  {"groupBox4", "Select"},
                  {"groupBox5", "File"}};
    for (const auto& row : groups) QCOMPARE(f.find<QGroupBox>(row.name)->title(), QString(row.title));
    const struct {
        const char* name;
        const char* tip;
    } tips[] = {{"storeBox", "Set 'Save Image' to memory ON"},
                {"viewBox", "Set 'Show Image' to screen ON"},
                {"selectBox", "Set 'Select Image' to view ON"},
                {"fileBox", "Set 'Save File' of image ON"},
                {"resaveButton", "resave"},
                {"clearButton", "Clear"},
                {"playButton", "loop"},
                {"stopButton", "stop"},
                {"fileButton", "file"},
                {"selectField", "comma delimited image numbers"}};
    for (const auto& row : tips) QCOMPARE(f.find<QWidget>(row.name)->toolTip(), QString(row.tip));
    QStringList labels;
    for (const QLabel* label : f.dialog->findChildren<QLabel*>()) labels.append(label->text());
    for (const char* text : {"Number to collect: ", "Images:", "Delay:", "msec", "Image #: ",
                             "Mouse:   MB2 Down & Move: Change image,  Wheel: Change image,  <ctrl>MB2: Pan"})
        QVERIFY2(labels.contains(text), text);
    QCOMPARE(f.find<QLineEdit>("selectField")->placeholderText(), QString("1,3,5,7"));
    QVERIFY(!f.find<QPushButton>("playButton")->isEnabled());  // there is nothing yet
}

void ImageDialogTest::buttonsThatWouldDoNothingAreOff()
{
    DialogFixture f;
    const auto enabled = [&](const char* name) { return f.find<QWidget>(name)->isEnabled(); };
    for (const char* name : {"clearButton", "playButton", "stopButton", "imgSlider"}) QVERIFY2(!enabled(name), name);
    QVERIFY(enabled("saveButton") && enabled("resaveButton"));
    f.next();
    for (const char* name : {"clearButton", "playButton", "stopButton", "imgSlider"}) QVERIFY2(enabled(name), name);
    f.box("storeBox")->click();
    QVERIFY(!enabled("saveButton") && !enabled("resaveButton"));
    f.type("collectEdit", "3");
    QVERIFY(enabled("saveButton") && enabled("resaveButton"));
    f.type("collectEdit", "0");
    QVERIFY(!enabled("saveButton"));
}

void ImageDialogTest::theSliderFollowsTheStore()
{
    DialogFixture f;
    QCOMPARE(f.slider()->minimum(), 1);
    QCOMPARE(f.slider()->maximum(), 1);
    for (int i = 0; i < 3; ++i) f.next();
    QCOMPARE(f.slider()->maximum(), 3);
    QCOMPARE(f.slider()->singleStep(), 1);
    QCOMPARE(f.slider()->value(), 1);
    f.slider()->setValue(3);
    f.next();
    QCOMPARE(f.slider()->value(), 1);  // nothing is shown
    QCOMPARE(f.find<QLabel>("imgLabel")->text(), QString("1"));
    f.box("viewBox")->click();
    f.slider()->setValue(3);
    f.click("saveButton");
    QCOMPARE(f.slider()->maximum(), 5);
    QCOMPARE(f.slider()->value(), 3);  // the picture on the screen
}

void ImageDialogTest::theSliderCountsACollection()
{
    DialogFixture f;
    f.store.setStored(false);
    f.store.setCollect(true);
    f.store.setCollectTotal(3);
    f.next();
    f.next();
    QCOMPARE(f.slider()->maximum(), 2);
    f.next();
    f.dialog->checkCount();
    QCOMPARE(f.slider()->maximum(), 1);  // the count has started anew
    f.next();
    f.next();
    QCOMPARE(f.slider()->maximum(), 2);
    f.box("viewBox")->click();
    f.dialog->changeSliderImage(3.0);  // beyond the count
    QCOMPARE(f.shown(), 0);
    f.wheel(f[0], 480);  // the mouse reaches all that is held
    QCOMPARE(f.shown(), 4);
    QCOMPARE(f.find<QLabel>("imgLabel")->text(), QString("5"));
    f.store.setCount(50);  // more than there are
    f.dialog->checkCount();
    QCOMPARE(f.slider()->maximum(), 5);
}

void ImageDialogTest::theSliderShowsItsPicture()
{
    DialogFixture f(4);
    f.slider()->setValue(3);
    QCOMPARE(f.find<QLabel>("imgLabel")->text(), QString("3"));
    QVERIFY(!f[0]->images().isShown());  // the box is off
    f.box("viewBox")->click();
    QCOMPARE(f.shown(), 2);
    f.slider()->setValue(2);
    QCOMPARE(f.shown(), 1);
    QVERIFY(f.title(f[0]).startsWith("Image:   2               "));
    f.box("viewBox")->click();
    QVERIFY(!f[0]->images().isShown());
    QCOMPARE(f.title(f[0]).simplified(), QString("FFID :4"));
}

void ImageDialogTest::twoDisplaysShowTwoPictures()
{
    DialogFixture f(5, 2);
    f.box("viewBox")->click();
    QCOMPARE(f.shown(0), 0);
    QCOMPARE(f.shown(1), 1);
    f.slider()->setValue(4);
    QCOMPARE(f.shown(0), 3);
    QCOMPARE(f.shown(1), 4);
    QCOMPARE(f.slider()->value(), 4);
    f.slider()->setValue(5);
    QCOMPARE(f.shown(0), 4);
    QCOMPARE(f.shown(1), 4);  // there is no sixth
}

void ImageDialogTest::theMovieRunsAndWraps()
{
    DialogFixture f(3);
    f.find<QSlider>("spdSlider")->setValue(10);
    f.box("viewBox")->click();
    QVector<int> told;
    connect(f[0], &SeismicDisplay::imageShown, this, [&](int number) { told.append(number); });
    f.click("playButton");
    QTRY_VERIFY(told.size() >= 7);
    f.click("stopButton");
    QVERIFY(!f.dialog->isPlaying());
    QCOMPARE(told.mid(0, 7), QVector<int>({1, 2, 3, 1, 2, 3, 1}));
    QCOMPARE(f.slider()->value(), told.last());
    const int nTold = told.size(), last = told.last();
    QVERIFY(!QSignalSpy(f[0], &SeismicDisplay::imageShown).wait(60));  // stopped
    QCOMPARE(told.size(), nTold);
    f.click("playButton");  // goes on where it was
    QTRY_VERIFY(told.size() > nTold);
    QCOMPARE(told[nTold], last % 3 + 1);
}

void ImageDialogTest::theMovieAlternatesBetweenTwoDisplays()
{
    DialogFixture f(5, 2);
    f.find<QSlider>("spdSlider")->setValue(10);
    f.box("viewBox")->click();
    QVector<int> first, second;
    connect(f[0], &SeismicDisplay::imageShown, this, [&](int number) { first.append(number); });
    connect(f[1], &SeismicDisplay::imageShown, this, [&](int number) { second.append(number); });
    f.click("playButton");
    QTRY_VERIFY(first.size() >= 4);
    f.click("stopButton");
    QCOMPARE(first.mid(0, 4), QVector<int>({1, 3, 5, 1}));
    QCOMPARE(second.mid(0, 2), QVector<int>({2, 4}));  // a sixth is not there
}

void ImageDialogTest::theDelayChangesWhilePlaying()
{
    DialogFixture f(3);
    f.find<QSlider>("spdSlider")->setValue(2000);
    QCOMPARE(f.find<QLabel>("spdLabel")->text(), QString("2000"));
    f.box("viewBox")->click();
    int nTold = 0;
    connect(f[0], &SeismicDisplay::imageShown, this, [&] { ++nTold; });
    f.click("playButton");
    f.find<QSlider>("spdSlider")->setValue(10);
    QElapsedTimer time;
    time.start();
    QTRY_VERIFY(nTold >= 5);
    QVERIFY(time.elapsed() < 1900);
}

void ImageDialogTest::playTurnsTheShowOn()
{
    DialogFixture f(2);
    f.click("playButton");
    QVERIFY(f.box("viewBox")->isChecked());
    QVERIFY(f.dialog->isPlaying());
    QVERIFY(f[0]->images().isShown());
    f.box("viewBox")->click();
    QVERIFY(!f.dialog->isPlaying());
    QVERIFY(!f[0]->images().isShown());
}

void ImageDialogTest::saveExtraAndResave()
{
    DialogFixture f(2);
    f.click("saveButton");
    QCOMPARE(f.keys(), QVector<float>({1, 2, 2}));
    QCOMPARE(f.slider()->maximum(), 3);
    f.nLoads = 0;
    f.next();  // back to the first
    const QImage before = f.stored(3);
    f[0]->seismicPlot()->setGain(12.0f);
    f[0]->rePlot();
    f.click("resaveButton");
    QCOMPARE(f.keys(), QVector<float>({1, 2, 2, 1}));
    QVERIFY(f.stored(3) != before);
    QCOMPARE(f.stored(0), before);
}

void ImageDialogTest::resaveShowsTheNewPicture()
{
    DialogFixture f(2);
    f.box("viewBox")->click();
    f.slider()->setValue(2);
    const QImage before = f.stored(1);
    f[0]->seismicPlot()->setGain(12.0f);
    f.click("resaveButton");
    QVERIFY(f.stored(1) != before);
    QCOMPARE(f.shown(), 1);
    QCOMPARE(f.canvas(f[0]), f.stored(1));
}

void ImageDialogTest::clearAllEndsTheShow()
{
    DialogFixture f(3);
    f.box("viewBox")->click();
    f.click("clearButton");
    QCOMPARE(f.store.storeTotal(), 0);
    QVERIFY(!f.box("viewBox")->isChecked());
    QVERIFY(!f[0]->images().isShown());
    QCOMPARE(f.slider()->maximum(), 1);
    f[0]->storeImage(false);  // "next": the ensemble on the screen is stored again
    QCOMPARE(f.keys(), QVector<float>({3}));
}

void ImageDialogTest::theSelectedNumbersReachTheMouse()
{
    DialogFixture f(6);
    f.type("selectField", "1, 4,2");
    f.box("viewBox")->click();
    f.box("selectBox")->click();
    f.wheel(f[0], 120);
    QCOMPARE(f.shown(), 3);
    f.wheel(f[0], 120);
    QCOMPARE(f.shown(), 1);
    f.type("selectField", "2,6");  // while it is on
    f.wheel(f[0], 120);
    QCOMPARE(f.shown(), 5);
    f.box("selectBox")->click();
    f.wheel(f[0], -120);
    QCOMPARE(f.shown(), 4);
}

void ImageDialogTest::anEmptySelectionShowsNothingNew()
{
    DialogFixture f(3);
    f.box("viewBox")->click();
    f.box("selectBox")->click();
    f.wheel(f[0], 120);
    dragMouse(f[0]->canvas(), QPoint(50, 50), QPoint(90, 50), Qt::MiddleButton);
    QCOMPARE(f.shown(), 0);
}

void ImageDialogTest::theListEndsAtAnEmptyPiece()
{
    DialogFixture f(5);
    f.type("selectField", "1,3,,5");
    f.box("viewBox")->click();
    f.box("selectBox")->click();
    f.wheel(f[0], 1200);
    QCOMPARE(f.shown(), 2);
}

void ImageDialogTest::whatIsHeldIsWrittenWhenFilesAreSwitchedOn()
{
    const QTemporaryDir folder;
    DialogFixture f(3);
    f.type("fileField", folder.filePath("a.png"));
    QVERIFY(QDir(folder.path()).entryList(QDir::Files).isEmpty());
    f.box("fileBox")->click();
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList({"a-001.png", "a-002.png", "a-003.png"}));
    QCOMPARE(QImage(folder.filePath("a-001.png")).convertToFormat(QImage::Format_RGB32), f.stored(0));
    QCOMPARE(QImage(folder.filePath("a-003.png")).size(), f[0]->size());  // the one on the screen: the whole window
    f.next();
    QVERIFY(QFile::exists(folder.filePath("a-004.png")));
    f.box("fileBox")->click();
    f.next();
    QVERIFY(!QFile::exists(folder.filePath("a-005.png")));
    QVERIFY(!QGuiApplication::overrideCursor());
}

void ImageDialogTest::filesWrittenWhileAPictureIsUpHoldTheirOwn()
{
    const QTemporaryDir folder;
    DialogFixture f(2);
    f.box("viewBox")->click();
    QCOMPARE(f.shown(), 0);
    f.type("fileField", folder.filePath("a.b.png"));
    f.box("fileBox")->click();
    for (int i = 0; i < 2; ++i)
        QCOMPARE(f.pixels(QImage(folder.filePath(QString("a.b-00%1.png").arg(i + 1)))), f.stored(i));
}

void ImageDialogTest::anotherNameWritesAllAnew()
{
    const QTemporaryDir folder;
    DialogFixture f(2);
    f.box("fileBox")->click();  // without a name nothing is written
    f.type("fileField", folder.filePath("a"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList({"a-001.png", "a-002.png"}));
    f.type("fileField", folder.filePath("b.bmp"));
    QCOMPARE(QDir(folder.path()).entryList({"b*"}), QStringList({"b-001.bmp", "b-002.bmp"}));
}

/// Takes the next file dialog: notes its title, file and filter, and chooses a name.
static void answerFileDialog(const QString& name, QStringList* seen)
{
    QTimer::singleShot(0, [name, seen] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog) return;
        *seen << dialog->windowTitle() << dialog->selectedFiles().value(0) << dialog->nameFilters().value(0);
        if (name.isEmpty()) return dialog->reject();
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(name);
        static_cast<QDialog*>(dialog)->accept();
    });
}

void ImageDialogTest::theFileButtonAsksForAName()
{
    const QTemporaryDir folder;
    DialogFixture f(1);
    QStringList seen;
    answerFileDialog(folder.filePath("movie.png"), &seen);
    f.click("fileButton");
    QCOMPARE(seen, QStringList({"Image Export File Name", QDir::homePath() + "/images.png",
                                "Images (*.jpg,*.png,*.tif,*.gif,*.bmp)"}));
    QCOMPARE(f.find<QLineEdit>("fileField")->text(), folder.filePath("movie.png"));
    QCOMPARE(f.store.savedFile(), folder.filePath("movie.png"));
    answerFileDialog(QString(), &seen);  // a change of mind
    f.click("fileButton");
    QCOMPARE(f.store.savedFile(), folder.filePath("movie.png"));
}

void ImageDialogTest::theSameNameChosenAgainWritesAllAnew()
{
    const QTemporaryDir folder;
    DialogFixture f(1);
    QStringList seen;
    answerFileDialog(folder.filePath("movie.png"), &seen);
    f.click("fileButton");
    f.box("fileBox")->click();
    QVERIFY(QFile::remove(folder.filePath("movie-001.png")));
    answerFileDialog(folder.filePath("movie.png"), &seen);
    f.click("fileButton");
    QVERIFY(QFile::exists(folder.filePath("movie-001.png")));
}

void ImageDialogTest::theMouseMovesTheSlider()
{
    DialogFixture f(4);
    f.box("viewBox")->click();
    f.wheel(f[0], 240);
    QCOMPARE(f.slider()->value(), 3);
    QCOMPARE(f.find<QLabel>("imgLabel")->text(), QString("3"));
}

/// A window on three small ensembles.
struct ImageWindow : WindowFixture {
    TestEnsemble ensemble{12, 100};
    int nLoads = 0;

    explicit ImageWindow(const std::function<void(parmmenu*)>& change = [](parmmenu*) {})
    {
        window.reset();
        menu->_orvinruntime.numsmp = 100;
        menu->_orvinruntime.nth = standardWordCount;
        menu->ipkey = menu->ipkeyreal = standardWordIndex("FFID    ") + 1;
        change(menu.get());
        window = std::make_unique<MainWindow>(nullptr, menu.get());
        window->buildMainPlot();
        window->show();
    }
    void next(int screen = 0)
    {
        ++nLoads;
        for (auto& words : ensemble.words) words[standardWordIndex("FFID    ")] = nLoads;
        for (size_t i = 0; i < ensemble.samples.size(); ++i)
            for (int j = 0; j < 100; ++j) ensemble.samples[i][j] = float((j * nLoads + int(i)) % 17) - 8.0f;
        window->loadEnsemble(ensemble.traces.data(), ensemble.headers.data(), 12, screen);
    }
    QCheckBox* box(const char* name) { return window->actionTable()->box(name); }
    ImageStorage* store() { return window->imageStorage(); }
    ImageDialog* dialog()
    {
        window->parameterMenu();
        return window->parmMenuDialog()->imageDialog();
    }
    const ImageRecorder& images() { return window->display()->images(); }
};

/// Accepts the next message box; its title and text go to `seen`.
static void acceptNextBox(QStringList* seen)
{
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, [timer, seen] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box) return;
        *seen << box->windowTitle() << box->text();
        box->accept();
        timer->deleteLater();
    });
    timer->start(5);
}

void ImageDialogTest::escapeLeavesTheTabInPlace()
{
    ImageWindow f;
    ImageDialog* dialog = f.dialog();
    f.window->parmMenuDialog()->findChild<QTabWidget*>("tabView")->setCurrentWidget(dialog);
    QVERIFY(dialog->isVisible());
    QTest::keyClick(dialog, Qt::Key_Escape);
    QVERIFY(!f.window->parmMenuDialog()->isVisible());  // the menu goes as a whole
    f.window->parameterMenu();
    QVERIFY(dialog->isVisible());
}

void ImageDialogTest::theWindowsBoxesAndTheTabAgree()
{
    ImageWindow f;
    f.next();
    ImageDialog* dialog = f.dialog();
    auto* store = dialog->findChild<QCheckBox*>("storeBox");
    auto* view = dialog->findChild<QCheckBox*>("viewBox");
    f.box("savImageBox")->click();
    QVERIFY(store->isChecked() && f.store()->isStored());
    store->click();
    QVERIFY(!f.box("savImageBox")->isChecked() && !f.store()->isStored());
    store->click();
    QVERIFY(f.box("savImageBox")->isChecked());

    QStringList seen;
    acceptNextBox(&seen);
    view->click();  // nothing is stored yet
    QCOMPARE(seen, QStringList({"Image Error", "No images are saved."}));
    QVERIFY(!view->isChecked() && !f.box("showImageBox")->isChecked());

    f.next();
    view->click();
    QVERIFY(f.box("showImageBox")->isChecked() && f.images().isShown());
    f.box("showImageBox")->click();
    QVERIFY(!view->isChecked() && !f.images().isShown());
    f.box("showImageBox")->click();
    QVERIFY(view->isChecked() && f.images().isShown());
    f.next();
    QVERIFY(!view->isChecked() && !f.box("showImageBox")->isChecked() && !f.images().isShown());
}

#define NEEDS_TEST_DATA() \
    if (!hasTestData()) QSKIP("no real data files")

static QString vikingFile()
{
    return QString::fromStdString(testDataFile("prestack-marine/viking_small.segy"));
}

void ImageDialogTest::aStoreIsFilledWhilePaging()
{
    NEEDS_TEST_DATA();
    WindowFixture f;
    QCOMPARE(f.open(vikingFile(), 1, 1), 1);
    f.window->actionTable()->box("savImageBox")->click();
    QCOMPARE(f.window->imageStorage()->storeTotal(), 0);
    f.action("forwardAct")->trigger();  // keeps what was on the screen, and the new one
    f.action("forwardAct")->trigger();
    QCOMPARE(f.window->imageStorage()->storeTotal(), 3);
    f.action("backAct")->trigger();
    QVector<float> keys;
    for (int i = 0; i < 4; ++i) keys.append(f.window->imageStorage()->picture(i)->pri);
    QCOMPARE(keys, QVector<float>({3, 4, 5, 4}));
}

void ImageDialogTest::showImagesDisablesNextAndTheMouseModes()
{
    NEEDS_TEST_DATA();
    WindowFixture f;
    QCOMPARE(f.open(vikingFile()), 1);
    WindowActions* table = f.window->actionTable();
    table->box("savImageBox")->click();
    f.action("forwardAct")->trigger();
    table->box("showImageBox")->click();
    QVERIFY(!f.action("forwardAct")->isEnabled());
    QVERIFY(!table->radioBox()->isEnabled());
    QVERIFY(f.shownKey().startsWith("Image: 1 FFID :3"));
    QTest::mouseClick(f.window->display()->canvas(), Qt::RightButton, Qt::NoModifier, QPoint(50, 50));
    QVERIFY(f.window->display()->images().isShown());
    table->box("showImageBox")->click();
    QVERIFY(f.action("forwardAct")->isEnabled());
    QVERIFY(table->radioBox()->isEnabled());
    QCOMPARE(f.shownKey(), QString("FFID :4"));
    for (int i = 0; i < 4; ++i) f.action("forwardAct")->trigger();
    QVERIFY(!f.action("forwardAct")->isEnabled());  // the last
    table->box("showImageBox")->click();
    table->box("showImageBox")->click();
    QVERIFY(!f.action("forwardAct")->isEnabled());
}

void ImageDialogTest::previousEndsTheShow()
{
    NEEDS_TEST_DATA();
    WindowFixture f;
    QCOMPARE(f.open(vikingFile(), 1, 1), 1);
    WindowActions* table = f.window->actionTable();
    table->box("savImageBox")->click();
    f.action("forwardAct")->trigger();
    table->box("showImageBox")->click();
    f.action("backAct")->trigger();
    QVERIFY(!table->box("showImageBox")->isChecked());
    QVERIFY(f.action("forwardAct")->isEnabled());
    QCOMPARE(f.shownKey(), QString("FFID :3"));
}

void ImageDialogTest::switchingTheStoreOffKeepsWhatItHolds()
{
    ImageWindow f;
    f.box("savImageBox")->click();
    f.next();
    f.next();
    f.window->display()->rebuildPlot();  // another look
    f.box("savImageBox")->click();
    f.window->display()->storeImage(false);  // "next"
    QCOMPARE(f.store()->storeTotal(), 2);
}

void ImageDialogTest::aStoreOfTheStartIsOn()
{
    ImageWindow f([](parmmenu* menu) { menu->dostore = 1; });
    QVERIFY(f.store()->isStored());
    QVERIFY(f.box("savImageBox")->isChecked());
    f.next();
    QCOMPARE(f.store()->storeTotal(), 1);
    int n = -1;
    QVERIFY(!f.window->isCollectImage(&n));
    QCOMPARE(n, 0);
}

void ImageDialogTest::aCollectionOfTenTakesTen()
{
    ImageWindow f([](parmmenu* menu) {
        menu->docollect = 1;
        menu->icollect = 10;
    });
    int n = 0;
    QVERIFY(f.window->isCollectImage(&n));
    QCOMPARE(n, 10);
    QCOMPARE(f.dialog()->findChild<NumberEdit*>("collectEdit")->text(), QString("10"));
    for (int i = 0; i < 13; ++i) f.next();
    QCOMPARE(f.store()->storeTotal(), 10);
    QCOMPARE(f.store()->picture(9)->pri, 10.0f);
    QCOMPARE(f.dialog()->findChild<QSlider*>("imgSlider")->maximum(), 1);  // of the next collection
    QCOMPARE(f.dialog()->findChild<NumberEdit*>("collectEdit")->text(), QString("0"));

    auto* edit = f.dialog()->findChild<NumberEdit*>("collectEdit");
    edit->setText("2");
    QTest::keyClick(edit, Qt::Key_Return);
    for (int i = 0; i < 5; ++i) f.next();
    QCOMPARE(f.store()->storeTotal(), 12);
}

void ImageDialogTest::inAFlowACollectionStartsAnew()
{
    ImageWindow f([](parmmenu* menu) {
        menu->dotrevia = 1;
        menu->docollect = 1;
        menu->icollect = 3;
    });
    for (int i = 0; i < 5; ++i) f.next();
    QCOMPARE(f.store()->storeTotal(), 5);
    QCOMPARE(f.store()->count(), 2);  // of the second collection
    f.window->setCollecting(false);   // cancelled
    f.next();
    QCOMPARE(f.store()->storeTotal(), 5);
}

void ImageDialogTest::aFullStoreIsABox()
{
    ImageWindow f;
    f.box("savImageBox")->click();
    f.next();
    f.store()->setLimit(1);
    QStringList seen;
    acceptNextBox(&seen);
    f.next();
    QVERIFY(seen.isEmpty());  // the ensemble comes first
    QTRY_COMPARE(seen.value(0), QString("Image Error"));
    QVERIFY(seen[1].contains("quarter of the memory"));
    QVERIFY(!f.box("savImageBox")->isChecked());
    QCOMPARE(f.store()->storeTotal(), 1);
}

void ImageDialogTest::anExportWhileShowingHoldsThePicture()
{
    const QTemporaryDir folder;
    ImageWindow f;
    f.box("savImageBox")->click();
    f.next();
    f.next();
    f.box("showImageBox")->click();
    QStringList seen;
    answerFileDialog(folder.filePath("window.png"), &seen);
    f.window->exportImage();
    const QImage window = QImage(folder.filePath("window.png")).convertToFormat(QImage::Format_RGB32);
    const QImage picture = f.store()->picture(0)->toImage().convertToFormat(QImage::Format_RGB32);
    const QPoint at = f.window->display()->canvas()->mapTo(f.window.get(), QPoint(0, 0));
    QCOMPARE(window.copy(QRect(at, picture.size())), picture);
    QVERIFY(picture != f.store()->picture(1)->toImage().convertToFormat(QImage::Format_RGB32));
}

void ImageDialogTest::anotherFileEndsTheShow()
{
    NEEDS_TEST_DATA();
    WindowFixture f;
    QCOMPARE(f.open(vikingFile()), 1);
    f.window->actionTable()->box("savImageBox")->click();
    f.action("forwardAct")->trigger();
    f.window->actionTable()->box("showImageBox")->click();
    QCOMPARE(f.open(QString::fromStdString(testDataFile("prestack-land/land_shot_3360.sgy"))), 1);
    QVERIFY(!f.window->actionTable()->box("showImageBox")->isChecked());
    QVERIFY(f.action("forwardAct")->isEnabled());
    // Pictures of both files side by side: each with its own labels and scale.
    QCOMPARE(f.window->imageStorage()->storeTotal(), 3);
    f.window->actionTable()->box("showImageBox")->click();
    QVERIFY(f.shownKey().startsWith("Image: 1"));
    QCOMPARE(f.window->display()->images().traceCount(), 120);
    const SeismicDisplay* display = f.window->display();
    const double perTrace = f.window->imageStorage()->picture(0)->size().width() / 121.0;
    QVERIFY(qAbs(display->visibleRect().width() * perTrace - display->canvasMap(QwtPlot::xTop).pDist()) < 1.0);
}

void ImageDialogTest::aClosedWindowPlaysNoMovie()
{
    ImageWindow f;
    f.box("savImageBox")->click();
    f.next();
    f.next();
    ImageDialog* dialog = f.dialog();
    dialog->findChild<QPushButton*>("playButton")->click();
    QVERIFY(dialog->isPlaying());
    f.window->close();
    QVERIFY(!dialog->isPlaying());
}

void ImageDialogTest::aDifferenceIsCollectedAtItsOwnScale()
{
    ImageWindow f([](parmmenu* menu) {
        menu->iscreens = 2;
        menu->idifference = 1;
        menu->docollect = 1;
        menu->icollect = 3;
    });
    f.next(0);
    f.next(1);
    QCOMPARE(f.store()->storeTotal(), 3);
    const QImage canvas = f.window->displayList()[2]->canvas()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QImage picture = f.store()->picture(2)->toImage().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(canvas.copy(picture.rect()), picture);
}

void ImageDialogTest::theDifferenceHasAPictureOfItsOwn()
{
    ImageWindow f([](parmmenu* menu) {
        menu->iscreens = 2;
        menu->idifference = 1;
        menu->dostore = 1;
    });
    f.next(0);
    f.next(1);
    QCOMPARE(f.store()->storeTotal(), 3);
    QCOMPARE(f.store()->picture(2)->parm, QString("Difference"));
    SeismicDisplay* difference = f.window->displayList()[2];
    const QImage canvas = difference->canvas()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QImage picture = f.store()->picture(2)->toImage().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(canvas.copy(picture.rect()), picture);
    f.box("showImageBox")->click();
    QCOMPARE(difference->images().number(), 2);
    f.box("showImageBox")->click();
    f.box("differBox")->setChecked(false);  // its column is hidden
    f.box("showImageBox")->click();
    QCOMPARE(f.window->displayList()[1]->images().number(), 1);
    QCOMPARE(difference->images().number(), -1);
}

QTEST_MAIN(ImageDialogTest)
#include "imagedialogtest.moc"
