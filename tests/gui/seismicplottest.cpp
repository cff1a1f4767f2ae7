#include "display/seismicplot.h"
#include "display/colors/colorbarframe.h"
#include "display/plotowner.h"
#include "tracedata/seismicdata.h"

#include <QPainter>
#include <QtTest>

#include <cmath>
#include <memory>
#include <vector>

/// Stands for the display.
struct Owner : PlotOwner {
    int timeDirection() const override { return direction; }
    void sendPickTraceChange(const float* trace, int start, int n, int tr) override
    {
        heard.append(tr);
        firstSamples.append(trace[0]);
        Q_UNUSED(start);
        Q_UNUSED(n);
    }
    void traceOffsets(const SeismicData&, int nTraces, float* offsets) const override
    {
        ++asked;
        std::fill_n(offsets, nTraces, 100.0f);
    }
    int direction = 1;
    mutable int asked = 0;
    QVector<int> heard;
    QVector<float> firstSamples;
};

static QwtScaleMap scaleMap(double s1, double s2, double p1, double p2)
{
    QwtScaleMap map;
    map.setScaleInterval(s1, s2);
    map.setPaintInterval(p1, p2);
    return map;
}

class SeismicPlotTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void startsAsADisplayExpectsIt();
    void gainIsInDecibels();
    void theAmplitudeLimitsDefineTheBias();
    void equalAmplitudeLimitsGiveNoBias();
    void automaticSpacingsFillTheRectangle();
    void aTraceSpacingBelowOneBecomesOne();
    void fixedSpacingsStay();
    void withoutDataTheSpacingsStay();
    void theBarFollowsTheDisplayType_data();
    void theBarFollowsTheDisplayType();
    void aFirstColourDisplayTakesThreeAroundZero();
    void aColourDisplayKeepsTheRangeThatTheUserSet();
    void anAutomaticRangeFollowsTheData();
    void aFixedRangeIsTakenFromTheFirstDataOnly();
    void withoutCountedTracesTheRangeIsZeroIfAutomatic();
    void velocityTurnsTheScalingOff();
    void scalingMeasuresOnlyAfterTheFirstTime();
    void aPlotWithoutABarOnlyStoresTheType();
    void everyParameterIsTakenAndToldAgain();
    void parametersChangeAsIfEachWereSet();
    void nothingIsDrawnWithoutData();
    void lentTracesThatHaveGoneAreNotPainted();
    void drawsAtTheCanvasInDevicePixels_data();
    void drawsAtTheCanvasInDevicePixels();
    void aTransparentPlotLetsTheOneBelowThrough();
    void savesAPictureThatTheNextRenderLeaves();
    void theOwnerHearsTheConditionedTraces();
    void offsetsAreAskedOnlyWithMoveout();
    void theBackgroundIsTheBars();
    void aBarThatIsGoneIsNoMatter();
    void cropsAStoredPicture();
    void drawsAStoredPicture();

private:
    QImage drawn(double ratio, const QSize& size, const QwtScaleMap& x, const QwtScaleMap& y) const;

    std::vector<std::vector<float>> _values;
    std::vector<float*> _traces;
    std::vector<int*> _headers;
    int _word = 0;
    std::unique_ptr<SeismicData> _data;
    std::unique_ptr<Owner> _owner;
    std::unique_ptr<ColorBarFrame> _bar;
    std::unique_ptr<SeismicPlot> _plot;
};

/// Four traces of 50 samples at 2 ms, amplitudes 1 to 4.
void SeismicPlotTest::init()
{
    _values.assign(4, std::vector<float>(50));
    _traces.clear();
    _headers.assign(4, &_word);
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 50; ++j) _values[i][j] = (j % 2 ? -1.0f : 1.0f) * (i + 1);
        _traces.push_back(_values[i].data());
    }
    _data = std::make_unique<SeismicData>();
    _data->setNumHeaderWords(1);
    _data->setSampleRate(2.0f);
    _data->loadAllTraces(_traces.data(), _headers.data(), 50, 4);
    _owner = std::make_unique<Owner>();
    _bar = std::make_unique<ColorBarFrame>();
    _plot = std::make_unique<SeismicPlot>(_owner.get(), _data.get(), "plot");
    _plot->setSeismicView(0, 0, 4, 50, 0);
}

void SeismicPlotTest::startsAsADisplayExpectsIt()
{
    QCOMPARE(_plot->title().text(), QString("plot"));
    QCOMPARE(_plot->normalization(), Normalize::None);
    QCOMPARE(_plot->displayType(), WiggleVA);
    QCOMPARE(_plot->plotDirection(), LeftToRight);
    QCOMPARE(_plot->gain(), 0.0f);
    QCOMPARE(_plot->clip(), 2.0f);
    QCOMPARE(_plot->bias(), 0.0f);
    QCOMPARE(_plot->isApplyBias(), false);
    QCOMPARE(_plot->rms(), 1.0f);
    QCOMPARE(_plot->minAmp(), -1000.0f);
    QCOMPARE(_plot->maxAmp(), 1000.0f);
    QCOMPARE(_plot->traceSpacing(), 5.0f);
    QCOMPARE(_plot->isAutoTraceSpacing(), true);
    QCOMPARE(_plot->sampleSpacing(), 1.0f);
    QCOMPARE(_plot->isAutoSampleSpacing(), true);
    QCOMPARE(_plot->rangeMin(), 0.0f);
    QCOMPARE(_plot->rangeMax(), 255.0f);
    QCOMPARE(_plot->isAutoGain(), true);
    QCOMPARE(_plot->isTransparent(), false);
    QCOMPARE(_plot->opacity(), 0.75f);
    QCOMPARE(_plot->isDataLoaded(), false);
    QCOMPARE(_plot->moveout(), 0);
    QCOMPARE(_plot->getTraceShift(0), 0);
    QCOMPARE(_plot->dpi(), 115.0f);
}

void SeismicPlotTest::gainIsInDecibels()
{
    _plot->setGain(20.0f);
    QCOMPARE(_plot->gain(), 20.0f);
    _plot->setGain(-6.0f);
    QVERIFY(std::abs(_plot->gain() + 6.0f) < 1e-5f);
    _plot->setRMS(2.5f);
    QCOMPARE(_plot->peak(), 3.5f);
}

void SeismicPlotTest::theAmplitudeLimitsDefineTheBias()
{
    _plot->setMinAmp(-1.0f);
    _plot->setMaxAmp(3.0f);
    QCOMPARE(_plot->isApplyBias(), true);
    QCOMPARE(_plot->bias(), 0.25f);  // 2 / 8
}

void SeismicPlotTest::equalAmplitudeLimitsGiveNoBias()
{
    _plot->setMinAmp(2.0f);
    _plot->setMaxAmp(2.0f);
    QCOMPARE(_plot->isApplyBias(), false);
    QCOMPARE(_plot->bias(), 0.0f);
}

void SeismicPlotTest::automaticSpacingsFillTheRectangle()
{
    _plot->setDataLoaded(true);
    _plot->setOutputBuffers(QRect(0, 0, 230, 115));
    QCOMPARE(_plot->traceSpacing(), 2.5f);  // 5 traces on 2 inches
    QCOMPARE(_plot->plotTraceCount(), 5.0f);
    QCOMPARE(_plot->sampleSpacing(), 50.0f);  // 50 samples on 1 inch
    QCOMPARE(_plot->plotSampleCount(), 50.0f);
}

void SeismicPlotTest::aTraceSpacingBelowOneBecomesOne()
{
    _plot->setDataLoaded(true);
    _plot->setOutputBuffers(QRect(0, 0, 1150, 115));
    QCOMPARE(_plot->traceSpacing(), 1.0f);  // 0.5 otherwise
    QCOMPARE(_plot->plotTraceCount(), 10.0f);
}

void SeismicPlotTest::fixedSpacingsStay()
{
    _plot->setDataLoaded(true);
    _plot->setAutoTraceSpacing(false);
    _plot->setAutoSampleSpacing(false);
    _plot->setTraceSpacing(0.5f);
    _plot->setSampleSpacing(20.0f);
    _plot->setOutputBuffers(QRect(0, 0, 230, 345));
    QCOMPARE(_plot->traceSpacing(), 0.5f);
    QCOMPARE(_plot->plotTraceCount(), 1.0f);
    QCOMPARE(_plot->plotSampleCount(), 60.0f);
}

void SeismicPlotTest::withoutDataTheSpacingsStay()
{
    _plot->setOutputBuffers(QRect(0, 0, 230, 115));
    QCOMPARE(_plot->traceSpacing(), 5.0f);
    _plot->setDataLoaded(true);
    _plot->setOutputBuffers(QRect(0, 0, 0, 115));
    QCOMPARE(_plot->traceSpacing(), 5.0f);
    QCOMPARE(_plot->plotTraceCount(), 0.0f);
}

void SeismicPlotTest::theBarFollowsTheDisplayType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("color");
    QTest::addColumn<bool>("isAuto");
    QTest::newRow("wiggle/VA") << int(WiggleVA) << int(ColorNo) << true;
    QTest::newRow("wiggle") << int(Wiggle) << int(ColorNo) << true;
    QTest::newRow("VA") << int(VA) << int(ColorNo) << true;
    QTest::newRow("colour") << int(ColorB) << int(ColorYes) << false;
    QTest::newRow("colour/wiggle") << int(ColorWiggle) << int(ColorYes) << false;
    QTest::newRow("map") << int(Map) << int(ColorYes) << true;
    QTest::newRow("velocity") << int(Velocity) << int(ColorYes) << true;
    QTest::newRow("grey") << int(Grayscale) << int(ColorNo) << true;
}

void SeismicPlotTest::theBarFollowsTheDisplayType()
{
    QFETCH(int, type);
    QFETCH(int, color);
    QFETCH(bool, isAuto);
    _plot->setColorBar(_bar.get());
    _plot->setDisplayType(DisplayType(type));
    QCOMPARE(int(_bar->colorType()), color);
    QCOMPARE(_plot->isAutoGain(), isAuto);
    QCOMPARE(_bar->minValue(), double(_plot->rangeMin()));
    QCOMPARE(_bar->maxValue(), double(_plot->rangeMax()));
    QCOMPARE(_bar->dataMaxValue(), _plot->rangeMax());
    _bar->setColorType(color == ColorYes ? ColorNo : ColorYes);
    _plot->setColorBar(_bar.get());
    QCOMPARE(int(_bar->colorType()), color);
}

void SeismicPlotTest::aFirstColourDisplayTakesThreeAroundZero()
{
    _plot->setColorBar(_bar.get());
    _plot->setDisplayType(ColorB);
    QCOMPARE(_plot->rangeMin(), -3.0f);
    QCOMPARE(_plot->rangeMax(), 3.0f);
    QCOMPARE(_bar->maxValue(), 3.0);
}

void SeismicPlotTest::aColourDisplayKeepsTheRangeThatTheUserSet()
{
    _plot->setColorBar(_bar.get());
    _plot->setDisplayType(ColorB);
    _plot->setRange(-7.0f, 8.0f);
    _plot->setDisplayType(ColorB);
    QCOMPARE(_plot->rangeMin(), -7.0f);
    QCOMPARE(_plot->rangeMax(), 8.0f);
    QCOMPARE(_bar->maxValue(), 8.0);
    _plot->setDisplayType(ColorWiggle);
    QCOMPARE(_plot->rangeMax(), 8.0f);
}

void SeismicPlotTest::anAutomaticRangeFollowsTheData()
{
    _plot->computeNormalizer();
    QCOMPARE(_plot->rangeMin(), -4.0f);  // no scaling: the data's own
    QCOMPARE(_plot->rangeMax(), 4.0f);
    QCOMPARE(_plot->rms(), 2.5f);
    _plot->setNormalization(Normalize::Trace);
    QCOMPARE(_plot->rangeMin(), -3.5f);  // 1.4 times the mean amplitude
    QCOMPARE(_plot->rangeMax(), 3.5f);
}

void SeismicPlotTest::aFixedRangeIsTakenFromTheFirstDataOnly()
{
    _plot->setAutoGain(false);
    _plot->computeNormalizer();
    QCOMPARE(_plot->rangeMax(), 4.0f);
    for (float& v : _values[3]) v *= 10.0f;
    _plot->computeNormalizer();
    QCOMPARE(_plot->rangeMax(), 4.0f);

    SeismicPlot colour(nullptr, _data.get(), "colour");
    colour.setAutoGain(false);
    colour.setDisplayType(ColorB);
    colour.computeNormalizer();
    QCOMPARE(colour.rangeMax(), 255.0f);  // never for these types
    SeismicPlot velocity(nullptr, _data.get(), "velocity");
    velocity.setAutoGain(false);
    velocity.setDisplayType(Velocity);
    velocity.computeNormalizer();
    QCOMPARE(velocity.rangeMax(), 40.0f);
}

void SeismicPlotTest::withoutCountedTracesTheRangeIsZeroIfAutomatic()
{
    for (auto& trace : _values) std::fill(trace.begin(), trace.end(), 0.0f);
    _plot->setColorBar(_bar.get());
    _plot->setDisplayType(Map);
    QCOMPARE(_plot->rangeMin(), 0.0f);
    QCOMPARE(_plot->rangeMax(), 0.0f);
    QCOMPARE(_plot->rms(), 0.0f);
    QCOMPARE(_plot->peak(), 0.0f);
    QCOMPARE(_bar->minValue(), -1.0);
    QCOMPARE(_bar->maxValue(), 1.0);
    _plot->setAutoGain(false);
    _plot->setRange(-2.0f, 2.0f);
    _plot->computeNormalizer();
    QCOMPARE(_plot->rangeMax(), 2.0f);
}

void SeismicPlotTest::velocityTurnsTheScalingOff()
{
    _plot->setNormalization(Normalize::Trace);
    _plot->setDisplayType(Velocity);
    QCOMPARE(_plot->normalization(), Normalize::Trace);  // without a bar only the type is stored
    _plot->setColorBar(_bar.get());
    _plot->setDisplayType(Velocity);
    QCOMPARE(_plot->normalization(), Normalize::None);
    QCOMPARE(_plot->rangeMax(), 4.0f);
}

void SeismicPlotTest::scalingMeasuresOnlyAfterTheFirstTime()
{
    _plot->setNormalization(Normalize::Dataset);
    QCOMPARE(_plot->conditioner().traceCount(), 0);
    _plot->computeNormalizer();
    _plot->setNormalization(Normalize::None);
    QCOMPARE(_plot->rangeMax(), 4.0f);
}

void SeismicPlotTest::aPlotWithoutABarOnlyStoresTheType()
{
    _plot->setDisplayType(ColorB);
    QCOMPARE(_plot->displayType(), ColorB);
    QCOMPARE(_plot->isAutoGain(), true);
    QCOMPARE(_plot->conditioner().traceCount(), 0);
}

/// The plot on a grey canvas of this logical size.
QImage SeismicPlotTest::drawn(double ratio, const QSize& size, const QwtScaleMap& x, const QwtScaleMap& y) const
{
    QImage canvas(QSizeF(size.width() * ratio, size.height() * ratio).toSize(), QImage::Format_RGB32);
    canvas.setDevicePixelRatio(ratio);
    canvas.fill(Qt::gray);
    QPainter painter(&canvas);
    _plot->draw(&painter, x, y, QRectF(QPointF(0, 0), size));
    painter.end();
    canvas.setDevicePixelRatio(1.0);
    return canvas;
}

void SeismicPlotTest::everyParameterIsTakenAndToldAgain()
{
    for (const ParmField<PlotParm>& field : plotParmFields()) {
        SeismicPlot plot(_owner.get(), _data.get(), "plot");
        plot.setAutoGain(false);  // an automatic range is the data's to tell
        PlotParm parm = plot.parm();
        const ParmValue before = field.value(parm);
        const double step = std::holds_alternative<float>(before) ? 0.25 : 1.0;
        const double former = std::visit([](auto value) { return double(value); }, before);
        const double number = former + step <= field.rule.most ? former + step : former - step;
        const ParmValue told = std::holds_alternative<bool>(before)  ? ParmValue(!std::get<bool>(before))
                               : std::holds_alternative<int>(before) ? ParmValue(int(number))
                                                                     : ParmValue(float(number));
        QVERIFY2(field.setValue(told, &parm), field.rule.key);
        plot.setParm(parm);
        QVERIFY2(field.value(plot.parm()) == told, field.rule.key);
        for (const ParmField<PlotParm>& other : plotParmFields())
            QVERIFY2(other.value(plot.parm()) == other.value(parm), other.rule.key);
    }
}

void SeismicPlotTest::parametersChangeAsIfEachWereSet()
{
    _plot->setColorBar(_bar.get());
    _plot->computeNormalizer();
    _plot->setAutoGain(false);
    _plot->setRange(-9.0f, 9.0f);
    PlotParm parm = _plot->parm();
    parm.normalize = Normalize::Trace;
    parm.clip = 1.25f;
    const int generation = _plot->conditioner().generation();
    _plot->changeParm(parm);
    QCOMPARE(_plot->conditioner().generation(), generation + 1);
    QCOMPARE(_plot->clip(), 1.25f);
    QCOMPARE(_plot->normalization(), Normalize::Trace);
    QCOMPARE(_plot->rangeMax(), 3.5f);  // 1.4 times the mean of 1, 2, 3 and 4: the old one was of another unit
    QCOMPARE(_plot->rangeMin(), -3.5f);
    QVERIFY(!_plot->isAutoGain());
    parm = _plot->parm();
    parm.normalize = Normalize::None;
    _plot->changeParm(parm);
    QCOMPARE(_plot->rangeMax(), 9.0f);
    // A range that is told itself is taken.
    parm = _plot->parm();
    parm.rangeMax = 7.0f;
    _plot->changeParm(parm);
    QCOMPARE(_plot->rangeMax(), 7.0f);
    QCOMPARE(_plot->rangeMin(), -9.0f);
    QCOMPARE(_bar->maxValue(), 7.0f);
}

void SeismicPlotTest::nothingIsDrawnWithoutData()
{
    const QwtScaleMap x = scaleMap(0, 5, 0, 100), y = scaleMap(100, 0, 80, 0);
    const QImage canvas = drawn(1.0, {100, 80}, x, y);
    QImage grey(canvas.size(), canvas.format());
    grey.fill(Qt::gray);
    QCOMPARE(canvas, grey);
    QVERIFY(_plot->renderImage2(x, y, QRectF(0, 0, 5, 100)).isNull());
    _plot->setDataLoaded(true);
    QVERIFY(_plot->renderImage2(x, y, QRectF()).isNull());
    _plot->computeNormalizer();
    QVERIFY(!_plot->renderImage2(x, y, QRectF(0, 0, 5, 100)).isNull());
}

void SeismicPlotTest::lentTracesThatHaveGoneAreNotPainted()
{
    std::vector<float> block(4 * 50, 1.0f);
    std::vector<float*> traces;
    for (int i = 0; i < 4; ++i) traces.push_back(&block[size_t(i) * 50]);
    _data->clear();
    _data->loadAllTraces(traces.data(), _headers.data(), 50, 4);
    _plot->setDataLent(true);
    _plot->setDataLoaded(true);
    _plot->computeNormalizer();
    const QwtScaleMap x = scaleMap(0, 5, 0, 100), y = scaleMap(100, 0, 80, 0);
    const QImage shown = _plot->renderImage2(x, y, QRectF(0, 0, 5, 100)).copy();
    QImage empty(shown.size(), shown.format());
    empty.fill(Qt::white);
    QVERIFY(!shown.isNull() && shown != empty);
    _data->clear();
    std::fill(block.begin(), block.end(), -1.0f);  // whatever stands there now
    QCOMPARE(_plot->renderImage2(x, y, QRectF(0, 0, 5, 100)), empty);
}

void SeismicPlotTest::drawsAtTheCanvasInDevicePixels_data()
{
    QTest::addColumn<double>("ratio");
    QTest::newRow("1") << 1.0;
    QTest::newRow("1.25") << 1.25;
    QTest::newRow("1.5") << 1.5;
    QTest::newRow("2") << 2.0;
}

void SeismicPlotTest::drawsAtTheCanvasInDevicePixels()
{
    QFETCH(double, ratio);
    _plot->setDataLoaded(true);
    _plot->computeNormalizer();
    const QImage canvas = drawn(ratio, {100, 80}, scaleMap(0, 5, 0, 100), scaleMap(100, 0, 80, 0));
    const QImage wanted =
        _plot->renderImage2(scaleMap(0, 5, 0, 100 * ratio), scaleMap(100, 0, 80 * ratio, 0), QRectF(0, 0, 5, 100));
    QCOMPARE(wanted.size(), QSize(int(100 * ratio), int(80 * ratio)));
    QCOMPARE(canvas, wanted);
}

void SeismicPlotTest::aTransparentPlotLetsTheOneBelowThrough()
{
    _plot->setDataLoaded(true);
    _plot->computeNormalizer();
    _plot->setTransparent(true);
    _plot->setOpacity(0.5f);
    const QImage canvas = drawn(1.0, {100, 80}, scaleMap(0, 5, 0, 100), scaleMap(100, 0, 80, 0));
    const QRgb grey = canvas.pixel(1, 1);  // white over grey
    QVERIFY(qRed(grey) > 190 && qRed(grey) < 220);
}

void SeismicPlotTest::savesAPictureThatTheNextRenderLeaves()
{
    const QwtScaleMap x = scaleMap(0, 5, 0, 100), y = scaleMap(100, 0, 80, 0);
    QVERIFY(_plot->saveImage(x, y, QRectF(0, 0, 100, 80)).isNull());
    _plot->setDataLoaded(true);
    _plot->computeNormalizer();
    QVERIFY(_plot->saveImage(x, y, QRectF()).isNull());
    const QImage saved = _plot->saveImage(x, y, QRectF(0, 0, 100, 80));
    QCOMPARE(saved.size(), QSize(100, 80));
    const QImage copy = saved.copy();
    _plot->setPlotDirection(RightToLeft);
    const QImage other = _plot->saveImage(x, y, QRectF(0, 0, 100, 80));
    QCOMPARE(saved, copy);
    QVERIFY(other != saved);
}

void SeismicPlotTest::theOwnerHearsTheConditionedTraces()
{
    _plot->setDataLoaded(true);
    _plot->applyAGC(true, 500);
    _plot->computeNormalizer();
    _plot->renderImage2(scaleMap(0, 5, 0, 100), scaleMap(100, 0, 80, 0), QRectF(0, 0, 5, 100));
    QCOMPARE(_owner->heard, QVector<int>({0, 1, 2, 3}));
    QCOMPARE(_owner->firstSamples, QVector<float>({1.0f, 1.0f, 1.0f, 1.0f}));  // not 1 to 4
}

void SeismicPlotTest::offsetsAreAskedOnlyWithMoveout()
{
    const QwtScaleMap x = scaleMap(0, 5, 0, 100), y = scaleMap(100, 0, 80, 0);
    _plot->setDataLoaded(true);
    _plot->computeNormalizer();
    _plot->renderImage2(x, y, QRectF(0, 0, 5, 100));
    QCOMPARE(_owner->asked, 0);
    _plot->applyMoveout(1, 5000.0f);
    _plot->renderImage2(x, y, QRectF(0, 0, 5, 100));
    QCOMPARE(_owner->asked, 1);
    QCOMPARE(_plot->getTraceShift(2), 10);  // 100 / 5000 s at 2 ms
    _plot->setBulkshift(4);
    _plot->renderImage2(x, y, QRectF(0, 0, 5, 100));
    QCOMPARE(_plot->getTraceShift(2), 6);
}

void SeismicPlotTest::theBackgroundIsTheBars()
{
    _plot->setColorBar(_bar.get());
    _bar->setBackGround(QColor(10, 20, 30));
    _plot->setDataLoaded(true);
    _plot->computeNormalizer();
    const QImage image = _plot->renderImage2(scaleMap(0, 5, 0, 100), scaleMap(100, 0, 80, 0), QRectF(0, 0, 5, 100));
    QCOMPARE(image.pixel(0, 0), qRgb(10, 20, 30));
}

void SeismicPlotTest::aBarThatIsGoneIsNoMatter()
{
    _plot->setColorBar(_bar.get());
    _plot->setDisplayType(ColorB);
    _bar.reset();
    _plot->setDataLoaded(true);
    _plot->setRange(0.0f, 1.0f);
    _plot->computeNormalizer();
    QVERIFY(!_plot->renderImage2(scaleMap(0, 5, 0, 100), scaleMap(100, 0, 80, 0), QRectF(0, 0, 5, 100)).isNull());
}

void SeismicPlotTest::cropsAStoredPicture()
{
    // 11 traces on 220 pixels, 1000 ms on 500
    const AxisMap savedX{0, 11, 0, 220}, savedY{1000, 0, 500, 0};
    const QSize picture(220, 500);
    QCOMPARE(storedPictureCrop(picture, savedX, savedY, {0, 11, 0, 220}, {1000, 0, 500, 0}, 0, 0),
             QRect(0, 0, 220, 500));
    QCOMPARE(storedPictureCrop(picture, savedX, savedY, {5, 8, 0, 220}, {600, 200, 500, 0}, 200, 0),
             QRect(100, 100, 220, 200));
    QCOMPARE(storedPictureCrop(picture, savedX, savedY, {0, 11, 0, 220}, {700, 300, 500, 0}, 300, 100),
             QRect(0, 100, 220, 200));
    // the last digit of a spacing in single precision
    QCOMPARE(storedPictureCrop(picture, savedX, savedY, {0, 11, 0, 220}, {999.99994, 0, 500, 0}, 0, 0),
             QRect(0, 0, 220, 500));
    QVERIFY(storedPictureCrop(picture, savedX, savedY, {0, 11, 0, 220}, {200, 200, 500, 0}, 200, 0).isEmpty());
    QVERIFY(storedPictureCrop(picture, {0, 0, 0, 0}, {0, 0, 0, 0}, savedX, savedY, 0, 0).isEmpty());
}

void SeismicPlotTest::drawsAStoredPicture()
{
    QImage picture(100, 80, QImage::Format_RGB32);
    for (int y = 0; y < 80; ++y)
        for (int x = 0; x < 100; ++x) picture.setPixel(x, y, qRgb(x, y, 50));
    const QwtScaleMap x = scaleMap(0, 5, 0, 100), y = scaleMap(100, 0, 80, 0);
    _plot->setDataLoaded(true);
    _plot->setupDrawImage(picture, x, y);
    QCOMPARE(drawn(1.0, {100, 80}, x, y), picture);

    const QImage cropped = drawn(1.0, {100, 80}, x, scaleMap(75, 25, 80, 0));
    QCOMPARE(cropped.pixel(7, 0), qRgb(7, 20, 50));
    QCOMPARE(cropped.pixel(7, 39), qRgb(7, 59, 50));
    QCOMPARE(cropped.pixel(7, 40), QColor(Qt::gray).rgb());

    _plot->setupDrawPixmap(QPixmap::fromImage(picture), x, y);
    QCOMPARE(drawn(1.0, {100, 80}, x, y).pixel(30, 40), qRgb(30, 40, 50));
    _owner->direction = 0;  // times rise along with the scale
    QCOMPARE(drawn(1.0, {100, 80}, scaleMap(1, 6, 0, 100), scaleMap(25, 75, 80, 0)).pixel(0, 0), qRgb(20, 20, 50));

    _plot->setDoDrawImage(false);
    _plot->computeNormalizer();
    QVERIFY(drawn(1.0, {100, 80}, x, scaleMap(0, 100, 80, 0)).pixel(30, 40) != qRgb(30, 40, 50));
}

QTEST_MAIN(SeismicPlotTest)
#include "seismicplottest.moc"
