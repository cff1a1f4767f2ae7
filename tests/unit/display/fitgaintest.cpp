#include "display/raster/fitgain.h"

#include "display/raster/traceraster.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

/// Two traces of 50: 1 to 50 and, negative, 51 to 100.
struct Hundred {
    std::vector<float> samples;
    float divisors[2] = {2.0f, 2.0f};
    RasterParm parm;

    Hundred()
    {
        for (int i = 1; i <= 100; ++i) samples.push_back(i <= 50 ? float(i) : -float(i));
        parm.samples = samples.data();
        parm.nDataTraces = 2;
        parm.stride = 50;
        parm.divTrace = divisors;
        parm.divRecord = 4.0f;
        parm.view.nTraces = 2;
        parm.view.nSamples = 50;
        parm.clip = 2.0f;
    }
};

TEST(FitGain, TheNinetyEighthPercentileStandsAtTheClip)
{
    Hundred h;
    double db = 0.0;
    ASSERT_TRUE(fitGain(h.parm, &db));
    EXPECT_NEAR(db, 20.0 * std::log10(2.0 / 98.0), 1e-6);
    h.parm.normalize = Normalize::Trace;
    ASSERT_TRUE(fitGain(h.parm, &db));
    EXPECT_NEAR(db, 20.0 * std::log10(2.0 / 49.0), 1e-6);
    h.parm.normalize = Normalize::Dataset;
    h.parm.clip = 98.0f / 4.0f;
    ASSERT_TRUE(fitGain(h.parm, &db));
    EXPECT_NEAR(db, 0.0, 1e-9);
}

TEST(FitGain, DeadAndUnsoundSamplesDoNotCount)
{
    Hundred h;
    h.samples[0] = 0.0f;
    h.samples[1] = NAN;
    h.samples[2] = INFINITY;
    // 97 are left, 4 to 100; 0.98 of them are 95.06, so that the 96th stands at the clip: 99
    double db = 0.0;
    ASSERT_TRUE(fitGain(h.parm, &db));
    EXPECT_NEAR(db, 20.0 * std::log10(2.0 / 99.0), 1e-6);
    EXPECT_EQ(clippedSamples(h.parm).live, 97);
}

TEST(FitGain, NothingLiveGivesNoGain)
{
    Hundred h;
    double db = 7.0;
    h.parm.clip = 0.0f;
    EXPECT_FALSE(fitGain(h.parm, &db));
    h.parm.clip = 2.0f;
    h.samples.assign(100, 0.0f);
    EXPECT_FALSE(fitGain(h.parm, &db));
    EXPECT_EQ(db, 7.0);
    EXPECT_EQ(clippedSamples(h.parm).live, 0);
}

TEST(FitGain, CountsWhatLiesBeyondTheClip)
{
    Hundred h;
    EXPECT_EQ(clippedSamples(h.parm).clipped, 98);  // 3 to 100
    EXPECT_EQ(clippedSamples(h.parm).live, 100);
    h.parm.gain = 1.0f / 32.0f;
    EXPECT_EQ(clippedSamples(h.parm).clipped, 36);  // 65 to 100
    h.parm.normalize = Normalize::Trace;
    EXPECT_EQ(clippedSamples(h.parm).clipped, 0);
    h.parm.gain = 1.0f;
    h.parm.bias = 10.0f;
    h.parm.applyBias = true;
    // (v + 10) / 2 past 2 either side: all 50 of the first, and v below -14 of the second, all 50
    EXPECT_EQ(clippedSamples(h.parm).clipped, 100);
}

TEST(FitGain, AFittedGainClipsTheLastFiftieth)
{
    Hundred h;
    double db = 0.0;
    ASSERT_TRUE(fitGain(h.parm, &db));
    h.parm.gain = float(std::pow(10.0, (db - 1e-4) / 20.0));
    EXPECT_EQ(clippedSamples(h.parm).clipped, 2);
}
