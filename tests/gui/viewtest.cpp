/// Picture, axes and read-out agree at every zoom, also where a view reaches beyond the data.
#include "display/seismicplot.h"
#include "host/flow/stheader.h"
#include "tests/gui/displayfixture.h"
#include "tracedata/seismicdata.h"

#include <qwt_scale_map.h>

#include <cmath>
#include <map>

class ViewTest : public QObject
{
    Q_OBJECT

private slots:
    void eachPixelShowsTheSampleOfTheReadOut_data();
    void eachPixelShowsTheSampleOfTheReadOut();
    void aPulseStandsAtItsOwnTimeAtEveryZoom_data();
    void aPulseStandsAtItsOwnTimeAtEveryZoom();
    void theWheelAndThePannerLeaveTheDataAtTheirTimes();
    void aPictureOfPartOfTheRecordIsStoredWhole();
    void aReversedSliceIsStoredFromItsFirstSampleOn();
    void noTraceIsPiledUpAtTheEdgeOfAWideView();
};

constexpr int nTraces = 20, nSamples = 200;

/// Amplitudes that a map shows in grey, so that a pixel tells the value behind it.
struct GreyMap : DisplayFixture {
    TestEnsemble ensemble{nTraces, nSamples};
    std::map<QRgb, double> values;

    /// @param valueOf  amplitude of a trace and a sample, both from 0; 0 to `largest`
    template <typename Value>
    GreyMap(const Value& valueOf, float largest) : DisplayFixture(1, nSamples)
    {
        for (int i = 0; i < nTraces; ++i)
            for (int j = 0; j < nSamples; ++j) ensemble.samples[i][j] = valueOf(i, j);
        menu->idisplay = Map;
        menu->iscale = 0;
        menu->irange = 0;
        menu->minrange = 0.0f;
        menu->maxrange = largest;
        bar.setSeismicGrayScale();
        bar.setBackGround(Qt::yellow);
        displays[0]->setMenu(menu.get());
    }

    /// Colours of the table, once the range is known.
    void learnColors()
    {
        const ColorTable& table = bar.table();
        for (int i = 0; i < table.numColors(); ++i)
            values[table.rgbArray()[i]] = table.maxValue() - (i + 0.5) * table.increment();
    }
    QImage picture() { return displays[0]->canvas()->grab().toImage(); }
};

/// A slice of positions along the inlines instead of times.
static void makeSlice(GreyMap* f, int line)
{
    stHdrClear();
    for (const StandardWord& word : standardWords) stHdrAddStd(word.name);
    f->menu->dotrevia = 1;
    f->menu->iskey = f->menu->iskeyreal = standardWordIndex("XLINE_NO") + 1;
    (*f)[0]->setMenu(f->menu.get());
    for (auto& words : f->ensemble.words) words[standardWordIndex("ILINE_NO")] = line;
    (*f)[0]->setDomain(8, 0, nSamples, 4.0f);
}

static void addViews()
{
    // traces from, traces, samples from, samples
    const double views[][4] = {{0, 21, 0, 200},         {5, 10, 40, 80},      {0, 21, 30.4, 20.2}, {12, 3, 100, 5},
                               {-10, 45, -60, 400},     {-1, 25, -0.5, 220},  {3, 30, 150, 90},    {-6.3, 12, -30, 60},
                               {-200, 500, -900, 2500}, {10, 40, 120.7, 400}, {-3, 6, -4.3, 9},    {17, 9, 195, 9}};
    for (const auto& v : views)
        QTest::addRow("traces %g + %g samples %g + %g", v[0], v[1], v[2], v[3]) << QRectF(v[0], v[2], v[1], v[3]);
}

void ViewTest::eachPixelShowsTheSampleOfTheReadOut_data()
{
    QTest::addColumn<QRectF>("view");
    addViews();
}

/// Row by row down the middle of a trace. Between two samples a map shows values between theirs.
static void checkColumn(GreyMap* f, const QImage& picture, int trace, double perRow)
{
    SeismicDisplay* display = (*f)[0];
    const QwtScaleMap x = display->canvasMap(QwtPlot::xTop);
    const int column = qRound(x.transform(trace));
    if (column < 1 || column > picture.width() - 2) return;
    const double tolerance = 1.0 + perRow + 1.5 * nSamples / 256.0;
    const int rows = int(display->canvasMap(QwtPlot::yLeft).pDist());
    for (int row = 0; row < rows; ++row) {
        const QString line = display->readoutAt(QPoint(column, row));
        const auto value = f->values.find(picture.pixel(column, row));
        const QString where = QString("trace %1 row %2: %3").arg(trace).arg(row).arg(line);
        if (!line.contains("Amp:")) {
            QVERIFY2(value == f->values.end(), qPrintable("no background at " + where));
            continue;
        }
        QVERIFY2(value != f->values.end(), qPrintable("background at " + where));
        const double shown = line.section("Amp:", 1).trimmed().toDouble();
        QVERIFY2(std::abs(value->second - shown) <= tolerance,
                 qPrintable(where + QString(" but the pixel has %1").arg(value->second)));
    }
}

void ViewTest::eachPixelShowsTheSampleOfTheReadOut()
{
    QFETCH(QRectF, view);
    for (const int line : {0, 300, -300})  // times, a slice that runs down, one that runs up
        for (const PlotDirection direction : {LeftToRight, RightToLeft}) {
            GreyMap f([](int, int j) { return float(j); }, nSamples);
            if (line != 0) makeSlice(&f, line);
            f.load(f.ensemble);
            f.learnColors();
            f[0]->setPlotDirection(direction);
            const double unit = line != 0 ? 1.0 : 4.0;
            f[0]->setVisibleRect(QRectF(view.x(), view.y() * unit, view.width(), view.height() * unit));
            const QImage picture = f.picture();
            const double perRow = view.height() / picture.height();
            for (int trace = -2; trace <= nTraces + 4; trace += 3) {
                // of a view that starts with a trace, a map paints those from the next to the one before its end
                const bool isEdge = view.x() >= 0.0 && (trace <= view.x() || trace >= view.right());
                if (!isEdge) checkColumn(&f, picture, trace, perRow);
            }
        }
}

void ViewTest::aPulseStandsAtItsOwnTimeAtEveryZoom_data()
{
    QTest::addColumn<QRectF>("view");
    addViews();
}

/// A pulse around sample 125 (500 ms) of trace 7 alone.
static float pulse(int i, int j)
{
    return i == 6 ? float(std::exp(-std::pow((j - 125) / 2.0, 2))) : 0.0f;
}

void ViewTest::aPulseStandsAtItsOwnTimeAtEveryZoom()
{
    QFETCH(QRectF, view);
    for (const PlotDirection direction : {LeftToRight, RightToLeft}) {
        GreyMap f(pulse, 1.0f);
        f.load(f.ensemble);
        f.learnColors();
        f[0]->setPlotDirection(direction);
        const int trace = direction == RightToLeft ? nTraces + 1 - 7 : 7;
        f[0]->setVisibleRect(QRectF(view.x(), view.y() * 4.0, view.width(), view.height() * 4.0));
        const QImage picture = f.picture();
        QPointF sum;
        double weight = 0.0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const auto value = f.values.find(picture.pixel(x, y));
                if (value == f.values.end() || value->second < 0.3) continue;
                sum += QPointF(x, y) * value->second;
                weight += value->second;
            }
        const QRectF seen = view.adjusted(1.5, 8.0, -1.5, -8.0);  // the whole pulse, and its neighbours
        if (!seen.contains(trace, 125.0) || view.height() / picture.height() > 2.0) continue;
        QVERIFY(weight > 0.0);
        const QPointF middle = sum / weight;
        const double at = f[0]->canvasMap(QwtPlot::xTop).invTransform(middle.x());
        const double ms = f[0]->canvasMap(QwtPlot::yLeft).invTransform(middle.y());
        const double perPixel = view.height() * 4.0 / picture.height();
        QVERIFY2(std::abs(at - trace) < 0.2 + view.width() / picture.width(), qPrintable(QString::number(at)));
        QVERIFY2(std::abs(ms - 500.0) <= 4.0 + perPixel, qPrintable(QString::number(ms)));
    }
}

void ViewTest::theWheelAndThePannerLeaveTheDataAtTheirTimes()
{
    GreyMap f([](int, int j) { return float(j); }, nSamples);
    f.load(f.ensemble);
    f.learnColors();
    for (int turn = 0; turn < 8; ++turn) {
        const int delta = turn < 4 ? 120 : -120;
        QWheelEvent wheel(QPointF(100, 100), QPointF(100, 100), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(f[0]->canvas(), &wheel);
        const QImage picture = f.picture();
        const double perRow = f[0]->visibleRect().height() / 4.0 / picture.height();
        for (int trace = 1; trace < nTraces; ++trace) checkColumn(&f, picture, trace, perRow);
        if (turn == 3) QVERIFY(f[0]->visibleRect().top() < -100.0);
    }
    // Half as long an inch as fits: half of the canvas is below the data.
    f[0]->seismicPlot()->setAutoSampleSpacing(false);
    f[0]->seismicPlot()->setSampleSpacing(f[0]->seismicPlot()->sampleSpacing() * 2.0f);
    f[0]->rebuildDisplay(false);
    QVERIFY(f[0]->visibleRect().bottom() > 1500.0);
    f[0]->panVertically(-50);
    const QImage picture = f.picture();
    checkColumn(&f, picture, 9, f[0]->visibleRect().height() / 4.0 / picture.height());
}

/// The stored picture of an ensemble has the samples from `first` to the last, from top to bottom.
static void checkStored(GreyMap* f, double first)
{
    (*f)[0]->buildImage();
    const QImage& stored = (*f)[0]->images().saveImage();
    QVERIFY(!stored.isNull());
    const int column = stored.width() * 10 / (nTraces + 1);
    for (int row = 0; row < stored.height(); ++row) {
        const auto value = f->values.find(stored.pixel(column, row));
        QVERIFY(value != f->values.end());
        const double sample = first + (nSamples - first) * row / stored.height();
        QVERIFY2(std::abs(value->second - sample) < 2.5, qPrintable(QString::number(row)));
    }
}

void ViewTest::aPictureOfPartOfTheRecordIsStoredWhole()
{
    GreyMap f([](int, int j) { return float(j); }, nSamples);
    f.menu->stime = 400;
    f[0]->setMenu(f.menu.get());
    f.load(f.ensemble);
    f.learnColors();
    checkStored(&f, 100.0);
}

void ViewTest::aReversedSliceIsStoredFromItsFirstSampleOn()
{
    GreyMap f([](int, int j) { return float(j); }, nSamples);
    makeSlice(&f, -300);
    f.load(f.ensemble);
    f.learnColors();
    checkStored(&f, 0.0);
}

void ViewTest::noTraceIsPiledUpAtTheEdgeOfAWideView()
{
    DisplayFixture f(1, nSamples);
    TestEnsemble ensemble(nTraces, nSamples);
    for (auto& trace : ensemble.samples) std::fill(trace.begin(), trace.end(), 0.0f);
    f.menu->idisplay = Wiggle;
    f[0]->setMenu(f.menu.get());
    f.load(ensemble);
    // Traces 1 to 7 are in view; all of them are straight lines.
    f[0]->setVisibleRect(QRectF(-12.5, 0.0, 20.0, 800.0));
    const QImage picture = f[0]->canvas()->grab().toImage();
    const int row = picture.height() / 2;
    QVector<int> black;
    for (int x = 0; x < picture.width(); ++x)
        if (picture.pixel(x, row) == qRgb(0, 0, 0)) black.append(x);
    QCOMPARE(black.size(), 7);
    for (int i = 0; i < 7; ++i) {
        const double wanted = f[0]->canvasMap(QwtPlot::xTop).transform(i + 1.0);
        // two positions are cut to whole pixels: that of the first trace, and the distance to it
        QVERIFY2(std::abs(black[i] - wanted) <= 2.0,
                 qPrintable(QString("trace %1 at %2 not %3").arg(i + 1).arg(black[i]).arg(wanted)));
    }
}

QTEST_MAIN(ViewTest)
#include "viewtest.moc"
