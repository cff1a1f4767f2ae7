/// The coefficients of the resampler; see resample.h for their design.
#ifndef SINCTABLE_H
#define SINCTABLE_H

constexpr int sincTaps = 8;
constexpr int sincFractions = 513;
constexpr int sincBefore = 3;  ///< taps before the sample below the position
/// Positions are counted from so far before the first sample, so that cutting rounds down, and are followed so
/// far outside on both sides, where all taps are alike.
constexpr int sincMargin = 16;

/// taps[k] for the fraction k / 512 of a sample interval.
struct SincTable {
    alignas(64) float taps[sincFractions][sincTaps];
    SincTable();
};

/// Made once, at the first call.
const SincTable& sincTable();

#endif
