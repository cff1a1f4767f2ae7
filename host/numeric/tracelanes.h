/// Resampling and interpolation of several traces side by side.
///
/// A picture reads all its traces at the same positions. Side by side, sample by sample, a position's place and
/// coefficients are looked up once for all of them, and every addition serves a whole vector. The results have
/// the same bits as those of ress8r and intlin, trace by trace.
///
/// Rows are traceLanes floats apart: sample j of lane k is rows[j * traceLanes + k].
#ifndef TRACELANES_H
#define TRACELANES_H

#include "host/numeric/intlin.h"

#include <cstddef>
#include <vector>

constexpr int traceLanes = 16;

/// Turns traceLanes traces of n samples each into n rows.
/// @param traces  trace k begins at traces + k * stride; lent, only read
/// @param rows    out: row j begins at rows + j * rowStride
void interleave(const float* traces, size_t stride, int n, float* rows, size_t rowStride = traceLanes);

/// Where the taps of one output stand: the first of them, and the table's row of coefficients.
struct SincPlace {
    int first = 0, fraction = 0;
};
/// Places of nout outputs at the positions 0, 1, 2... of nin samples that are dxin > 0 apart. None begins behind
/// row nin.
void sincPlaces(float dxin, int nout, int nin, std::vector<SincPlace>* places);

/// As ress8r for each lane: out[i * outStride + k]. A sample that is not finite counts as 0.
/// @param rows  row 0; the rows from each place's first on, sincTaps of them, must exist: those before row 0
///              hold what ress8r calls yinl, those behind the last sample yinr
void resampleLanes(const float* rows, const SincPlace* places, int nout, float* out, size_t outStride);

/// As intlin for each lane of n >= 1 rows; before the first and behind the last node stand their values.
void interpolateLanes(const float* rows, int n, const LinearPlace* places, int nout, float* out, size_t outStride);

#endif
