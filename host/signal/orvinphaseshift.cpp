#include "host/signal/orvinphaseshift.h"

#include "host/cpuvariant.h"
#include "host/signal/realtransform.h"
#include "host/signal/spectralfilter.h"

#include <cmath>
#include <numbers>

static inline MERIDUNE_KERNEL void rotateKernel(float* spectrum, int count, float c, float s)
{
#pragma omp simd
    for (int k = 0; k < count; ++k) {
        const float re = spectrum[2 * k], im = spectrum[2 * k + 1];
        spectrum[2 * k] = re * c - im * s;
        spectrum[2 * k + 1] = re * s + im * c;
    }
}

static void rotatePlain(float* spectrum, int count, float c, float s)
{
    rotateKernel(spectrum, count, c, s);
}

MERIDUNE_V3 static void rotateV3(float* spectrum, int count, float c, float s)
{
    rotateKernel(spectrum, count, c, s);
}

OrvinPhaseShift::OrvinPhaseShift(int nSamples, float angle)
    : _transform(&RealTransform::ofLength(paddedLength(nSamples)))
{
    setAngle(angle);
}

void OrvinPhaseShift::setAngle(float angle)
{
    _angle = std::isfinite(angle) ? std::fmod(double(angle), 360.0) : 0.0;
    if (_angle < 0.0) _angle += 360.0;
}

void OrvinPhaseShift::applyPhaseShift(float* trace, int n) const
{
    if (n < 1 || _angle == 0.0) return;
    if (_angle == 180.0) {
        for (int i = 0; i < n; ++i) trace[i] = std::isfinite(trace[i]) ? -trace[i] : 0.0f;
        return;
    }
    const int length = paddedLength(n);
    const RealTransform& transform = length == _transform->length() ? *_transform : RealTransform::ofLength(length);
    float* spectrum = startFiltering(transform, trace, n);
    const double radians = _angle * std::numbers::pi / 180.0;
    const float c = float(std::cos(radians) / length), s = float(std::sin(radians) / length);
    float* nyquist = spectrum + 2 * (transform.complexCount() - 1);
    const float lowest = spectrum[0] * c, highest = nyquist[0] * c;
    (cpuVariant() == CpuVariant::V3 ? rotateV3 : rotatePlain)(spectrum, transform.complexCount(), c, s);
    spectrum[0] = lowest;
    nyquist[0] = highest;
    spectrum[1] = nyquist[1] = 0.0f;
    finishFiltering(transform, trace, n);
}
