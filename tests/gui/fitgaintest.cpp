/// The button that fits the gain to the clip, and the tip that counts what is clipped.
#include "display/cliptip.h"
#include "display/displaymenu.h"
#include "display/seismicplot.h"
#include "tests/gui/displayfixture.h"
#include "widgets/numberedit.h"

#include <QHelpEvent>
#include <QPushButton>

class FitGainTest : public QObject
{
    Q_OBJECT

private slots:
    void theButtonWritesTheGain();
    void theTipCountsOnlyAfterAChange();
};

/// One trace of 1 to 100.
struct RampFixture : DisplayFixture {
    RampFixture() : DisplayFixture(1, 100), ensemble(1, 100)
    {
        for (int j = 0; j < 100; ++j) ensemble.samples[0][j] = float(j + 1);
        load(ensemble);
        plot()->setNormalization(Normalize::None);
        plot()->setClip(2.0f);
    }
    SeismicPlot* plot() { return displays[0]->seismicPlot(); }
    TestEnsemble ensemble;
};

void FitGainTest::theButtonWritesTheGain()
{
    RampFixture fixture;
    DisplayMenu menu(&fixture.displays, nullptr);
    QTest::mouseClick(menu.findChild<QPushButton*>("fitGainButton"), Qt::LeftButton);
    const double db = 20.0 * std::log10(2.0 / 98.0);
    QVERIFY(std::abs(menu.findChild<NumberEdit*>("gainEdit")->number() - db) < 0.006);  // two decimals
    QVERIFY(std::abs(fixture.plot()->gain() - db) < 0.006);
}

void FitGainTest::theTipCountsOnlyAfterAChange()
{
    RampFixture fixture;
    ClipTip tip(fixture[0]->canvas(), fixture.plot());
    fixture.plot()->setGain(0.0f);
    QCOMPARE(tip.text(), QString("98 % of the samples are clipped"));
    QCOMPARE(tip.text(), QString("98 % of the samples are clipped"));
    QCOMPARE(tip.counts(), 1);
    dragMouse(fixture[0]->canvas(), QPoint(20, 20), QPoint(60, 90), Qt::MiddleButton);
    QCOMPARE(tip.counts(), 1);
    fixture.plot()->setClip(50.0f);
    QCOMPARE(tip.text(), QString("50 % of the samples are clipped"));
    for (float& v : fixture.ensemble.samples[0]) v = 1.0f;
    fixture.load(fixture.ensemble);
    QCOMPARE(tip.text(), QString("No sample is clipped"));
    QCOMPARE(tip.counts(), 3);

    QWidget* canvas = fixture[0]->canvas();
    QHelpEvent help(QEvent::ToolTip, QPoint(50, 50), canvas->mapToGlobal(QPoint(50, 50)));
    QApplication::sendEvent(canvas, &help);
    QCOMPARE(QToolTip::text(), QString("No sample is clipped"));
    const QRect picture(canvas->mapToGlobal(QPoint(0, 0)), canvas->size());
    for (const QWidget* widget : QApplication::topLevelWidgets())
        if (widget->inherits("QTipLabel")) QVERIFY(!widget->geometry().intersects(picture));
    fixture.plot()->setDisplayType(Map);
    QCOMPARE(tip.text(), QString());
}

QTEST_MAIN(FitGainTest)
#include "fitgaintest.moc"
