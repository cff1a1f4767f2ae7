/// The parts behind a display, each on a plain plot: layers of traces, axes, the zoom tool, the status lines.
#include "display/displayaxes.h"
#include "display/overlaylayer.h"
#include "display/seismicplot.h"
#include "display/statuslines.h"
#include "display/tools/canvastools.h"
#include "display/zoom/recordaxisscaledraw.h"
#include "display/zoom/zoomtool.h"
#include "tests/gui/displayfixture.h"
#include "tracedata/seismicdata.h"

#include <qwt_interval.h>
#include <qwt_scale_div.h>

class DisplayPartsTest : public QObject
{
    Q_OBJECT

private slots:
    void aLayerHasACopyOfTheSamplesTaken();
    void aLayerKnowsTheBatchThatItTookLast();
    void aLayerWithoutMemoryKeepsItsData();
    void aLayerGoesFromItsPlot();
    void anOverlayWithoutMemoryIsNotMade();
    void anOverlayShowsPositiveDataAsAMap();
    void anOverlayTakesEverySecondBatch();
    void anOverlayInViewTellsItsRecord();
    void axesShowWhatTheyAreSetTo();
    void movedAxesKeepTheirSpanAndStep();
    void scrollingReachesOverTheDataAndWhatIsShown();
    void aSliceCountsPositionsUntilTimesComeBack();
    void aNameForTheReadOutLeavesTheAxisTitle();
    void theZoomHearsOfTheCanvasOnlyByItsTools();
    void withoutThePlainButtonsTheZoomWantsCtrl();
    void aZoomOfAllTracesEndsTheZoomOfTracesOnly();
    void aMessageStandsBesideTheReadOutUntilTheNextOne();
    void aDisplayWithoutMemoryTellsItsWindow();
};

static const HeaderKeys keys = {WordFrom0(standardWordIndex("FFID    ")), WordFrom0(standardWordIndex("FFID    ")),
                                WordFrom0(standardWordIndex("CHAN    ")), WordFrom0(standardWordIndex("CHAN    "))};

static TraceBatch batchOf(TestEnsemble& ensemble, int firstSample, int nSamples)
{
    return {ensemble.traces.data(),
            ensemble.headers.data(),
            int(ensemble.traces.size()),
            firstSample,
            nSamples,
            standardWordCount,
            &segyWords()};
}

/// A batch that no memory holds; nothing of it is read before room is made.
static TraceBatch tooLarge(TestEnsemble& ensemble)
{
    TraceBatch batch = batchOf(ensemble, 0, 0x7fffffff);
    batch.n = 0x7fffffff;
    return batch;
}

void DisplayPartsTest::aLayerHasACopyOfTheSamplesTaken()
{
    QwtPlot plot;
    TraceLayer layer(&plot, nullptr, "data");
    TestEnsemble ensemble(4, 50);
    std::string error;
    QVERIFY(layer.take(batchOf(ensemble, 10, 20), keys, 0, &error));
    ensemble.samples[2][15] = -1.0f;
    QCOMPARE(layer.data()->traceCount(), 4);
    QCOMPARE(layer.data()->sampleCount(), 20);
    QCOMPARE(*layer.data()->getTraceValues(2, 5), 2015.0f);
    QCOMPARE(layer.data()->numHeaderWords(), int(standardWordCount));
    QCOMPARE(layer.data()->secKey(), keys.sec.value);
    layer.show(10, QRect(0, 0, 300, 200));
    QVERIFY(layer.plot()->isDataLoaded());
    QCOMPARE(layer.plot()->seisRect().nTraces, 4);
    QCOMPARE(layer.plot()->seisRect().nSamples, 20);
    QCOMPARE(layer.plot()->startSample(), 10);
    layer.clear();
    QVERIFY(!layer.plot()->isDataLoaded());
    QCOMPARE(layer.data()->traceCount(), 0);
}

void DisplayPartsTest::aLayerKnowsTheBatchThatItTookLast()
{
    QwtPlot plot;
    TraceLayer layer(&plot, nullptr, "data");
    TestEnsemble ensemble(4, 50);
    std::string error;
    layer.take(batchOf(ensemble, 10, 20), keys, 0, &error);
    QVERIFY(layer.holds(batchOf(ensemble, 10, 20)));
    QVERIFY(!layer.holds(batchOf(ensemble, 11, 20)));
    ensemble.samples[3][29] = -1.0f;
    QVERIFY(!layer.holds(batchOf(ensemble, 10, 20)));
}

void DisplayPartsTest::aLayerWithoutMemoryKeepsItsData()
{
    QwtPlot plot;
    TraceLayer layer(&plot, nullptr, "data");
    TestEnsemble ensemble(4, 50);
    std::string error;
    layer.take(batchOf(ensemble, 0, 50), keys, 0, &error);
    QVERIFY(!layer.take(tooLarge(ensemble), keys, 0, &error));
    QCOMPARE(error, std::string("MERIDUNE: loadSeismicData, error while getting memory, 2."));
    QCOMPARE(layer.data()->traceCount(), 4);
    QCOMPARE(*layer.data()->getTraceValues(3, 49), 3049.0f);
}

void DisplayPartsTest::aLayerGoesFromItsPlot()
{
    QwtPlot plot;
    {
        TraceLayer layer(&plot, nullptr, "data");
        QCOMPARE(plot.itemList().size(), 1);
    }
    QCOMPARE(plot.itemList().size(), 0);
}

/// An overlay over a layer of data.
struct OverlayFixture {
    TestHost host;
    QwtPlot plot;
    TraceLayer main{&plot, nullptr, "data"};
    OverlayLayer overlay{&plot, nullptr, &host};
    TestEnsemble ensemble{4, 50};
    std::string error;

    OverlayFixture() { main.take(batchOf(ensemble, 0, 50), keys, 0, &error); }
    bool load(const TraceBatch& batch)
    {
        return overlay.load(batch, keys, 0, *main.plot(), QRect(0, 0, 300, 200), &error);
    }
};

void DisplayPartsTest::anOverlayWithoutMemoryIsNotMade()
{
    OverlayFixture f;
    QVERIFY(!f.load(tooLarge(f.ensemble)));
    QVERIFY(!f.overlay.isMade());
    QVERIFY(!f.overlay.plot() && !f.overlay.data());
    QCOMPARE(f.plot.itemList().size(), 1);
    QVERIFY(!f.host.isOverlay);
    QVERIFY(f.load(batchOf(f.ensemble, 0, 50)));
    QVERIFY(f.overlay.isMade() && f.host.isOverlay);
    QVERIFY(!f.load(tooLarge(f.ensemble)));
    QCOMPARE(f.overlay.data()->traceCount(), 4);  // the former one stays
}

void DisplayPartsTest::anOverlayShowsPositiveDataAsAMap()
{
    OverlayFixture positive, signedData;
    positive.load(batchOf(positive.ensemble, 0, 50));
    QCOMPARE(positive.overlay.plot()->displayType(), Map);
    signedData.ensemble.samples[1][7] = -5.0f;
    signedData.load(batchOf(signedData.ensemble, 0, 50));
    QCOMPARE(signedData.overlay.plot()->displayType(), ColorB);
    QCOMPARE(signedData.overlay.plot()->rangeMin(), -3.0f);
    QCOMPARE(signedData.overlay.plot()->rangeMax(), 3.0f);
    QVERIFY(signedData.overlay.plot()->isTransparent());
    QVERIFY(signedData.overlay.plot()->z() > signedData.main.plot()->z());
}

void DisplayPartsTest::anOverlayTakesEverySecondBatch()
{
    OverlayFixture f;
    QVERIFY(f.overlay.isNext());
    f.load(batchOf(f.ensemble, 0, 50));
    QVERIFY(!f.overlay.isNext());
    f.overlay.setNext(true);
    QVERIFY(f.overlay.isNext());
}

void DisplayPartsTest::anOverlayInViewTellsItsRecord()
{
    OverlayFixture f;
    KeyColumn primary;
    primary.name = "FFID    ";
    QCOMPARE(f.overlay.record(keys, primary), QString());
    f.load(batchOf(f.ensemble, 0, 50));
    QCOMPARE(f.overlay.record(keys, primary), QString("FFID 7"));
    f.overlay.plot()->setVisible(false);
    QCOMPARE(f.overlay.record(keys, primary), QString());
    f.overlay.plot()->setVisible(true);
    f.overlay.clear();
    QCOMPARE(f.overlay.record(keys, primary), QString());
}

/// Axes over 500 samples of 4 ms, on a plot of 600 by 500.
struct AxesFixture {
    QwtPlot plot;
    DisplayAxes axes{&plot};

    AxesFixture()
    {
        plot.resize(600, 500);
        axes.setSampleRate(4.0f);
        axes.setWindow(0, 0, 500);
        axes.setTraceIncrement(5.0f, 21.0);
        axes.setTimeIncrement(500.0f, 500.0);
        plot.updateAxes();
    }
    const QwtScaleDiv& div(int axis) const { return plot.axisScaleDiv(axis); }
};

void DisplayPartsTest::axesShowWhatTheyAreSetTo()
{
    AxesFixture f;
    QCOMPARE(f.axes.visibleRect(), QRectF(0.0, 0.0, 21.0, 2000.0));
    QVERIFY(!f.div(QwtPlot::yLeft).isIncreasing());  // times run down
    QCOMPARE(f.axes.wholeHeight(), 2000.0);
    const QRectF part(4.0, 400.0, 10.0, 800.0);
    f.axes.setVisibleRect(part);
    f.plot.updateAxes();
    QCOMPARE(f.axes.visibleRect(), part);
    QVERIFY(!f.div(QwtPlot::yRight).isIncreasing());
    QCOMPARE(f.div(QwtPlot::xBottom).interval(), f.div(QwtPlot::xTop).interval());
    QCOMPARE(f.div(QwtPlot::yRight).interval(), f.div(QwtPlot::yLeft).interval());
}

void DisplayPartsTest::movedAxesKeepTheirSpanAndStep()
{
    AxesFixture f;
    f.axes.setVisibleRect(QRectF(4.0, 400.0, 10.0, 800.0));
    f.plot.updateAxes();
    const double xStep = f.plot.axisStepSize(QwtPlot::xTop), yStep = f.plot.axisStepSize(QwtPlot::yLeft);
    f.axes.moveTraces(9.0);
    f.axes.moveTimes(1000.0);
    f.plot.updateAxes();
    QCOMPARE(f.axes.visibleRect(), QRectF(9.0, 1000.0, 10.0, 800.0));
    QVERIFY(!f.div(QwtPlot::yLeft).isIncreasing());
    QCOMPARE(f.plot.axisStepSize(QwtPlot::xTop), xStep);
    QCOMPARE(f.plot.axisStepSize(QwtPlot::yLeft), yStep);
}

void DisplayPartsTest::scrollingReachesOverTheDataAndWhatIsShown()
{
    AxesFixture f;
    QCOMPARE(f.axes.panExtent(20), QSizeF(21.0, 2000.0));
    f.axes.setVisibleRect(QRectF(0.0, 0.0, 50.0, 800.0));  // a spacing that shows more traces than there are
    f.plot.updateAxes();
    f.axes.takeShown();
    QCOMPARE(f.axes.panExtent(20), QSizeF(50.0, 2000.0));
    f.axes.forgetShown();
    QCOMPARE(f.axes.panExtent(20), QSizeF(21.0, 2000.0));
}

void DisplayPartsTest::aSliceCountsPositionsUntilTimesComeBack()
{
    AxesFixture f;
    QVERIFY(f.axes.setDomain(8));
    QVERIFY(f.axes.setDomain(8));  // another slice is another thing
    f.axes.setWindow(0, 0, 80);
    f.axes.setSliceAxis("ILINE_NO", -120, 1500.0f);
    QVERIFY(f.axes.isSlice());
    QCOMPARE(f.axes.timeDirection(), 0);
    QCOMPARE(f.axes.wholeHeight(), 80.0);
    QCOMPARE(f.plot.axisTitle(QwtPlot::yLeft).text(), QString("ILINE_NO"));
    // Position 0 of the reversed axis is 120 less the 80 positions.
    QCOMPARE(f.plot.axisScaleDraw(QwtPlot::yLeft)->label(0.0).text(), QString("40"));
    f.axes.setTimeIncrement(10.0f, 60.0);
    f.plot.updateAxes();
    QVERIFY(f.div(QwtPlot::yLeft).isIncreasing());
    QCOMPARE(f.axes.visibleRect().top(), 20.0);
    KeyColumn primary;
    f.axes.showEnsemble("", primary, 7.0f, "p", "");
    QCOMPARE(f.plot.axisTitle(QwtPlot::xTop).text(), QString("SLC_TIME:1500  msec    p    Time: 1500  msec"));
    QVERIFY(f.axes.setDomain(0));
    QVERIFY(!f.axes.setDomain(0));
    f.axes.setTimeAxis();
    QCOMPARE(f.axes.timeDirection(), 1);
    QCOMPARE(f.plot.axisTitle(QwtPlot::yLeft).text(), QString("Time (msec)"));
    QCOMPARE(f.plot.axisScaleDraw(QwtPlot::yLeft)->label(0.0).text(), QString("0"));
}

void DisplayPartsTest::aNameForTheReadOutLeavesTheAxisTitle()
{
    AxesFixture f;
    f.axes.setVerticalTitle("Depth");
    QCOMPARE(f.axes.verticalName(), QString("Depth"));
    f.axes.nameVertical("Time (msec)");
    QCOMPARE(f.axes.verticalName(), QString("Time (msec)"));
    QCOMPARE(f.plot.axisTitle(QwtPlot::yLeft).text(), QString("Depth"));
}

/// A plot of its own with the zoom tool on it.
struct ZoomFixture {
    MyQwtPlot plot;
    ZoomTool zoom{&plot};
    CanvasTools tools{plot.canvas()};

    ZoomFixture()
    {
        plot.setAxisScale(QwtPlot::xTop, 0.0, 100.0);
        plot.setAxisScale(QwtPlot::yLeft, 1000.0, 0.0);
        plot.resize(500, 400);
        plot.show();
        plot.replot1();
        zoom.setBase(QRectF(0.0, 0.0, 100.0, 1000.0), QRectF(0.0, 0.0, 100.0, 1000.0));
        tools.setBase(&zoom);
    }
    void drag(Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        dragMouse(plot.canvas(), {100, 100}, {200, 200}, Qt::LeftButton, modifiers);
    }
};

void DisplayPartsTest::theZoomHearsOfTheCanvasOnlyByItsTools()
{
    ZoomFixture f;
    f.drag();
    QVERIFY(!f.zoom.isZoomed());
    f.zoom.setPlain(true);
    QTest::keyClick(f.plot.canvas(), Qt::Key_Plus);
    QCOMPARE(f.plot.axisScaleDiv(QwtPlot::xTop).range(), 100.0);
    f.tools.watchCanvas();
    f.drag();
    QVERIFY(f.zoom.isZoomed());
    f.zoom.zoomBack();
    QVERIFY(!f.zoom.isZoomed());
    QTest::keyClick(f.plot.canvas(), Qt::Key_Plus);
    QVERIFY(qAbs(f.plot.axisScaleDiv(QwtPlot::xTop).range() - 90.0) < 1e-9);  // once: 0.9 of what was shown
}

void DisplayPartsTest::withoutThePlainButtonsTheZoomWantsCtrl()
{
    ZoomFixture f;
    f.tools.watchCanvas();
    f.zoom.setPlain(false);
    QVERIFY(!f.zoom.isPlain());
    f.drag();
    QTest::keyClick(f.plot.canvas(), Qt::Key_Plus);
    QVERIFY(!f.zoom.isZoomed());
    QCOMPARE(f.plot.axisScaleDiv(QwtPlot::xTop).range(), 100.0);
    f.drag(Qt::ControlModifier);
    QVERIFY(f.zoom.isZoomed());
}

void DisplayPartsTest::aZoomOfAllTracesEndsTheZoomOfTracesOnly()
{
    ZoomFixture f;
    f.zoom.setOnly(true, true);
    f.zoom.dropOnlyAtWhole(QSizeF(50.0, 500.0), QSizeF(100.0, 1000.0));
    QVERIFY(f.zoom.isTimeOnly() && f.zoom.isTraceOnly());
    f.zoom.dropOnlyAtWhole(QSizeF(100.0, 500.0), QSizeF(100.0, 1000.0));
    QVERIFY(f.zoom.isTimeOnly() && !f.zoom.isTraceOnly());
    f.zoom.dropOnlyAtWhole(QSizeF(50.0, 1000.0005), QSizeF(100.0, 1000.0));  // single precision
    QVERIFY(!f.zoom.isTimeOnly());
}

void DisplayPartsTest::aMessageStandsBesideTheReadOutUntilTheNextOne()
{
    QStatusBar readout, control;
    StatusLines lines(&readout, &control);
    lines.showReadout("FFID: 7");
    lines.add("  picking");
    QCOMPARE(readout.currentMessage(), QString("FFID: 7  picking"));
    lines.add("  done");
    QCOMPARE(readout.currentMessage(), QString("FFID: 7  done"));
    lines.showReadout("FFID: 8");
    QCOMPARE(readout.currentMessage(), QString("FFID: 8"));
    lines.clear();
    QCOMPARE(readout.currentMessage(), QString());
    lines.showControl("MB1");
    QCOMPARE(control.currentMessage(), QString("MB1"));
    StatusLines none(nullptr, nullptr);
    none.showReadout("nowhere");
    none.add("nowhere");
    none.clear();
    none.showControl("nowhere");
}

/// Collects the lines of a display.
struct LineReport : PrintReport {
    void line(const std::string& text) override { lines.append(QString::fromStdString(text)); }
    QStringList lines;
};

struct LineHost : TestHost {
    Report& report() override { return lines; }
    LineReport lines;
};

void DisplayPartsTest::aDisplayWithoutMemoryTellsItsWindow()
{
    DisplayFixture f;
    LineHost host;
    SeismicDisplay display(nullptr, "Main Display", nullptr, nullptr, true, true, 0, &host);
    display.setColorBar(&f.bar);
    f.menu->_orvinruntime.numsmp = 0x7fffffff;  // more than any memory holds; nothing is read before room is made
    display.setMenu(f.menu.get());
    TestEnsemble ensemble(4, 500);
    QCOMPARE(display.loadSeismicData(ensemble.traces.data(), ensemble.headers.data(), 0x7fffffff, true), 1);
    QCOMPARE(host.lines.lines, QStringList({"MERIDUNE: loadSeismicData, error while getting memory, 2.\n"}));
    QCOMPARE(display.traceCount(), 0);
}

QTEST_MAIN(DisplayPartsTest)
#include "displaypartstest.moc"
