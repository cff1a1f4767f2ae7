/// The display widget: load, axes, read-out, zoom and pan, as a user meets them.
#include "display/images/myqwtplotcanvas.h"
#include "display/seismicplot.h"
#include "display/zoom/thinnedscaledraw.h"
#include "tests/gui/displayfixture.h"
#include "tracedata/seismicdata.h"

#include <QScrollBar>
#include <QSplitter>
#include <qwt_scale_div.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>
#include <qwt_text.h>

#include <cmath>

class SeismicDisplayTest : public QObject
{
    Q_OBJECT

private slots:
    void theFirstEnsembleFillsTheAxes();
    void anEmptyBatchLeavesTheFormerTraces();
    void theReadOutNamesTheTraceAndSampleUnderTheMouse();
    void leavingTheCanvasClearsTheReadOut();
    void mouseMovesWithoutDataAreEaten();
    void aDragZoomsAndTheRightButtonGoesBack();
    void timeZoomSpreadsAndTraceZoomStays();
    void aDragOnTheTimeAxisZoomsInTimeOnly();
    void aDragOfTwoSamplesOnAnAxisDoesNothing();
    void aRightPressOnAnAxisResetsThisDisplayOnly();
    void panningStopsAtTheEndsOfTheData();
    void verticalPanIsCarriedOverHorizontalIsNot();
    void theWheelKeepsTheDisplaysSteps();
    void plusAndMinusKeysMagnify();
    void anEnsembleThatFollowsKeepsTheZoom();
    void aTimeWindowShowsItsOwnTimes();
    void onlyLiveTracesAreMeasured();
    void aTraceOfThreeSamplesIsNotMeasured();
    void editedHeadersGoBackOnlyWhenChanged();
    void storedSamplesAreNeverTouchedByConditioning();
    void loadingPaintsTheCanvasOnce();
    void scrollBarsStandOnlyWhileSomethingIsOutOfSight();
    void aScrollBarMovesTheAxisAndKeepsItsSpan();
    void anOverlayTakesEverySecondBatch();
    void anOverlayThatIsNeverNegativeIsAMap();
    void hidingTheOverlayKeepsTheData();
    void anotherFileTakesTheOverlayAway();
    void aLongRecordNeedsNoLargerWindow();
    void theControlLineFollowsTheMouseMode();
    void eachTracesOwnPixelIsNamedAfterIt();
    void tracesOfTheOldFileGoBeforeItsSizesDo();
    void manyTraceLabelsNeedNoWiderSplitter();
    void otherTraceLabelsArePaintedAtOnce_data();
    void otherTraceLabelsArePaintedAtOnce();
    void labelsStandOnTracesOnly();
    void traceLabelsNeverTouch_data();
    void traceLabelsNeverTouch();
    void labelsOfShotChangesStandAtThem();
    void labelsOfMultiplesGoByOneTwoAndFive();
};

static QwtInterval shown(SeismicDisplay* display, int axis)
{
    return display->axisScaleDiv(axis).interval().normalized();
}

static QPoint pixelOf(SeismicDisplay* display, double trace, double ms)
{
    return QPoint(qRound(display->canvasMap(QwtPlot::xTop).transform(trace)),
                  qRound(display->canvasMap(QwtPlot::yLeft).transform(ms)));
}

void SeismicDisplayTest::theFirstEnsembleFillsTheAxes()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    QCOMPARE(fixture.load(ensemble), 0);
    const QwtInterval x = shown(fixture[0], QwtPlot::xTop), y = shown(fixture[0], QwtPlot::yLeft);
    QCOMPARE(x.minValue(), 0.0);
    QVERIFY(qAbs(x.maxValue() - 21.0) < 1e-3);  // a width more than there are traces
    QCOMPARE(y.minValue(), 0.0);
    QVERIFY(qAbs(y.maxValue() - 2000.0) < 0.1);
    QVERIFY(!fixture[0]->isZoomed());
    QVERIFY(!fixture[0]->isPanned());
    QCOMPARE(fixture[0]->axisTitle(QwtPlot::xTop).text(), QString("FFID    :7    "));
    QCOMPARE(fixture[0]->axisTitle(QwtPlot::yLeft).text(), QString("Time (msec)"));
    QCOMPARE(fixture[0]->axisScaleDraw(QwtPlot::xTop)->label(3.0).text(), QString("103"));
}

void SeismicDisplayTest::anEmptyBatchLeavesTheFormerTraces()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    QVERIFY(!fixture[0]->lastEnsemble());
    QCOMPARE(fixture[0]->loadSeismicData(nullptr, nullptr, 0, true), 0);
    QVERIFY(fixture[0]->lastEnsemble());
    QCOMPARE(fixture[0]->seismicData()->traceCount(), 20);
}

void SeismicDisplayTest::theReadOutNamesTheTraceAndSampleUnderTheMouse()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    QTest::mouseMove(fixture[0]->canvas(), pixelOf(fixture[0], 6.0, 801.0));
    QTRY_VERIFY(fixture.status.currentMessage().startsWith("FFID    :        7     CHAN    :      106"));
    // The pixel is within a few ms of 801: the sample that the line names must hold the amplitude beside it.
    const QString line = fixture[0]->readoutAt(pixelOf(fixture[0], 6.0, 801.0));
    const double ms = line.section("Time (msec):", 1).section("Amp:", 0, 0).trimmed().toDouble();
    const double amplitude = line.section("Amp:", 1).trimmed().toDouble();
    QVERIFY(qAbs(ms - 801.0) < 6.0);
    QCOMPARE(amplitude, 5000.0 + ms / 4.0);
}

void SeismicDisplayTest::leavingTheCanvasClearsTheReadOut()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    fixture.status.showMessage("something");
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(fixture[0]->canvas(), &leave);
    QCOMPARE(fixture.status.currentMessage(), QString());
}

void SeismicDisplayTest::mouseMovesWithoutDataAreEaten()
{
    DisplayFixture fixture;
    QMouseEvent move(QEvent::MouseMove, QPoint(50, 50), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QVERIFY(fixture[0]->eventFilter(fixture[0]->canvas(), &move));
    QCOMPARE(fixture[0]->readoutAt(QPoint(50, 50)), QString());
}

void SeismicDisplayTest::aDragZoomsAndTheRightButtonGoesBack()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    QWidget* canvas = fixture[0]->canvas();
    dragMouse(canvas, pixelOf(fixture[0], 5.0, 400.0), pixelOf(fixture[0], 10.0, 1200.0), Qt::LeftButton);
    QVERIFY(fixture[0]->isZoomed());
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::xTop).minValue() - 5.0) < 0.1);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).maxValue() - 1200.0) < 5.0);
    QVERIFY(fixture[0]->axisScaleDiv(QwtPlot::yLeft).lowerBound() >
            fixture[0]->axisScaleDiv(QwtPlot::yLeft).upperBound());
    QCOMPARE(shown(fixture[0], QwtPlot::xBottom).minValue(), shown(fixture[0], QwtPlot::xTop).minValue());
    QTest::mouseClick(canvas, Qt::RightButton, Qt::NoModifier, QPoint(50, 50));
    QVERIFY(!fixture[0]->isZoomed());
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).maxValue() - 2000.0) < 0.1);
}

void SeismicDisplayTest::timeZoomSpreadsAndTraceZoomStays()
{
    DisplayFixture fixture(2);
    TestEnsemble ensemble(20, 500), wider(30, 500);
    fixture.load(ensemble, 0);
    fixture.load(wider, 1);
    dragMouse(fixture[0]->canvas(), pixelOf(fixture[0], 5.0, 400.0), pixelOf(fixture[0], 10.0, 1200.0), Qt::LeftButton);
    QVERIFY(qAbs(shown(fixture[1], QwtPlot::yLeft).minValue() - 400.0) < 5.0);
    QVERIFY(qAbs(shown(fixture[1], QwtPlot::xTop).width() - 31.0) < 1e-3);
    QTest::mouseClick(fixture[0]->canvas(), Qt::RightButton, Qt::NoModifier, QPoint(50, 50));
    QVERIFY(!fixture[1]->isZoomed());
    QCOMPARE(shown(fixture[1], QwtPlot::yLeft).minValue(), 0.0);
}

void SeismicDisplayTest::aDragOnTheTimeAxisZoomsInTimeOnly()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    QWidget* axis = fixture[0]->axisWidget(QwtPlot::yLeft);
    const auto onAxis = [&](double ms) {
        const QPoint onCanvas(0, pixelOf(fixture[0], 0.0, ms).y());
        return QPoint(5, axis->mapFrom(fixture[0], fixture[0]->canvas()->mapTo(fixture[0], onCanvas)).y());
    };
    dragMouse(axis, onAxis(500.0), onAxis(1000.0), Qt::LeftButton);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).minValue() - 500.0) < 5.0);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).maxValue() - 1000.0) < 5.0);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::xTop).width() - 21.0) < 1e-3);
}

void SeismicDisplayTest::aDragOfTwoSamplesOnAnAxisDoesNothing()
{
    DisplayFixture fixture(1, 50, 4.0f);
    TestEnsemble ensemble(20, 50);
    fixture.load(ensemble);
    QWidget* axis = fixture[0]->axisWidget(QwtPlot::yLeft);
    const int top = axis->mapFrom(fixture[0], fixture[0]->canvas()->mapTo(fixture[0], QPoint(0, 0))).y();
    // 200 ms over the canvas: 7 ms are less than two samples.
    const int pixels = int(7.0 / 200.0 * fixture[0]->canvas()->height());
    dragMouse(axis, QPoint(5, top + 50), QPoint(5, top + 50 + pixels), Qt::LeftButton);
    QVERIFY(!fixture[0]->isZoomed());
    QWidget* traces = fixture[0]->axisWidget(QwtPlot::xTop);
    const int perTrace = fixture[0]->canvas()->width() / 21;
    dragMouse(traces, QPoint(200, 5), QPoint(200 + perTrace - 1, 5), Qt::LeftButton);
    QVERIFY(!fixture[0]->isZoomed());
}

void SeismicDisplayTest::aRightPressOnAnAxisResetsThisDisplayOnly()
{
    DisplayFixture fixture(2);
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble, 0);
    fixture.load(ensemble, 1);
    fixture[0]->setZoomRect(QRectF(5.0, 400.0, 5.0, 800.0));
    QVERIFY(fixture[0]->isZoomed());
    QVERIFY(fixture[1]->isZoomed());
    QTest::mousePress(fixture[0]->axisWidget(QwtPlot::yLeft), Qt::RightButton, Qt::NoModifier, QPoint(5, 100));
    QVERIFY(!fixture[0]->isZoomed());
    QVERIFY(fixture[1]->isZoomed());
}

void SeismicDisplayTest::panningStopsAtTheEndsOfTheData()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    fixture[0]->setZoomRect(QRectF(5.0, 400.0, 5.0, 800.0));
    fixture[0]->panVertically(100000);  // down: towards earlier times
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).minValue()) < 1e-9);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).width() - 800.0) < 1e-6);
    fixture[0]->panVertically(-100000);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).maxValue() - 2000.0) < 0.1);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).width() - 800.0) < 1e-6);
}

void SeismicDisplayTest::verticalPanIsCarriedOverHorizontalIsNot()
{
    DisplayFixture fixture(2);
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble, 0);
    fixture.load(ensemble, 1);
    fixture[0]->setZoomRect(QRectF(5.0, 400.0, 5.0, 800.0));
    const double traceBefore = shown(fixture[1], QwtPlot::xTop).minValue();
    const double timeBefore = shown(fixture[1], QwtPlot::yLeft).minValue();
    dragMouse(fixture[0]->canvas(), QPoint(200, 200), QPoint(150, 150), Qt::MiddleButton);
    QVERIFY(shown(fixture[0], QwtPlot::xTop).minValue() > 5.0);
    QVERIFY(shown(fixture[1], QwtPlot::yLeft).minValue() > timeBefore);
    QCOMPARE(shown(fixture[1], QwtPlot::xTop).minValue(), traceBefore);
}

void SeismicDisplayTest::theWheelKeepsTheDisplaysSteps()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(100, 2000);
    fixture.menu->_orvinruntime.numsmp = 2000;
    fixture[0]->setMenu(fixture.menu.get());
    fixture.load(ensemble);
    QWheelEvent wheel(QPointF(100, 100), QPointF(100, 100), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(fixture[0]->canvas(), &wheel);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).width() - 7200.0) < 0.5);  // 8000 ms times 0.9
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::xTop).width() - 90.9) < 0.01);
    const QList<double> ticks = fixture[0]->axisScaleDiv(QwtPlot::yLeft).ticks(QwtScaleDiv::MajorTick);
    QVERIFY(ticks.size() >= 2);
    QCOMPARE(qAbs(ticks[1] - ticks[0]), 500.0);
}

void SeismicDisplayTest::plusAndMinusKeysMagnify()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    QTest::keyClick(fixture[0]->canvas(), Qt::Key_Plus);
    QVERIFY2(qAbs(shown(fixture[0], QwtPlot::yLeft).width() - 1800.0) < 0.5,
             qPrintable(QString::number(shown(fixture[0], QwtPlot::yLeft).width())));
    QTest::keyClick(fixture[0]->canvas(), Qt::Key_Minus);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).width() - 2000.0) < 0.5);
}

void SeismicDisplayTest::anEnsembleThatFollowsKeepsTheZoom()
{
    DisplayFixture fixture;
    TestEnsemble first(20, 500), second(24, 500);
    fixture.load(first);
    fixture[0]->setZoomRect(QRectF(5.0, 400.0, 5.0, 800.0));
    fixture.load(second);
    QVERIFY(fixture[0]->isZoomed());
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).minValue() - 400.0) < 1e-6);
    QTest::mouseClick(fixture[0]->canvas(), Qt::RightButton, Qt::NoModifier, QPoint(50, 50));
    QVERIFY(!fixture[0]->isZoomed());
    fixture.load(second);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::xTop).maxValue() - 25.0) < 1e-3);
}

void SeismicDisplayTest::aTimeWindowShowsItsOwnTimes()
{
    DisplayFixture fixture;
    fixture.menu->stime = 400;
    fixture.menu->etime = 1200;
    fixture[0]->setMenu(fixture.menu.get());
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    QCOMPARE(fixture[0]->seismicData()->sampleCount(), 200);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).minValue() - 400.0) < 1e-6);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).maxValue() - 1200.0) < 0.1);
    QVERIFY(!fixture[0]->isPanned());
    const QString line = fixture[0]->readoutAt(pixelOf(fixture[0], 3.0, 800.5));
    const double ms = line.section("Time (msec):", 1).section("Amp:", 0, 0).trimmed().toDouble();
    QVERIFY(qAbs(ms - 800.0) < 5.0);
    QCOMPARE(line.section("Amp:", 1).trimmed().toDouble(), 2000.0 + ms / 4.0);
}

void SeismicDisplayTest::onlyLiveTracesAreMeasured()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(2, 500);
    std::fill(ensemble.samples[0].begin(), ensemble.samples[0].end(), -3.0f);
    std::fill(ensemble.samples[1].begin(), ensemble.samples[1].end(), 900.0f);  // its TRC_TYPE is 2
    fixture.load(ensemble);
    QCOMPARE(fixture[0]->computeRMS(true), 3.0f);
    QCOMPARE(fixture[0]->seismicPlot()->rms(), 3.0f);
}

void SeismicDisplayTest::aTraceOfThreeSamplesIsNotMeasured()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(3, 500);  // the first and the last are live
    std::fill(ensemble.samples[0].begin(), ensemble.samples[0].end(), 0.0f);
    std::fill(ensemble.samples[0].begin(), ensemble.samples[0].begin() + 3, 900.0f);
    std::fill(ensemble.samples[2].begin(), ensemble.samples[2].end(), -4.0f);
    fixture.load(ensemble);
    QCOMPARE(fixture[0]->computeRMS(false), 4.0f);
    ensemble.samples[0][3] = 900.0f;
    fixture.load(ensemble);
    QCOMPARE(fixture[0]->computeRMS(false), 452.0f);
}

void SeismicDisplayTest::editedHeadersGoBackOnlyWhenChanged()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(2, 500);
    fixture.load(ensemble);
    fixture[0]->seismicData()->getTraceHeaders()[1][5] = 77;
    fixture[0]->saveSeismicData(ensemble.traces.data(), ensemble.headers.data(), 2);
    QCOMPARE(ensemble.words[1][5], 0);
    fixture[0]->seismicData()->setChanged(true);
    fixture[0]->saveSeismicData(ensemble.traces.data(), ensemble.headers.data(), 2);
    QCOMPARE(ensemble.words[1][5], 77);
}

void SeismicDisplayTest::storedSamplesAreNeverTouchedByConditioning()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(4, 500);
    fixture.load(ensemble);
    fixture[0]->seismicPlot()->applyAGC(true, 200);
    fixture[0]->seismicPlot()->applyFilter(true, 4, 12, 50, 60, false);
    fixture[0]->seismicPlot()->computeNormalizer();
    fixture[0]->rePlot();
    fixture[0]->grab();
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 500; ++j)
            QCOMPARE(*fixture[0]->seismicData()->getTraceValues(i, j), ensemble.samples[i][j]);
}

void SeismicDisplayTest::loadingPaintsTheCanvasOnce()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    QTRY_VERIFY(fixture[0]->myCanvas()->renderCount() > 0);
    QCOMPARE(rendersOf(fixture[0], [&] { fixture.load(ensemble); }), 1);
}

void SeismicDisplayTest::scrollBarsStandOnlyWhileSomethingIsOutOfSight()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    auto* horizontal = fixture[0]->findChild<QScrollBar*>("hscroller");
    auto* vertical = fixture[0]->findChild<QScrollBar*>("vscroller");
    QVERIFY(!horizontal->isVisible());
    QVERIFY(!vertical->isVisible());
    fixture[0]->setZoomRect(QRectF(5.0, 400.0, 6.0, 800.0));
    QTRY_VERIFY(horizontal->isVisible());
    QVERIFY(vertical->isVisible());
    QCOMPARE(vertical->maximum(), 1200);  // 2000 ms less the 800 shown
    QCOMPARE(vertical->pageStep(), 800);
    QCOMPARE(vertical->value(), 400);
    QCOMPARE(horizontal->maximum(), 15);  // 21 less 6
    QTest::mouseClick(fixture[0]->canvas(), Qt::RightButton, Qt::NoModifier, QPoint(50, 50));
    QTRY_VERIFY(!horizontal->isVisible());
    QVERIFY(!vertical->isVisible());
}

void SeismicDisplayTest::aScrollBarMovesTheAxisAndKeepsItsSpan()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    fixture[0]->setZoomRect(QRectF(5.0, 400.0, 6.0, 800.0));
    fixture[0]->findChild<QScrollBar*>("vscroller")->setValue(1000);
    QCOMPARE(shown(fixture[0], QwtPlot::yLeft).minValue(), 1000.0);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::yLeft).width() - 800.0) < 1e-6);
    fixture[0]->findChild<QScrollBar*>("hscroller")->setValue(2);
    QCOMPARE(shown(fixture[0], QwtPlot::xTop).minValue(), 2.0);
    QCOMPARE(shown(fixture[0], QwtPlot::xBottom).minValue(), 2.0);
}

void SeismicDisplayTest::anOverlayTakesEverySecondBatch()
{
    DisplayFixture fixture;
    TestEnsemble first(20, 500), second(20, 500), third(20, 500);
    second.samples[4][100] = -77.0f;
    third.samples[4][100] = -88.0f;
    fixture.load(first);
    fixture[0]->setOverlayMode(true);
    fixture.load(second);
    QVERIFY(fixture[0]->overlayPlot());
    QCOMPARE(*fixture[0]->seismicData()->getTraceValues(4, 100), 4100.0f);
    QCOMPARE(*fixture[0]->overlayData()->getTraceValues(4, 100), -77.0f);
    QVERIFY(fixture.host.isOverlay);
    QVERIFY(fixture[0]->overlayPlot()->displayType() == ColorB);
    QCOMPARE(fixture[0]->overlayPlot()->rangeMax(), 3.0f);
    QVERIFY(!fixture[0]->overlayPlot()->isAutoGain());
    second.samples[4][100] = 0.0f;  // the overlay has a copy of its own
    QCOMPARE(*fixture[0]->overlayData()->getTraceValues(4, 100), -77.0f);
    QVERIFY(fixture[0]->readoutAt(pixelOf(fixture[0], 5.0, 401.0)).contains("     Overlay Amp: "));
    fixture.load(third);
    QCOMPARE(*fixture[0]->seismicData()->getTraceValues(4, 100), -88.0f);
    QCOMPARE(*fixture[0]->overlayData()->getTraceValues(4, 100), -77.0f);
}

void SeismicDisplayTest::anOverlayThatIsNeverNegativeIsAMap()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500), velocities(20, 500);
    fixture.load(ensemble);
    fixture[0]->setOverlayMode(true);
    fixture.load(velocities);
    QVERIFY(fixture[0]->overlayPlot()->displayType() == Map);
}

void SeismicDisplayTest::anotherFileTakesTheOverlayAway()
{
    DisplayFixture fixture;
    TestEnsemble first(20, 500), second(20, 500);
    fixture.load(first);
    fixture[0]->setOverlayMode(true);
    fixture.load(second);
    fixture[0]->setNewFile(fixture.menu.get());
    QCOMPARE(fixture[0]->overlayData()->traceCount(), 0);
    QVERIFY(!fixture[0]->overlayPlot()->isDataLoaded());
    fixture.load(first);  // the first batch of a file is its data, whatever the overlay box says
    QCOMPARE(fixture[0]->seismicData()->traceCount(), 20);
    QVERIFY(!fixture[0]->readoutAt(QPoint(50, 50)).contains("Overlay"));
}

void SeismicDisplayTest::hidingTheOverlayKeepsTheData()
{
    DisplayFixture fixture;
    TestEnsemble first(20, 500), second(20, 500);
    fixture.load(first);
    fixture[0]->setOverlayMode(true);
    fixture.load(second);
    const QImage with = fixture[0]->canvas()->grab().toImage();
    fixture[0]->setOverlayMode(false);
    QVERIFY(!fixture.host.isOverlay);
    QVERIFY(!fixture[0]->overlayPlot()->isVisible());
    QVERIFY(fixture[0]->canvas()->grab().toImage() != with);
    QVERIFY(!fixture[0]->readoutAt(QPoint(50, 50)).contains("Overlay"));
    fixture.load(second);  // with the overlay off it is the data again
    QVERIFY(fixture[0]->overlayData());
}

void SeismicDisplayTest::aLongRecordNeedsNoLargerWindow()
{
    DisplayFixture fixture(1, 60000, 4.0f);
    TestEnsemble ensemble(3, 60000);
    fixture.load(ensemble);
    QVERIFY(fixture[0]->minimumSizeHint().height() <= 200);
    const QList<double> ticks = fixture[0]->axisScaleDiv(QwtPlot::yLeft).ticks(QwtScaleDiv::MajorTick);
    const int label = QFontMetrics(fixture[0]->axisFont(QwtPlot::yLeft)).height();
    QVERIFY(ticks.size() >= 3);
    QVERIFY(ticks.size() * label < fixture[0]->canvas()->height());
}

void SeismicDisplayTest::theControlLineFollowsTheMouseMode()
{
    DisplayFixture fixture;
    QCOMPARE(fixture.control.currentMessage(),
             QString("MB1 down and drag: zoom,   MB2 down and drag: pann,    MB3 down: unzoom"));
    fixture[0]->setFBPicker(true);
    QVERIFY(fixture.control.currentMessage().startsWith("CTRL MB1 down and drag: zoom"));
    QVERIFY(fixture.control.currentMessage().endsWith("   First break picking is on"));
    fixture[0]->setFBPicker(false);
    QVERIFY(fixture.control.currentMessage().startsWith("MB1 down"));
}

void SeismicDisplayTest::eachTracesOwnPixelIsNamedAfterIt()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    fixture.load(ensemble);
    for (int i = 1; i <= 20; ++i) {
        const QString line = fixture[0]->readoutAt(pixelOf(fixture[0], i, 1000.0));
        QCOMPARE(line.section("CHAN    :", 1).trimmed().section(' ', 0, 0).toInt(), 100 + i);
    }
}

void SeismicDisplayTest::tracesOfTheOldFileGoBeforeItsSizesDo()
{
    DisplayFixture f(1, 100);
    TestEnsemble old(6, 100), next(5, 9000);
    f.load(old);
    QVERIFY(!f[0]->readoutAt(QPoint(300, 400)).isEmpty());
    f.menu->_orvinruntime.numsmp = 9000;
    f[0]->setNewFile(f.menu.get());
    QCOMPARE(f[0]->traceCount(), 0);
    QCOMPARE(f[0]->seismicData()->traceCount(), 0);
    QCOMPARE(f[0]->readoutAt(QPoint(300, 400)), QString());
    f[0]->seismicPlot()->computeNormalizer();
    f.load(next);
    QCOMPARE(f[0]->traceCount(), 5);
    QCOMPARE(*f[0]->seismicData()->getTraceValues(4, 8999), 12999.0f);
}

void SeismicDisplayTest::manyTraceLabelsNeedNoWiderSplitter()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    QSplitter splitter;
    splitter.addWidget(f[0]);
    f[0]->setAxisScale(QwtPlot::xBottom, 0.0, 2000.0, 1.0);
    f[0]->updateAxes();
    QVERIFY(f[0]->axisWidget(QwtPlot::xBottom)->minimumSizeHint().width() > 2000);
    QCOMPARE(splitter.minimumSizeHint().width(), f[0]->minimumSizeHint().width());
    f[0]->setParent(nullptr);
}

/// Counts the paints of a widget.
struct PaintCounter : QObject {
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
    int count = 0;
};

void SeismicDisplayTest::otherTraceLabelsArePaintedAtOnce_data()
{
    QTest::addColumn<int>("change");
    QTest::newRow("direction") << 0;
    QTest::newRow("secondary key") << 1;
    QTest::newRow("numbers off") << 2;
}

void SeismicDisplayTest::otherTraceLabelsArePaintedAtOnce()
{
    QFETCH(int, change);
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    QVERIFY(QTest::qWaitForWindowExposed(f[0]));
    PaintCounter axis(f[0]->axisWidget(QwtPlot::xTop));
    QTRY_VERIFY(!f[0]->testAttribute(Qt::WA_PendingUpdate));
    QApplication::processEvents();  // what is still to be painted of the load
    axis.count = 0;
    if (change == 0) f[0]->setPlotDirection(RightToLeft);
    if (change == 1) f[0]->setSecKey(WordFrom0(standardWordIndex("TRC_TYPE")));
    if (change == 2) f[0]->setVAxisValues(false);
    f[0]->rebuildPlot();
    QTRY_VERIFY(axis.count > 0);
    const QString third = f[0]->axisScaleDraw(QwtPlot::xTop)->label(3.0).text();
    QCOMPARE(third, QStringList({"118", "1", "0"})[change]);
}

static std::vector<double> labelled(SeismicDisplay* display)
{
    const auto* draw = static_cast<const ThinnedScaleDraw*>(display->axisScaleDraw(QwtPlot::xTop));
    return draw->labelledSteps(display->axisWidget(QwtPlot::xTop)->font());
}

void SeismicDisplayTest::labelsStandOnTracesOnly()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    f[0]->setZoomRect(QRectF(4.4, 400.0, 1.2, 800.0));
    QCOMPARE(labelled(f[0]), std::vector<double>{5.0});
    f[0]->resetZoom(0);
    f[0]->typeTraceIncrement(1.5f);
    for (const double at : labelled(f[0])) QCOMPARE(at, std::round(at));
}

void SeismicDisplayTest::traceLabelsNeverTouch_data()
{
    QTest::addColumn<int>("nTraces");
    for (const int n : {1, 2, 3, 4, 7, 20, 120, 999, 30000}) QTest::newRow(QByteArray::number(n)) << n;
}

/// Checks the labels as they would be painted: apart from each other, and at least two of three traces.
static void checkLabels(SeismicDisplay* display)
{
    const std::vector<double> steps = labelled(display);
    const QwtScaleDraw* draw = display->axisScaleDraw(QwtPlot::xTop);
    const QFont font = display->axisWidget(QwtPlot::xTop)->font();
    double end = -1e9;
    for (const double step : steps) {
        const double middle = draw->scaleMap().transform(step);
        const double half = QFontMetricsF(font).horizontalAdvance(draw->label(step).text()) / 2.0;
        QVERIFY2(middle - half > end + 1.0, qPrintable(QString("at trace %1").arg(step)));
        end = middle + half;
    }
    const QwtInterval x = shown(display, QwtPlot::xTop);
    const double first = std::max(1.0, std::ceil(x.minValue()));
    const double last = std::min(double(display->traceCount()), std::floor(x.maxValue()));
    if (last - first >= 2.0) QVERIFY2(steps.size() >= 2, qPrintable(QString("%1 to %2").arg(first).arg(last)));
    if (steps.size() < 3) return;
    const double step = steps[1] - steps[0];
    const double power = std::pow(10.0, std::floor(std::log10(step) + 1e-9));
    QVERIFY2(step == power || step == 2 * power || step == 5 * power, qPrintable(QString::number(step)));
}

void SeismicDisplayTest::traceLabelsNeverTouch()
{
    QFETCH(int, nTraces);
    DisplayFixture f(1, 20);
    TestEnsemble ensemble(nTraces, 20);
    f.load(ensemble);
    checkLabels(f[0]);
    const QRectF whole = f[0]->visibleRect();
    for (const double share : {0.7, 0.31, 0.1, 0.033, 0.01, 0.0007})
        for (const double from : {0.0, 0.123, 0.9}) {
            f[0]->resetZoom(0);
            f[0]->setZoomRect(QRectF(from * whole.width(), 0.0, share * whole.width(), whole.height()));
            checkLabels(f[0]);
            QTest::keyClick(f[0]->canvas(), Qt::Key_Minus);
            checkLabels(f[0]);
        }
}

void SeismicDisplayTest::labelsOfMultiplesGoByOneTwoAndFive()
{
    DisplayFixture f(1, 20);
    f.menu->iskeymod = 1;  // multiples of 5
    f[0]->setMenu(f.menu.get());
    for (const int n : {40, 120, 333, 2000}) {
        TestEnsemble ensemble(n, 20);
        for (int i = 0; i < n; ++i) ensemble.words[i][standardWordIndex("CHAN    ")] = i + 1;
        f.load(ensemble);
        QVERIFY(labelled(f[0]).size() >= 3);
        checkLabels(f[0]);
    }
}

void SeismicDisplayTest::labelsOfShotChangesStandAtThem()
{
    DisplayFixture f(1, 20);
    TestEnsemble ensemble(2400, 20);
    for (int i = 0; i < 2400; ++i) ensemble.words[i][standardWordIndex("CHAN    ")] = 500 + i / 48;
    f.menu->iskeymod = 3;
    f[0]->setMenu(f.menu.get());
    f.load(ensemble);
    const std::vector<double> steps = labelled(f[0]);
    QVERIFY(steps.size() >= 5);
    for (const double step : steps) QCOMPARE(std::fmod(step, 48.0), 1.0);  // the first trace of a shot
    const double shots = (steps[1] - steps[0]) / 48.0;
    QVERIFY(shots == 5.0 || shots == 10.0);
}

QTEST_MAIN(SeismicDisplayTest)
#include "seismicdisplaytest.moc"
