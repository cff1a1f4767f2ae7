#include "host/numeric/tracelanes.h"

#include "host/cpuvariant.h"
#include "host/numeric/sinctable.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

typedef float Four __attribute__((vector_size(16)));
// As many lanes at once as a register of x86-64-v3 holds.
constexpr int nLanes = 8;
typedef float Lanes __attribute__((vector_size(nLanes * sizeof(float))));
typedef int LaneMasks __attribute__((vector_size(nLanes * sizeof(int))));
typedef double FourDoubles __attribute__((vector_size(32)));

static inline MERIDUNE_KERNEL Four loadFour(const float* from)
{
    Four v;
    std::memcpy(&v, from, sizeof v);
    return v;
}

static inline MERIDUNE_KERNEL void storeFour(Four v, float* to)
{
    std::memcpy(to, &v, sizeof v);
}

/// Turns a square of four by four.
static inline MERIDUNE_KERNEL void turnFour(const float* from, size_t fromStride, float* to, size_t toStride)
{
    const Four a = loadFour(from), b = loadFour(from + fromStride), c = loadFour(from + 2 * fromStride),
               d = loadFour(from + 3 * fromStride);
    const Four abLow = __builtin_shufflevector(a, b, 0, 4, 1, 5), abHigh = __builtin_shufflevector(a, b, 2, 6, 3, 7);
    const Four cdLow = __builtin_shufflevector(c, d, 0, 4, 1, 5), cdHigh = __builtin_shufflevector(c, d, 2, 6, 3, 7);
    storeFour(__builtin_shufflevector(abLow, cdLow, 0, 1, 4, 5), to);
    storeFour(__builtin_shufflevector(abLow, cdLow, 2, 3, 6, 7), to + toStride);
    storeFour(__builtin_shufflevector(abHigh, cdHigh, 0, 1, 4, 5), to + 2 * toStride);
    storeFour(__builtin_shufflevector(abHigh, cdHigh, 2, 3, 6, 7), to + 3 * toStride);
}

void interleave(const float* traces, size_t stride, int n, float* rows, size_t rowStride)
{
    int j = 0;
    for (; j + 4 <= n; j += 4)
        for (int k = 0; k < traceLanes; k += 4)
            turnFour(traces + k * stride + j, stride, rows + j * rowStride + k, rowStride);
    for (; j < n; ++j)
        for (int k = 0; k < traceLanes; ++k) rows[j * rowStride + k] = traces[k * stride + j];
}

void sincPlaces(float dxin, int nout, int nin, std::vector<SincPlace>* places)
{
    if (int(places->size()) < nout) places->resize(nout);
    const double step = 1.0 / double(dxin), last = double(nin) + sincBefore + sincMargin;
    for (int i = 0; i < nout; ++i) {
        const double p = std::min(sincMargin + step * double(i), last);
        const int whole = int(p);
        (*places)[i] = {whole - sincMargin - sincBefore, int((p - double(whole)) * double(sincFractions - 1) + 0.5)};
    }
}

static inline MERIDUNE_KERNEL Lanes loadLanes(const float* from)
{
    Lanes v;
    std::memcpy(&v, from, sizeof v);
    return v;
}

static inline MERIDUNE_KERNEL Lanes finiteOf(const Lanes& v)
{
    return v - v == 0.0f ? v : Lanes{};
}

static inline MERIDUNE_KERNEL bool isAny(const LaneMasks& masks)
{
    typedef int64_t Parts __attribute__((vector_size(sizeof masks)));
    const Parts parts = reinterpret_cast<const Parts&>(masks);
    return ((parts[0] | parts[1]) | (parts[2] | parts[3])) != 0;
}

template <bool isChecked>
static inline MERIDUNE_KERNEL Lanes product(const float* y, const float* taps, int j)
{
    const Lanes v = loadLanes(y + j * traceLanes);
    return (isChecked ? finiteOf(v) : v) * taps[j];
}

template <bool isChecked>
static inline MERIDUNE_KERNEL Lanes sincSum(const float* y, const float* taps)
{
    const Lanes even = (product<isChecked>(y, taps, 0) + product<isChecked>(y, taps, 4)) +
                       (product<isChecked>(y, taps, 2) + product<isChecked>(y, taps, 6));
    const Lanes odd = (product<isChecked>(y, taps, 1) + product<isChecked>(y, taps, 5)) +
                      (product<isChecked>(y, taps, 3) + product<isChecked>(y, taps, 7));
    return even + odd;
}

static inline MERIDUNE_KERNEL void resampleKernel(const float* rows, const SincPlace* places, int nout, float* out,
                                                  size_t outStride)
{
    const auto& table = sincTable().taps;
    for (int i = 0; i < nout; ++i, out += outStride) {
        const float* const y = rows + ptrdiff_t(places[i].first) * traceLanes;
        const float* const taps = table[places[i].fraction];
        for (int lane = 0; lane < traceLanes; lane += nLanes) {
            Lanes sum = sincSum<false>(y + lane, taps);
            if (isAny(sum - sum != 0.0f)) sum = sincSum<true>(y + lane, taps);
            std::memcpy(out + lane, &sum, sizeof sum);
        }
    }
}

static void resamplePlain(const float* rows, const SincPlace* places, int nout, float* out, size_t outStride)
{
    resampleKernel(rows, places, nout, out, outStride);
}

MERIDUNE_V3 static void resampleV3(const float* rows, const SincPlace* places, int nout, float* out, size_t outStride)
{
    resampleKernel(rows, places, nout, out, outStride);
}

void resampleLanes(const float* rows, const SincPlace* places, int nout, float* out, size_t outStride)
{
    (cpuVariant() == CpuVariant::V3 ? resampleV3 : resamplePlain)(rows, places, nout, out, outStride);
}

static inline MERIDUNE_KERNEL FourDoubles finiteFour(const float* from)
{
    Four v = loadFour(from);
    v = v - v == 0.0f ? v : Four{};
    return __builtin_convertvector(v, FourDoubles);
}

static inline MERIDUNE_KERNEL void interpolateKernel(const float* rows, int n, const LinearPlace* places, int nout,
                                                     float* out, size_t outStride)
{
    for (int i = 0; i < nout; ++i, out += outStride) {
        const int node = places[i].node;
        if (node < 0 || node >= n) {
            std::memcpy(out, rows + (node < 0 ? 0 : size_t(n - 1)) * traceLanes, traceLanes * sizeof(float));
            continue;
        }
        const float* const row = rows + size_t(node) * traceLanes;
        const bool isBetween = places[i].part != 0.0;
        for (int lane = 0; lane < traceLanes; lane += 4) {
            FourDoubles value = finiteFour(row + lane);
            if (isBetween) value += places[i].part * (finiteFour(row + traceLanes + lane) - value);
            storeFour(__builtin_convertvector(value, Four), out + lane);
        }
    }
}

static void interpolatePlain(const float* rows, int n, const LinearPlace* places, int nout, float* out,
                             size_t outStride)
{
    interpolateKernel(rows, n, places, nout, out, outStride);
}

MERIDUNE_V3 static void interpolateV3(const float* rows, int n, const LinearPlace* places, int nout, float* out,
                                      size_t outStride)
{
    interpolateKernel(rows, n, places, nout, out, outStride);
}

void interpolateLanes(const float* rows, int n, const LinearPlace* places, int nout, float* out, size_t outStride)
{
    (cpuVariant() == CpuVariant::V3 ? interpolateV3 : interpolatePlain)(rows, n, places, nout, out, outStride);
}
