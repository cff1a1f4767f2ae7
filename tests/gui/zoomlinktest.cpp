/// Zooms of displays side by side, and of a spacing that shows a part of the data.
#include "display/seismicplot.h"
#include "tests/gui/displayfixture.h"

#include <qwt_interval.h>
#include <qwt_scale_div.h>
#include <qwt_scale_map.h>

class ZoomLinkTest : public QObject
{
    Q_OBJECT

private slots:
    void withAFixedSpacingADragZoomsWhereverThePictureWasPannedTo_data();
    void withAFixedSpacingADragZoomsWhereverThePictureWasPannedTo();
    void aSisterGoesBackAtEveryHeight();
    void timesOfSistersStandInLineBesideAScrollBar();
    void aZoomOfBothAxesKeepsTheTracesOfTheNextEnsemble();
    void anotherFileForgetsThatOnlyTimesWereZoomed();
    void rebuildingOneDisplayTakesTheOthersBack();
    void aDisplayThatHasGoneIsLeftOut();
};

static QwtInterval shown(SeismicDisplay* display, int axis)
{
    return display->axisScaleDiv(axis).interval().normalized();
}

void ZoomLinkTest::withAFixedSpacingADragZoomsWhereverThePictureWasPannedTo_data()
{
    QTest::addColumn<float>("tpi");
    QTest::addColumn<float>("ips");
    QTest::newRow("both fixed") << 10.0f << 4.0f;
    QTest::newRow("traces fixed") << 10.0f << 0.0f;
    QTest::newRow("samples fixed") << 0.0f << 4.0f;
}

void ZoomLinkTest::withAFixedSpacingADragZoomsWhereverThePictureWasPannedTo()
{
    QFETCH(float, tpi);
    QFETCH(float, ips);
    DisplayFixture f(2);
    f.menu->tpi = tpi;
    f.menu->ips = ips;
    TestEnsemble ensemble(200, 500);
    for (SeismicDisplay* display : f.displays) display->setMenu(f.menu.get());
    f.load(ensemble, 0);
    f.load(ensemble, 1);
    QCOMPARE(f[0]->zoomBase(), QRectF(0.0, 0.0, 201.0, 2000.0));
    const QRectF before = f[0]->visibleRect(), sister = f[1]->visibleRect();
    if (tpi > 0.0f) f[0]->horizontalScrollerMoved(100.0);
    if (ips > 0.0f) f[0]->verticalScrollerMoved(900.0);
    const QRectF panned = f[0]->visibleRect();
    QVERIFY(panned.topLeft() != before.topLeft());
    const auto x = [&](double trace) { return qRound(f[0]->canvasMap(QwtPlot::xTop).transform(trace)); };
    const auto y = [&](double ms) { return qRound(f[0]->canvasMap(QwtPlot::yLeft).transform(ms)); };
    dragMouse(f[0]->canvas(), QPoint(x(110.0), y(1000.0)), QPoint(x(120.0), y(1300.0)), Qt::LeftButton);
    QVERIFY(f[0]->isZoomed());
    const double aTrace = panned.width() / f[0]->canvas()->width(), aRow = panned.height() / f[0]->canvas()->height();
    QVERIFY(qAbs(shown(f[0], QwtPlot::xTop).minValue() - 110.0) <= aTrace);
    QVERIFY(qAbs(shown(f[0], QwtPlot::xTop).maxValue() - 120.0) <= aTrace);
    QVERIFY(qAbs(shown(f[0], QwtPlot::yLeft).minValue() - 1000.0) <= aRow);
    QVERIFY(qAbs(shown(f[0], QwtPlot::yLeft).maxValue() - 1300.0) <= aRow);
    // the sister keeps its own traces, at its own spacing
    QVERIFY(qAbs(f[1]->visibleRect().width() - sister.width()) < 1e-6 * sister.width());
    QTest::mouseClick(f[0]->canvas(), Qt::RightButton, Qt::NoModifier, QPoint(50, 50));
    QVERIFY(!f[0]->isZoomed());
    QVERIFY(!f[1]->isZoomed());
    const QRectF back = f[0]->visibleRect();
    QVERIFY(qAbs(back.left() - panned.left()) < 1e-6 && qAbs(back.width() - panned.width()) < 1e-6);
    QVERIFY(qAbs(back.top() - panned.top()) < 1e-6 && qAbs(back.height() - panned.height()) < 1e-6);
}

void ZoomLinkTest::aSisterGoesBackAtEveryHeight()
{
    for (int height = 300; height < 340; ++height) {
        DisplayFixture f(2, 433, 1.7f);
        TestEnsemble ensemble(20, 433);
        f[1]->resize(600, height);  // spacings are counted in pixels, so that the times shown differ by their rounding
        f.load(ensemble, 0);
        f.load(ensemble, 1);
        const double whole = f[1]->visibleRect().height();
        dragMouse(f[0]->canvas(), QPoint(50, 50), QPoint(200, 200), Qt::LeftButton);
        QVERIFY(f[1]->isZoomed());
        QTest::mouseClick(f[0]->canvas(), Qt::RightButton, Qt::NoModifier, QPoint(50, 50));
        QVERIFY2(!f[1]->isZoomed(), qPrintable(QString("at a height of %1").arg(height)));
        QCOMPARE(f[1]->visibleRect().height(), whole);
    }
}

void ZoomLinkTest::timesOfSistersStandInLineBesideAScrollBar()
{
    DisplayFixture f(2);
    TestEnsemble ensemble(20, 500);
    f.load(ensemble, 0);
    f.load(ensemble, 1);
    const auto pixelsOf = [&f](int i) {
        QList<int> pixels;
        for (const double ms : {0.0, 400.0, 777.0, 1200.0, 1999.0})
            pixels.append(
                f[i]->canvas()->mapTo(f[i], QPoint(0, qRound(f[i]->canvasMap(QwtPlot::yLeft).transform(ms)))).y());
        return pixels;
    };
    const QList<int> whole = pixelsOf(0);
    f[0]->setZoomRect(QRectF(5.0, 0.0, 6.0, 2000.0));  // only the first has traces out of sight
    QTRY_VERIFY(f[0]->hasHorizontalBar());
    QVERIFY(!f[1]->hasHorizontalBar());
    QTRY_VERIFY(pixelsOf(0) != whole);
    QTRY_COMPARE(pixelsOf(1), pixelsOf(0));
    f[0]->resetZoom(0);
    QTRY_COMPARE(pixelsOf(1), whole);
    QCOMPARE(pixelsOf(0), whole);
}

void ZoomLinkTest::aZoomOfBothAxesKeepsTheTracesOfTheNextEnsemble()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500), wider(30, 500);
    fixture.load(ensemble);
    fixture[0]->setTimeZoom(true, true);  // first a drag on one axis, then one on the other
    fixture[0]->setZoomRect(QRectF(5.0, 400.0, 5.0, 800.0));
    fixture.load(wider);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::xTop).minValue() - 5.0) < 1e-6);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::xTop).width() - 5.0) < 1e-6);
}

void ZoomLinkTest::anotherFileForgetsThatOnlyTimesWereZoomed()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500), wider(30, 500);
    fixture.load(ensemble);
    fixture[0]->setTimeZoom(true, false);
    fixture[0]->setNewFile(fixture.menu.get());
    fixture.load(ensemble);
    fixture[0]->setZoomRect(QRectF(5.0, 400.0, 5.0, 800.0));
    fixture.load(wider);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::xTop).minValue() - 5.0) < 1e-6);
    QVERIFY(qAbs(shown(fixture[0], QwtPlot::xTop).width() - 5.0) < 1e-6);
}

void ZoomLinkTest::rebuildingOneDisplayTakesTheOthersBack()
{
    DisplayFixture f(2);
    TestEnsemble ensemble(20, 500);
    f.load(ensemble, 0);
    f.load(ensemble, 1);
    f[1]->setZoomRect(QRectF(5.0, 400.0, 5.0, 800.0));
    f[0]->rebuildDisplay(false);
    QVERIFY(f[1]->isZoomed());
    f[0]->rebuildDisplay(true);
    QVERIFY(!f[1]->isZoomed());
    QVERIFY(qAbs(shown(f[1], QwtPlot::xTop).width() - 21.0) < 1e-3);
}

void ZoomLinkTest::aDisplayThatHasGoneIsLeftOut()
{
    DisplayFixture f(3);
    TestEnsemble ensemble(20, 500);
    for (int i = 0; i < 3; ++i) f.load(ensemble, i);
    f.displays.removeAt(1);
    f.owned.erase(f.owned.begin() + 1);
    settle();
    f[0]->setZoomRect(QRectF(5.0, 400.0, 10.0, 800.0));
    QVERIFY(f[1]->isZoomed());
    QCOMPARE(f[1]->visibleRect().top(), 400.0);
    QCOMPARE(f[1]->visibleRect().height(), 800.0);
    QTest::mouseClick(f[0]->canvas(), Qt::RightButton, Qt::NoModifier, QPoint(50, 50));
    QVERIFY(!f[1]->isZoomed());
}

QTEST_MAIN(ZoomLinkTest)
#include "zoomlinktest.moc"
