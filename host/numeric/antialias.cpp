#include "host/numeric/antialias.h"

#include "host/cpuvariant.h"
#include "host/numeric/scratch.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

constexpr double kaiserBeta = 4.5;
constexpr double cutOff = 0.425;      // of frac, in cycles a sample
constexpr double zeroCrossings = 10;  // half length times frac
// Beyond this length both ends would be repeated a thousand times over.
constexpr double longestHalf = 1e6;
constexpr int blockSize = 256;

/// Coefficients 0..half of the symmetric operator.
struct AntialiasOperator {
    float frac = 0.0f;
    std::vector<double> coefficients;
    void build(float newFrac);
};

void AntialiasOperator::build(float newFrac)
{
    if (newFrac == frac) return;
    frac = newFrac;
    const int half = int(std::min(longestHalf, std::ceil(zeroCrossings / frac)));
    coefficients.assign(half + 1, 0.0);
    double sum = 0.0;
    for (int k = 0; k <= half; ++k) {
        const double angle = 2.0 * std::numbers::pi * cutOff * frac * k;
        const double place = double(k) / half;
        const double window = std::cyl_bessel_i(0.0, kaiserBeta * std::sqrt(1.0 - place * place));
        coefficients[k] = (k == 0 ? 1.0 : std::sin(angle) / angle) * window;
        sum += k == 0 ? coefficients[k] : 2.0 * coefficients[k];
    }
    for (double& c : coefficients) c /= sum;
}

/// Outputs begin..begin+n-1 from the samples with both ends repeated; x points at sample 0.
static inline MERIDUNE_KERNEL void filterKernel(const double* coefficients, int half, const double* x, int n, float* q)
{
    double sums[blockSize];
    for (int begin = 0; begin < n; begin += blockSize) {
        const int count = std::min(blockSize, n - begin);
        const double* centre = x + begin;
#pragma omp simd
        for (int i = 0; i < count; ++i) sums[i] = coefficients[0] * centre[i];
        for (int k = 1; k <= half; ++k) {
            const double c = coefficients[k];
#pragma omp simd
            for (int i = 0; i < count; ++i) sums[i] += c * (centre[i - k] + centre[i + k]);
        }
        for (int i = 0; i < count; ++i) q[begin + i] = float(sums[i]);
    }
}

static void filterPlain(const double* coefficients, int half, const double* x, int n, float* q)
{
    filterKernel(coefficients, half, x, n, q);
}

MERIDUNE_V3 static void filterV3(const double* coefficients, int half, const double* x, int n, float* q)
{
    filterKernel(coefficients, half, x, n, q);
}

void antialias(float frac, int, int n, const float* p, float* q)
{
    if (n < 1) return;
    if (!(frac > 0.0f && frac < 1.0f)) {
        std::memmove(q, p, n * sizeof(float));
        return;
    }
    static thread_local AntialiasOperator op;
    static thread_local std::vector<double> padded;
    op.build(frac);
    const int half = int(op.coefficients.size()) - 1;
    double* x = atLeast(&padded, size_t(n) + 2 * size_t(half)) + half;
    for (int i = 0; i < n; ++i) x[i] = std::isfinite(p[i]) ? p[i] : 0.0;
    std::fill(x - half, x, x[0]);
    std::fill(x + n, x + n + half, x[n - 1]);
    (cpuVariant() == CpuVariant::V3 ? filterV3 : filterPlain)(op.coefficients.data(), half, x, n, q);
}
