#include "frame/tracedifference.h"

#include "tracedata/seismicdata.h"

#include <algorithm>
#include <functional>

TraceDifference traceDifference(const SeismicData& a, const SeismicData& b, int first, int nSamples)
{
    const int nTraces = std::min(a.traceCount(), b.traceCount());
    const int common = std::min(a.sampleCount(), b.sampleCount());
    const int whole = std::max(common, nSamples);
    TraceDifference difference;
    difference.samples.assign(size_t(nTraces) * whole, 0.0f);
    difference.traces.resize(nTraces);
    for (int i = 0; i < nTraces; ++i) {
        float* trace = difference.samples.data() + size_t(i) * whole;
        difference.traces[i] = trace;
        const float* minuend = a.getTraceValues(i, 0);
        std::transform(minuend, minuend + std::min(common, whole - first), b.getTraceValues(i, 0), trace + first,
                       std::minus<float>());
    }
    return difference;
}
