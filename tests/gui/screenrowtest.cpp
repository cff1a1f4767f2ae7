/// The screens of a window without the window.
#include "frame/screenrow.h"
#include "display/seismicplot.h"
#include "frame/barcolumn.h"
#include "frame/differencetool.h"
#include "frame/screensmenu.h"
#include "tests/gui/displayfixture.h"
#include "tracedata/seismicdata.h"

#include <QMenu>
#include <QSplitter>

class ScreenRowTest : public QObject
{
    Q_OBJECT

private slots:
    void makesTheScreensThatTheRecordAsksFor();
    void aScreenThatWasPutAsideComesBackEmpty();
    void aNewScreenLooksLikeTheFirst();
    void theDifferenceStaysTheLastOfTheList();
    void theDifferenceIsTheFirstMinusTheSecond();
    void theDifferenceFollowsTheLastScreenOnly();
    void theDifferenceIsEmptyWhereAScreenIs();
    void oneScreenHasNoDifference();
    void theDifferenceGoesBeforeWhatItBorrowsFrom();
    void theOuterAxesAreThoseOfTheRow();
    void theMenuShowsAndAsks();
    void theOverlaysBarComesOnItsFirstUse();
};

/// A row with nothing around it, and what it tells.
struct RowFixture {
    std::unique_ptr<parmmenu> menu = std::make_unique<parmmenu>();
    TestHost host;
    QStatusBar status, control;
    ColorBarFrame bar;
    QSplitter splitter;
    ScreenRow row{&splitter, menu.get(), {&status, &control, &bar, nullptr, &host}};
    int nMade = 0;

    explicit RowFixture(int nScreens)
    {
        setDisplayDefaults(menu.get());
        menu->iscreens = nScreens;
        menu->_orvinruntime.samprat = 4.0f;
        menu->_orvinruntime.numsmp = 50;
        menu->ipkey = menu->ipkeyreal = standardWordIndex("FFID    ") + 1;
        menu->iskey = menu->iskeyreal = standardWordIndex("CHAN    ") + 1;
        QObject::connect(&row, &ScreenRow::screenMade, [this] { ++nMade; });
        row.build();
        splitter.resize(900, 400);
        splitter.show();
    }
    SeismicDisplay* operator[](int i) { return (*row.displays())[i]; }
    void load(int i, float first, int nTraces = 4)
    {
        TestEnsemble ensemble(nTraces, 50);
        for (auto& trace : ensemble.samples) trace[0] = first;
        (*this)[i]->loadSeismicData(ensemble.traces.data(), ensemble.headers.data(), nTraces, true);
    }
    float firstSample(int i) { return (*this)[i]->seismicData()->getTraceValues(0, 0)[0]; }
};

void ScreenRowTest::makesTheScreensThatTheRecordAsksFor()
{
    RowFixture f(2);
    QCOMPARE(f.row.displays()->size(), 2);
    QCOMPARE(f.nMade, 2);
    QCOMPARE(f.row.lastScreen(), f[1]);
    QCOMPARE(f[1]->windowNumber(), 1);
    QCOMPARE(f[0]->displayTitle(), QString("Main Display"));
    QVERIFY(!f.row.difference());
}

void ScreenRowTest::aScreenThatWasPutAsideComesBackEmpty()
{
    RowFixture f(1);
    QCOMPARE(f.row.setCount(3), 1);
    QCOMPARE(f.nMade, 3);
    QCOMPARE(f.menu->iscreens, 3);
    SeismicDisplay* const second = f[1];
    f.load(1, 5.0f);
    QVERIFY(second->isVisible());
    QCOMPARE(f.row.setCount(1), 3);
    QVERIFY(!second->isVisible());
    QCOMPARE(f.row.lastScreen(), f[0]);
    f.row.setCount(2);
    QCOMPARE(f[1], second);
    QVERIFY(second->isVisible());
    QCOMPARE(second->traceCount(), 0);
    QCOMPARE(f.nMade, 3);
}

void ScreenRowTest::aNewScreenLooksLikeTheFirst()
{
    RowFixture f(1);
    PlotParm look = f[0]->seismicPlot()->parm();
    look.clip = 1.25f;
    look.isAGC = true;
    look.agcWindow = 120;
    look.normalize = Normalize::None;
    f[0]->seismicPlot()->setParm(look);
    f.row.setCount(2);
    const PlotParm taken = f[1]->seismicPlot()->parm();
    QCOMPARE(taken.clip, 1.25f);
    QVERIFY(taken.isAGC);
    QCOMPARE(taken.agcWindow, 120);
    QCOMPARE(taken.normalize, Normalize::None);
}

void ScreenRowTest::theDifferenceStaysTheLastOfTheList()
{
    RowFixture f(2);
    f.row.showDifference(true);
    SeismicDisplay* const difference = f.row.difference();
    QCOMPARE(f.row.displays()->all(), QList<SeismicDisplay*>({f[0], f[1], difference}));
    QCOMPARE(difference->windowNumber(), 2);
    QCOMPARE(f.nMade, 2);  // it isn't a screen
    f.row.setCount(3);
    QCOMPARE(f.row.displays()->size(), 4);
    QCOMPARE(f.row.displays()->last(), difference);
    QCOMPARE(f.row.lastScreen(), f[2]);
    f.row.setCount(2);
    QCOMPARE(f.row.displays()->last(), difference);
    f.row.showDifference(false);
    QVERIFY(!difference->isVisible());
    QCOMPARE(f.row.difference(), difference);
}

void ScreenRowTest::theDifferenceIsTheFirstMinusTheSecond()
{
    RowFixture f(2);
    DifferenceTool tool(&f.row, f.menu.get());
    f.load(0, 7.0f);
    f.load(1, 2.0f);
    QSignalSpy changed(&tool, &DifferenceTool::shownChanged);
    tool.show(true);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(f.menu->idifference, 1);
    QCOMPARE(f.firstSample(2), 5.0f);
    QCOMPARE(f.row.difference()->traceCount(), 4);
    tool.show(false);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(f.menu->idifference, 0);
}

void ScreenRowTest::theDifferenceFollowsTheLastScreenOnly()
{
    RowFixture f(2);
    DifferenceTool tool(&f.row, f.menu.get());
    f.load(0, 7.0f);
    f.load(1, 2.0f);
    tool.show(true);
    f.load(0, 9.0f);
    tool.afterRecord(0);  // the other screen follows yet
    QCOMPARE(f.firstSample(2), 5.0f);
    f.load(1, 3.0f);
    tool.afterRecord(1);
    QCOMPARE(f.firstSample(2), 6.0f);
    tool.show(false);
    f.load(1, 1.0f);
    tool.afterRecord(1);  // nobody sees it
    QCOMPARE(f.firstSample(2), 6.0f);
}

void ScreenRowTest::theDifferenceIsEmptyWhereAScreenIs()
{
    RowFixture f(2);
    DifferenceTool tool(&f.row, f.menu.get());
    f.load(0, 7.0f);
    f.load(1, 2.0f);
    tool.show(true);
    f.row.clearFrom(1);
    QCOMPARE(f.row.difference()->traceCount(), 0);
    f.load(1, 2.0f);
    f.load(0, 7.0f);
    tool.screensDropped();
    QCOMPARE(f.row.difference()->traceCount(), 4);
    f[0]->clearData();
    tool.screensDropped();
    QCOMPARE(f.row.difference()->traceCount(), 0);
}

void ScreenRowTest::oneScreenHasNoDifference()
{
    RowFixture f(1);
    DifferenceTool tool(&f.row, f.menu.get());
    QSignalSpy changed(&tool, &DifferenceTool::shownChanged);
    tool.show(true);
    QCOMPARE(changed.count(), 0);
    QVERIFY(!f.row.difference());
    QCOMPARE(f.menu->idifference, 0);
    tool.afterRecord(0);
}

/// It scales by the plot of the first screen.
void ScreenRowTest::theDifferenceGoesBeforeWhatItBorrowsFrom()
{
    QStringList gone;
    {
        RowFixture f(2);
        f.row.showDifference(true);
        connect(f[0], &QObject::destroyed, this, [&] { gone += "first"; });
        connect(f.row.difference(), &QObject::destroyed, this, [&] { gone += "difference"; });
    }
    QCOMPARE(gone, QStringList({"difference", "first"}));
}

void ScreenRowTest::theOuterAxesAreThoseOfTheRow()
{
    RowFixture f(2);
    const auto axes = [&](int i) {
        return QString(f[i]->axisEnabled(QwtPlot::yLeft) ? "left" : "") +
               (f[i]->axisEnabled(QwtPlot::yRight) ? "right" : "");
    };
    QCOMPARE(axes(0), QString("left"));
    QCOMPARE(axes(1), QString("right"));
    f.row.showDifference(true);
    QCOMPARE(axes(1), QString());
    QCOMPARE(axes(2), QString("right"));
    f.row.showDifference(false);
    f.row.setCount(1);
    QCOMPARE(axes(0), QString("leftright"));
}

void ScreenRowTest::theMenuShowsAndAsks()
{
    QMenu view;
    ScreensMenu menu(&view);
    QList<int> counts;
    QList<bool> differences;
    connect(&menu, &ScreensMenu::countWanted, this, [&](int n) { counts += n; });
    connect(&menu, &ScreensMenu::differenceWanted, this, [&](bool on) { differences += on; });
    auto* difference = view.findChild<QAction*>("differenceAct");
    menu.show(1, true);
    QVERIFY(view.findChild<QAction*>("screens1Act")->isChecked());
    QVERIFY(!difference->isEnabled() && !difference->isChecked());
    QVERIFY(difference->toolTip().endsWith("Needs two screens."));
    QVERIFY(counts.isEmpty());  // showing isn't asking
    view.findChild<QAction*>("screens3Act")->trigger();
    QCOMPARE(counts, QList<int>({3}));
    menu.show(3, false);
    QVERIFY(difference->isEnabled());
    difference->trigger();
    QCOMPARE(differences, QList<bool>({true}));
}

void ScreenRowTest::theOverlaysBarComesOnItsFirstUse()
{
    QWidget widget;
    auto* bars = new BarColumn;
    widget.setLayout(bars);
    QCOMPARE(widget.findChildren<ColorBarFrame*>(), QList<ColorBarFrame*>({bars->bar()}));
    bars->showOverlayBar(true);
    QCOMPARE(widget.findChildren<ColorBarFrame*>().size(), 2);
    QVERIFY(!bars->overlayBar()->isHidden());
    bars->showOverlayBar(false);
    QVERIFY(bars->overlayBar()->isHidden());
    QVERIFY(!bars->bar()->isHidden());
}

QTEST_MAIN(ScreenRowTest)
#include "screenrowtest.moc"
