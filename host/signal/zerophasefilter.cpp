#include "host/signal/zerophasefilter.h"

#include "host/cpuvariant.h"
#include "host/signal/fftwplanner.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstring>
#include <map>
#include <numbers>

struct ZeroPhaseFilter::Plans {
    explicit Plans(int length);
    ~Plans();
    static const Plans* ofLength(int length);

    fftwf_plan forward, back;
};

static fftwf_complex* asComplex(float* floats)
{
    return reinterpret_cast<fftwf_complex*>(floats);
}

ZeroPhaseFilter::Plans::Plans(int length)
{
    FftwRoom first, second;
    fftwf_complex *const a = asComplex(first.atLeast(length)), *const b = asComplex(second.atLeast(length));
    forward = fftwf_plan_dft_1d(length / 2, a, b, FFTW_FORWARD, FFTW_ESTIMATE | FFTW_DESTROY_INPUT);
    back = fftwf_plan_dft_1d(length / 2, a, b, FFTW_BACKWARD, FFTW_ESTIMATE | FFTW_DESTROY_INPUT);
}

ZeroPhaseFilter::Plans::~Plans()
{
    fftwf_destroy_plan(forward);
    fftwf_destroy_plan(back);
}

const ZeroPhaseFilter::Plans* ZeroPhaseFilter::Plans::ofLength(int length)
{
    static std::map<int, std::unique_ptr<Plans>> all;
    const std::lock_guard<std::mutex> lock(fftwPlannerMutex());
    std::unique_ptr<Plans>& plans = all[length];
    if (!plans) plans = std::make_unique<Plans>(length);
    return plans.get();
}

ZeroPhaseFilter::ZeroPhaseFilter(const std::vector<float>& factors)
    : _length(2 * (int(factors.size()) - 1)), _plans(Plans::ofLength(_length)), _own(_length), _mirrored(_length)
{
    const int half = _length / 2;
    for (int k = 0; k < half; ++k) {
        const double sum = double(factors[k]) + factors[half - k], difference = double(factors[k]) - factors[half - k];
        const double angle = 2.0 * std::numbers::pi * k / _length;
        _own[2 * k] = _own[2 * k + 1] = float(sum - difference * std::sin(angle));
        _mirrored[2 * k] = _mirrored[2 * k + 1] = float(difference * std::cos(angle));
    }
}

static inline MERIDUNE_KERNEL void copyFinite(const float* trace, int n, float* to)
{
#pragma omp simd
    for (int i = 0; i < n; ++i) to[i] = std::fabs(trace[i]) <= FLT_MAX ? trace[i] : 0.0f;
}

/// i conj(z) has real and imaginary part exchanged, so the mirrored values are those of z read backwards.
static inline MERIDUNE_KERNEL void weave(const float* z, const float* own, const float* mirrored, int n, float* out)
{
    for (int j = 0; j < 2; ++j) out[j] = own[j] * z[j] + mirrored[j] * z[1 - j];
    const float* const backwards = z + n + 1;
#pragma omp simd
    for (int j = 2; j < n; ++j) out[j] = own[j] * z[j] + mirrored[j] * backwards[-j];
}

static void copyPlain(const float* trace, int n, float* to)
{
    copyFinite(trace, n, to);
}

MERIDUNE_V3 static void copyV3(const float* trace, int n, float* to)
{
    copyFinite(trace, n, to);
}

static void weavePlain(const float* z, const float* own, const float* mirrored, int n, float* out)
{
    weave(z, own, mirrored, n, out);
}

MERIDUNE_V3 static void weaveV3(const float* z, const float* own, const float* mirrored, int n, float* out)
{
    weave(z, own, mirrored, n, out);
}

void ZeroPhaseFilter::apply(float* trace, int n) const
{
    static thread_local FftwRoom first, second;
    float *const a = first.atLeast(_length), *const b = second.atLeast(_length);
    const bool isV3 = cpuVariant() == CpuVariant::V3;
    (isV3 ? copyV3 : copyPlain)(trace, n, a);
    std::fill(a + n, a + _length, 0.0f);
    fftwf_execute_dft(_plans->forward, asComplex(a), asComplex(b));
    (isV3 ? weaveV3 : weavePlain)(b, _own.data(), _mirrored.data(), _length, a);
    fftwf_execute_dft(_plans->back, asComplex(a), asComplex(b));
    std::memcpy(trace, b, n * sizeof(float));
}
