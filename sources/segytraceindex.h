/// The trace map of a SEG-Y file as an index.
#ifndef SEGYTRACEINDEX_H
#define SEGYTRACEINDEX_H

#include "sources/traceindex.h"

class SegyLoader;

/// Counts in the order of the map, which is sorted by the keys in force.
class SegyTraceIndex : public TraceIndex
{
public:
    /// @param loader  whose file is mapped; lent, it owns the index
    explicit SegyTraceIndex(SegyLoader* loader) : _loader(loader) {}

    int count() const override;
    bool has(TraceValue) const override { return true; }
    void values(TraceValue what, float* out) const override;
    using TraceIndex::values;
    float value(TraceValue what, int i) const override;
    int place(int i) const override;
    bool readTrace(int i, int* words, float* samples) override;

private:
    SegyLoader* _loader;
};

#endif
