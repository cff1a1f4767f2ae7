#include "host/numeric/resample.h"

#include "bothvariants.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>

static std::vector<float> randomTrace(int n, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> between(-1.0f, 1.0f);
    std::vector<float> trace(n);
    for (float& v : trace) v = between(random);
    return trace;
}

// The coefficients of d = 0.25 and 0.5, from a Gaussian elimination of the same system elsewhere.
static const float quarterTaps[8] = {-0.00885837f, 0.03987175f,  -0.13260518f, 0.87829820f,
                                     0.29355165f,  -0.09550267f, 0.03310215f,  -0.00785754f};
static const float halfTaps[8] = {-0.01166875f, 0.05068455f,  -0.15558227f, 0.61656647f,
                                  0.61656647f,  -0.15558227f, 0.05068455f,  -0.01166875f};

TEST(Resample, AnImpulseShowsTheCoefficients)
{
    std::vector<float> trace(31, 0.0f);
    trace[15] = 1.0f;
    // The tap j of the position p = i + d stands at sample i - 3 + j.
    for (int j = 0; j < 8; ++j) {
        const float whole = float(15 + 3 - j);
        const float positions[2] = {whole + 0.25f, whole + 0.5f};
        float out[2];
        ints8r(31, 1.0f, 0.0f, trace.data(), 0.0f, 0.0f, 2, positions, out);
        EXPECT_NEAR(out[0], quarterTaps[j], 2e-7f) << j;  // one rounding of the table
        EXPECT_NEAR(out[1], halfTaps[j], 2e-7f) << j;
    }
}

TEST(Resample, APositionOnASampleGivesThatSample)
{
    const std::vector<float> trace = randomTrace(50, 1);
    std::vector<float> out(50, 9.0f);
    ress8r(50, 4.0f, -8.0f, trace.data(), 5.0f, 6.0f, 50, 4.0f, -8.0f, out.data());
    EXPECT_EQ(out, trace);
}

TEST(Resample, ConstantsStayConstant)
{
    const std::vector<float> trace(40, 3.0f);
    std::vector<float> out(400);
    ress8r(40, 10.0f, 0.0f, trace.data(), 3.0f, 3.0f, 400, 1.0f, -3.0f, out.data());
    for (float v : out) EXPECT_NEAR(v, 3.0f, 1e-6f);  // eight roundings of a float near 3
}

// Reference: the sine itself at the wanted position, away from the ends.
TEST(Resample, KeepsSinesUpToSixTenthsOfNyquist)
{
    constexpr int n = 400;
    for (double part : {0.1, 0.3, 0.6}) {
        SCOPED_TRACE(part);
        std::vector<float> trace(n), out(3 * n);
        const auto sine = [&](double t) { return std::sin(std::numbers::pi * part * t + 0.4); };
        const auto cosine = [&](double t) { return std::cos(std::numbers::pi * part * t + 0.4); };
        for (int i = 0; i < n; ++i) trace[i] = float(sine(i));
        const float step = 0.3137f;
        ress8r(n, 1.0f, 0.0f, trace.data(), 0.0f, 0.0f, 3 * n, step, 0.0f, out.data());
        // Least squares for a sin + b cos; the window holds no whole number of periods.
        double ss = 0.0, sc = 0.0, cc = 0.0, os = 0.0, oc = 0.0;
        for (int i = 40; i < 1200; ++i) {
            const double t = double(step) * i, si = sine(t), co = cosine(t);
            ss += si * si;
            sc += si * co;
            cc += co * co;
            os += out[i] * si;
            oc += out[i] * co;
        }
        const double a = (os * cc - oc * sc) / (ss * cc - sc * sc), b = (oc * ss - os * sc) / (ss * cc - sc * sc);
        const double amplitude = std::hypot(a, b), phase = std::atan2(b, a) * 180.0 / std::numbers::pi;
        EXPECT_NEAR(amplitude, 1.0, 0.005);
        EXPECT_NEAR(phase, 0.0, 0.1);
    }
}

TEST(Resample, OutsideTapsTakeTheValuesOfTheirSide)
{
    const std::vector<float> ones(20, 1.0f);
    const float positions[] = {-4.0f, -100.0f, 0.5f, 18.5f, 23.0f, 1e30f, -1e30f, 22.0f};
    float out[8];
    ints8r(20, 1.0f, 0.0f, ones.data(), 7.0f, -5.0f, 8, positions, out);
    EXPECT_EQ(out[0], 7.0f);
    EXPECT_EQ(out[1], 7.0f);
    // Taps at -3, -2, -1 take 7 and the others 1; behind the end the last three take -5.
    EXPECT_NEAR(out[2], 1.0f + 6.0f * (halfTaps[0] + halfTaps[1] + halfTaps[2]), 2e-6f);
    EXPECT_NEAR(out[3], 1.0f - 6.0f * (halfTaps[5] + halfTaps[6] + halfTaps[7]), 2e-6f);
    EXPECT_EQ(out[4], -5.0f);
    EXPECT_EQ(out[5], -5.0f);
    EXPECT_EQ(out[6], 7.0f);
    EXPECT_EQ(out[7], -5.0f);
}

TEST(Resample, TracesShorterThanTheOperatorWork)
{
    const float two[2] = {1.0f, 2.0f};
    float out[5];
    ress8r(2, 1.0f, 0.0f, two, 1.0f, 0.0f, 5, 1.0f, -1.0f, out);
    EXPECT_EQ(out[0], 1.0f);
    EXPECT_EQ(out[1], 1.0f);
    EXPECT_EQ(out[2], 2.0f);
    EXPECT_EQ(out[3], 0.0f);
    ress8r(0, 1.0f, 0.0f, nullptr, 4.0f, 3.0f, 5, 1.0f, -100.0f, out);
    EXPECT_EQ(out[0], 4.0f);
}

TEST(Resample, APositionThatIsNotANumberGivesTheLeftValue)
{
    const std::vector<float> ones(20, 1.0f);
    const float positions[] = {5.0f, NAN, 6.0f, INFINITY, -INFINITY};
    float out[5];
    ints8r(20, 1.0f, 0.0f, ones.data(), 7.0f, -5.0f, 5, positions, out);
    EXPECT_EQ(out[0], 1.0f);
    EXPECT_EQ(out[1], 7.0f);
    EXPECT_EQ(out[2], 1.0f);
    EXPECT_EQ(out[3], -5.0f);
    EXPECT_EQ(out[4], 7.0f);
    ress8r(20, 0.0f, 0.0f, ones.data(), 7.0f, -5.0f, 1, 1.0f, 0.0f, out);  // 0/0
    EXPECT_EQ(out[0], 7.0f);
}

TEST(Resample, SamplesThatAreNotFiniteCountAsZero)
{
    std::vector<float> broken = randomTrace(64, 4), zeroed = broken;
    for (int i : {0, 20, 21, 40, 63}) {
        broken[i] = i == 40 ? INFINITY : NAN;
        zeroed[i] = 0.0f;
    }
    std::vector<float> out(200), expected(200);
    ress8r(64, 3.0f, 0.0f, broken.data(), 0.0f, 0.0f, 200, 1.0f, 0.0f, out.data());
    ress8r(64, 3.0f, 0.0f, zeroed.data(), 0.0f, 0.0f, 200, 1.0f, 0.0f, expected.data());
    EXPECT_EQ(out, expected);
}

TEST(Resample, InPlaceIsAsIfTheInputHadBeenCopied)
{
    const std::vector<float> trace = randomTrace(300, 8);
    std::vector<float> positions(300), expected(300);
    for (int i = 0; i < 300; ++i) positions[i] = std::sqrt(float(i) * float(i) + 900.0f);
    ints8r(300, 1.0f, 0.0f, trace.data(), 0.0f, 0.0f, 300, positions.data(), expected.data());
    std::vector<float> inPlace = trace;
    ints8r(300, 1.0f, 0.0f, inPlace.data(), 0.0f, 0.0f, 300, positions.data(), inPlace.data());
    EXPECT_EQ(inPlace, expected);
    std::vector<float> overPositions = positions;
    ints8r(300, 1.0f, 0.0f, trace.data(), 0.0f, 0.0f, 300, overPositions.data(), overPositions.data());
    EXPECT_EQ(overPositions, expected);
}

TEST(Resample, AListOfUniformPositionsGivesTheUniformResult)
{
    const std::vector<float> trace = randomTrace(200, 9);
    std::vector<float> positions(803), list(803), uniform(803);
    for (int i = 0; i < 803; ++i) positions[i] = -5.0f + 0.25f * float(i);
    ints8r(200, 1.0f, 0.0f, trace.data(), 1.0f, 2.0f, 803, positions.data(), list.data());
    ress8r(200, 1.0f, 0.0f, trace.data(), 1.0f, 2.0f, 803, 0.25f, -5.0f, uniform.data());
    EXPECT_EQ(list, uniform);
}

TEST(Resample, TheOrderOfPositionsDoesNotMatter)
{
    const std::vector<float> trace = randomTrace(200, 10);
    std::vector<float> positions = randomTrace(333, 11), rising(333), falling(333);
    for (float& p : positions) p = 100.0f + 110.0f * p;
    ints8r(200, 1.0f, 0.0f, trace.data(), 1.0f, 2.0f, 333, positions.data(), rising.data());
    std::reverse(positions.begin(), positions.end());
    ints8r(200, 1.0f, 0.0f, trace.data(), 1.0f, 2.0f, 333, positions.data(), falling.data());
    std::reverse(falling.begin(), falling.end());
    EXPECT_EQ(falling, rising);
}

TEST(Resample, WritesOnlyTheOutputsAskedFor)
{
    const std::vector<float> trace = randomTrace(100, 12);
    for (int nout : {0, 1, 3, 4, 5, 63, 64, 65, 67}) {
        std::vector<float> out(nout + 1, 77.0f);
        ress8r(100, 1.0f, 0.0f, trace.data(), 0.0f, 0.0f, nout, 1.01f, 0.0f, out.data());
        EXPECT_EQ(out[nout], 77.0f) << nout;
    }
}

TEST(Resample, GivesTheSameBitsOnEveryProcessor)
{
    std::vector<float> trace = randomTrace(1000, 13);
    trace[500] = NAN;
    std::vector<float> positions = randomTrace(3001, 14);
    for (float& p : positions) p = 1000.0f + 1100.0f * p;
    expectSameBitsInBothVariants([&] {
        std::vector<float> out(6001);
        ress8r(1000, 2.0f, 0.0f, trace.data(), 0.5f, 0.25f, 3000, 0.677f, -3.0f, out.data());
        ints8r(1000, 2.0f, 0.0f, trace.data(), 0.5f, 0.25f, 3001, positions.data(), out.data() + 3000);
        return out;
    });
}
