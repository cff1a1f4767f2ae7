/// A display's private copy of its ensemble.
#ifndef ENSEMBLECOPY_H
#define ENSEMBLECOPY_H

#include "host/rawvector.h"

#include <string>
#include <vector>

/// Copies batches of traces and headers into storage that is kept, reused and only grows.
class EnsembleCopy
{
public:
    /// Copies n traces from their sample `first` for nSamples, and nWords header words each.
    ///
    /// traces and headers are lent for the call; each trace must hold first + nSamples samples. With
    /// n below 1 nothing changes. False with *error naming the place when memory ran out; the
    /// former copy is then still whole.
    bool copy(float* const* traces, int* const* headers, int n, int first, int nSamples, int nWords,
              std::string* error);
    /// Whether the same batch was copied last.
    bool holds(float* const* traces, int* const* headers, int n, int first, int nSamples, int nWords) const;

    int traceCount() const { return _nTraces; }
    int sampleCount() const { return _nSamples; }
    /// Pointers to the copies, valid until the next copy.
    float** traces() { return _traces.data(); }
    int** headers() { return _headers.data(); }

private:
    void point();

    // One block each: a thousand allocations an ensemble would cost more than the copy.
    RawVector<float> _samples;
    std::vector<int> _words;
    std::vector<float*> _traces;
    std::vector<int*> _headers;
    int _nTraces = 0, _nSamples = 0, _nWords = 0;
};

#endif
