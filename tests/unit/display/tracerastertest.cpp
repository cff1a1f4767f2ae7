#include "display/raster/traceraster.h"

#include "display/colors/colortable.h"
#include "display/raster/rasterpaint.h"
#include "display/raster/tracetap.h"
#include "host/cpuvariant.h"
#include "tests/unit/display/referenceraster.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <utility>

#include <omp.h>

/// Traces with all that real data hold: noise, spikes, dead traces, zeros, and values that are not numbers.
struct Gather {
    Gather(int traces, int samples, unsigned seed = 1) : nTraces(traces), nSamples(samples), values(traces * samples)
    {
        std::mt19937 random(seed);
        std::normal_distribution<float> normal;
        for (float& v : values) v = normal(random);
        for (int i = 0; i < traces; ++i) {
            float* trace = &values[i * samples];
            if (i % 7 == 3) std::fill_n(trace, samples, 0.0f);
            if (i % 5 == 1) trace[samples / 3] = 50.0f;
            if (i % 4 == 2) trace[samples / 2] = -40.0f;
            if (i % 6 == 4) trace[samples / 4] = std::numeric_limits<float>::quiet_NaN();
            if (i % 6 == 5) trace[samples / 5] = std::numeric_limits<float>::infinity();
            for (int j = 0; j < std::min(samples, i % 9); ++j) trace[j] = 0.0f;
            divisors.push_back(i % 7 == 3 ? 0.0f : 0.5f + 0.1f * i);
            offsets.push_back(-300.0f + 70.0f * i);
        }
        colors.setColorType(ColorYes);
        colors.setMinMaxValue(-2.0, 2.0);
    }

    /// All traces at 2 ms on width by height pixels, the x axis from 0 to traces + 1.
    RasterParm parm(int width, int height) const
    {
        RasterParm p;
        p.samples = values.data();
        p.nDataTraces = nTraces;
        p.stride = nSamples;
        p.sampleRate = 2.0f;
        p.divTrace = divisors.data();
        p.divRecord = 0.8f;
        p.view.nTraces = nTraces;
        p.view.nSamples = nSamples;
        p.x = {0.0, nTraces + 1.0, 0.0, double(width)};
        p.y = {nSamples * 2.0, 0.0, double(height), 0.0};
        p.offsets = offsets.data();
        p.plotSampleCount = nSamples;
        p.colors = &colors;
        p.background = qRgb(240, 250, 230);
        return p;
    }

    int nTraces, nSamples;
    std::vector<float> values, divisors, offsets;
    ColorTable colors;
};

struct Listener : TraceTap {
    void pickTraceChange(const float* trace, int start, int n, int tr) override
    {
        calls.push_back({std::vector<float>(trace, trace + n), start, tr});
    }
    std::vector<TapCall> calls;
};

/// First pixel that differs, as text; empty if none does.
static std::string difference(const QImage& got, const QImage& wanted)
{
    if (got.size() != wanted.size())
        return "size " + std::to_string(got.width()) + "x" + std::to_string(got.height()) + " instead of " +
               std::to_string(wanted.width()) + "x" + std::to_string(wanted.height());
    for (int y = 0; y < got.height(); ++y)
        for (int x = 0; x < got.width(); ++x)
            if (got.pixel(x, y) != wanted.pixel(x, y)) {
                char text[99];
                std::snprintf(text, sizeof text, "pixel %d, %d is %08x instead of %08x", x, y, got.pixel(x, y),
                              wanted.pixel(x, y));
                return text;
            }
    return "";
}

/// NaN in the samples would make equal calls unequal.
static void forgetNaN(std::vector<TapCall>* calls)
{
    for (TapCall& call : *calls)
        for (float& v : call.samples)
            if (std::isnan(v)) v = 12345.0f;
}

static void expectAsReference(const RasterParm& parm, TraceRaster* raster)
{
    ReferencePicture wanted = referenceRender(parm);
    Listener listener;
    const QImage got = raster->render(parm, &listener);
    ASSERT_EQ(difference(got, wanted.image), "");
    for (int i = 0; i < int(wanted.shifts.size()); ++i) ASSERT_EQ(raster->traceShift(i), wanted.shifts[i]) << i;
    forgetNaN(&listener.calls);
    forgetNaN(&wanted.taps);
    ASSERT_TRUE(listener.calls == wanted.taps);
}

static const DisplayType allTypes[] = {WiggleVA, Wiggle, VA, ColorB, ColorWiggle, Map, Velocity, Grayscale};
static const Normalize allScalings[] = {Normalize::Trace, Normalize::Dataset, Normalize::None};

static const char* nameOf(DisplayType type)
{
    static const char* names[] = {"WiggleVA", "Wiggle", "VA", "ColorB", "ColorWiggle", "Map", "Velocity", "Grayscale"};
    return names[type];
}

TEST(TraceRaster, PaintsEveryTypeDirectionAndScalingAsTheSlowWay)
{
    const Gather gather(23, 80);
    TraceRaster raster;
    for (DisplayType type : allTypes)
        for (PlotDirection direction : {LeftToRight, RightToLeft, TopToBottom, BottomToTop})
            for (Normalize scaling : allScalings)
                for (int timeDirection : {0, 1})
                    for (bool isFiltered : {false, true}) {
                        SCOPED_TRACE(std::string(nameOf(type)) + " direction " + std::to_string(direction) +
                                     " scaling " + std::to_string(int(scaling)) + " time " +
                                     std::to_string(timeDirection));
                        RasterParm parm = gather.parm(171, isFiltered ? 61 : 143);
                        parm.displayType = type;
                        parm.plotDirection = direction;
                        parm.normalize = scaling;
                        parm.timeDirection = timeDirection;
                        parm.antialias = isFiltered;
                        if (timeDirection == 0) std::swap(parm.y.s1, parm.y.s2);
                        ASSERT_NO_FATAL_FAILURE(expectAsReference(parm, &raster));
                    }
}

TEST(TraceRaster, PaintsEveryZoomWindowAsTheSlowWay)
{
    const Gather gather(40, 120);
    TraceRaster raster;
    const double traces[][2] = {{0, 41},  {0, 10},    {5, 20},    {5.3, 20.7}, {7.999, 8.5}, {12.5, 12.9},
                                {30, 70}, {-4.5, 12}, {39.5, 41}, {41, 50},    {0, 400},     {0.25, 3}};
    const double times[][2] = {{0, 240},  {10, 30},   {33.3, 77.7}, {100, 240}, {200, 400},
                               {-50, 60}, {236, 240}, {0, 2},       {0, 4},     {0, 3000}};
    for (DisplayType type : {WiggleVA, ColorB, ColorWiggle, Map})
        for (const auto& x : traces)
            for (const auto& y : times)
                for (int startSample : {0, 20}) {
                    SCOPED_TRACE(std::string(nameOf(type)) + " traces " + std::to_string(x[0]) + ".." +
                                 std::to_string(x[1]) + " times " + std::to_string(y[0]) + ".." + std::to_string(y[1]) +
                                 " from sample " + std::to_string(startSample));
                    RasterParm parm = gather.parm(97, 88);
                    parm.displayType = type;
                    parm.normalize = Normalize::Trace;
                    parm.startSample = startSample;
                    parm.x.s1 = x[0];
                    parm.x.s2 = x[1];
                    parm.y.s1 = y[1];
                    parm.y.s2 = y[0];
                    ASSERT_NO_FATAL_FAILURE(expectAsReference(parm, &raster));
                }
}

TEST(TraceRaster, PaintsEveryGainBiasAndClipAsTheSlowWay)
{
    const Gather gather(17, 50);
    TraceRaster raster;
    for (DisplayType type : {WiggleVA, Wiggle, VA, ColorB, ColorWiggle, Velocity})
        for (float gain : {0.1f, 1.0f, 30.0f, 1e30f, 3e38f})
            for (float bias : {0.0f, 0.4f, -0.7f})
                for (float clip : {0.0f, 0.5f, 2.0f, 3.3f, 1000.0f})
                    for (int width : {9, 160}) {
                        SCOPED_TRACE(std::string(nameOf(type)) + " gain " + std::to_string(gain) + " bias " +
                                     std::to_string(bias) + " clip " + std::to_string(clip));
                        RasterParm parm = gather.parm(width, 70);
                        parm.displayType = type;
                        parm.gain = gain;
                        parm.bias = bias;
                        parm.applyBias = bias != 0.0f;
                        parm.clip = clip;
                        ASSERT_NO_FATAL_FAILURE(expectAsReference(parm, &raster));
                    }
}

TEST(TraceRaster, PaintsEveryShiftAndMoveoutAsTheSlowWay)
{
    const Gather gather(15, 90);
    TraceRaster raster;
    for (DisplayType type : {WiggleVA, ColorB, Map})
        for (int moveout : {0, 1, 2})
            for (float velocity : {0.0f, 3000.0f, 9000.0f})
                for (int bulkshift : {0, 7, -11, 80, -88, -89, 300, -300})
                    for (double begin : {0.0, 40.0})
                        for (int startSample : {0, 10})
                            for (bool isFiltered : {false, true}) {
                                SCOPED_TRACE(std::string(nameOf(type)) + " moveout " + std::to_string(moveout) +
                                             " velocity " + std::to_string(velocity) + " shift " +
                                             std::to_string(bulkshift) + " from " + std::to_string(begin));
                                RasterParm parm = gather.parm(111, isFiltered ? 40 : 100);
                                parm.displayType = type;
                                parm.moveout = moveout;
                                parm.velocity = velocity;
                                parm.bulkshift = bulkshift;
                                parm.y.s2 = begin;
                                parm.startSample = startSample;
                                parm.antialias = isFiltered;
                                ASSERT_NO_FATAL_FAILURE(expectAsReference(parm, &raster));
                            }
}

TEST(TraceRaster, PaintsAtEveryPlaceOfTheCanvasAsTheSlowWay)
{
    const Gather gather(11, 60);
    TraceRaster raster;
    for (DisplayType type : {WiggleVA, ColorB, ColorWiggle, Map})
        for (double left : {0.0, 3.7, -20.0, 30.0})
            for (double top : {0.0, 5.9, 16.0, 45.0, 70.0, -4.0, -37.5})
                for (float samples : {0.0f, 60.0f, 500.0f}) {
                    SCOPED_TRACE(std::string(nameOf(type)) + " left " + std::to_string(left) + " top " +
                                 std::to_string(top));
                    RasterParm parm = gather.parm(95, 64);
                    parm.displayType = type;
                    parm.x.p1 += left;
                    parm.x.p2 += left;
                    parm.y.p1 += top;
                    parm.y.p2 += top;
                    parm.plotSampleCount = samples;
                    ASSERT_NO_FATAL_FAILURE(expectAsReference(parm, &raster));
                }
}

TEST(TraceRaster, PaintsRandomViewsAsTheSlowWay)
{
    std::mt19937 random(4);
    const auto number = [&](double low, double high) { return std::uniform_real_distribution<>(low, high)(random); };
    TraceRaster raster;
    for (int i = 0; i < 400; ++i) {
        SCOPED_TRACE("view " + std::to_string(i));
        const Gather gather(1 + int(number(0, 60)), 3 + int(number(0, 200)), i);
        RasterParm parm = gather.parm(1 + int(number(0, 200)), 1 + int(number(0, 200)));
        parm.displayType = allTypes[int(number(0, 8))];
        parm.normalize = allScalings[int(number(0, 3))];
        parm.plotDirection = number(0, 1) < 0.5 ? LeftToRight : RightToLeft;
        parm.sampleRate = float(number(0.1, 5));
        parm.x.s1 = number(-2, gather.nTraces);
        parm.x.s2 = parm.x.s1 + number(0.1, 1.5 * gather.nTraces);
        parm.y.s2 = number(-20, 0.5 * gather.nSamples * parm.sampleRate);
        parm.y.s1 = parm.y.s2 + number(2, 2 * gather.nSamples) * parm.sampleRate;
        parm.gain = float(number(0.2, 3));
        parm.clip = float(number(0, 4));
        parm.antialias = number(0, 1) < 0.5;
        parm.bulkshift = int(number(-30, 30));
        parm.moveout = int(number(0, 3));
        parm.velocity = float(number(500, 6000));
        parm.applyBias = number(0, 1) < 0.3;
        parm.bias = float(number(-1, 1));
        ASSERT_NO_FATAL_FAILURE(expectAsReference(parm, &raster));
    }
}

/// One trace of zeros with one spike at sample 4, on a picture of a pixel a sample: the axis stands at x = 20.
struct Spike {
    explicit Spike(float value) : gather(1, 9)
    {
        std::fill(gather.values.begin(), gather.values.end(), 0.0f);
        gather.values[4] = value;
        parm = gather.parm(40, 9);
    }
    QImage paint(DisplayType type)
    {
        parm.displayType = type;
        return raster.render(parm, nullptr);
    }
    /// The row as text: '#' black, '.' background, 'o' any colour.
    std::string row(const QImage& image, int y) const
    {
        std::string text;
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            text += pixel == qRgb(0, 0, 0) ? '#' : pixel == parm.background ? '.' : 'o';
        }
        return text;
    }
    Gather gather;
    RasterParm parm;
    TraceRaster raster;
};

TEST(TraceRaster, FillsAPositiveSpikeFromTheAxisToItsEnd)
{
    Spike spike(0.25f);  // 20 pixels a trace: 5 pixels
    const QImage image = spike.paint(VA);
    const std::string empty(40, '.');
    EXPECT_EQ(spike.row(image, 3), empty);
    EXPECT_EQ(spike.row(image, 4), "....................######..............");
    EXPECT_EQ(spike.row(image, 5), empty);
}

TEST(TraceRaster, LeavesANegativeSpikeOfAVariableAreaEmpty)
{
    Spike spike(-0.25f);
    const QImage image = spike.paint(VA);
    for (int y = 0; y < 9; ++y) EXPECT_EQ(spike.row(image, y), std::string(40, '.')) << y;
}

TEST(TraceRaster, DrawsAWiggleAlongTheRowAboveEachStep)
{
    Spike spike(-0.25f);
    const QImage image = spike.paint(Wiggle);
    EXPECT_EQ(spike.row(image, 2), "....................#...................");
    EXPECT_EQ(spike.row(image, 3), "................#####...................");
    EXPECT_EQ(spike.row(image, 4), "...............#####....................");
    EXPECT_EQ(spike.row(image, 5), "....................#...................");
}

TEST(TraceRaster, NormalizeNoneClipsAtTwoTraceWidthsOfRawAmplitude)
{
    Spike spike(1e6f);
    spike.parm.x.s2 = 8.0;  // 5 pixels a trace, so the axis stands at 5 and the clip at 10 more
    const QImage image = spike.paint(VA);
    EXPECT_EQ(spike.row(image, 4), ".....###########........................");
}

TEST(TraceRaster, ZeroInAColourDisplayPaintsTheSinglePixelAtTheAxis)
{
    Spike spike(0.0f);
    const QImage image = spike.paint(ColorB);
    for (int y = 0; y < 9; ++y) EXPECT_EQ(spike.row(image, y), "....................o...................") << y;
    EXPECT_EQ(image.pixel(20, 0), spike.gather.colors.getColorRGB2(0.0));
}

TEST(TraceRaster, GrayscalePaintsNothing)
{
    Spike spike(1.0f);
    const QImage image = spike.paint(Grayscale);
    for (int y = 0; y < 9; ++y) EXPECT_EQ(spike.row(image, y), std::string(40, '.')) << y;
}

TEST(TraceRaster, APositiveFillDoesNotOverwriteItsLeftNeighboursExcursion)
{
    Gather gather(2, 9);
    std::fill(gather.values.begin(), gather.values.end(), 0.0f);
    gather.values[4] = 1.5f;  // reaches 15 of 10 pixels a trace
    gather.values[9 + 4] = 1.0f;
    RasterParm parm = gather.parm(30, 9);
    parm.displayType = ColorB;
    TraceRaster raster;
    const QImage image = raster.render(parm, nullptr);
    const QRgb first = gather.colors.getColorRGB2(1.5), second = gather.colors.getColorRGB2(1.0);
    ASSERT_NE(first, second);
    EXPECT_EQ(image.pixel(20, 4), first);  // the second trace's axis
    EXPECT_EQ(image.pixel(24, 4), first);
    EXPECT_EQ(image.pixel(25, 4), second);  // the neighbour's end itself is taken over
    EXPECT_EQ(image.pixel(29, 4), second);
}

TEST(TraceRaster, ANegativeLobeHasNoSuchGuard)
{
    Gather gather(2, 9);
    std::fill(gather.values.begin(), gather.values.end(), 0.0f);
    gather.values[4] = 1.5f;
    gather.values[9 + 4] = -0.8f;
    RasterParm parm = gather.parm(30, 9);
    parm.displayType = ColorB;
    TraceRaster raster;
    const QImage image = raster.render(parm, nullptr);
    EXPECT_EQ(image.pixel(11, 4), gather.colors.getColorRGB2(1.5));
    for (int x = 12; x <= 20; ++x) EXPECT_EQ(image.pixel(x, 4), gather.colors.getColorRGB2(-0.8f)) << x;
}

TEST(TraceRaster, WithRightToLeftTheLastTraceOfTheDataIsPaintedFirst)
{
    Gather gather(3, 9);
    std::fill(gather.values.begin(), gather.values.end(), 0.0f);
    gather.values[2 * 9 + 4] = 0.5f;  // the last trace
    RasterParm parm = gather.parm(40, 9);
    parm.displayType = VA;
    parm.plotDirection = RightToLeft;
    TraceRaster raster;
    Listener listener;
    const QImage image = raster.render(parm, &listener);
    EXPECT_EQ(image.pixel(12, 4), qRgb(0, 0, 0));  // 10 pixels a trace, the first axis at 10
    EXPECT_EQ(image.pixel(32, 4), parm.background);
    ASSERT_EQ(listener.calls.size(), 3u);
    EXPECT_EQ(listener.calls[0].tr, 2);
    EXPECT_EQ(listener.calls[2].tr, 0);
}

TEST(TraceRaster, ATraceShiftedOutOfViewLeavesNoColumnAndLaterTracesMoveLeft)
{
    Gather gather(3, 9);
    std::fill(gather.values.begin(), gather.values.end(), 0.0f);
    gather.values[2 * 9 + 4] = 0.5f;
    gather.offsets = {0.0f, 1e6f, 0.0f};  // the second trace goes
    RasterParm parm = gather.parm(40, 9);
    parm.displayType = VA;
    parm.moveout = 1;
    parm.velocity = 1000.0f;
    TraceRaster raster;
    Listener listener;
    const QImage image = raster.render(parm, &listener);
    EXPECT_EQ(image.pixel(22, 4), qRgb(0, 0, 0));  // where the second trace would stand
    EXPECT_EQ(image.pixel(32, 4), parm.background);
    EXPECT_EQ(listener.calls.size(), 2u);
    EXPECT_EQ(raster.traceShift(0), 0);
    EXPECT_EQ(raster.traceShift(1), 500000);
    EXPECT_EQ(raster.traceShift(99), 0);
}

TEST(TraceRaster, AllZeroDataArePaintedFlatWithoutDivision)
{
    Gather gather(2, 9);
    std::fill(gather.values.begin(), gather.values.end(), 0.0f);
    gather.divisors.assign(2, 0.0f);
    RasterParm parm = gather.parm(30, 9);
    parm.divRecord = 0.0f;
    TraceRaster raster;
    for (Normalize scaling : allScalings) {
        parm.normalize = scaling;
        const QImage image = raster.render(parm, nullptr);
        for (int y = 0; y < 9; ++y)
            for (int x = 0; x < 30; ++x)
                EXPECT_EQ(image.pixel(x, y), x == 10 || x == 20 ? qRgb(0, 0, 0) : parm.background) << x << " " << y;
    }
}

TEST(TraceRaster, ValuesThatAreNotFiniteAreShownAsZero)
{
    Spike zero(0.0f), nan(NAN), infinite(INFINITY);
    const QImage flat = zero.paint(ColorWiggle);
    EXPECT_EQ(difference(nan.paint(ColorWiggle), flat), "");
    EXPECT_EQ(difference(infinite.paint(ColorWiggle), flat), "");
}

TEST(TraceRaster, AnyOneSampleThatIsNotFiniteIsShownAsZero)
{
    Gather gather(2, 37);  // no whole number of vectors
    TraceRaster raster;
    for (int sample = 0; sample < 37; ++sample) {
        SCOPED_TRACE(sample);
        const float before = std::exchange(gather.values[size_t(sample)], NAN);
        const RasterParm parm = gather.parm(60, 80);
        const QImage broken = raster.render(parm, nullptr).copy();
        gather.values[size_t(sample)] = 0.0f;
        EXPECT_EQ(raster.render(parm, nullptr), broken);
        gather.values[size_t(sample)] = before;
    }
}

TEST(TraceRaster, FewerThanTwoSamplesOrNoSizeGiveNoPicture)
{
    const Gather gather(5, 30);
    TraceRaster raster;
    const RasterParm good = gather.parm(50, 40);
    EXPECT_FALSE(raster.render(good, nullptr).isNull());
    RasterParm parm = good;
    parm.y.s1 = 3.9;  // 1.95 samples
    EXPECT_TRUE(raster.render(parm, nullptr).isNull());
    parm = good;
    parm.y.s2 = 58.0;  // the last sample alone
    EXPECT_TRUE(raster.render(parm, nullptr).isNull());
    parm = good;
    parm.x.p2 = 0.0;
    EXPECT_TRUE(raster.render(parm, nullptr).isNull());
    parm = good;
    parm.y.p1 = -3.0;
    EXPECT_TRUE(raster.render(parm, nullptr).isNull());
    parm = good;
    parm.sampleRate = 0.0f;
    EXPECT_TRUE(raster.render(parm, nullptr).isNull());
}

TEST(TraceRaster, WildMapsAndShiftsTouchNothingOutside)
{
    const Gather gather(5, 30);
    TraceRaster raster;
    const double wild[] = {0.0, -1e300, 1e300, NAN, INFINITY, -INFINITY, 1e9, -1e9, 31.0};
    for (double v : wild)
        for (int field = 0; field < 8; ++field)
            for (DisplayType type : {ColorWiggle, Map}) {
                RasterParm parm = gather.parm(50, 40);
                double* const fields[] = {&parm.x.s1, &parm.x.s2, &parm.x.p1, &parm.x.p2,
                                          &parm.y.s1, &parm.y.s2, &parm.y.p1, &parm.y.p2};
                *fields[field] = v;
                parm.displayType = type;
                const QImage image = raster.render(parm, nullptr);
                EXPECT_TRUE(image.isNull() || image.width() > 0);
            }
    RasterParm large = gather.parm(50, 40);
    large.view.nTraces = 99;  // more than there are
    large.view.nSamples = 99;
    large.x.s2 = 100.0;
    EXPECT_FALSE(raster.render(large, nullptr).isNull());
    for (int shift : {INT_MAX, INT_MIN, -29, -30, 1 << 25})
        for (int moveout : {0, 1, 2}) {
            RasterParm parm = gather.parm(50, 40);
            parm.bulkshift = shift;
            parm.moveout = moveout;
            parm.velocity = 1e-30f;
            EXPECT_FALSE(raster.render(parm, nullptr).isNull());
        }
}

TEST(TraceRaster, AHyperbolaShowsTheSameSampleAtEveryZoom)
{
    Gather gather(1, 400);
    RasterParm parm = gather.parm(60, 400);  // a pixel a sample
    parm.displayType = ColorB;
    parm.moveout = 2;
    parm.velocity = 2000.0f;
    gather.offsets[0] = 350.0f;
    TraceRaster raster;
    const QImage whole = raster.render(parm, nullptr).copy();
    parm.y = {600.0, 200.0, 200.0, 0.0};  // samples 100 to 300, again a pixel a sample
    const QImage part = raster.render(parm, nullptr);
    EXPECT_EQ(difference(part.copy(0, 0, 60, 190), whole.copy(0, 100, 60, 190)), "");
}

TEST(TraceRaster, AHyperbolaOfKnownVelocityIsFlat)
{
    Gather gather(4, 300);
    std::fill(gather.values.begin(), gather.values.end(), 0.0f);
    gather.offsets = {0.0f, 200.0f, -400.0f, 600.0f};
    for (int i = 0; i < 4; ++i) {
        const double t = std::hypot(0.2, gather.offsets[i] / 2000.0);  // 200 ms at offset 0
        for (int j = 0; j < 300; ++j)                                  // a smooth pulse of 20 samples
            gather.values[i * 300 + j] = float(std::exp(-std::pow((j * 0.002 - t) / 0.012, 2)));
    }
    RasterParm parm = gather.parm(500, 300);
    parm.displayType = VA;
    parm.moveout = 2;
    parm.velocity = 2000.0f;
    TraceRaster raster;
    const QImage image = raster.render(parm, nullptr);
    for (int i = 0; i < 4; ++i) {
        const int nearEnd = 100 * (i + 1) + 98;  // only the peak reaches 98 of 100 pixels
        int first = 300, last = -1;
        for (int y = 0; y < 300; ++y)
            if (image.pixel(nearEnd, y) == qRgb(0, 0, 0)) first = std::min(first, y), last = std::max(last, y);
        EXPECT_NEAR((first + last) / 2.0, 100.0, 1.0) << "trace " << i;
    }
}

TEST(TraceRaster, BothProcessorVariantsAndAnyNumberOfThreadsGiveTheSamePicture)
{
    const Gather gather(450, 300);  // large enough to be shared out
    const int threads = omp_get_max_threads();
    for (DisplayType type : allTypes)
        for (int moveout : {0, 2}) {
            SCOPED_TRACE(nameOf(type));
            RasterParm parm = gather.parm(333, 257);
            parm.displayType = type;
            parm.normalize = Normalize::Trace;
            parm.moveout = moveout;
            parm.velocity = 3000.0f;
            omp_set_num_threads(1);
            useCpuVariant(CpuVariant::Plain);
            TraceRaster one;
            const QImage wanted = one.render(parm, nullptr);
            for (int n : {1, 2, 3})
                for (CpuVariant variant : {CpuVariant::Plain, CpuVariant::V3}) {
                    omp_set_num_threads(n);
                    useCpuVariant(variant);
                    TraceRaster other;
                    EXPECT_EQ(difference(other.render(parm, nullptr), wanted), "") << n;
                }
        }
    useCpuVariant(CpuVariant::V3);
    omp_set_num_threads(threads);
}

TEST(TraceRaster, APictureStillHeldIsNotPaintedOver)
{
    const Gather gather(5, 30);
    TraceRaster raster;
    RasterParm parm = gather.parm(50, 40);
    const QImage held = raster.render(parm, nullptr);
    const QImage copy = held.copy();
    parm.plotDirection = RightToLeft;
    const QImage next = raster.render(parm, nullptr);
    EXPECT_EQ(difference(held, copy), "");
    EXPECT_NE(difference(next, copy), "");
}

TEST(UpperRun, GoesUpToTheEndAndNotOverTheEdges)
{
    const struct {
        int x0, x1, first, last;
    } cases[] = {{5, 5, 5, 5},  {5, 8, 5, 7},    {8, 5, 6, 8},   {-3, 2, 0, 1},
                 {12, 7, 8, 9}, {12, 12, 12, 9}, {-4, -4, 0, -4}};
    for (const auto& c : cases) {
        const PixelRun run = upperRun(c.x0, c.x1, 10);
        EXPECT_EQ(run.first, c.first) << c.x0 << " to " << c.x1;
        EXPECT_EQ(run.last, c.last) << c.x0 << " to " << c.x1;
    }
}

/// Halves each sample and adds its place in the whole trace.
struct HalvingTap : TraceTap {
    bool changesTraces() const override { return isOn; }
    void changeTrace(float* trace, int start, int n, int tr) override
    {
        for (int i = 0; i < n; ++i) trace[i] = changed(trace[i], start + i, tr);
        changedTraces.push_back(tr);
    }
    void pickTraceChange(const float* trace, int start, int, int tr) override
    {
        heard.push_back(trace[0]);
        places.push_back({start, tr});
    }
    static float changed(float value, int place, int tr) { return 0.5f * value + 0.25f * float(place) - float(tr); }
    bool isOn = true;
    std::vector<int> changedTraces;
    std::vector<float> heard;
    std::vector<std::pair<int, int>> places;
};

TEST(TraceRaster, PaintsWhatATapMakesOfTheTracesAndLeavesThemAlone)
{
    const Gather gather(19, 70);
    Gather halved = gather;
    for (int tr = 0; tr < 19; ++tr)
        for (int j = 0; j < 70; ++j)
            halved.values[tr * 70 + j] = HalvingTap::changed(gather.values[tr * 70 + j], j, tr);
    const std::vector<float> before = gather.values;
    for (const DisplayType type : {WiggleVA, ColorB, Map})
        for (const int bulkshift : {0, -11, 7})
            for (const PlotDirection direction : {LeftToRight, RightToLeft}) {
                SCOPED_TRACE(std::string(nameOf(type)) + " shift " + std::to_string(bulkshift));
                RasterParm parm = gather.parm(120, 90), wanted = halved.parm(120, 90);
                for (RasterParm* each : {&parm, &wanted}) {
                    each->displayType = type;
                    each->bulkshift = bulkshift;
                    each->plotDirection = direction;
                }
                TraceRaster raster;
                HalvingTap tap;
                const QImage got = raster.render(parm, &tap);
                ASSERT_EQ(difference(got, referenceRender(wanted).image), "");
                ASSERT_EQ(tap.changedTraces.size(), tap.places.size());
                ASSERT_GT(tap.places.size(), 0u);
                for (size_t i = 0; i < tap.places.size(); ++i) {
                    const auto [start, tr] = tap.places[i];
                    ASSERT_EQ(tap.changedTraces[i], tr);  // in the order of painting, and heard as changed
                    const float expected = halved.values[tr * 70 + start];
                    if (std::isnan(expected)) continue;
                    ASSERT_EQ(tap.heard[i], expected);
                }
            }
    for (size_t i = 0; i < before.size(); ++i)
        ASSERT_EQ(std::memcmp(&gather.values[i], &before[i], sizeof(float)), 0) << i;
}

TEST(TraceRaster, ATapThatChangesNothingIsNotAskedTo)
{
    const Gather gather(5, 40);
    TraceRaster raster;
    HalvingTap tap;
    tap.isOn = false;
    const RasterParm parm = gather.parm(60, 50);
    const QImage got = raster.render(parm, &tap);
    EXPECT_EQ(difference(got, referenceRender(parm).image), "");
    EXPECT_TRUE(tap.changedTraces.empty());
    EXPECT_EQ(tap.heard.size(), 5u);
}
