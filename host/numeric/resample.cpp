#include "host/numeric/resample.h"

#include "host/cpuvariant.h"
#include "host/numeric/scratch.h"
#include "host/numeric/sinctable.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <xmmintrin.h>

constexpr int blockSize = 64;

typedef float Four __attribute__((vector_size(16)));
typedef float AnyFour __attribute__((vector_size(16), aligned(4), may_alias));
typedef int FourInt __attribute__((vector_size(16)));

static inline MERIDUNE_KERNEL Four halfSums(const float* y, const float* taps)
{
    // Named types, for auto would drop the attribute that lets y stand anywhere.
    const AnyFour* y4 = reinterpret_cast<const AnyFour*>(y);
    const Four* t4 = reinterpret_cast<const Four*>(taps);
    return y4[0] * t4[0] + y4[1] * t4[1];
}

/// One output at the edge, or with samples that are not finite: the same sum as in the middle.
static float edgeSum(int nin, const float* yin, float yinl, float yinr, int first, const float* taps)
{
    if (first + sincTaps <= 0) return yinl;
    if (first >= nin) return yinr;
    float p[sincTaps];
    for (int j = 0; j < sincTaps; ++j) {
        const int i = first + j;
        const float y = i < 0 ? yinl : i >= nin ? yinr : yin[i];
        p[j] = (std::isfinite(y) ? y : 0.0f) * taps[j];
    }
    return ((p[0] + p[4]) + (p[2] + p[6])) + ((p[1] + p[5]) + (p[3] + p[7]));
}

/// Splits positions in samples, counted from -sincMargin so that truncation rounds down, into first tap and
/// row of the table.
static inline MERIDUNE_KERNEL void splitPositions(const double* position, double last, int n, int* first, int* row)
{
#pragma omp simd
    for (int i = 0; i < n; ++i) {
        double p = position[i] > 0.0 ? position[i] : 0.0;  // NaN goes to the left end
        p = p < last ? p : last;
        const int whole = int(p);
        first[i] = whole - sincMargin - sincBefore;
        row[i] = int((p - double(whole)) * double(sincFractions - 1) + 0.5);
    }
}

struct Input {
    int nin;
    const float* yin;
    float yinl, yinr;
};

static inline MERIDUNE_KERNEL void sumBlock(const Input& in, const float (*table)[sincTaps], const int* first,
                                            const int* row, int n, float* yout)
{
    const unsigned lastFirst = unsigned(in.nin - sincTaps);
    int i = 0;
    for (; i + 4 <= n && in.nin >= sincTaps; i += 4) {
        const bool inside = (unsigned(first[i]) <= lastFirst) & (unsigned(first[i + 1]) <= lastFirst) &
                            (unsigned(first[i + 2]) <= lastFirst) & (unsigned(first[i + 3]) <= lastFirst);
        if (inside) {
            const Four a = halfSums(in.yin + first[i], table[row[i]]);
            const Four b = halfSums(in.yin + first[i + 1], table[row[i + 1]]);
            const Four c = halfSums(in.yin + first[i + 2], table[row[i + 2]]);
            const Four d = halfSums(in.yin + first[i + 3], table[row[i + 3]]);
            // Transposed, so that the last two additions serve four outputs at once.
            const Four ab02 = __builtin_shufflevector(a, b, 0, 4, 1, 5) + __builtin_shufflevector(a, b, 2, 6, 3, 7);
            const Four cd02 = __builtin_shufflevector(c, d, 0, 4, 1, 5) + __builtin_shufflevector(c, d, 2, 6, 3, 7);
            const Four sum =
                __builtin_shufflevector(ab02, cd02, 0, 1, 4, 5) + __builtin_shufflevector(ab02, cd02, 2, 3, 6, 7);
            const FourInt finite = (sum - sum) == Four{};
            if (_mm_movemask_ps(reinterpret_cast<__m128>(finite)) == 15) {
                *reinterpret_cast<AnyFour*>(yout + i) = sum;
                continue;
            }
        }
        for (int k = i; k < i + 4; ++k) yout[k] = edgeSum(in.nin, in.yin, in.yinl, in.yinr, first[k], table[row[k]]);
    }
    for (; i < n; ++i) yout[i] = edgeSum(in.nin, in.yin, in.yinl, in.yinr, first[i], table[row[i]]);
}

static inline MERIDUNE_KERNEL void uniformKernel(const Input& in, double start, double step, int nout, float* yout)
{
    double position[blockSize];
    int first[blockSize], row[blockSize];
    const auto& table = sincTable().taps;
    for (int begin = 0; begin < nout; begin += blockSize) {
        const int n = std::min(blockSize, nout - begin);
#pragma omp simd
        for (int i = 0; i < n; ++i) position[i] = start + step * double(begin + i);
        splitPositions(position, double(in.nin) + 2 * sincMargin, n, first, row);
        sumBlock(in, table, first, row, n, yout + begin);
    }
}

static inline MERIDUNE_KERNEL void listKernel(const Input& in, double dxin, double fxin, int nout, const float* xout,
                                              float* yout)
{
    double position[blockSize];
    int first[blockSize], row[blockSize];
    const auto& table = sincTable().taps;
    for (int begin = 0; begin < nout; begin += blockSize) {
        const int n = std::min(blockSize, nout - begin);
#pragma omp simd
        for (int i = 0; i < n; ++i) position[i] = (double(xout[begin + i]) - fxin) / dxin + sincMargin;
        splitPositions(position, double(in.nin) + 2 * sincMargin, n, first, row);
        sumBlock(in, table, first, row, n, yout + begin);
    }
}

static void uniformPlain(const Input& in, double start, double step, int nout, float* yout)
{
    uniformKernel(in, start, step, nout, yout);
}

MERIDUNE_V3 static void uniformV3(const Input& in, double start, double step, int nout, float* yout)
{
    uniformKernel(in, start, step, nout, yout);
}

static void listPlain(const Input& in, double dxin, double fxin, int nout, const float* xout, float* yout)
{
    listKernel(in, dxin, fxin, nout, xout, yout);
}

MERIDUNE_V3 static void listV3(const Input& in, double dxin, double fxin, int nout, const float* xout, float* yout)
{
    listKernel(in, dxin, fxin, nout, xout, yout);
}

/// The input, copied when the output would overwrite it.
static Input inputBeside(int nin, const float* yin, float yinl, float yinr, int nout, const float* yout)
{
    nin = std::max(nin, 0);
    if (nin == 0 || nout < 1 || !overlap(yin, nin, yout, nout)) return {nin, yin, yinl, yinr};
    static thread_local std::vector<float> copies;
    float* copy = atLeast(&copies, nin);
    std::memcpy(copy, yin, nin * sizeof(float));
    return {nin, copy, yinl, yinr};
}

void ress8r(int nin, float dxin, float fxin, const float* yin, float yinl, float yinr, int nout, float dxout,
            float fxout, float* yout)
{
    const Input in = inputBeside(nin, yin, yinl, yinr, nout, yout);
    const double start = (double(fxout) - double(fxin)) / double(dxin) + sincMargin;
    const double step = double(dxout) / double(dxin);
    (cpuVariant() == CpuVariant::V3 ? uniformV3 : uniformPlain)(in, start, step, nout, yout);
}

void ints8r(int nin, float dxin, float fxin, const float* yin, float yinl, float yinr, int nout, const float* xout,
            float* yout)
{
    const Input in = inputBeside(nin, yin, yinl, yinr, nout, yout);
    (cpuVariant() == CpuVariant::V3 ? listV3 : listPlain)(in, dxin, fxin, nout, xout, yout);
}
