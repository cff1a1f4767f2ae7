/// Page keys and conditioning presets.
#include "display/seismicplot.h"
#include "frame/conditioningpreset.h"
#include "frame/mainwindow.h"
#include "frame/pagekeys.h"
#include "frame/presetmenu.h"
#include "frame/windowactions.h"
#include "sources/segyloader.h"
#include "sources/segyloadparm.h"
#include "tests/gui/displayfixture.h"
#include "tests/gui/windowfixture.h"
#include "tests/testdata.h"

#include <QMainWindow>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

class OptionsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void pageKeysAreOffAtFirstAndKept();
    void pageKeysTriggerNextAndPrevious();
    void aRepeatThatCameInDuringALoadIsDropped();
    void pageKeysPageThroughAFile();
    void everyFieldOfAPresetComesBack();
    void aBrokenPresetLeavesAllAsItWas();
    void namesMayHoldAnything();
    void aPresetActsOnAllDisplaysWithOneRepaintEach();
    void aPresetForEveryFileIsAppliedToEach();
    void aPresetCanBeDeleted();
    void theMenuListsWhatWasSaved();

private:
    QTemporaryDir _home;
};

void OptionsTest::init()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _home.path());
    qputenv("TREVIA_HOME", _home.path().toLocal8Bit());
    QSettings("Brenlake", "SEISMICDISPLAY").clear();
}

/// A window with two actions that count how often they were triggered.
struct KeyFixture {
    QMainWindow window;
    QAction forward, back;
    PageKeys* keys;
    int nForward = 0, nBack = 0;

    KeyFixture()
    {
        keys = new PageKeys(&window, &forward, &back);
        QObject::connect(&forward, &QAction::triggered, [this] { ++nForward; });
        QObject::connect(&back, &QAction::triggered, [this] { ++nBack; });
    }
    void press(int key, bool isRepeat = false, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, QString(), isRepeat);
        QApplication::sendEvent(&window, &event);
    }
};

void OptionsTest::pageKeysAreOffAtFirstAndKept()
{
    {
        KeyFixture fixture;
        QVERIFY(!fixture.keys->option()->isChecked());
        fixture.press(Qt::Key_PageDown);
        QCOMPARE(fixture.nForward, 0);
        fixture.keys->option()->setChecked(true);
    }
    QVERIFY(QSettings("Brenlake", "SEISMICDISPLAY").value("options/pageKeys").toBool());
    KeyFixture again;
    QVERIFY(again.keys->option()->isChecked());
}

void OptionsTest::pageKeysTriggerNextAndPrevious()
{
    KeyFixture fixture;
    fixture.keys->option()->setChecked(true);
    fixture.press(Qt::Key_PageDown);
    fixture.press(Qt::Key_PageDown);
    fixture.press(Qt::Key_PageUp, false, Qt::KeypadModifier);
    QCOMPARE(fixture.nForward, 2);
    QCOMPARE(fixture.nBack, 1);
    fixture.press(Qt::Key_PageDown, false, Qt::ControlModifier);
    fixture.press(Qt::Key_Down);
    fixture.forward.setEnabled(false);
    fixture.press(Qt::Key_PageDown);
    QCOMPARE(fixture.nForward, 2);
}

void OptionsTest::aRepeatThatCameInDuringALoadIsDropped()
{
    KeyFixture fixture;
    fixture.keys->option()->setChecked(true);
    // While the load runs the window system queues three repeats, which come in right behind it.
    QObject::connect(&fixture.forward, &QAction::triggered, [&] {
        if (fixture.nForward > 1) return;
        for (int i = 0; i < 3; ++i)
            QApplication::postEvent(&fixture.window,
                                    new QKeyEvent(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier, QString(), true));
    });
    fixture.press(Qt::Key_PageDown);
    settle();
    QCOMPARE(fixture.nForward, 1);
    fixture.press(Qt::Key_PageDown, true);  // the key is still held
    QCOMPARE(fixture.nForward, 2);
    settle();
    fixture.press(Qt::Key_PageDown, true);
    QCOMPARE(fixture.nForward, 3);
}

void OptionsTest::pageKeysPageThroughAFile()
{
    if (!hasTestData()) QSKIP("no real data files");
    auto menu = std::make_unique<parmmenu>();
    setDisplayDefaults(menu.get());
    MainWindow window(nullptr, menu.get());
    window.buildMainPlot();
    window.show();
    SegyLoadParm parm;
    parm.files = QString::fromStdString(testDataFile("prestack-marine/viking_small.segy"));
    parm.indexbuilt = 1;
    QVERIFY(window.loadSegyFile(parm));
    QAction* option = window.findChild<QAction*>("pageKeysAct");
    QVERIFY(window.actionTable()->menu("&Tools")->actions().contains(option));
    QCOMPARE(option->text().remove('&'), QString("Page Up/Down page through the records"));
    option->trigger();
    const auto shown = [&] { return window.display()->axisTitle(QwtPlot::xTop).text(); };
    const QString first = shown();
    QTest::keyClick(window.display()->canvas(), Qt::Key_PageDown);
    const QString second = shown();
    QVERIFY(second != first);
    QTest::keyClick(window.display()->canvas(), Qt::Key_PageUp);
    QCOMPARE(shown(), first);
    option->trigger();
    QTest::keyClick(window.display()->canvas(), Qt::Key_PageDown);
    QCOMPARE(shown(), first);
}

/// Values of its own in every field, all sound.
static ConditioningPreset otherPreset()
{
    ConditioningPreset preset;
    preset.lowCut = 3;
    preset.lowPass = 6;
    preset.highPass = 40;
    preset.highCut = 55;
    preset.agcWindow = 750;
    preset.phaseAngle = -90;
    preset.isAGC = preset.isPhase = preset.isFilter = preset.isTimeFilter = true;
    preset.gain = -7.5f;
    preset.clip = 1.25f;
    preset.normalize = Normalize::Dataset;
    return preset;
}

void OptionsTest::everyFieldOfAPresetComesBack()
{
    const ConditioningPreset defaults, other = otherPreset();
    QSettings settings("Brenlake", "SEISMICDISPLAY");
    savePreset(&settings, "quick look", other);
    settings.sync();
    QSettings fresh("Brenlake", "SEISMICDISPLAY");
    ConditioningPreset back;
    QVERIFY(loadPreset(&fresh, "quick look", &back));
    QCOMPARE(presetFields().size(), size_t(13));
    for (const PresetField& field : presetFields()) {
        std::visit(
            [&](auto member) {
                QVERIFY2(other.*member != defaults.*member, field.rule.key);  // else a lost field would go unseen
                QVERIFY2(back.*member == other.*member, field.rule.key);
            },
            field.member);
        QVERIFY2(fresh.contains(QString("presets/quick look/") + field.rule.key), field.rule.key);
    }
}

void OptionsTest::aBrokenPresetLeavesAllAsItWas()
{
    QSettings settings("Brenlake", "SEISMICDISPLAY");
    ConditioningPreset preset;
    preset.agcWindow = 123;
    QVERIFY(!loadPreset(&settings, "nothing", &preset));
    for (const auto& broken : {std::make_pair("clip", QVariant(-1.0)), std::make_pair("agcWindow", QVariant(0)),
                               std::make_pair("gain", QVariant(1e9)), std::make_pair("scaling", QVariant(9)),
                               std::make_pair("lowPass", QVariant(999))}) {
        savePreset(&settings, "broken", otherPreset());
        settings.setValue(QString("presets/broken/") + broken.first, broken.second);
        QVERIFY2(!loadPreset(&settings, "broken", &preset), broken.first);
        QCOMPARE(preset.agcWindow, 123);
    }
}

void OptionsTest::namesMayHoldAnything()
{
    QSettings settings("Brenlake", "SEISMICDISPLAY");
    const QStringList names = {"20/40 Hz & more", "50%", "a\\b", QString::fromUtf8("Öl")};
    for (const QString& name : names) savePreset(&settings, name, otherPreset());
    QStringList sorted = names;
    sorted.sort();
    QCOMPARE(presetNames(&settings), sorted);
    ConditioningPreset preset;
    for (const QString& name : names) QVERIFY2(loadPreset(&settings, name, &preset), qPrintable(name));
}

/// Counts how often a plot draws its items.
class DrawCounter : public QwtPlotItem
{
public:
    void draw(QPainter*, const QwtScaleMap&, const QwtScaleMap&, const QRectF&) const override { ++count; }
    mutable int count = 0;
};

void OptionsTest::aPresetActsOnAllDisplaysWithOneRepaintEach()
{
    QSettings settings("Brenlake", "SEISMICDISPLAY");
    savePreset(&settings, "hard", otherPreset());
    DisplayFixture fixture(2);
    TestEnsemble ensemble(10, 500);
    DrawCounter* counters[2];
    for (int i : {0, 1}) {
        fixture.load(ensemble, i);
        counters[i] = new DrawCounter;
        counters[i]->attach(fixture[i]);
    }
    PresetMenu menu(&fixture.displays, nullptr);
    settle();
    const int generation = fixture[0]->seismicPlot()->conditioner().generation();
    for (DrawCounter* counter : counters) counter->count = 0;
    QVERIFY(menu.apply("hard"));
    settle();
    for (int i : {0, 1}) {
        QCOMPARE(counters[i]->count, 1);
        const ConditioningPreset now = fixture[i]->seismicPlot()->parm();
        const ConditioningPreset wanted = otherPreset();
        for (const PresetField& field : presetFields())
            std::visit([&](auto m) { QVERIFY2(std::abs(double(now.*m) - double(wanted.*m)) < 1e-5, field.rule.key); },
                       field.member);
    }
    QCOMPARE(fixture[0]->seismicPlot()->conditioner().generation(), generation + 1);
    QVERIFY(!menu.apply("soft"));
}

/// Presses an entry of one of the menus inside the presets menu.
static bool pressEntry(MainWindow* window, const char* menuName, const QString& text)
{
    auto* presets = window->findChild<PresetMenu*>("presetMenu");
    emit presets->aboutToShow();
    auto* menu = presets->findChild<QMenu*>(menuName);
    if (!menu) return false;
    for (QAction* action : menu->actions())
        if (action->text() == text) {
            action->trigger();
            return true;
        }
    return false;
}

void OptionsTest::aPresetForEveryFileIsAppliedToEach()
{
    if (!hasTestData()) QSKIP("no real data files");
    const QString file = QString::fromStdString(testDataFile("prestack-marine/viking_small.segy"));
    QSettings settings("Brenlake", "SEISMICDISPLAY");
    savePreset(&settings, "loud & clear", otherPreset());
    WindowFixture fixture;
    SeismicPlot* plot = fixture.window->display()->seismicPlot();
    QCOMPARE(fixture.open(file), 1);
    QCOMPARE(plot->gain(), 0.0f);
    QVERIFY(pressEntry(fixture.window.get(), "everyFileMenu", "loud && clear"));
    for (int i = 0; i < 2; ++i) {
        plot->setGain(0.0f);
        QCOMPARE(fixture.open(file), 1);
        QVERIFY(std::abs(plot->gain() + 7.5f) < 1e-4f);
        QVERIFY(plot->isFilter());
    }
    QVERIFY(pressEntry(fixture.window.get(), "everyFileMenu", "None"));
    plot->setGain(0.0f);
    QCOMPARE(fixture.open(file), 1);
    QCOMPARE(plot->gain(), 0.0f);
}

void OptionsTest::aPresetCanBeDeleted()
{
    QSettings settings("Brenlake", "SEISMICDISPLAY");
    savePreset(&settings, "to keep", otherPreset());
    savePreset(&settings, "to go/away", otherPreset());
    setPresetForEveryFile(&settings, "to go/away");
    WindowFixture fixture;
    QVERIFY(pressEntry(fixture.window.get(), "deletePresetMenu", "to go/away"));
    QSettings fresh("Brenlake", "SEISMICDISPLAY");
    QVERIFY(!presetNames(&fresh).contains("to go/away"));
    QVERIFY(presetNames(&fresh).contains("to keep"));
    QCOMPARE(presetForEveryFile(fresh), QString());
    ConditioningPreset preset;
    QVERIFY(!loadPreset(&fresh, "to go/away", &preset));
    QVERIFY(!pressEntry(fixture.window.get(), "deletePresetMenu", "to go/away"));
}

void OptionsTest::theMenuListsWhatWasSaved()
{
    auto parms = std::make_unique<parmmenu>();
    setDisplayDefaults(parms.get());
    MainWindow window(nullptr, parms.get());
    window.buildMainPlot();
    auto* menu = window.findChild<PresetMenu*>("presetMenu");
    QVERIFY(menu);
    QVERIFY(window.actionTable()->menu("&Tools")->actions().contains(menu->menuAction()));
    QCOMPARE(menu->title(), QString("&Presets"));
    QCOMPARE(menu->actions().first()->text(), QString("&Save Preset..."));
    QVERIFY(!menu->save("  "));
    window.display()->seismicPlot()->setGain(6.0f);
    QVERIFY(menu->save("loud & clear"));
    window.display()->seismicPlot()->setGain(0.0f);
    QCOMPARE(menu->actions().last()->text(), QString("loud && clear"));
    menu->actions().last()->trigger();
    QVERIFY(std::abs(window.display()->seismicPlot()->gain() - 6.0f) < 1e-5f);
}

QTEST_MAIN(OptionsTest)
#include "optionstest.moc"
