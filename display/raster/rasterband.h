/// Vectors of the raster's kernels, and the colours of one.
#ifndef RASTERBAND_H
#define RASTERBAND_H

#include "display/colors/colortable.h"
#include "host/cpuvariant.h"

#include <cstring>

constexpr QRgb opaqueBlack = 0xff000000u;

/// Values that are worked on together, as many as a register of x86-64-v3 holds: neighbouring traces of a row,
/// or neighbouring rows of a pixel column.
constexpr int rasterBand = 8;

typedef float FloatBand __attribute__((vector_size(rasterBand * sizeof(float))));
typedef int IntBand __attribute__((vector_size(rasterBand * sizeof(int))));

template <class Band, class Value>
static inline MERIDUNE_KERNEL Band loadBand(const Value* from)
{
    Band band;
    std::memcpy(&band, from, sizeof band);
    return band;
}

template <class Band, class Value>
static inline MERIDUNE_KERNEL void storeBand(const Band& band, Value* to)
{
    std::memcpy(to, &band, sizeof band);
}

/// As ColorTable::index for four values.
typedef int FourInts __attribute__((vector_size(16)));
static inline MERIDUNE_KERNEL FourInts fourColorIndices(const float* values, const ColorTable& colors)
{
    typedef float FourFloats __attribute__((vector_size(16)));
    typedef double FourDoubles __attribute__((vector_size(32)));
    const double last = colors.numColors() - 1;
    const FourFloats v = loadBand<FourFloats>(values);
    FourDoubles step = (colors.maxValue() - __builtin_convertvector(v, FourDoubles)) / colors.increment();
    step = step > 0.0 ? step : FourDoubles{};
    step = step < last ? step : FourDoubles{} + last;
    return __builtin_convertvector(step, FourInts);
}

/// The same for n values, n a multiple of four.
static inline MERIDUNE_KERNEL void colorIndices(const float* values, int n, const ColorTable& colors, int* indices)
{
    for (int i = 0; i < n; i += 4) storeBand(fourColorIndices(values + i, colors), indices + i);
}

#endif
