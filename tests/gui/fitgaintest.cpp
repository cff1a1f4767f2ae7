/// The button that fits the gain to the clip, and the tip that counts what is clipped.
#include "display/cliptip.h"
#include "display/menus/displaymenu.h"
#include "display/seismicplot.h"
#include "tests/gui/displayfixture.h"
#include "tests/gui/windowfixture.h"
#include "tests/testdata.h"
#include "widgets/numberedit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHelpEvent>
#include <QPushButton>
#include <QSet>

#include <cmath>

class FitGainTest : public QObject
{
    Q_OBJECT

private slots:
    void theButtonWritesTheGain();
    void theTipCountsOnlyAfterAChange();
    void inColorsTheButtonWritesTheRange();
    void oneToTwoPercentAreClippedAfterIt_data();
    void oneToTwoPercentAreClippedAfterIt();
    void automaticColorsUseMostOfTheTable_data();
    void automaticColorsUseMostOfTheTable();
    void anotherScalingHasARangeOfItsOwn();
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

void FitGainTest::inColorsTheButtonWritesTheRange()
{
    RampFixture fixture;
    for (int j = 0; j < 100; j += 2) fixture.ensemble.samples[0][j] *= -1.0f;  // -1, 2, -3, ... 100
    fixture.load(fixture.ensemble);
    fixture.plot()->setDisplayType(ColorB);
    DisplayMenu menu(&fixture.displays, nullptr);
    const float gain = fixture.plot()->gain();
    QTest::mouseClick(menu.findChild<QPushButton*>("fitGainButton"), Qt::LeftButton);
    QCOMPARE(fixture.plot()->gain(), gain);
    QCOMPARE(fixture.plot()->rangeMin(), -98.0f);  // -99 and 100 are the last two of a hundred
    QCOMPARE(fixture.plot()->rangeMax(), 98.0f);
    QCOMPARE(menu.findChild<NumberEdit*>("lmaxEdit")->number(), 98.0);
    QVERIFY(!menu.findChild<QCheckBox*>("lautoBox")->isChecked());
    QVERIFY(!fixture.plot()->isAutoGain());
    for (float& v : fixture.ensemble.samples[0]) v = std::fabs(v);  // of one sign: 1 at each end
    fixture.load(fixture.ensemble);
    QTest::mouseClick(menu.findChild<QPushButton*>("fitGainButton"), Qt::LeftButton);
    QCOMPARE(fixture.plot()->rangeMin(), 2.0f);
    QCOMPARE(fixture.plot()->rangeMax(), 99.0f);
}

static void addRealFiles()
{
    QTest::addColumn<QString>("file");
    for (const char* file : {"prestack-marine/viking_small.segy", "poststack-2d/RIV6.segy",
                             "poststack-3d/F3_very_small.sgy", "cdp-gathers/cdp601to605.sgy"})
        QTest::newRow(file) << QString(file);
}

/// A window on a real file, and the page of its parameters.
struct FileFixture : WindowFixture {
    explicit FileFixture(const QString& file)
    {
        open(QString::fromStdString(testDataFile(file.toStdString())));
        for (SeismicDisplay* display : window->displayList()) displays.append(display);
        page = std::make_unique<DisplayMenu>(&displays, nullptr);
    }
    void choose(const char* name, int index)
    {
        auto* box = page->findChild<QComboBox*>(name);
        box->setCurrentIndex(index);
        emit box->activated(index);
    }
    SeismicPlot* plot() { return window->display()->seismicPlot(); }
    DisplayList displays;
    std::unique_ptr<DisplayMenu> page;
};

void FitGainTest::oneToTwoPercentAreClippedAfterIt_data()
{
    addRealFiles();
}

/// Live samples that are painted beyond the clip, or beyond the ends of the colours; counted from the screen's traces.
static double clippedShare(const SeismicPlot* plot)
{
    const TraceConditioner& traces = plot->conditioner();
    const bool isColor = plot->displayType() >= ColorB;
    const double gain = std::pow(10.0, plot->gain() / 20.0);
    qint64 live = 0, clipped = 0;
    for (int i = 0; i < traces.traceCount(); ++i)
        for (int j = 0; j < traces.sampleCount(); ++j) {
            const double v = traces.samples()[size_t(i) * traces.sampleCount() + j];
            if (v == 0.0 || !std::isfinite(v)) continue;
            double divisor = plot->normalization() == Normalize::Trace ? traces.divTrace()[i] : 1.0;
            if (plot->normalization() == Normalize::Dataset) divisor = traces.divRecord();
            const double painted = v * gain / (divisor == 0.0 ? 1.0 : divisor);
            ++live;
            const double above = isColor ? plot->rangeMax() : plot->clip();
            const double below = isColor ? plot->rangeMin() : -plot->clip();
            // not the samples that stand at the end itself, which the fit puts there
            clipped += painted > above + 1e-6 * std::abs(above) || painted < below - 1e-6 * std::abs(below);
        }
    return double(clipped) / double(live);
}

void FitGainTest::oneToTwoPercentAreClippedAfterIt()
{
    QFETCH(QString, file);
    if (!hasTestData()) QSKIP("no real data files");
    FileFixture f(file);
    for (int scaling = 0; scaling < 3; ++scaling)
        for (int type = WiggleVA; type <= Velocity; ++type) {
            f.choose("scalarBox", scaling);
            f.choose("displayBox", type);
            QTest::mouseClick(f.page->findChild<QPushButton*>("fitGainButton"), Qt::LeftButton);
            const double share = clippedShare(f.plot());
            QVERIFY2(share >= 0.0099 && share <= 0.02,
                     qPrintable(QString("type %1 scaling %2: %3").arg(type).arg(scaling).arg(share)));
        }
}

void FitGainTest::automaticColorsUseMostOfTheTable_data()
{
    addRealFiles();
}

void FitGainTest::automaticColorsUseMostOfTheTable()
{
    QFETCH(QString, file);
    if (!hasTestData()) QSKIP("no real data files");
    FileFixture f(file);
    for (const int scaling : {int(Normalize::Trace), int(Normalize::Dataset)})
        for (const int type : {int(ColorB), int(Map)}) {
            f.choose("scalarBox", scaling);
            f.choose("displayBox", type);
            f.page->findChild<QCheckBox*>("lautoBox")->setChecked(true);
            QVERIFY(f.plot()->isAutoGain());
            const QImage picture = f.window->display()->canvas()->grab().toImage();
            const ColorTable& table = f.window->colorBarFrame()->table();
            QSet<QRgb> colors, used;
            for (int i = 0; i < table.numColors(); ++i) colors.insert(table.rgbArray()[i]);
            for (int y = 0; y < picture.height(); ++y)
                for (int x = 0; x < picture.width(); ++x)
                    if (colors.contains(picture.pixel(x, y))) used.insert(picture.pixel(x, y));
            QVERIFY2(used.size() >= 0.6 * colors.size(),
                     qPrintable(QString("type %1: %2 of %3").arg(type).arg(used.size()).arg(colors.size())));
        }
}

void FitGainTest::anotherScalingHasARangeOfItsOwn()
{
    RampFixture fixture;  // None: the mean of 1 to 100 is 50.5, and half of it the mean under trace scaling
    DisplayMenu menu(&fixture.displays, nullptr);
    SeismicPlot* plot = fixture.plot();
    plot->setDisplayType(ColorB);
    plot->setAutoGain(false);
    plot->setRange(-80.0f, 80.0f);
    const auto choose = [&menu](Normalize scaling) {
        auto* box = menu.findChild<QComboBox*>("scalarBox");
        box->setCurrentIndex(int(scaling));
        emit box->activated(int(scaling));
    };
    choose(Normalize::Trace);
    QCOMPARE(plot->rangeMax(), 0.7f);  // 1.4 times a half
    QCOMPARE(plot->rangeMin(), -0.7f);
    QCOMPARE(fixture.bar.maxValue(), double(0.7f));
    QCOMPARE(menu.findChild<NumberEdit*>("lmaxEdit")->text(), QString("0.7"));
    plot->setRange(-0.5f, 0.5f);
    choose(Normalize::Dataset);  // the same unit
    QCOMPARE(plot->rangeMax(), 0.5f);
    choose(Normalize::None);
    QCOMPARE(plot->rangeMax(), 80.0f);
    QCOMPARE(plot->rangeMin(), -80.0f);
    QVERIFY(!plot->isAutoGain());
    choose(Normalize::Trace);
    QCOMPARE(plot->rangeMax(), 0.5f);
}

QTEST_MAIN(FitGainTest)
#include "fitgaintest.moc"
