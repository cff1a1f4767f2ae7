/// The resampling half of the trace raster: conditioned traces to pixel rows.
#ifndef COLUMNRESAMPLER_H
#define COLUMNRESAMPLER_H

#include "display/raster/traceraster.h"
#include "host/numeric/tracelanes.h"
#include "host/rawvector.h"

/// True for the types that are painted as a map, interpolated in both directions.
inline bool isMap(DisplayType type)
{
    return type == Map || type == Velocity;
}

/// Scales, shifts and resamples the traces of a render. Its buffers are kept and only grow.
class ColumnResampler
{
public:
    /// Resamples the columns to the rows of the window that the picture can show. Traces of the window without
    /// a column are flat ones at the end. Groups of traces are shared out to threads.
    void resample(const RasterParm& parm, const RasterWindow& window, const std::vector<RasterColumn>& columns);

    /// Row r of trace k is rows()[r * stride() + k]; behind each row's traces and behind the last row stand
    /// traceLanes traces and rows more that may be read.
    const float* rows() const { return _rows.data(); }
    size_t stride() const { return _stride; }

    /// Makes room for so many traces of nSamples and pixel rows.
    void reserve(int rows, int nTraces, int nSamples);

private:
    /// Work arrays of one thread.
    struct Work {
        std::vector<float> strips, block;                      // traces side by side
        std::vector<float> trace, positions, moved, filtered;  // one trace
    };
    /// What all traces of a render have in common.
    struct Common {
        int nOut = 0;         ///< rows resampled to
        int nSamples = 0;     ///< of a work trace, that these rows can show
        bool isEach = false;  ///< each trace has positions or a filter of its own
    };
    void preparePlaces(const RasterParm& parm, const RasterWindow& window, const std::vector<RasterColumn>& columns);
    void resampleGroup(const RasterParm& parm, const RasterWindow& window, const RasterColumn* columns, int n,
                       float* out, Work* work) const;
    void fillBlock(const RasterParm& parm, const RasterColumn* columns, int n, Work* work) const;
    void resampleColumn(const RasterParm& parm, const RasterWindow& window, const RasterColumn& column, float* out,
                        Work* work) const;

    Common _common;
    RawVector<float> _rows;
    size_t _stride = 0;
    std::vector<SincPlace> _sincPlaces;
    std::vector<float> _nodes, _positions;  // of a map: pixel rows of the samples, and the rows
    std::vector<LinearPlace> _linearPlaces;
    int _placedSamples = 0;   // for work traces of this length stand the linear places
    std::vector<Work> _work;  // one a thread
};

#endif
