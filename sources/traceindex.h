/// All traces of a source, whatever the order in which it loads them.
#ifndef TRACEINDEX_H
#define TRACEINDEX_H

#include <cstddef>
#include <vector>

/// What an index knows of each trace without reading it.
enum class TraceValue {
    Channel,
    Ffid,
    SourceLocation,
    ReceiverLocation,
    Cdp,
    Offset,
    Inline,
    Crossline,
    TraceNumber,
    CdpX,
    CdpY,
    SourceX,
    SourceY,
    ReceiverX,
    ReceiverY
};

/// Traces are counted from 0 in the order of the index. Lent by its source until that tells of another one.
class TraceIndex
{
public:
    virtual ~TraceIndex() = default;
    virtual int count() const = 0;
    /// Whether the index knows this of its traces; else its values are 0.
    virtual bool has(TraceValue what) const = 0;
    /// @param out  room for count() values: whole numbers for keys, the data's unit for offset and coordinates
    virtual void values(TraceValue what, float* out) const = 0;
    /// The same for a single trace of the index; no range test.
    virtual float value(TraceValue what, int i) const = 0;
    /// Place of a trace in the data, from 0; no range test.
    virtual int place(int i) const = 0;
    /// Reads a trace; the source's ensemble and its place stay.
    ///
    /// @param words    room for the source's numHeaderWords() words
    /// @param samples  room for as many samples as its run-time record tells
    /// False, with the targets undefined, for a number outside or when the data can't be read.
    virtual bool readTrace(int i, int* words, float* samples) = 0;

    std::vector<float> values(TraceValue what) const
    {
        std::vector<float> all(static_cast<size_t>(count()));
        values(what, all.data());
        return all;
    }
};

#endif
