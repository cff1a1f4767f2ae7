/// Several screens and the difference, as the View menu asks for them.
#include "display/seismicplot.h"
#include "sources/segyloader.h"
#include "tests/gui/windowfixture.h"
#include "tests/testdata.h"
#include "tracedata/seismicdata.h"

#include <QSettings>
#include <QSplitter>
#include <QTemporaryDir>
#include <QtTest>

class ScreensTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void eachScreenShowsAnEnsembleOfItsOwn();
    void timesAreInLineOnAllScreens();
    void nextAndPreviousMoveByAllScreens();
    void withoutAnIndexTheFileIsReadOn();
    void screensThatFindNoEnsembleAreEmpty();
    void fewerScreensGoOnBehindTheLast();
    void aNewScreenLooksLikeTheFirst();
    void theDifferenceIsSwitchedFromTheMenu();
    void theSessionKeepsScreensAndDifference();

private:
    std::unique_ptr<QTemporaryDir> _home;
};

void ScreensTest::init()
{
    if (!hasTestData()) QSKIP("no real data files");
    _home = std::make_unique<QTemporaryDir>();
    qputenv("TREVIA_HOME", _home->path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", _home->path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _home->path());
}

/// The four shots 3 to 6 of a marine line.
struct ScreensFixture : WindowFixture {
    explicit ScreensFixture(int indexbuilt = 1)
    {
        open(QString::fromStdString(testDataFile("prestack-marine/viking_small.segy")), 0, indexbuilt);
    }
    QAction* entry(const char* name) { return window->findChild<QAction*>(name); }
    void press(const char* name) { entry(name)->trigger(); }
    /// The title of each screen in view; "-" for an empty one.
    QStringList shown()
    {
        QStringList titles;
        for (SeismicDisplay* display : window->displayList())
            if (display->isVisible())
                titles.append(display->traceCount() == 0 ? QString("-")
                                                         : display->axisTitle(QwtPlot::xTop).text().simplified());
        return titles;
    }
};

void ScreensTest::eachScreenShowsAnEnsembleOfItsOwn()
{
    ScreensFixture f;
    QVERIFY(f.entry("screens1Act")->isChecked());
    f.press("screens3Act");
    QCOMPARE(f.shown(), QStringList({"FFID :3", "FFID :4", "FFID :5"}));
    QVERIFY(f.entry("screens3Act")->isChecked() && !f.entry("screens1Act")->isChecked());
    QCOMPARE(f.menu->iscreens, 3);
    const auto axes = [&](int i) {
        SeismicDisplay* display = f.window->displayList()[i];
        return std::make_pair(display->axisEnabled(QwtPlot::yLeft), display->axisEnabled(QwtPlot::yRight));
    };
    QCOMPARE(axes(0), std::make_pair(true, false));
    QCOMPARE(axes(1), std::make_pair(false, false));
    QCOMPARE(axes(2), std::make_pair(false, true));
    // All have the same step of the labels and, but for the axes at both ends, the same width.
    for (int i : {1, 2}) {
        QCOMPARE(f.window->displayList()[i]->traceIncrement(), f.window->displayList()[0]->traceIncrement());
        QVERIFY(std::abs(f.window->displayList()[i]->width() - f.window->displayList()[0]->width()) < 5);
    }
    f.press("screens1Act");
    QCOMPARE(axes(0), std::make_pair(true, true));
    QCOMPARE(f.shown(), QStringList({"FFID :3"}));
}

/// The screen in the middle has no vertical axis, whose last label would stand out below the picture.
void ScreensTest::timesAreInLineOnAllScreens()
{
    ScreensFixture f;
    QCOMPARE(f.open(QString::fromStdString(testDataFile("poststack-3d/f3.sgy"))), 1);  // 300 ms, which is a label
    f.press("screens3Act");
    for (const double ms : {0.0, 100.0, 300.0}) {
        const auto lineOf = [&](int i) {
            const SeismicDisplay* display = f.window->displayList()[i];
            const int y = qRound(display->transform(QwtPlot::yLeft, ms));
            return display->canvas()->mapTo(f.window.get(), QPoint(0, y)).y();
        };
        QTRY_COMPARE(lineOf(1), lineOf(0));
        QTRY_COMPARE(lineOf(2), lineOf(0));
    }
}

void ScreensTest::nextAndPreviousMoveByAllScreens()
{
    ScreensFixture f;
    f.press("screens2Act");
    QCOMPARE(f.shown(), QStringList({"FFID :3", "FFID :4"}));
    f.window->nextRecord();
    QCOMPARE(f.shown(), QStringList({"FFID :5", "FFID :6"}));
    f.window->previousRecord();
    QCOMPARE(f.shown(), QStringList({"FFID :3", "FFID :4"}));
    f.window->nextRecord();
    f.window->firstRecord();
    QCOMPARE(f.shown(), QStringList({"FFID :3", "FFID :4"}));
}

void ScreensTest::withoutAnIndexTheFileIsReadOn()
{
    ScreensFixture f(0);
    f.press("screens2Act");
    QCOMPARE(f.shown(), QStringList({"FFID :3", "FFID :4"}));
    f.window->nextRecord();
    QCOMPARE(f.shown(), QStringList({"FFID :5", "FFID :6"}));
}

void ScreensTest::screensThatFindNoEnsembleAreEmpty()
{
    ScreensFixture f;
    f.press("screens3Act");
    f.window->nextRecord();
    QCOMPARE(f.shown(), QStringList({"FFID :6", "-", "-"}));
    f.window->previousRecord();
    QCOMPARE(f.shown(), QStringList({"FFID :3", "FFID :4", "FFID :5"}));
}

void ScreensTest::fewerScreensGoOnBehindTheLast()
{
    ScreensFixture f;
    f.press("screens3Act");
    f.press("screens1Act");
    f.window->nextRecord();
    QCOMPARE(f.shown(), QStringList({"FFID :4"}));
    f.press("screens2Act");
    QCOMPARE(f.shown(), QStringList({"FFID :4", "FFID :5"}));
}

void ScreensTest::aNewScreenLooksLikeTheFirst()
{
    ScreensFixture f;
    SeismicPlot* first = f.window->displayList()[0]->seismicPlot();
    first->setDisplayType(ColorB);
    first->setGain(6.0f);
    first->setClip(1.5f);
    first->applyAGC(true, 350);
    first->applyPhase(true, 30);
    first->setAutoGain(false);
    first->setRange(-2.0f, 2.5f);
    f.press("screens2Act");
    const SeismicPlot* second = f.window->displayList()[1]->seismicPlot();
    QVERIFY(second->displayType() == ColorB);
    QVERIFY(std::abs(second->gain() - 6.0f) < 1e-4f);
    QCOMPARE(second->clip(), 1.5f);
    QVERIFY(second->isAGC() && second->isPhase());
    QCOMPARE(second->conditioner().agcWindow(), 350);
    QCOMPARE(second->conditioner().phaseAngle(), 30.0f);
    QVERIFY(!second->isAutoGain());
    QCOMPARE(second->rangeMin(), -2.0f);
    QCOMPARE(second->rangeMax(), 2.5f);
}

void ScreensTest::theDifferenceIsSwitchedFromTheMenu()
{
    ScreensFixture f;
    QVERIFY(!f.entry("differenceAct")->isEnabled());
    QVERIFY(f.entry("differenceAct")->toolTip().contains("Needs two screens."));
    f.press("screens2Act");
    QVERIFY(f.entry("differenceAct")->isEnabled());
    f.press("differenceAct");
    QCOMPARE(f.shown().size(), 3);
    const QList<SeismicDisplay*>& all = f.window->displayList();
    const auto sample = [&](int screen) { return *all[screen]->seismicData()->getTraceValues(7, 300); };
    QCOMPARE(sample(2), sample(0) - sample(1));
    f.window->nextRecord();
    QCOMPARE(sample(2), sample(0) - sample(1));
    QVERIFY(sample(2) != 0.0f);
    f.press("differenceAct");
    QCOMPARE(f.shown(), QStringList({"FFID :5", "FFID :6"}));
    f.press("differenceAct");
    f.press("screens3Act");
    QCOMPARE(all.size(), 4);
    f.press("screens1Act");
    QCOMPARE(f.shown(), QStringList({"FFID :5"}));
    QVERIFY(!f.entry("differenceAct")->isEnabled() && !f.entry("differenceAct")->isChecked());
}

void ScreensTest::theSessionKeepsScreensAndDifference()
{
    {
        ScreensFixture f;
        f.press("screens2Act");
        f.press("differenceAct");
        f.window->close();
    }
    {
        ScreensFixture f;
        QCOMPARE(f.shown().mid(0, 2), QStringList({"FFID :3", "FFID :4"}));
        QCOMPARE(f.shown().size(), 3);
        QVERIFY(f.entry("screens2Act")->isChecked() && f.entry("differenceAct")->isChecked());
        f.press("screens1Act");
        f.window->close();
    }
    QCOMPARE(ScreensFixture().shown(), QStringList({"FFID :3"}));
}

QTEST_MAIN(ScreensTest)
#include "screenstest.moc"
