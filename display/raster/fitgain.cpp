#include "display/raster/fitgain.h"

#include "display/colors/colortable.h"
#include "display/raster/displaytype.h"
#include "display/raster/traceraster.h"

#include <algorithm>
#include <cmath>
#include <vector>

static float divisorOf(const RasterParm& parm, int tr)
{
    float divisor = 1.0f;
    if (parm.normalize == Normalize::Trace && parm.divTrace) divisor = parm.divTrace[tr];
    if (parm.normalize == Normalize::Dataset) divisor = parm.divRecord;
    return divisor == 0.0f ? 1.0f : divisor;
}

/// Calls `take` with each live sample and its divisor.
template <typename Take>
static void forLiveSamples(const RasterParm& parm, const Take& take)
{
    const int nTraces = std::min(parm.view.nTraces, parm.nDataTraces);
    const int nSamples = std::min(parm.view.nSamples, parm.stride);
    if (!parm.samples) return;
    for (int tr = 0; tr < nTraces; ++tr) {
        const float divisor = divisorOf(parm, tr);
        const float* samples = parm.samples + size_t(tr) * parm.stride;
        for (int j = 0; j < nSamples; ++j)
            if (std::isfinite(samples[j]) && samples[j] != 0.0f) take(samples[j], divisor);
    }
}

bool fitGain(const RasterParm& parm, double* db)
{
    if (!(parm.clip > 0.0f)) return false;
    std::vector<float> excursions;
    forLiveSamples(parm, [&](float v, float divisor) { excursions.push_back(std::fabs(v / divisor)); });
    if (excursions.empty()) return false;
    const size_t n = excursions.size();
    const size_t rank = n - n / 50;  // from 1: the smallest whole number that is at least 0.98 n
    std::nth_element(excursions.begin(), excursions.begin() + (rank - 1), excursions.end());
    const double percentile = excursions[rank - 1];
    const double gain = parm.clip / percentile;
    if (!(gain > 0.0) || !std::isfinite(gain)) return false;
    *db = 20.0 * std::log10(gain);
    return true;
}

/// The value that so many others, from 0, are not above.
static float valueAt(std::vector<float>* values, size_t rank)
{
    std::nth_element(values->begin(), values->begin() + ptrdiff_t(rank), values->end());
    return (*values)[rank];
}

bool fitRange(const RasterParm& parm, float* rangeMin, float* rangeMax)
{
    const float bias = parm.applyBias ? parm.bias : 0.0f;
    std::vector<float> values;
    forLiveSamples(parm, [&](float v, float divisor) { values.push_back((v * parm.gain + bias) / divisor); });
    if (values.empty()) return false;
    const auto [least, largest] = std::minmax_element(values.begin(), values.end());
    const bool isOneSided = *least >= 0.0f || *largest <= 0.0f;
    const size_t n = values.size(), beyond = isOneSided ? n / 100 : n / 50;
    if (!isOneSided)
        for (float& v : values) v = std::fabs(v);
    const float high = valueAt(&values, n - 1 - beyond);
    const float low = isOneSided ? valueAt(&values, beyond) : -high;
    if (!(high > low) || !std::isfinite(high) || !std::isfinite(low)) return false;
    *rangeMin = low;
    *rangeMax = high;
    return true;
}

ClipCount clippedSamples(const RasterParm& parm)
{
    ClipCount count;
    const float bias = parm.applyBias ? parm.bias : 0.0f;
    const bool isColor = isColorType(parm.displayType) && parm.colors;
    const float least = isColor ? float(parm.colors->minValue()) : -parm.clip;
    const float largest = isColor ? float(parm.colors->maxValue()) : parm.clip;
    forLiveSamples(parm, [&](float v, float divisor) {
        ++count.live;
        const float painted = (v * parm.gain + bias) / divisor;
        if (painted > largest || painted < least) ++count.clipped;
    });
    return count;
}
