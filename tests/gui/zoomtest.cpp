/// Zoomer, panner and magnifier on a plain plot, and what they do to a display.
#include "display/images/myqwtplotcanvas.h"
#include "display/seismicplot.h"
#include "display/zoom/myqwtplotmagnifier.h"
#include "display/zoom/myqwtplotpanner.h"
#include "display/zoom/myqwtplotzoomer.h"
#include "display/zoom/recordaxisscaledraw.h"
#include "host/flow/stheader.h"
#include "tests/gui/displayfixture.h"
#include "tracedata/seismicdata.h"

#include <QPainter>
#include <QProcess>
#include <QSignalSpy>
#include <qwt_plot_layout.h>
#include <qwt_scale_div.h>
#include <qwt_scale_map.h>

#include <cmath>
#include <limits>

class ZoomTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { stHdrClear(); }
    void anotherRectangleIsPushedTheSameOneSaysNothing();
    void undoAndRedoWalkTheStack();
    void aPartOutsideTheBaseIsCutOff();
    void aSpareBaseIsNoZoom();
    void backFromAZoomIsWhatWasShownBefore();
    void theStackStopsAtItsDepth();
    void movingStopsAtTheEndsOfTheBase();
    void aDragOfOnePixelIsRefusedOneOfTwoIsTaken();
    void aRectangleWithoutAreaIsRefused();
    void panningARisingAxisStopsAtBothEnds();
    void panningAFallingAxisStopsAtBothEnds();
    void panningKeepsTheStepsAndLeavesDisabledAxes();
    void noPanGoesBelowZero();
    void theMagnifierScalesAboutTheMiddle();
    void factorsThatAreNoMagnificationDoNothing();
    void aDragWithTheMagnifiersButtonScales();
    void aDragThatIsCutOffLeavesTheMouseFree();
    void withAPickerPlainButtonsDoNotZoomOrPan();
    void endingAnotherModeLeavesThePickerOn();
    void aTimeZoomTakesTheTracesOfTheNextEnsemble();
    void aSistersZoomAndPanDoNotComeBack();
    void zoomFlagsEndWithTheZoom();
    void aSliceHasPositionsInsteadOfTimes();
    void aSliceOfNegativeNumbersRunsUpward();
    void aReversedSliceOfAFixedSpacingStartsAtItsFirstPosition();
    void aTimeWindowDoesNotReachIntoASlice();
    void timesReturnAfterASlice();
    void spacingsFollowTheMenuThenTheRate();
    void aWindowPastTheEndOfTheTraceStopsThere();
    void aWindowWithoutSamplesIsHarmless();
    void aLongerFileLeavesTheTracesInViewTheirSizes();
    void aResizeGoesBackToTheWholeData();
    void oneTraceAndFewSamplesAreShown();
    void samplesThatAreNoNumbersAreShown();
    void farZoomsAreHarmless();
    void aDisplayWithoutSizeTakesData();
    void labelsOfVerticalTracesAreTurned();
    void theSameHoldsAtADeviceRatioOfTwo();
    void thePictureHasTheDevicesPixels();
};

/// 400 by 300, traces 0 to 100 on top and bottom, values 0 to 1000 left and right.
struct PlainPlot {
    MyQwtPlot plot;

    explicit PlainPlot(bool isFalling = true)
    {
        plot.plotLayout()->setAlignCanvasToScales(true);
        plot.plotLayout()->setCanvasMargin(0);
        for (const int axis : {QwtPlot::xTop, QwtPlot::xBottom}) plot.setAxisScale(axis, 0.0, 100.0, 10.0);
        for (const int axis : {QwtPlot::yLeft, QwtPlot::yRight})
            isFalling ? plot.setAxisScale(axis, 1000.0, 0.0, 100.0) : plot.setAxisScale(axis, 0.0, 1000.0, 100.0);
        plot.enableAxis(QwtPlot::xTop);
        plot.enableAxis(QwtPlot::xBottom, false);
        plot.resize(400, 300);
        plot.show();
        plot.replot();
    }

    QwtInterval shown(int axis) const { return plot.axisScaleDiv(axis).interval().normalized(); }
    void show(int axis, double from, double to)
    {
        plot.setAxisScale(axis, from, to, 100.0);
        plot.replot();
    }
};

/// Lets a test offer a polygon and limits.
class OpenZoomer : public MyQwtPlotZoomer
{
public:
    explicit OpenZoomer(QWidget* canvas) : MyQwtPlotZoomer(QwtPlot::xTop, QwtPlot::yLeft, canvas) {}
    using MyQwtPlotZoomer::accept;
    using MyQwtPlotZoomer::minZoomSize;
};

static QwtInterval shown(SeismicDisplay* display, int axis)
{
    return display->axisScaleDiv(axis).interval().normalized();
}

static const QRectF first(20.0, 200.0, 40.0, 400.0), second(30.0, 300.0, 10.0, 100.0);

void ZoomTest::anotherRectangleIsPushedTheSameOneSaysNothing()
{
    PlainPlot p;
    OpenZoomer zoomer(p.plot.canvas());
    QSignalSpy zoomed(&zoomer, &MyQwtPlotZoomer::zoomed);
    QCOMPARE(zoomer.zoomBase(), QRectF(0.0, 0.0, 100.0, 1000.0));
    QCOMPARE(zoomer.minZoomSize(), QSizeF(0.001, 0.01));
    QVERIFY(!zoomer.isZoomed());
    zoomer.zoom(zoomer.zoomBase());
    QCOMPARE(zoomed.count(), 0);
    zoomer.zoom(QRectF(60.0, 600.0, -40.0, -400.0));  // from the lower right corner
    QCOMPARE(zoomed.count(), 1);
    QCOMPARE(zoomed[0][0].toRectF(), first);
    QVERIFY(zoomer.isZoomed());
    QCOMPARE(p.shown(QwtPlot::xTop), QwtInterval(20.0, 60.0));
    QCOMPARE(p.plot.axisScaleDiv(QwtPlot::yLeft).lowerBound(), 600.0);  // still falling
    zoomer.zoom(first);
    QCOMPARE(zoomed.count(), 1);
    QCOMPARE(zoomer.zoomStack().size(), 2);
}

void ZoomTest::undoAndRedoWalkTheStack()
{
    PlainPlot p;
    OpenZoomer zoomer(p.plot.canvas());
    zoomer.zoom(first);
    zoomer.zoom(second);
    zoomer.zoom(-1);
    QCOMPARE(zoomer.zoomRect(), first);
    zoomer.zoom(+1);
    QCOMPARE(zoomer.zoomRect(), second);
    zoomer.zoom(+5);  // no further than the last
    QCOMPARE(zoomer.zoomRectIndex(), 2);
    zoomer.zoom(0);
    QCOMPARE(zoomer.zoomRectIndex(), 0);
    QCOMPARE(p.shown(QwtPlot::yLeft), QwtInterval(0.0, 1000.0));
    zoomer.zoom(+1);
    QCOMPARE(zoomer.zoomRect(), first);
    zoomer.zoom(QRectF(40.0, 400.0, 10.0, 100.0));  // a new branch
    QCOMPARE(zoomer.zoomStack().size(), 3);
    QTest::keyClick(p.plot.canvas(), Qt::Key_Escape);
    QVERIFY(!zoomer.isZoomed());
    QTest::keyClick(p.plot.canvas(), Qt::Key_Plus);
    QCOMPARE(zoomer.zoomRect(), first);
    QTest::keyClick(p.plot.canvas(), Qt::Key_Minus);
    QVERIFY(!zoomer.isZoomed());
}

void ZoomTest::aPartOutsideTheBaseIsCutOff()
{
    PlainPlot p;
    OpenZoomer zoomer(p.plot.canvas());
    zoomer.zoom(QRectF(90.0, 900.0, 50.0, 500.0));
    QCOMPARE(zoomer.zoomRect(), QRectF(90.0, 900.0, 10.0, 100.0));
    zoomer.zoom(QRectF(200.0, 2000.0, 50.0, 500.0));
    QCOMPARE(zoomer.zoomRectIndex(), 1);
}

void ZoomTest::aSpareBaseIsNoZoom()
{
    PlainPlot p;
    OpenZoomer zoomer(p.plot.canvas());
    zoomer.setZoomBase(QRectF(0.0, 0.0, 200.0, 1000.0));  // the axes show half of it
    QCOMPARE(zoomer.zoomStack().size(), 2);
    QCOMPARE(zoomer.zoomRectIndex(), 1);
    QVERIFY(!zoomer.isZoomed());
    zoomer.zoom(first);
    QVERIFY(zoomer.isZoomed());
    zoomer.zoom(-1);
    QVERIFY(!zoomer.isZoomed());
    QCOMPARE(p.shown(QwtPlot::xTop), QwtInterval(0.0, 100.0));
}

void ZoomTest::backFromAZoomIsWhatWasShownBefore()
{
    PlainPlot p;
    OpenZoomer zoomer(p.plot.canvas());
    zoomer.setZoomBase(QRectF(0.0, 0.0, 200.0, 2000.0));  // the axes show a quarter of it
    p.show(QwtPlot::xTop, 80.0, 180.0);                   // panned
    QCOMPARE(zoomer.restRect(), QRectF(80.0, 0.0, 100.0, 1000.0));
    zoomer.zoom(QRectF(150.0, 100.0, 20.0, 100.0));
    QCOMPARE(zoomer.zoomRect(), QRectF(150.0, 100.0, 20.0, 100.0));
    zoomer.zoom(QRectF(155.0, 120.0, 10.0, 50.0));
    zoomer.zoom(0);
    QVERIFY(!zoomer.isZoomed());
    QCOMPARE(p.shown(QwtPlot::xTop), QwtInterval(80.0, 180.0));
    zoomer.zoom(-1);  // nothing lies behind it
    QCOMPARE(p.shown(QwtPlot::xTop), QwtInterval(80.0, 180.0));
    QVERIFY(!zoomer.isZoomed());
}

void ZoomTest::theStackStopsAtItsDepth()
{
    PlainPlot p;
    OpenZoomer zoomer(p.plot.canvas());
    QCOMPARE(zoomer.maxStackDepth(), -1);
    zoomer.zoom(first);
    zoomer.zoom(second);
    zoomer.setMaxStackDepth(1);
    QCOMPARE(zoomer.zoomRect(), first);
    QCOMPARE(zoomer.zoomStack().size(), 2);
    zoomer.zoom(second);
    QCOMPARE(zoomer.zoomRect(), first);
    zoomer.zoom(0);
    zoomer.zoom(second);
    QCOMPARE(zoomer.zoomRect(), second);
}

void ZoomTest::movingStopsAtTheEndsOfTheBase()
{
    PlainPlot p;
    OpenZoomer zoomer(p.plot.canvas());
    zoomer.zoom(first);
    zoomer.moveBy(10.0, 50.0);
    QCOMPARE(zoomer.zoomRect(), QRectF(30.0, 250.0, 40.0, 400.0));
    QCOMPARE(p.shown(QwtPlot::xTop), QwtInterval(30.0, 70.0));
    zoomer.move(500.0, 5000.0);
    QCOMPARE(zoomer.zoomRect(), QRectF(60.0, 600.0, 40.0, 400.0));
    zoomer.move(-500.0, -5000.0);
    QCOMPARE(zoomer.zoomRect(), QRectF(0.0, 0.0, 40.0, 400.0));
    QCOMPARE(zoomer.zoomStack().size(), 2);
}

void ZoomTest::aDragOfOnePixelIsRefusedOneOfTwoIsTaken()
{
    PlainPlot p;
    const OpenZoomer zoomer(p.plot.canvas());
    QPolygon one(QVector<QPoint>{{50, 60}, {50, 60}}), two(QVector<QPoint>{{51, 60}, {50, 60}});
    QPolygon none(QVector<QPoint>{{50, 60}});
    QVERIFY(!zoomer.accept(none));
    QVERIFY(!zoomer.accept(one));
    QVERIFY(zoomer.accept(two));
    QCOMPARE(two, QPolygon(QVector<QPoint>{{50, 60}, {51, 60}}));
    QPolygon path(QVector<QPoint>{{90, 10}, {70, 200}, {50, 60}});
    QVERIFY(zoomer.accept(path));
    QCOMPARE(path, QPolygon(QVector<QPoint>{{50, 10}, {90, 60}}));
}

void ZoomTest::aRectangleWithoutAreaIsRefused()
{
    PlainPlot p;
    OpenZoomer zoomer(p.plot.canvas());
    const double nan = std::numeric_limits<double>::quiet_NaN();
    zoomer.zoom(QRectF(10.0, 10.0, 0.0, 100.0));
    zoomer.zoom(QRectF(10.0, 10.0, nan, 100.0));
    zoomer.zoom(QRectF(nan, nan, nan, nan));
    QCOMPARE(zoomer.zoomStack().size(), 1);
}

void ZoomTest::panningARisingAxisStopsAtBothEnds()
{
    PlainPlot p(false);
    MyQwtPlotPanner panner(p.plot.canvas());
    panner.setMinMax(0.0, 100.0, 0.0, 1000.0, 50.0, 0);
    p.show(QwtPlot::yLeft, 300.0, 500.0);
    // 0.5 of the height towards the bottom of a rising scale: half a span less.
    panner.moveCanvas(0, p.plot.canvas()->height() / 2);
    QVERIFY(qAbs(p.shown(QwtPlot::yLeft).minValue() - 200.0) < 1.0);
    panner.moveCanvas(0, 100000);
    QCOMPARE(p.shown(QwtPlot::yLeft), QwtInterval(50.0, 250.0));
    panner.moveCanvas(0, -100000);
    QCOMPARE(p.shown(QwtPlot::yLeft), QwtInterval(850.0, 1050.0));
}

void ZoomTest::panningAFallingAxisStopsAtBothEnds()
{
    PlainPlot p;
    MyQwtPlotPanner panner(p.plot.canvas());
    panner.setMinMax(0.0, 100.0, 0.0, 1000.0, 50.0, 1);
    p.show(QwtPlot::yLeft, 500.0, 300.0);
    panner.moveCanvas(0, p.plot.canvas()->height() / 2);  // down: earlier by half a span
    QVERIFY(qAbs(p.shown(QwtPlot::yLeft).minValue() - 200.0) < 1.0);
    panner.moveCanvas(0, 100000);
    QCOMPARE(p.shown(QwtPlot::yLeft), QwtInterval(50.0, 250.0));
    QVERIFY(!p.plot.axisScaleDiv(QwtPlot::yLeft).isIncreasing());
    panner.moveCanvas(0, -100000);
    QCOMPARE(p.shown(QwtPlot::yLeft), QwtInterval(850.0, 1050.0));
}

void ZoomTest::panningKeepsTheStepsAndLeavesDisabledAxes()
{
    PlainPlot p;
    MyQwtPlotPanner panner(p.plot.canvas());
    panner.setXIncrement(5.0);
    panner.setYIncrement(50.0);
    panner.setAxisEnabled(QwtPlot::xBottom, false);
    QVERIFY(!panner.isAxisEnabled(QwtPlot::xBottom));
    QVERIFY(!panner.isAxisEnabled(-1));
    panner.moveCanvas(0, 0);
    QCOMPARE(p.plot.axisStepSize(QwtPlot::xTop), 10.0);
    panner.moveCanvas(-20, -20);
    QCOMPARE(p.plot.axisStepSize(QwtPlot::xTop), 5.0);
    QCOMPARE(p.plot.axisStepSize(QwtPlot::yRight), 50.0);
    QVERIFY(p.shown(QwtPlot::xTop).minValue() > 1.0);
    QVERIFY(panner.isPanned());
    QCOMPARE(p.shown(QwtPlot::xBottom), QwtInterval(0.0, 100.0));
    QCOMPARE(p.plot.axisStepSize(QwtPlot::xBottom), 10.0);
}

void ZoomTest::noPanGoesBelowZero()
{
    PlainPlot p;
    MyQwtPlotPanner panner(p.plot.canvas());  // without limits
    panner.moveCanvas(p.plot.canvas()->width() / 2, 0);
    QCOMPARE(p.shown(QwtPlot::xTop).minValue(), 0.0);
    QVERIFY(qAbs(p.shown(QwtPlot::xTop).maxValue() - 50.0) < 1.0);
}

void ZoomTest::theMagnifierScalesAboutTheMiddle()
{
    PlainPlot p;
    MyQwtPlotMagnifier magnifier(p.plot.canvas());
    magnifier.setXIncrement(5.0);
    magnifier.setYIncrement(50.0);
    magnifier.setAxisEnabled(QwtPlot::yRight, false);
    magnifier.rescale(0.5);
    QCOMPARE(p.shown(QwtPlot::xTop), QwtInterval(25.0, 75.0));
    QCOMPARE(p.shown(QwtPlot::yLeft), QwtInterval(250.0, 750.0));
    QVERIFY(!p.plot.axisScaleDiv(QwtPlot::yLeft).isIncreasing());
    QCOMPARE(p.shown(QwtPlot::yRight), QwtInterval(0.0, 1000.0));
    QCOMPARE(p.plot.axisStepSize(QwtPlot::xBottom), 5.0);
    QCOMPARE(p.plot.axisStepSize(QwtPlot::yLeft), 50.0);
}

void ZoomTest::factorsThatAreNoMagnificationDoNothing()
{
    PlainPlot p;
    MyQwtPlotMagnifier magnifier(p.plot.canvas());
    magnifier.setKeyFactor(0.0);  // zooming out by it would be a division by 0
    QTest::keyClick(p.plot.canvas(), Qt::Key_Minus);
    for (const double factor :
         {0.0, 1.0, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()})
        magnifier.rescale(factor);
    QCOMPARE(p.shown(QwtPlot::xTop), QwtInterval(0.0, 100.0));
    for (int i = 0; i < 8000; ++i) magnifier.rescale(2.0);  // far past the largest number
    QVERIFY(std::isfinite(p.shown(QwtPlot::xTop).maxValue()));
}

static void press(QWidget* widget, const QPoint& from, const QPoint& to)
{
    QTest::mousePress(widget, Qt::RightButton, Qt::NoModifier, from);
    QMouseEvent move(QEvent::MouseMove, to, Qt::NoButton, Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
}

void ZoomTest::aDragWithTheMagnifiersButtonScales()
{
    PlainPlot p;
    MyQwtPlotMagnifier magnifier(p.plot.canvas());
    p.plot.canvas()->setMouseTracking(false);
    press(p.plot.canvas(), QPoint(50, 50), QPoint(50, 60));
    QVERIFY(p.plot.canvas()->hasMouseTracking());
    QVERIFY(qAbs(p.shown(QwtPlot::xTop).width() - 95.0) < 1e-9);  // down: 0.95
    QTest::mouseRelease(p.plot.canvas(), Qt::RightButton, Qt::NoModifier, QPoint(50, 60));
    QVERIFY(!p.plot.canvas()->hasMouseTracking());
    press(p.plot.canvas(), QPoint(50, 50), QPoint(50, 49));
    QVERIFY(qAbs(p.shown(QwtPlot::xTop).width() - 100.0) < 1e-9);  // up: 1 / 0.95
}

void ZoomTest::aDragThatIsCutOffLeavesTheMouseFree()
{
    PlainPlot p;
    MyQwtPlotMagnifier magnifier(p.plot.canvas());
    p.plot.canvas()->setMouseTracking(false);
    press(p.plot.canvas(), QPoint(50, 50), QPoint(50, 50));
    magnifier.setEnabled(false);
    QVERIFY(!p.plot.canvas()->hasMouseTracking());
    magnifier.setEnabled(true);
    QMouseEvent move(QEvent::MouseMove, QPoint(50, 90), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(p.plot.canvas(), &move);
    QCOMPARE(p.shown(QwtPlot::xTop), QwtInterval(0.0, 100.0));
}

void ZoomTest::withAPickerPlainButtonsDoNotZoomOrPan()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    SeismicDisplay* display = fixture[0];
    display->setFBPicker(true);
    dragMouse(display->canvas(), QPoint(50, 50), QPoint(200, 200), Qt::LeftButton);
    dragMouse(display->canvas(), QPoint(200, 200), QPoint(100, 100), Qt::MiddleButton);
    QVERIFY(!display->isZoomed());
    QVERIFY(!display->isPanned());
    QTest::keyClick(display->canvas(), Qt::Key_Plus);  // the magnifier rests too
    QVERIFY(qAbs(shown(display, QwtPlot::yLeft).width() - 2000.0) < 0.1);
    dragMouse(display->canvas(), QPoint(50, 50), QPoint(200, 200), Qt::LeftButton, Qt::ControlModifier);
    QVERIFY(display->isZoomed());
    const double before = shown(display, QwtPlot::yLeft).minValue();
    dragMouse(display->canvas(), QPoint(200, 200), QPoint(150, 150), Qt::MiddleButton, Qt::ControlModifier);
    QVERIFY(shown(display, QwtPlot::yLeft).minValue() > before);
    QTest::mouseClick(display->canvas(), Qt::RightButton, Qt::NoModifier, QPoint(50, 50));
    QVERIFY(display->isZoomed());
    QTest::mouseClick(display->canvas(), Qt::RightButton, Qt::ControlModifier, QPoint(50, 50));
    QVERIFY(!display->isZoomed());
}

void ZoomTest::endingAnotherModeLeavesThePickerOn()
{
    DisplayFixture fixture;
    fixture[0]->setFBPicker(true);
    fixture[0]->setVelPicker(false);
    QVERIFY(fixture[0]->tool() == &fixture[0]->pickers()[Picker::FirstBreaks]);
    fixture[0]->showDisplay(-1);
    QVERIFY(fixture[0]->tool() == &fixture[0]->pickers()[Picker::FirstBreaks]);
    QVERIFY(fixture.control.currentMessage().endsWith("   First break picking is on"));
    fixture[0]->showDisplay(2);
    fixture[0]->showDisplay(-1);
    QVERIFY(fixture[0]->tool() == fixture[0]->zoomTool());
}

void ZoomTest::aTimeZoomTakesTheTracesOfTheNextEnsemble()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500), wider(30, 500);
    fixture.load(ensemble);
    fixture[0]->setTimeZoom(true, false);
    fixture[0]->setZoomRect(QRectF(0.0, 400.0, 21.0, 800.0));
    fixture.load(wider);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::xTop).maxValue() - 31.0) < 1e-3);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).minValue() - 400.0) < 1e-6);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).width() - 800.0) < 1e-6);
}

void ZoomTest::aSistersZoomAndPanDoNotComeBack()
{
    DisplayFixture fixture(2);
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble, 0);
    fixture.load(ensemble, 1);
    fixture[0]->setZoomRect(QRectF(5.0, 400.0, 5.0, 800.0));
    QVERIFY(!fixture.host.isZooming());
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::xTop).width() - 5.0) < 1e-6);  // an echo would have made it whole
    QVERIFY(qAbs(shown(fixture[1], QwtPlot::xTop).width() - 21.0) < 1e-3);
    const double before = shown(fixture[1], QwtPlot::yLeft).minValue();
    const int pixels = fixture[0]->canvas()->height() / 8;  // of 800 ms
    dragMouse(fixture[0]->canvas(), QPoint(200, 200), QPoint(200, 200 - pixels), Qt::MiddleButton);
    const double moved = 800.0 * pixels / fixture[0]->canvas()->height();
    const double aPixel = 800.0 / fixture[0]->canvas()->height();
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).minValue() - 400.0 - moved) < 2.0 * aPixel);  // once, not twice
    QVERIFY(qAbs(shown(fixture[1], QwtPlot::yLeft).minValue() - before - moved) < 2.0 * aPixel);
}

void ZoomTest::zoomFlagsEndWithTheZoom()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500), wider(30, 500);
    fixture.load(ensemble);
    fixture[0]->setTimeZoom(true, false);
    fixture[0]->setZoomRect(QRectF(0.0, 400.0, 21.0, 800.0));
    QTest::mouseClick(fixture[0]->canvas(), Qt::RightButton, Qt::NoModifier, QPoint(50, 50));
    fixture[0]->setZoomRect(QRectF(5.0, 400.0, 5.0, 800.0));  // traces and times: the next ensemble keeps both
    fixture.load(wider);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::xTop).minValue() - 5.0) < 1e-6);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::xTop).width() - 5.0) < 1e-6);
}

/// A slice of 20 by 100 positions along the inlines, its first line number `line`.
static void loadSlice(DisplayFixture* fixture, TestEnsemble* ensemble, int line)
{
    stHdrClear();  // the flow's list names the words
    for (const StandardWord& word : standardWords) stHdrAddStd(word.name);
    fixture->menu->dotrevia = 1;
    fixture->menu->iskey = fixture->menu->iskeyreal = standardWordIndex("XLINE_NO") + 1;
    (*fixture)[0]->setMenu(fixture->menu.get());
    for (auto& words : ensemble->words) words[standardWordIndex("ILINE_NO")] = line;
    (*fixture)[0]->setDomain(8, 0, 100, 4.0f);
    fixture->load(*ensemble);
}

void ZoomTest::aSliceHasPositionsInsteadOfTimes()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 100);
    loadSlice(&fixture, &ensemble, 300);
    SeismicDisplay* display = fixture[0];
    QCOMPARE(display->axisTitle(QwtPlot::yLeft).text(), QString("ILINE_NO"));
    QCOMPARE(display->timeDirection(), 1);
    QVERIFY(qAbs(shown(display, QwtPlot::yLeft).maxValue() - 100.0) < 1e-3);  // positions, whatever the rate
    QVERIFY(!display->axisScaleDiv(QwtPlot::yLeft).isIncreasing());
    QCOMPARE(display->axisScaleDraw(QwtPlot::yLeft)->label(20.0).text(), QString("320"));
    QVERIFY(display->axisTitle(QwtPlot::xTop).text().startsWith("SLC_TIME:"));
    QVERIFY(display->axisScaleDiv(QwtPlot::yLeft).ticks(QwtScaleDiv::MajorTick).size() >= 3);
    display->panVertically(-100000);
    QVERIFY(qAbs(shown(display, QwtPlot::yLeft).maxValue() - 100.0) < 1e-3);  // all of it is in view already
}

void ZoomTest::aSliceOfNegativeNumbersRunsUpward()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 100);
    loadSlice(&fixture, &ensemble, -300);
    SeismicDisplay* display = fixture[0];
    QCOMPARE(display->timeDirection(), 0);
    QVERIFY(display->axisScaleDiv(QwtPlot::yLeft).isIncreasing());
    QVERIFY(qAbs(shown(display, QwtPlot::yLeft).maxValue() - 100.0) < 1e-3);
    // The first sample stands at the top, at 100; 300 less 100 samples is the start.
    QCOMPARE(display->axisScaleDraw(QwtPlot::yLeft)->label(100.0).text(), QString("300"));
    QCOMPARE(display->axisScaleDraw(QwtPlot::yLeft)->label(80.0).text(), QString("280"));
}

void ZoomTest::aReversedSliceOfAFixedSpacingStartsAtItsFirstPosition()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 100);
    loadSlice(&fixture, &ensemble, -300);
    SeismicPlot* plot = fixture[0]->seismicPlot();
    const double height = fixture[0]->canvas()->contentsRect().height();
    plot->setAutoSampleSpacing(false);
    for (const double shown : {40.0, 250.0}) {  // of 100; the axis runs up, its first position is at the top
        plot->setSampleSpacing(float(shown * plot->dpi() / height));
        fixture[0]->rebuildDisplay(false);
        const QwtScaleDiv scale = fixture[0]->axisScaleDiv(QwtPlot::yLeft);
        QVERIFY(qAbs(scale.upperBound() - 100.0) < 1e-3);
        QVERIFY(qAbs(scale.lowerBound() - std::max(0.0, 100.0 - shown)) < 1e-3);
    }
}

void ZoomTest::aTimeWindowDoesNotReachIntoASlice()
{
    DisplayFixture fixture;
    fixture.menu->stime = 1200;  // sample 300 of 500; the slice has 100
    TestEnsemble ensemble(20, 100);
    loadSlice(&fixture, &ensemble, 300);
    QCOMPARE(fixture[0]->firstSample(), 0);
    QCOMPARE(fixture[0]->seismicData()->sampleCount(), 100);
    QCOMPARE(*fixture[0]->seismicData()->getTraceValues(3, 99), 3099.0f);
}

void ZoomTest::timesReturnAfterASlice()
{
    DisplayFixture fixture;
    TestEnsemble slice(20, 100), ensemble(20, 500);
    loadSlice(&fixture, &slice, -300);
    fixture[0]->setDomain(0, 0, 500, 4.0f);
    fixture.load(ensemble);
    QCOMPARE(fixture[0]->axisTitle(QwtPlot::yLeft).text(), QString("Time (msec)"));
    QCOMPARE(fixture[0]->timeDirection(), 1);
    QCOMPARE(fixture[0]->axisScaleDraw(QwtPlot::yLeft)->label(500.0).text(), QString("500"));
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).maxValue() - 2000.0) < 0.1);
    QVERIFY(!fixture[0]->isZoomed());  // a change of domain shows all
}

void ZoomTest::spacingsFollowTheMenuThenTheRate()
{
    DisplayFixture fixture;
    QVERIFY(fixture[0]->seismicPlot()->isAutoTraceSpacing());  // tpi and ips are 0
    QVERIFY(fixture[0]->seismicPlot()->isAutoSampleSpacing());
    fixture.menu->tpi = 12.0f;
    fixture.menu->ips = 5.0f;
    fixture[0]->setMenu(fixture.menu.get());
    QVERIFY(!fixture[0]->seismicPlot()->isAutoTraceSpacing());
    QCOMPARE(fixture[0]->seismicPlot()->traceSpacing(), 12.0f);
    QCOMPARE(fixture[0]->seismicPlot()->sampleSpacing(), 100.0f);  // (1 / 5) / 0.002
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    QCOMPARE(fixture[0]->seismicPlot()->sampleSpacing(), 50.0f);  // (1 / 5) / 0.004
}

void ZoomTest::aWindowPastTheEndOfTheTraceStopsThere()
{
    DisplayFixture fixture;
    fixture.menu->stime = 1000;
    fixture.menu->etime = 9000;
    fixture[0]->setMenu(fixture.menu.get());
    TestEnsemble ensemble(3, 500);
    fixture.load(ensemble);
    QCOMPARE(fixture[0]->seismicData()->sampleCount(), 250);
    QCOMPARE(*fixture[0]->seismicData()->getTraceValues(2, 249), 2499.0f);
    fixture.menu->etime = 0;  // the whole rest
    fixture[0]->setMenu(fixture.menu.get());
    fixture.load(ensemble);
    QCOMPARE(fixture[0]->seismicData()->sampleCount(), 250);
}

void ZoomTest::aWindowWithoutSamplesIsHarmless()
{
    DisplayFixture fixture;
    fixture.menu->stime = 9000;
    fixture[0]->setMenu(fixture.menu.get());
    TestEnsemble ensemble(3, 500);
    QCOMPARE(fixture.load(ensemble), 0);
    fixture[0]->grab();
    QCOMPARE(fixture[0]->readoutAt(QPoint(50, 50)), QString());
    dragMouse(fixture[0]->canvas(), QPoint(50, 50), QPoint(200, 200), Qt::LeftButton);
    QTest::keyClick(fixture[0]->canvas(), Qt::Key_Plus);
    fixture[0]->grab();
}

void ZoomTest::aLongerFileLeavesTheTracesInViewTheirSizes()
{
    DisplayFixture fixture(1, 100);
    TestEnsemble ensemble(20, 100), longer(20, 5000);
    fixture.load(ensemble);
    const int words = fixture[0]->seismicData()->numHeaderWords();
    fixture.menu->_orvinruntime.numsmp = 5000;
    fixture.menu->_orvinruntime.nth = words / 2;
    fixture[0]->setMenu(fixture.menu.get());  // measures the traces, which have 100 samples still
    QCOMPARE(fixture[0]->seismicData()->sampleCount(), 100);
    QCOMPARE(fixture[0]->seismicData()->numHeaderWords(), words);
    QVERIFY(fixture[0]->readoutAt(fixture[0]->canvas()->rect().bottomRight() - QPoint(1, 1)).endsWith("19099"));
    fixture.load(longer);
    QCOMPARE(fixture[0]->seismicData()->sampleCount(), 5000);
    QCOMPARE(fixture[0]->seismicData()->numHeaderWords(), words / 2);
}

void ZoomTest::aResizeGoesBackToTheWholeData()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    fixture[0]->setZoomRect(QRectF(5.0, 400.0, 5.0, 800.0));
    fixture[0]->resize(700, 600);
    QTRY_VERIFY(!fixture[0]->isZoomed());
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::xTop).width() - 21.0) < 1e-3);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).width() - 2000.0) < 0.1);
}

void ZoomTest::oneTraceAndFewSamplesAreShown()
{
    for (const int nSamples : {1, 2}) {
        DisplayFixture fixture(1, nSamples);
        TestEnsemble ensemble(1, nSamples);
        QCOMPARE(fixture.load(ensemble), 0);
        fixture[0]->grab();
        QVERIFY(shown(fixture[0], QwtPlot::xTop).maxValue() >= 2.0);  // a trace is never wider than an inch
        QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).maxValue() - 4.0 * nSamples) < 1e-3);
        const int onTrace = qRound(fixture[0]->canvasMap(QwtPlot::xTop).transform(1.0));
        QVERIFY(fixture[0]
                    ->readoutAt(QPoint(onTrace, 400))
                    .contains(nSamples == 1 ? "Amp:          0" : "Amp:          1"));
        QVERIFY(!fixture[0]->readoutAt(QPoint(500, 400)).contains("Amp:"));  // where no trace stands
    }
}

void ZoomTest::samplesThatAreNoNumbersAreShown()
{
    DisplayFixture fixture(1, 50);
    TestEnsemble ensemble(5, 50);
    for (auto& trace : ensemble.samples) std::fill(trace.begin(), trace.end(), std::numeric_limits<float>::quiet_NaN());
    QCOMPARE(fixture.load(ensemble), 0);
    fixture[0]->grab();
    QVERIFY(fixture[0]->readoutAt(QPoint(50, 50)).endsWith("nan"));
    QCOMPARE(fixture[0]->computeRMS(true), 0.0f);
}

void ZoomTest::farZoomsAreHarmless()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    const QRectF base = fixture[0]->zoomBase();
    fixture[0]->setZoomRect(QRectF(5.0, 400.0, base.width() / 100000.0, base.height() / 100000.0));
    fixture[0]->grab();
    QVERIFY(fixture[0]->readoutAt(QPoint(50, 50)).contains("105"));
    fixture[0]->resetZoom(-1);
    for (int i = 0; i < 300; ++i) QTest::keyClick(fixture[0]->canvas(), Qt::Key_Plus);
    fixture[0]->grab();
    fixture[0]->resetZoom(-1);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).width() - 2000.0) < 0.1);
    for (int i = 0; i < 300; ++i) QTest::keyClick(fixture[0]->canvas(), Qt::Key_Minus);
    fixture[0]->grab();
    for (const int axis : {QwtPlot::xTop, QwtPlot::yLeft})  // no more ticks than pixels
        QVERIFY(fixture[0]->axisScaleDiv(axis).ticks(QwtScaleDiv::MajorTick).size() <= 602);
    fixture[0]->resetZoom(-1);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).width() - 2000.0) < 0.1);
}

void ZoomTest::aDisplayWithoutSizeTakesData()
{
    DisplayFixture fixture;
    fixture[0]->resize(0, 0);
    TestEnsemble ensemble(20, 500);
    QCOMPARE(fixture.load(ensemble), 0);
    fixture[0]->readoutAt(QPoint(0, 0));
    QTest::keyClick(fixture[0]->canvas(), Qt::Key_Plus);
    fixture[0]->panVertically(10);
    fixture[0]->resize(600, 500);
    QTRY_VERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).width() - 2000.0) < 0.1);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::xTop).width() - 21.0) < 1e-3);
}

/// Shows how a label is drawn.
struct DrawnRecordAxis : RecordAxisScaleDraw {
    using RecordAxisScaleDraw::drawLabel;
};

void ZoomTest::labelsOfVerticalTracesAreTurned()
{
    const float values[] = {0, 11111111};
    const auto extentOf = [&values](int direction) {
        DrawnRecordAxis axis;
        axis.setAxisArray(values, 1, 'I');
        axis.setAlignment(QwtScaleDraw::LeftScale);
        axis.setScaleDiv(QwtScaleDiv(0.0, 2.0));
        axis.setLength(100.0);
        axis.move(150.0, 50.0);
        axis.setPlotDirection(direction);
        QImage image(300, 300, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        axis.drawLabel(&painter, 1.0);
        painter.end();
        QRect extent;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) != qRgb(255, 255, 255)) extent |= QRect(x, y, 1, 1);
        return extent;
    };
    const QRect inPlace = extentOf(LeftToRight), turned = extentOf(TopToBottom);
    QVERIFY(inPlace.width() > inPlace.height());
    QVERIFY(turned.height() > turned.width());
}

void ZoomTest::theSameHoldsAtADeviceRatioOfTwo()
{
    // The ratio is fixed when a program starts, so that this one starts once more.
    QProcess twice;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_SCALE_FACTOR", "2");
    twice.setProcessEnvironment(environment);
    twice.setProcessChannelMode(QProcess::MergedChannels);
    twice.start(QCoreApplication::applicationFilePath(),
                {"thePictureHasTheDevicesPixels", "undoAndRedoWalkTheStack", "panningAFallingAxisStopsAtBothEnds",
                 "oneTraceAndFewSamplesAreShown", "withAPickerPlainButtonsDoNotZoomOrPan"});
    QVERIFY(twice.waitForFinished());
    QVERIFY2(twice.exitCode() == 0, twice.readAll().constData());
}

void ZoomTest::thePictureHasTheDevicesPixels()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    const double wanted = qEnvironmentVariableIsSet("QT_SCALE_FACTOR") ? qgetenv("QT_SCALE_FACTOR").toDouble() : 1.0;
    const QWidget* canvas = fixture[0]->canvas();
    QCOMPARE(canvas->devicePixelRatioF(), wanted);
    fixture[0]->grab();
    QCOMPARE(fixture[0]->myCanvas()->pictureSize(), (QSizeF(canvas->size()) * wanted).toSize());
    // The middle of each trace is named after it, whatever the ratio: the maps count logical pixels.
    for (int i = 1; i <= 20; ++i) {
        const QPoint at(qRound(i * canvas->width() / 21.0), 100);
        QVERIFY(fixture[0]->readoutAt(at).contains(QString("CHAN    : %1").arg(100 + i, 8)));
    }
}

QTEST_MAIN(ZoomTest)
#include "zoomtest.moc"
