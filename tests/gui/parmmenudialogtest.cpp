/// The parameter menu as a whole: its tabs, the choice of the display, and its place in the main window.
#include "analysis/parmmenudialog.h"

#include "display/images/imagestorage.h"
#include "display/images/myqwtplotcanvas.h"
#include "display/menus/colorbardialog.h"
#include "display/menus/displaymenu.h"
#include "display/menus/scalemenu.h"
#include "display/seismicplot.h"
#include "frame/conditioningpreset.h"
#include "frame/mainwindow.h"
#include "frame/presetmenu.h"
#include "frame/windowactions.h"
#include "sources/segyloadparm.h"
#include "tests/gui/displayfixture.h"
#include "tests/gui/windowfixture.h"
#include "tests/testdata.h"
#include "widgets/copymissingfiles.h"
#include "widgets/numberedit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSlider>
#include <QTabWidget>
#include <QTemporaryDir>

#include <cmath>

class ParmMenuDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theTabsStandInOrder();
    void thereIsAButtonForEachDisplay();
    void theButtonsFollowTheListOfTheOthers();
    void choosingADisplayReachesAllTabs();
    void theTabShowsWhatEachDisplayIsConditionedBy();
    void aPresetIsShownAndOutlivesTheFile();
    void returnInAFieldDoesNotHideTheMenu();
    void dismissHidesAndTheSettingsStay();
    void gainControlRefreshesTheAutomaticRange();
    void theWindowOpensOneMenuAndRefreshesIt();
    void anotherFileShowsItsOwnParameters();
    void theToolBarsOverlayBoxAndTheMenusAgree();
    void aHalfTypedNumberOutlivesNoWindow();
    void theProgramsColorFilesComeWithIt();
    void aLoadedColorFileIsKeptForTheNextSession();

private:
    QTemporaryDir _home;
};

void ParmMenuDialogTest::initTestCase()
{
    QVERIFY(_home.isValid());
    qputenv("TREVIA_HOME", _home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", _home.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _home.path());
}

/// Displays of 20 traces, the last one not a main display, and the menu on them.
struct MenuFixture : DisplayFixture {
    TestEnsemble ensemble{20, 500};
    ImageStorage store;
    std::unique_ptr<ParmMenuDialog> dialog;

    MenuFixture() : DisplayFixture(2)
    {
        for (int i = 0; i < 2; ++i) load(ensemble, i);
        others.append(displays.takeLast());
        dialog = std::make_unique<ParmMenuDialog>(nullptr, &displays, &store, &others);
        dialog->show();
    }
    template <typename Control>
    Control* find(const char* name)
    {
        auto* control = dialog->findChild<Control*>(name);
        if (!control) qFatal("no control %s", name);
        return control;
    }
};

void ParmMenuDialogTest::theTabsStandInOrder()
{
    MenuFixture f;
    QCOMPARE(f.dialog->windowTitle(), QString("Parameter Menu"));
    auto* tabs = f.find<QTabWidget>("tabView");
    QStringList names;
    for (int i = 0; i < tabs->count(); ++i) names.append(tabs->tabText(i));
    QCOMPARE(names, QStringList({"Display", "Plot", "Image", "Color Bar"}));
}

void ParmMenuDialogTest::thereIsAButtonForEachDisplay()
{
    MenuFixture f;
    QCOMPARE(f.dialog->findChildren<QRadioButton*>().size(), 2);
    QVERIFY(f.find<QRadioButton>("displayButton0")->isChecked());
    QVERIFY(!f.find<QRadioButton>("displayButton1")->isChecked());
    QCOMPARE(f.find<QRadioButton>("displayButton0")->text(), QString("Main Display"));
    f.dialog->addNewDisplay(f.displays[0]);
    QVERIFY(!f.find<QRadioButton>("displayButton2")->isChecked());
}

void ParmMenuDialogTest::theButtonsFollowTheListOfTheOthers()
{
    MenuFixture f;
    SeismicDisplay* second = f.others[0];
    SeismicDisplay third(nullptr, "Stack", nullptr, nullptr, true, true, 2, &f.host);
    third.setColorBar(&f.bar);
    third.setMenu(f.menu.get());
    f.others.append(&third);
    QCOMPARE(f.find<QRadioButton>("displayButton2")->text(), QString("Stack"));
    f.find<QRadioButton>("displayButton2")->click();

    // The one before it goes: its own button is now the second, and still the one chosen.
    f.others.removeAt(0);
    QCOMPARE(f.dialog->findChildren<QRadioButton*>().size(), 2);
    QCOMPARE(f.find<QRadioButton>("displayButton1")->text(), QString("Stack"));
    QVERIFY(f.find<QRadioButton>("displayButton1")->isChecked());
    const auto typeGain = [&f](const char* db) {
        f.find<NumberEdit>("gainEdit")->setText(db);
        QTest::keyClick(f.find<NumberEdit>("gainEdit"), Qt::Key_Return);
    };
    typeGain("6");
    QVERIFY(std::abs(third.seismicPlot()->gain() - 6.0f) < 1e-4f);
    QCOMPARE(f[0]->seismicPlot()->gain(), 0.0f);
    QCOMPARE(second->seismicPlot()->gain(), 0.0f);

    // The one chosen goes: the main displays are chosen.
    f.others.clear();
    QVERIFY(f.find<QRadioButton>("displayButton0")->isChecked());
    QVERIFY(!f.dialog->findChild<QRadioButton*>("displayButton1"));
    typeGain("3");
    QVERIFY(std::abs(f[0]->seismicPlot()->gain() - 3.0f) < 1e-4f);
    QVERIFY(std::abs(third.seismicPlot()->gain() - 6.0f) < 1e-4f);
}

void ParmMenuDialogTest::choosingADisplayReachesAllTabs()
{
    MenuFixture f;
    ColorBarFrame second;
    second.setNumColors(7);
    f.others[0]->setColorBar(&second);
    f.find<QRadioButton>("displayButton1")->click();
    f.find<NumberEdit>("gainEdit")->setText("6");
    QTest::keyClick(f.find<NumberEdit>("gainEdit"), Qt::Key_Return);
    f.find<QCheckBox>("agcBox")->click();
    f.find<QCheckBox>("scaledBox")->click();
    QVERIFY(std::abs(f.others[0]->seismicPlot()->gain() - 6.0f) < 1e-4f);
    QVERIFY(f.others[0]->seismicPlot()->isAGC());
    QCOMPARE(second.colorMode(), 0);
    QCOMPARE(f.find<NumberEdit>("numColorsEdit")->text(), QString("7"));
    QCOMPARE(f[0]->seismicPlot()->gain(), 0.0f);
    QVERIFY(!f[0]->seismicPlot()->isAGC());
    QCOMPARE(f.bar.colorMode(), 1);
    f.find<QRadioButton>("displayButton0")->click();
    QCOMPARE(f.find<NumberEdit>("gainEdit")->text(), QString("0"));
    QVERIFY(!f.find<QCheckBox>("agcBox")->isChecked());
    QVERIFY(!f[0]->seismicPlot()->isAGC());
    QVERIFY(f.others[0]->seismicPlot()->isAGC());  // showing isn't changing
}

void ParmMenuDialogTest::theTabShowsWhatEachDisplayIsConditionedBy()
{
    MenuFixture f;
    const auto shown = [&f] {
        return QStringList(
            {f.find<QCheckBox>("agcBox")->isChecked() ? "AGC" : "none", f.find<NumberEdit>("agcEdit")->text(),
             f.find<QCheckBox>("phseBox")->isChecked() ? "phase" : "none", f.find<NumberEdit>("phseEdit")->text(),
             QString::number(f.find<QSlider>("phseSlider")->value())});
    };
    f.others[0]->seismicPlot()->applyAGC(true, 300);
    f.others[0]->seismicPlot()->applyPhase(true, -75);
    const QStringList mine = {"none", "500", "none", "0", "0"}, theirs = {"AGC", "300", "phase", "-75", "-75"};
    QCOMPARE(shown(), mine);
    f.find<QRadioButton>("displayButton1")->click();
    QCOMPARE(shown(), theirs);
    // Off and on again means the same values.
    for (const char* box : {"agcBox", "phseBox"}) {
        f.find<QCheckBox>(box)->click();
        f.find<QCheckBox>(box)->click();
    }
    QCOMPARE(shown(), theirs);
    QCOMPARE(f.others[0]->seismicPlot()->conditioner().agcWindow(), 300);
    QCOMPARE(f.others[0]->seismicPlot()->conditioner().phaseAngle(), -75.0f);
    f.find<QRadioButton>("displayButton0")->click();
    QCOMPARE(shown(), mine);
    QVERIFY(!f[0]->seismicPlot()->isAGC() && !f[0]->seismicPlot()->isPhase());
    // What another display was given doesn't come over this one with the next file.
    f[0]->setNewFile(f.others[0]->menu());
    QVERIFY(!f[0]->seismicPlot()->isAGC());
}

void ParmMenuDialogTest::aPresetIsShownAndOutlivesTheFile()
{
    if (!hasTestData()) QSKIP("no real data files");
    WindowFixture fixture;
    QCOMPARE(fixture.open(QString::fromStdString(testDataFile("prestack-marine/viking_small.segy"))), 1);
    fixture.window->parameterMenu();
    ConditioningPreset preset;
    preset.isAGC = preset.isPhase = true;
    preset.agcWindow = 250;
    preset.phaseAngle = 60;
    QSettings settings("Brenlake", "SEISMICDISPLAY");
    savePreset(&settings, "noisy", preset);
    settings.sync();
    auto* presets = fixture.window->findChild<PresetMenu*>("presetMenu");
    QVERIFY(presets && presets->apply("noisy"));
    ParmMenuDialog* menu = fixture.window->parmMenuDialog();
    const auto isShown = [&] {
        const TraceConditioner& c = fixture.window->display()->seismicPlot()->conditioner();
        return c.isAGC() && c.agcWindow() == 250 && c.isPhase() && c.phaseAngle() == 60.0f &&
               menu->findChild<QCheckBox*>("agcBox")->isChecked() &&
               menu->findChild<NumberEdit*>("agcEdit")->text() == "250" &&
               menu->findChild<QCheckBox*>("phseBox")->isChecked() &&
               menu->findChild<NumberEdit*>("phseEdit")->text() == "60";
    };
    QVERIFY(isShown());
    QCOMPARE(fixture.menu->iagc, 1);
    QCOMPARE(fixture.menu->agcwinlen, 250);
    QCOMPARE(fixture.open(QString::fromStdString(testDataFile("prestack-marine/viking_small.segy"))), 1);
    QVERIFY(isShown());
}

void ParmMenuDialogTest::returnInAFieldDoesNotHideTheMenu()
{
    MenuFixture f;
    f.find<NumberEdit>("clipEdit")->setFocus();
    f.find<NumberEdit>("clipEdit")->setText("1");
    QTest::keyClick(f.find<NumberEdit>("clipEdit"), Qt::Key_Return);
    QCOMPARE(f[0]->seismicPlot()->clip(), 1.0f);
    QVERIFY(f.dialog->isVisible());
}

void ParmMenuDialogTest::dismissHidesAndTheSettingsStay()
{
    MenuFixture f;
    f.find<QComboBox>("displayBox")->setCurrentIndex(3);
    emit f.find<QComboBox>("displayBox")->activated(3);
    QTest::mouseClick(f.find<QPushButton>("dismissButton"), Qt::LeftButton);
    QVERIFY(!f.dialog->isVisible());
    QVERIFY(f[0]->seismicPlot()->displayType() == ColorB);
}

void ParmMenuDialogTest::gainControlRefreshesTheAutomaticRange()
{
    MenuFixture f;
    const QString before = f.find<NumberEdit>("lmaxEdit")->text();
    f.find<QCheckBox>("agcBox")->click();
    QVERIFY(f.find<NumberEdit>("lmaxEdit")->text() != before);
    QCOMPARE(f.find<NumberEdit>("lmaxEdit")->text(), QString::number(double(f[0]->seismicPlot()->rangeMax()), 'g', 6));
}

#define NEEDS_TEST_DATA() \
    if (!hasTestData()) QSKIP("no real data files")

/// A window with its parameter menu.
struct ParmWindow : WindowFixture {
    void openData(const char* name) { QCOMPARE(open(QString::fromStdString(testDataFile(name))), 1); }
    ParmMenuDialog* dialog()
    {
        window->actionTable()->action("parmAct")->trigger();
        const auto found = window->findChildren<ParmMenuDialog*>();
        return found.size() == 1 ? found.first() : nullptr;
    }
};

void ParmMenuDialogTest::theWindowOpensOneMenuAndRefreshesIt()
{
    NEEDS_TEST_DATA();
    ParmWindow f;
    QVERIFY(f.dialog());  // before there are data
    QVERIFY(!f.dialog()->isModal());
    f.openData("prestack-marine/viking_small.segy");
    auto* rms = f.dialog()->findChild<QLabel*>("rmsLabel");
    const QString first = rms->text();
    QVERIFY(first.toDouble() > 0.0);
    QVERIFY(f.dialog()->findChild<QComboBox*>("seclBox")->count() > 20);
    f.window->actionTable()->action("forwardAct")->trigger();
    QVERIFY(rms->text() != first);
    QCOMPARE(rms->text(), QString::number(double(f.window->display()->seismicPlot()->rms()), 'g', 6));
}

void ParmMenuDialogTest::anotherFileShowsItsOwnParameters()
{
    NEEDS_TEST_DATA();
    ParmWindow f;
    f.openData("prestack-marine/viking_small.segy");
    auto* mode = f.dialog()->findChild<QComboBox*>("displayBox");
    QTest::keyClick(mode, Qt::Key_Down);
    QVERIFY(f.window->display()->seismicPlot()->displayType() == Wiggle);
    f.openData("prestack-land/land_shot_3360.sgy");
    QCOMPARE(mode->currentIndex(), int(f.window->display()->seismicPlot()->displayType()));
    const QString tpi = f.dialog()->findChild<NumberEdit*>("tscaleEdit")->text();
    QCOMPARE(tpi, QString::number(double(f.window->display()->seismicPlot()->traceSpacing()), 'f', 2));
}

void ParmMenuDialogTest::theToolBarsOverlayBoxAndTheMenusAgree()
{
    NEEDS_TEST_DATA();
    ParmWindow f;
    f.openData("prestack-marine/viking_small.segy");
    QCheckBox* onToolBar = f.window->actionTable()->box("overlayBox");
    onToolBar->click();
    auto* inMenu = f.dialog()->findChild<QCheckBox*>("opacBox");
    QVERIFY(inMenu->isChecked());
    auto* ofColors = f.dialog()->findChild<ColorBarDialog*>()->findChild<QCheckBox*>("overlayBox");
    QVERIFY(!ofColors->isEnabled());
    f.window->actionTable()->action("forwardAct")->trigger();
    QVERIFY(f.window->display()->overlayPlot());
    QVERIFY(ofColors->isEnabled());
    inMenu->click();
    QVERIFY(!onToolBar->isChecked());
    QVERIFY(!f.window->display()->overlayPlot()->isVisible());
    QVERIFY(!ofColors->isEnabled());
}

void ParmMenuDialogTest::aHalfTypedNumberOutlivesNoWindow()
{
    DisplayFixture displays;
    TestEnsemble ensemble(20, 500);
    displays.load(ensemble);
    ImageStorage store;
    auto dialog = std::make_unique<ParmMenuDialog>(nullptr, &displays.displays, &store, &displays.others);
    dialog->show();
    auto* clip = dialog->findChild<NumberEdit*>("clipEdit");
    QApplication::setActiveWindow(dialog.get());
    clip->setFocus();
    QTRY_VERIFY(clip->hasFocus());
    clip->selectAll();
    QTest::keyClicks(clip, "5");
    dialog.reset();  // the window goes with the dialog still open
    QCOMPARE(displays[0]->seismicPlot()->clip(), 5.0f);
}

void ParmMenuDialogTest::theProgramsColorFilesComeWithIt()
{
    ParmWindow f;  // links the resources in
    const QString folder = _home.path() + "/shipped";
    QVERIFY(copyMissingFiles(":/colors", folder) >= 12);
    ColorBarFrame bar;
    for (const QString& name : QDir(folder).entryList({"*.col"})) {
        QString error;
        QVERIFY2(bar.loadColorMapFile(folder + "/" + name, &error), qPrintable(error));
    }
    QCOMPARE(QDir(folder).entryList({"semblance.col"}).size(), 1);
}

void ParmMenuDialogTest::aLoadedColorFileIsKeptForTheNextSession()
{
    QDir().mkpath(_home.path() + "/port/misc");
    QFile file(_home.path() + "/port/misc/mine.col");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("33,1\n0,4278190335\n1,4294901760\n");
    file.close();
    {
        ParmWindow f;
        auto* list = f.dialog()->findChild<QListWidget*>("fileList");
        list->setCurrentItem(list->findItems("mine.col", Qt::MatchExactly).value(0));
        f.dialog()->findChild<QPushButton*>("loadButton")->click();
        QCOMPARE(f.window->colorBarFrame()->numColors(), 33);
        f.window->close();
    }
    ParmWindow next;
    QCOMPARE(next.window->colorBarFrame()->numColors(), 33);
}

QTEST_MAIN(ParmMenuDialogTest)
#include "parmmenudialogtest.moc"
