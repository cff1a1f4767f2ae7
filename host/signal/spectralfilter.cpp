#include "host/signal/spectralfilter.h"

#include "host/signal/realtransform.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstring>

float* startFiltering(const RealTransform& transform, const float* trace, int n)
{
    const TransformWork work = TransformWork::ofThread(transform.length());
    float* real = work.real;
#pragma omp simd
    for (int i = 0; i < n; ++i) real[i] = std::fabs(trace[i]) <= FLT_MAX ? trace[i] : 0.0f;
    std::fill(real + n, real + transform.length(), 0.0f);
    transform.forward(real, work.spectrum);
    return work.spectrum;
}

void finishFiltering(const RealTransform& transform, float* trace, int n)
{
    const TransformWork work = TransformWork::ofThread(transform.length());
    transform.back(work.spectrum, work.real);
    std::memcpy(trace, work.real, n * sizeof(float));
}

int paddedLength(int n)
{
    return quickTransformLength(2 * std::max(n, 1));
}
