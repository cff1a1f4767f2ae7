/// How much of an ensemble its clip cuts off, and the gain that cuts off little.
#ifndef FITGAIN_H
#define FITGAIN_H

#include <cstdint>

struct RasterParm;

/// The gain in dB that brings the 98th percentile of the absolute excursions, in trace widths, to the clip: 98 of 100
/// live samples then stay inside. Live are samples that are finite and not 0; excursions are scaled as the screen's,
/// without the bias. The percentile of n is the smallest excursion that 0.98 n of them don't pass.
/// Returns true; false with *db untouched where no sample is live or the clip isn't above 0.
bool fitGain(const RasterParm& parm, double* db);

/// The range whose ends the colours of 98 of 100 live samples stay inside, as they are painted: gain, bias and scaling
/// count. As far to either side of 0; of samples with one sign only, one of 100 goes at each end.
/// Returns true; false with the range untouched where no sample is live or all are alike.
bool fitRange(const RasterParm& parm, float* rangeMin, float* rangeMax);

/// Samples beyond the clip, or, of a type that shows colours, beyond the ends of these, and those that are live.
struct ClipCount {
    int64_t clipped = 0;
    int64_t live = 0;
};

/// Counts at the gain, bias and scaling in force. No pixel enters, so that every zoom has the same count.
ClipCount clippedSamples(const RasterParm& parm);

#endif
