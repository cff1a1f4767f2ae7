/// The tab "Plot": each control driven once as a user would, and what it does to the plot.
#include "display/menus/scalemenu.h"

#include "display/images/myqwtplotcanvas.h"
#include "display/seismicplot.h"
#include "display/zoom/thinnedscaledraw.h"
#include "tests/gui/displayfixture.h"
#include "tracedata/seismicdata.h"
#include "widgets/numberedit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QSlider>
#include <qwt_plot_grid.h>
#include <qwt_scale_div.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>

#include <cmath>

class ScaleMenuTest : public QObject
{
    Q_OBJECT

private slots:
    void allGridLinesAreOffAtFirst();
    void theTimeGridFollowsItsBoxes();
    void theTraceGridFollowsItsBoxes();
    void uncheckingTheMajorGridUnchecksTheMinorOne();
    void theGridIsSeenAboveTheData();
    void theTimeStepGoesToAllMainDisplays();
    void theTraceStepGoesToTheAxis();
    void aNewStepKeepsTheZoom();
    void aTypedStepIsObeyedAndItsLabelsThinOut();
    void theKeyLabelsListAllHeaderWords();
    void thePrimaryLabelNamesTheTitle();
    void theSecondaryLabelNamesTheTraces();
    void aLabelOfNoneLeavesNone();
    void gainControlBalancesTheTraceAndIsKeptInTheRecord();
    void gainControlOffAndOnKeepsTheWindow();
    void turningThePhaseByHalfACircleFlipsTheTrace();
    void aBlankAngleMeansNone();
    void theSliderTurnsThePhase();
    void conditioningTouchesNoSample();
    void anEnsembleThatFollowsIsConditionedToo();
    void whatIsNotBuiltIsDisabledAndSaysSo();
    void theOverlayBoxAsksForAnOverlay();
    void opacityCountsPercent();
    void anOverlayOfFullOpacityCoversTheData();
    void eachControlRepaintsOnce();
    void everyControlHasATip();
};

/// Two displays of 20 traces, and the page on the first of them.
struct MenuFixture : DisplayFixture {
    TestEnsemble ensemble{20, 500};
    std::unique_ptr<ScaleMenu> page;

    explicit MenuFixture(int nDisplays = 1) : DisplayFixture(nDisplays)
    {
        for (int i = 0; i < nDisplays; ++i) load(ensemble, i);
        page = std::make_unique<ScaleMenu>(&displays, &others);
        page->show();
    }
    template <typename Control>
    Control* find(const char* name)
    {
        auto* control = page->findChild<Control*>(name);
        if (!control) qFatal("no control %s", name);
        return control;
    }
    NumberEdit* edit(const char* name) { return find<NumberEdit>(name); }
    QCheckBox* box(const char* name) { return find<QCheckBox>(name); }
    void type(const char* name, const QString& text)
    {
        edit(name)->setText(text);
        QTest::keyClick(edit(name), Qt::Key_Return);
    }
    /// Chooses the row of a combo that starts so, by the keys.
    void choose(const char* name, const QString& start)
    {
        auto* combo = find<QComboBox>(name);
        const int row = combo->findText(start, Qt::MatchStartsWith);
        QVERIFY2(row >= 0, qPrintable(start));
        while (combo->currentIndex() != row)
            QTest::keyClick(combo, combo->currentIndex() < row ? Qt::Key_Down : Qt::Key_Up);
    }
    /// Conditioned sample j of trace i.
    float conditioned(int i, int j, int display = 0)
    {
        return displays[display]->seismicPlot()->conditioner().samples()[500 * i + j];
    }
};

void ScaleMenuTest::allGridLinesAreOffAtFirst()
{
    MenuFixture f;
    const QwtPlotGrid* grid = f[0]->grid();
    QVERIFY(!grid->xEnabled() && !grid->xMinEnabled() && !grid->yEnabled() && !grid->yMinEnabled());
    QVERIFY(!f.box("gridTMinorBox")->isEnabled());
    QVERIFY(!f.box("gridSMinorBox")->isEnabled());
    QCOMPARE(f.edit("gridTMajorEdit")->text(), QString("500"));
}

void ScaleMenuTest::theTimeGridFollowsItsBoxes()
{
    MenuFixture f(2);
    f.box("gridTBox")->click();
    f.box("gridTMinorBox")->click();
    for (int i = 0; i < 2; ++i) {
        QVERIFY(f[i]->grid()->yEnabled());
        QVERIFY(f[i]->grid()->yMinEnabled());
        QVERIFY(!f[i]->grid()->xEnabled());
    }
    f.box("gridTMinorBox")->click();
    QVERIFY(!f[0]->grid()->yMinEnabled());
}

void ScaleMenuTest::theTraceGridFollowsItsBoxes()
{
    MenuFixture f;
    f.box("gridSBox")->click();
    f.box("gridSMinorBox")->click();
    QVERIFY(f[0]->grid()->xEnabled());
    QVERIFY(f[0]->grid()->xMinEnabled());
    QVERIFY(!f[0]->grid()->yEnabled());
}

void ScaleMenuTest::uncheckingTheMajorGridUnchecksTheMinorOne()
{
    MenuFixture f;
    for (const QByteArray grid : {"gridT", "gridS"}) {
        f.box(grid + "Box")->click();
        f.box(grid + "MinorBox")->click();
        f.box(grid + "Box")->click();
        QVERIFY(!f.box(grid + "MinorBox")->isChecked());
        QVERIFY(!f.box(grid + "MinorBox")->isEnabled());
    }
    const QwtPlotGrid* grid = f[0]->grid();
    QVERIFY(!grid->xEnabled() && !grid->xMinEnabled() && !grid->yEnabled() && !grid->yMinEnabled());
}

void ScaleMenuTest::theGridIsSeenAboveTheData()
{
    MenuFixture f;
    f[0]->seismicPlot()->setDisplayType(ColorB);
    f[0]->rePlot();
    const auto rowAt = [&](double ms) {
        const int y = qRound(f[0]->canvasMap(QwtPlot::yLeft).transform(ms));
        return f[0]->grab().toImage().pixel(f[0]->canvas()->mapTo(f[0], QPoint(100, y)));
    };
    const QRgb line = f[0]->grid()->majorPen().color().rgb();
    QVERIFY(rowAt(1000.0) != line);
    f.box("gridTBox")->click();
    QCOMPARE(rowAt(1000.0), line);
}

static double majorStep(SeismicDisplay* display, int axis)
{
    const QList<double> ticks = display->axisScaleDiv(axis).ticks(QwtScaleDiv::MajorTick);
    return ticks.size() < 2 ? 0.0 : std::abs(ticks[1] - ticks[0]);
}

void ScaleMenuTest::theTimeStepGoesToAllMainDisplays()
{
    MenuFixture f(2);
    f.type("gridTMajorEdit", "200");
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(majorStep(f[i], QwtPlot::yLeft), 200.0);
        QCOMPARE(f[i]->timeIncrement(), 200.0f);
    }
    f.type("gridTMajorEdit", "-1");
    QCOMPARE(f.edit("gridTMajorEdit")->text(), QString("200"));
    f.load(f.ensemble);
    QCOMPARE(majorStep(f[0], QwtPlot::yLeft), 200.0);
}

void ScaleMenuTest::theTraceStepGoesToTheAxis()
{
    MenuFixture f;
    f.type("gridSMajorEdit", "4");
    QCOMPARE(majorStep(f[0], QwtPlot::xTop), 4.0);
}

void ScaleMenuTest::aNewStepKeepsTheZoom()
{
    MenuFixture f;
    f[0]->setZoomRect(QRectF(5.0, 400.0, 10.0, 800.0));
    f.type("gridTMajorEdit", "100");
    f.type("gridSMajorEdit", "2");
    QCOMPARE(f[0]->axisScaleDiv(QwtPlot::yLeft).lowerBound(), 1200.0);
    QCOMPARE(f[0]->axisScaleDiv(QwtPlot::yLeft).upperBound(), 400.0);
    QCOMPARE(f[0]->axisScaleDiv(QwtPlot::xTop).lowerBound(), 5.0);
    QCOMPARE(majorStep(f[0], QwtPlot::yLeft), 100.0);
    QCOMPARE(majorStep(f[0], QwtPlot::xTop), 2.0);
}

void ScaleMenuTest::aTypedStepIsObeyedAndItsLabelsThinOut()
{
    DisplayFixture f(1, 2000);  // 8 s: 80 lines of 100 ms on less than 500 pixels
    TestEnsemble ensemble(200, 2000);
    f.load(ensemble);
    ScaleMenu page(&f.displays, &f.others);
    const auto typeStep = [&page](const char* name, const QString& text) {
        auto* edit = page.findChild<NumberEdit*>(name);
        edit->setText(text);
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(edit->text(), text);
    };
    typeStep("gridTMajorEdit", "100");
    QCOMPARE(majorStep(f[0], QwtPlot::yLeft), 100.0);
    QCOMPARE(f[0]->axisScaleDiv(QwtPlot::yLeft).ticks(QwtScaleDiv::MajorTick).size(), 81);
    const auto* times = static_cast<const ThinnedScaleDraw*>(f[0]->axisScaleDraw(QwtPlot::yLeft));
    const QFont font = f[0]->axisWidget(QwtPlot::yLeft)->font();
    const std::vector<double> labels = times->labelledSteps(font);
    QVERIFY(labels.size() >= 5 && labels.size() < 81);
    for (size_t i = 1; i < labels.size(); ++i) {
        const double distance = times->scaleMap().transform(labels[i]) - times->scaleMap().transform(labels[i - 1]);
        QVERIFY(std::abs(distance) > QFontMetricsF(font).height());
    }
    typeStep("gridSMajorEdit", "3");
    QCOMPARE(majorStep(f[0], QwtPlot::xTop), 3.0);
    typeStep("gridSMajorEdit", "150");  // only one line of it
    QCOMPARE(f[0]->axisScaleDiv(QwtPlot::xTop).ticks(QwtScaleDiv::MajorTick), QList<double>({0.0, 150.0}));
    f[0]->setZoomRect(QRectF(5.0, 400.0, 100.0, 200.0));
    QCOMPARE(f[0]->axisScaleDiv(QwtPlot::yLeft).ticks(QwtScaleDiv::MajorTick).size(), 3);  // 400, 500, 600
    f.load(ensemble);
    QCOMPARE(majorStep(f[0], QwtPlot::yLeft), 100.0);
}

void ScaleMenuTest::theKeyLabelsListAllHeaderWords()
{
    MenuFixture f;
    for (const char* name : {"prilBox", "seclBox"}) {
        auto* combo = f.find<QComboBox>(name);
        QCOMPARE(combo->itemText(0), QString("None"));
        for (const char* word : {"CHAN    ", "FFID    ", "OFFSET  ", "CDP_X   "}) {
            const int row = combo->findText(word, Qt::MatchStartsWith);
            QVERIFY2(row > 0, word);
            QVERIFY(combo->itemText(row).size() > 9);  // the description stands behind the name
        }
    }
    QVERIFY(f.find<QComboBox>("prilBox")->currentText().startsWith("FFID    "));
    QVERIFY(f.find<QComboBox>("seclBox")->currentText().startsWith("CHAN    "));
}

void ScaleMenuTest::thePrimaryLabelNamesTheTitle()
{
    MenuFixture f(2);
    f.choose("prilBox", "CHAN    ");
    for (int i = 0; i < 2; ++i) QCOMPARE(f[i]->axisTitle(QwtPlot::xTop).text(), QString("CHAN    :101    "));
}

void ScaleMenuTest::theSecondaryLabelNamesTheTraces()
{
    MenuFixture f;
    QCOMPARE(f[0]->axisScaleDraw(QwtPlot::xTop)->label(3.0).text(), QString("103"));
    f.choose("seclBox", "TRC_TYPE");
    QCOMPARE(f[0]->axisScaleDraw(QwtPlot::xTop)->label(1.0).text(), QString("1"));
    QCOMPARE(f[0]->axisScaleDraw(QwtPlot::xTop)->label(2.0).text(), QString("2"));
    QVERIFY(f[0]->readoutAt(QPoint(100, 100)).contains("TRC_TYPE: "));
}

void ScaleMenuTest::aLabelOfNoneLeavesNone()
{
    MenuFixture f;
    f.choose("seclBox", "None");
    QCOMPARE(f[0]->headerAxis().sec().name, QString("None"));
    QCOMPARE(f[0]->axisScaleDraw(QwtPlot::xTop)->label(3.0).text(), QString("0"));
}

void ScaleMenuTest::gainControlBalancesTheTraceAndIsKeptInTheRecord()
{
    MenuFixture f(2);
    for (auto& trace : f.ensemble.samples)
        for (int j = 0; j < 500; ++j) trace[j] = (j % 2 ? 1.0f : -1.0f) * (j < 250 ? 1.0f : 100.0f);
    f.load(f.ensemble, 0);
    f.load(f.ensemble, 1);
    QVERIFY(!f.edit("agcEdit")->isEnabled());
    f.box("agcBox")->click();
    QVERIFY(f.edit("agcEdit")->isEnabled());
    QCOMPARE(f.menu->agcwinlen, 500);
    f.type("agcEdit", "100");
    // Both halves come out equally loud.
    for (int i = 0; i < 2; ++i) {
        QVERIFY(f[i]->seismicPlot()->isAGC());
        QVERIFY(std::abs(f.conditioned(3, 100, i) / f.conditioned(3, 400, i) - 1.0f) < 0.01f);
    }
    QCOMPARE(f.menu->iagc, 1);
    QCOMPARE(f.menu->agcwinlen, 100);
}

void ScaleMenuTest::gainControlOffAndOnKeepsTheWindow()
{
    MenuFixture f;
    f.box("agcBox")->click();
    f.type("agcEdit", "240");
    const float once = f.conditioned(3, 100);
    f.box("agcBox")->click();
    QCOMPARE(f.conditioned(3, 100), 3100.0f);
    QCOMPARE(f.menu->iagc, 0);
    f.box("agcBox")->click();
    QCOMPARE(f.edit("agcEdit")->text(), QString("240"));
    QCOMPARE(f.menu->agcwinlen, 240);
    QCOMPARE(f.conditioned(3, 100), once);
}

/// A wave of 25 Hz, far from both ends of the band, with nothing at the ends of the trace.
static void fillWithWave(TestEnsemble* ensemble)
{
    for (auto& trace : ensemble->samples)
        for (int j = 0; j < 500; ++j) {
            const double t = (j - 250) * 0.004;
            trace[j] = float(std::cos(2.0 * M_PI * 25.0 * t) * std::exp(-t * t / 0.02));
        }
}

void ScaleMenuTest::turningThePhaseByHalfACircleFlipsTheTrace()
{
    MenuFixture f;
    fillWithWave(&f.ensemble);
    f.load(f.ensemble);
    f.box("phseBox")->click();
    f.type("phseEdit", "180");
    QVERIFY(f[0]->seismicPlot()->isPhase());
    QCOMPARE(f.find<QSlider>("phseSlider")->value(), 180);
    for (int j = 200; j < 300; j += 7) QVERIFY(std::abs(f.conditioned(2, j) + f.ensemble.samples[2][j]) < 1e-3f);
    f.box("phseBox")->click();
    QCOMPARE(f.conditioned(2, 250), 1.0f);
}

void ScaleMenuTest::aBlankAngleMeansNone()
{
    MenuFixture f;
    fillWithWave(&f.ensemble);
    f.load(f.ensemble);
    f.box("phseBox")->click();
    f.type("phseEdit", "90");
    QVERIFY(std::abs(f.conditioned(2, 250)) < 0.01f);
    f.type("phseEdit", "");
    QVERIFY(std::abs(f.conditioned(2, 250) - 1.0f) < 1e-3f);
    QCOMPARE(f.find<QSlider>("phseSlider")->value(), 0);
    f.type("phseEdit", "361");  // beyond the slider: the former one stays
    QVERIFY(std::abs(f.conditioned(2, 250) - 1.0f) < 1e-3f);
}

void ScaleMenuTest::theSliderTurnsThePhase()
{
    MenuFixture f;
    fillWithWave(&f.ensemble);
    f.load(f.ensemble);
    QVERIFY(!f.find<QSlider>("phseSlider")->isEnabled());
    f.box("phseBox")->click();
    f.find<QSlider>("phseSlider")->setValue(-180);
    QCOMPARE(f.edit("phseEdit")->text(), QString("-180"));
    QVERIFY(std::abs(f.conditioned(2, 250) + 1.0f) < 1e-3f);
    QCOMPARE(f.find<QSlider>("phseSlider")->minimum(), -360);
    QCOMPARE(f.find<QSlider>("phseSlider")->maximum(), 360);
}

void ScaleMenuTest::conditioningTouchesNoSample()
{
    MenuFixture f;
    f.box("agcBox")->click();
    f.box("phseBox")->click();
    f.find<QSlider>("phseSlider")->setValue(60);
    f[0]->grab();
    QVERIFY(f.conditioned(3, 100) != 3100.0f);
    for (int i = 0; i < 20; ++i)
        for (int j = 0; j < 500; ++j) QCOMPARE(*f[0]->seismicData()->getTraceValues(i, j), 1000.0f * i + j);
}

void ScaleMenuTest::anEnsembleThatFollowsIsConditionedToo()
{
    MenuFixture f;
    f.box("phseBox")->click();
    f.find<QSlider>("phseSlider")->setValue(180);
    fillWithWave(&f.ensemble);
    f.load(f.ensemble);
    QVERIFY(std::abs(f.conditioned(2, 250) + 1.0f) < 1e-3f);
}

void ScaleMenuTest::whatIsNotBuiltIsDisabledAndSaysSo()
{
    MenuFixture f;
    for (const char* name : {"header1Box", "header2Box"}) {
        auto* combo = f.find<QComboBox>(name);
        QVERIFY(!combo->isEnabled());
        QCOMPARE(combo->count(), 1);
        QCOMPARE(combo->currentText(), QString("None"));
        QVERIFY(combo->toolTip().contains("not built yet"));
    }
}

void ScaleMenuTest::theOverlayBoxAsksForAnOverlay()
{
    MenuFixture f;
    QSignalSpy changed(f.page.get(), &ScaleMenu::overlayChanged);
    for (const char* name : {"opacSlider", "opacEdit", "opacLabel"}) QVERIFY(!f.find<QWidget>(name)->isEnabled());
    f.box("opacBox")->click();
    for (const char* name : {"opacSlider", "opacEdit", "opacLabel"}) QVERIFY(f.find<QWidget>(name)->isEnabled());
    QCOMPARE(f.menu->ioverlay, 1);
    QCOMPARE(changed.count(), 1);
    f.load(f.ensemble);
    QVERIFY(f[0]->overlayPlot());
    QVERIFY(f[0]->overlayPlot()->isVisible());
    f.box("opacBox")->click();
    QCOMPARE(f.menu->ioverlay, 0);
    QVERIFY(!f[0]->overlayPlot()->isVisible());
}

void ScaleMenuTest::opacityCountsPercent()
{
    MenuFixture f;
    f.box("opacBox")->click();
    QCOMPARE(f.edit("opacEdit")->text(), QString("75"));
    f.find<QSlider>("opacSlider")->setValue(40);  // chosen before there is an overlay
    f.load(f.ensemble);
    f.page->setOverlayMode(true);
    QCOMPARE(f[0]->overlayPlot()->opacity(), 0.4f);
    QCOMPARE(f.find<QSlider>("opacSlider")->minimum(), 1);
    QCOMPARE(f.find<QSlider>("opacSlider")->maximum(), 100);
    f.type("opacEdit", "1");
    QCOMPARE(f[0]->overlayPlot()->opacity(), 0.01f);
    QCOMPARE(f.find<QSlider>("opacSlider")->value(), 1);
    f.type("opacEdit", "101");
    QCOMPARE(f.edit("opacEdit")->text(), QString("1"));
}

void ScaleMenuTest::anOverlayOfFullOpacityCoversTheData()
{
    MenuFixture f;
    for (auto& trace : f.ensemble.samples) std::fill(trace.begin(), trace.end(), 2.0f);
    f.box("opacBox")->click();
    f.load(f.ensemble);
    f[0]->overlayPlot()->setDisplayType(Map);
    f[0]->overlayPlot()->setNormalization(Normalize::None);
    f[0]->overlayPlot()->setRange(0.0f, 2.0f);  // the samples are the upper end
    const QPoint middle = f[0]->canvas()->mapTo(f[0], f[0]->canvas()->rect().center());
    const QRgb top = f.host.overlayBar.table().getColorRGB2(2.0);
    f[0]->rePlot();
    const auto distance = [&] {
        const QRgb seen = f[0]->grab().toImage().pixel(middle);
        return std::abs(qRed(seen) - qRed(top)) + std::abs(qGreen(seen) - qGreen(top)) +
               std::abs(qBlue(seen) - qBlue(top));
    };
    f.type("opacEdit", "100");
    QCOMPARE(distance(), 0);
    f.type("opacEdit", "1");
    QVERIFY(distance() > 200);
}

void ScaleMenuTest::eachControlRepaintsOnce()
{
    MenuFixture f;
    const auto renders = [&](const std::function<void()>& change) { return rendersOf(f[0], change); };
    for (const char* name : {"gridTBox", "gridTMinorBox", "gridSBox", "gridSMinorBox", "gridTBox", "agcBox", "phseBox"})
        QCOMPARE(renders([&] { f.box(name)->click(); }), 1);
    for (const char* name :
         {"gridTMajorEdit", "gridTMinorEdit", "gridSMajorEdit", "gridSMinorEdit", "agcEdit", "phseEdit"})
        QCOMPARE(renders([&] { f.type(name, "120"); }), 1);
    QCOMPARE(renders([&] { f.find<QSlider>("phseSlider")->setValue(30); }), 1);
    QCOMPARE(renders([&] { QTest::keyClick(f.find<QComboBox>("prilBox"), Qt::Key_Down); }), 1);
    QCOMPARE(renders([&] { QTest::keyClick(f.find<QComboBox>("seclBox"), Qt::Key_Down); }), 1);
    settle();
    const int before = f[0]->myCanvas()->renderCount();
    f.page->update();
    settle();
    QCOMPARE(f[0]->myCanvas()->renderCount(), before);
}

void ScaleMenuTest::everyControlHasATip()
{
    MenuFixture f;
    int nControls = 0;
    for (const QGroupBox* group : f.page->findChildren<QGroupBox*>())
        for (const QWidget* control : group->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (control->focusPolicy() == Qt::NoFocus) continue;
            QVERIFY2(!control->toolTip().isEmpty(), qPrintable(control->objectName()));
            ++nControls;
        }
    QCOMPARE(nControls, 20);
}

QTEST_MAIN(ScaleMenuTest)
#include "scalemenutest.moc"
