#include "host/signal/npfar.h"

#include "host/signal/realtransform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <thread>
#include <vector>

/// The sum itself, in double.
static std::vector<double> plainTransform(int isign, const std::vector<float>& x)
{
    const int n = int(x.size());
    std::vector<double> out(2 * (n / 2 + 1), 0.0);
    for (int k = 0; k <= n / 2; ++k)
        for (int j = 0; j < n; ++j) {
            const double angle = isign * 2.0 * std::numbers::pi * double(int64_t(j) * k % n) / n;
            out[2 * k] += x[j] * std::cos(angle);
            out[2 * k + 1] += x[j] * std::sin(angle);
        }
    return out;
}

static std::vector<float> randomTrace(int n)
{
    std::mt19937 random(unsigned(n) + 1);
    std::vector<float> x(n);
    for (float& v : x) v = float(random() % 2001) / 1000.0f - 1.0f;
    return x;
}

// 504 = 7 x 8 x 9, 660 = 4 x 3 x 5 x 11, 1001 = 7 x 11 x 13; 501, 659 and so on have other factors.
TEST(Npfar, GivesTwiceAPrimeFactorLength)
{
    const struct {
        int n, length;
    } cases[] = {
        {-5, 2},  {0, 2},   {1, 2},   {2, 2},       {3, 4},       {5, 6},       {9, 10},      {31, 32},
        {33, 36}, {37, 40}, {65, 66}, {1000, 1008}, {1300, 1320}, {2000, 2002}, {4096, 4290}, {1441440, 1441440}};
    for (const auto& c : cases) EXPECT_EQ(npfar(c.n), c.length) << c.n;
}

TEST(Npfar, IsEvenAndNeverBelowWhatWasAsked)
{
    for (int n = 1; n < 5000; ++n) {
        ASSERT_GE(npfar(n), n);
        ASSERT_EQ(npfar(n) % 2, 0);
        ASSERT_EQ(npfar(npfar(n)), npfar(n));
    }
    EXPECT_EQ(npfar(1441441), 1441442);
    EXPECT_EQ(npfar(2000000), 2000000);
}

TEST(Pfarc, IsTheSumWithTheSignTold)
{
    for (int n : {2, 6, 36, 154, 1008}) {
        for (int isign : {-1, 1}) {
            SCOPED_TRACE(n * isign);
            const std::vector<float> x = randomTrace(n);
            std::vector<float> out(2 * (n / 2 + 1));
            pfarc(isign, n, x.data(), out.data());
            const std::vector<double> expected = plainTransform(isign, x);
            // Rounding of a float transform grows with log n; the sums are of the order sqrt(n).
            for (size_t i = 0; i < out.size(); ++i) ASSERT_NEAR(out[i], expected[i], 1e-6 * n) << i;
        }
    }
}

TEST(Pfarc, ASineWithoutPhaseShowsAsMinusIAtItsBin)
{
    constexpr int n = 40;
    std::vector<float> x(n), out(n + 2);
    for (int j = 0; j < n; ++j) x[j] = float(std::sin(2.0 * std::numbers::pi * 3 * j / n));
    pfarc(-1, n, x.data(), out.data());
    EXPECT_NEAR(out[6], 0.0f, 1e-5f);
    EXPECT_NEAR(out[7], -20.0f, 1e-5f);  // -i n/2
}

TEST(Pfarc, TakesArraysOfAnyAlignmentAndInPlace)
{
    const std::vector<float> x = randomTrace(66);
    std::vector<float> expected(68), shifted(69), odd(69), same(68);
    pfarc(-1, 66, x.data(), expected.data());
    std::copy(x.begin(), x.end(), shifted.begin() + 1);
    pfarc(-1, 66, shifted.data() + 1, odd.data() + 1);
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), odd.begin() + 1));
    EXPECT_EQ(odd[0], 0.0f);
    EXPECT_TRUE(std::equal(x.begin(), x.end(), shifted.begin() + 1));
    std::copy(x.begin(), x.end(), same.begin());
    pfarc(-1, 66, same.data(), same.data());
    EXPECT_EQ(same, expected);
}

TEST(RealTransform, BackAfterForwardIsNTimesTheInput)
{
    const std::vector<float> x = randomTrace(240);
    const RealTransform& transform = RealTransform::ofLength(240);
    const TransformWork work = TransformWork::ofThread(240);
    std::copy(x.begin(), x.end(), work.real);
    transform.forward(work.real, work.spectrum);
    transform.back(work.spectrum, work.real);
    for (int i = 0; i < 240; ++i) ASSERT_NEAR(work.real[i] / 240.0f, x[i], 1e-6f);
    EXPECT_EQ(&transform, &RealTransform::ofLength(240));
}

TEST(RealTransform, PlansAndRunsInSeveralThreads)
{
    std::vector<std::vector<float>> results(8, std::vector<float>(2 * 401));
    {
        std::vector<std::jthread> threads;
        for (int t = 0; t < 8; ++t)
            threads.emplace_back([&results, t] {
                for (int n : {640, 720, 800}) {
                    const std::vector<float> x = randomTrace(n);
                    pfarc(-1, n, x.data(), results[t].data());
                }
            });
    }
    for (const auto& r : results) EXPECT_EQ(r, results[0]);
}

TEST(QuickTransformLength, IsTheLeastProductOf16AndPowersOfTwoThreeAndFive)
{
    const struct {
        int n, length;
    } cases[] = {{1, 16}, {17, 32}, {33, 48}, {49, 64}, {65, 80}, {81, 96}, {1001, 1024}, {2002, 2048}, {4000, 4000}};
    for (const auto& c : cases) EXPECT_EQ(quickTransformLength(c.n), c.length) << c.n;
    // Brute force over all multiples of 16.
    for (int n = 1; n < 20000; n += 37) {
        int length = (n + 15) / 16 * 16;
        const auto smooth = [](int m) {
            for (int p : {2, 3, 5})
                while (m % p == 0) m /= p;
            return m == 1;
        };
        while (!smooth(length)) length += 16;
        ASSERT_EQ(quickTransformLength(n), length) << n;
    }
}
