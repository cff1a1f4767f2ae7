/// The difference of two ensembles, trace by trace.
#ifndef TRACEDIFFERENCE_H
#define TRACEDIFFERENCE_H

#include <vector>

class SeismicData;

/// Traces of their own, in the layout of a loader's.
struct TraceDifference {
    std::vector<float> samples;
    std::vector<float*> traces;  ///< into samples
};

/// a minus b over the traces and samples that both have.
///
/// @param first     place of the first sample in the resulting traces, from 0: a display that takes a time window takes
///                  it out of whole traces
/// @param nSamples  length of the resulting traces; those of a and b where these are longer. What no sample of a and b
///                  reaches is 0.
TraceDifference traceDifference(const SeismicData& a, const SeismicData& b, int first, int nSamples);

#endif
