#include "trevia/demosurvey.h"

#include <gtest/gtest.h>

#include <cmath>

// Expected numbers were computed from the formulas by a separate Python program, or by hand where they show it.

TEST(DemoSurvey, StationsAndShotsStandWhereTheyShould)
{
    EXPECT_EQ(demoStationX(101), 0.0);
    EXPECT_EQ(demoStationX(300), 4776.0);  // 24 x 199
    const DemoShot first = demoShot(0);
    EXPECT_EQ(first.ffid, 1001);
    EXPECT_EQ(first.shotPoint, 201);
    EXPECT_EQ(first.place.x, 468.0);
    EXPECT_EQ(first.place.y, 0.0);
    EXPECT_EQ(demoShot(2).place.y, 8.0);
    EXPECT_EQ(demoShot(57).place.y, 8.0);
    EXPECT_EQ(demoShot(59).place.x, 3300.0);
}

TEST(DemoSurvey, TheSpreadIsOffEndAtTheStartAndSplitLater)
{
    EXPECT_EQ(demoShot(0).firstLive, 101);   // clamp(19 - 59)
    EXPECT_EQ(demoShot(20).firstLive, 101);  // 468 + 960 = 1428: floor(59.5) - 59 = 0
    EXPECT_EQ(demoShot(21).firstLive, 103);
    EXPECT_EQ(demoShot(59).firstLive, 179);  // floor(137.5) - 59 = 78
    for (int k = 0; k < 60; ++k) EXPECT_LE(demoShot(k).firstLive + 119, 300);
}

TEST(DemoSurvey, TheMovedShotStandsOnAStation)
{
    const DemoShot moved = demoShot(29);
    EXPECT_EQ(moved.place.x, demoStationX(179));  // 468 + 48 x 29 + 12 = 1872 = 24 x 78
    EXPECT_EQ(demoOffset(moved.place, {demoStationX(179), 0.0}), 0.0);
}

TEST(DemoSurvey, OffsetsHaveTheSignAlongTheLine)
{
    EXPECT_DOUBLE_EQ(demoOffset({100, 0}, {124, 0}), 24.0);
    EXPECT_DOUBLE_EQ(demoOffset({100, 0}, {76, 0}), -24.0);
    EXPECT_DOUBLE_EQ(demoOffset({100, 8}, {106, 0}), 10.0);
    EXPECT_DOUBLE_EQ(demoOffset({106, 8}, {100, 0}), -10.0);
    EXPECT_DOUBLE_EQ(demoOffset({100, 8}, {100, 0}), 8.0);
}

TEST(DemoSurvey, TheLineRunsAtSixtyDegreesOnTheMap)
{
    const DemoPlace p = demoMapPlace({1872.0, 8.0});
    EXPECT_NEAR(p.x, 501625.1995488, 1e-6);
    EXPECT_NEAR(p.y, 4200929.0717968, 1e-6);
    const DemoPlace end = demoMapPlace({1000.0, 0.0});
    EXPECT_NEAR(std::atan2(end.x - 500000.0, end.y - 4200000.0) * 57.29577951, 60.0, 1e-5);
}

TEST(DemoSurvey, BinsAreTwelveMetresFrom1000On)
{
    EXPECT_EQ(demoCdp(0.0), 1000);
    EXPECT_EQ(demoCdp(11.999), 1000);
    EXPECT_EQ(demoCdp(12.0), 1001);
    EXPECT_EQ(demoCdp(234.0), 1019);
    EXPECT_EQ(demoCdpCentre(1300), 3606.0);
}

TEST(DemoSurvey, TheNearSurfaceFollowsItsFormulas)
{
    EXPECT_NEAR(demoElevation(0.0), 404.20735492, 1e-8);  // 400 + 5 sin 1
    EXPECT_NEAR(demoWeathering(0.0), 12.55767337, 1e-8);  // 11 + 4 sin 0.4
    EXPECT_NEAR(demoStatic(0.0), 0.01376437416, 1e-11);
    EXPECT_NEAR(demoDelay1(0.0), 0.01680485251, 1e-11);
    EXPECT_NEAR(demoDelay2(0.0), 0.06203315085, 1e-11);
    EXPECT_NEAR(demoElevation(1872.0), 410.56570453, 1e-8);
    EXPECT_NEAR(demoWeathering(1872.0), 13.04883643, 1e-8);
    EXPECT_NEAR(demoStatic(1872.0), 0.01739962895, 1e-11);
    EXPECT_NEAR(demoDelay1(1872.0), 0.01746213372, 1e-11);
    EXPECT_NEAR(demoDelay2(1872.0), 0.06271978050, 1e-11);
}

TEST(DemoSurvey, TheFirstBreakIsTheEarliestBranch)
{
    const DemoArrivals far = demoArrivals(468.0, 0.0, 468.0);
    EXPECT_NEAR(far.time[0], 0.6685714286, 1e-9);
    EXPECT_NEAR(far.time[1], 0.2678416495, 1e-9);
    EXPECT_NEAR(far.time[2], 0.2619556617, 1e-9);
    EXPECT_EQ(far.first, 2);
    const DemoArrivals middle = demoArrivals(468.0, 696.0, 228.0);
    EXPECT_NEAR(middle.time[1], 0.1501096881, 1e-9);
    EXPECT_EQ(middle.first, 1);
    const DemoArrivals near = demoArrivals(468.0, 456.0, 12.0);
    EXPECT_NEAR(near.time[0], 12.0 / 700.0, 1e-12);
    EXPECT_EQ(near.first, 0);
}

TEST(DemoSurvey, TheFirstWaveletTurnsWhereToldToTheMicrosecond)
{
    EXPECT_NEAR(demoTroughTime(), 0.005318, 5e-7);
    EXPECT_NEAR(demoMinusPlusTime(), 0.0125, 1e-12);
    EXPECT_NEAR(demoPeakTime(), 0.017818, 5e-7);
    EXPECT_NEAR(demoPlusMinusTime(), 0.025, 1e-12);
}

TEST(DemoSurvey, ReflectionsHaveTheToldTimesVelocitiesAndIntervals)
{
    const double t0[] = {0.353624, 0.552752, 0.810872, 1.05, 1.36699492086, 1.63641};
    const double v[] = {2068.573, 2270.385, 2522.65, 2774.915, 3077.633, 3380.351};
    const double intervals[] = {2068.573, 2590.30674, 2992.16086, 3497.39772, 3916.66081, 4620.17903};
    std::vector<DemoReflection> reflections;
    for (int i = 0; i < 6; ++i) reflections.push_back(demoReflection(i, 3606.0));
    const std::vector<double> dix = dixVelocities(reflections);
    for (int i = 0; i < 6; ++i) {
        SCOPED_TRACE(i);
        EXPECT_NEAR(reflections[i].t0, t0[i], 1e-9);
        EXPECT_NEAR(reflections[i].velocity, v[i], 1e-6);
        EXPECT_NEAR(dix[i], intervals[i], 1e-4);
    }
    EXPECT_NEAR(demoMultiple(3606.0).t0, 1.105504, 1e-9);
    EXPECT_NEAR(demoMultiple(3606.0).velocity, 2270.385, 1e-6);
    EXPECT_NEAR(demoReflection(4, 2700.0).t0, 1.32, 1e-12);  // the top of the anticline
}

// 2000 m/s to 1 s, 2500 m/s to 2 s: sqrt(2 x 2500^2 - 2000^2) = sqrt(8.5e6).
TEST(DemoSurvey, DixVelocityOfTheTextbookPair)
{
    const std::vector<double> v = dixVelocities({{1.0, 2000.0, 0.0}, {2.0, 2500.0, 0.0}});
    EXPECT_DOUBLE_EQ(v[0], 2000.0);
    EXPECT_NEAR(v[1], 2915.4759, 1e-4);
}

TEST(DemoSurvey, ThePatchDipsBothWays)
{
    // The third reflector: 0.012 s a km along, twice that across.
    EXPECT_NEAR(demoReflection(2, 3700.0, 0.0).t0 - demoReflection(2, 2700.0, 0.0).t0, 0.012, 1e-12);
    EXPECT_NEAR(demoReflection(2, 2700.0, 1000.0).t0 - demoReflection(2, 2700.0, 0.0).t0, 0.024, 1e-12);
}

TEST(DemoSurvey, AnisotropicTimesAreOfFourthOrder)
{
    EXPECT_NEAR(demoEtaTime(demoEtaReflection(0), 3000.0), 1.48765855, 1e-8);
    EXPECT_NEAR(demoEtaTime(demoEtaReflection(1), 2000.0), 1.34483621, 1e-8);
    const std::vector<double> etas = demoIntervalEtas();
    EXPECT_NEAR(etas[0], 0.05, 1e-12);
    EXPECT_NEAR(etas[1], 0.09864465, 1e-8);
    EXPECT_NEAR(etas[2], 0.03121087, 1e-8);
}
