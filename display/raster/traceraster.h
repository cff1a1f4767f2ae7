/// Paints traces into a picture: wiggles, variable area, colour, map.
#ifndef TRACERASTER_H
#define TRACERASTER_H

#include "tracedata/orvinconstants.h"

#include <QImage>

#include <cstdint>
#include <memory>
#include <vector>

class ColorTable;
class ColumnResampler;
class TraceTap;

/// One axis of a plot: the scale interval s1 to s2 (traces, or ms) and the paint interval p1 to p2 in pixels.
struct AxisMap {
    double s1 = 0.0, s2 = 0.0, p1 = 0.0, p2 = 0.0;
};

/// All that a render takes. Everything pointed at is lent for the call.
struct RasterParm {
    const float* samples = nullptr;  ///< conditioned traces, stride floats each
    int nDataTraces = 0;
    int stride = 0;
    float sampleRate = 0.0f;          ///< ms
    const float* divTrace = nullptr;  ///< a divisor a trace, 0 for none
    float divRecord = 0.0f;           ///< divisor of all traces, 0 for none
    SeisRect view;                    ///< of it nTraces and nSamples are used
    int startSample = 0;              ///< samples left out before the first of each trace

    AxisMap x, y;
    int timeDirection = 1;  ///< 0: times rise from y.s1 to y.s2; else from y.s2 to y.s1
    DisplayType displayType = WiggleVA;
    PlotDirection plotDirection = LeftToRight;
    Normalize normalize = Normalize::None;
    float gain = 1.0f;  ///< linear
    float bias = 0.0f;
    bool applyBias = false;
    float clip = 2.0f;  ///< excursion limit in trace widths
    bool antialias = false;
    int bulkshift = 0;               ///< samples, positive moves traces to later times
    int moveout = 0;                 ///< 0 none, 1 linear, 2 hyperbolic
    float velocity = 0.0f;           ///< of the move-out, lengths a second
    const float* offsets = nullptr;  ///< nDataTraces, in lengths; null is 0 for all
    float plotSampleCount = 0.0f;    ///< samples that the plot shows at the current spacing

    const ColorTable* colors = nullptr;  ///< never null
    QRgb background = 0xffffffffu;
    double pixelRatio = 1.0;  ///< of the paint device; the picture gets it, the maps hold it already
};

/// The window of the data that a render shows, and its measures in pixels.
struct RasterWindow {
    double nsamp = 0.0;  ///< samples over the height of the plot
    int firstSample = 0;
    double ntr = 0.0;  ///< traces over the width of the plot
    int firstTrace = 0;
    int count = 0;  ///< traces to paint
    int width = 0, height = 0;
    int top = 0;        ///< first pixel row painted
    int rowstride = 0;  ///< rows that a trace is resampled to
    float pixPerTrace = 0.0f, pixPerSample = 0.0f;
    int xbase = 0;  ///< axis of the first trace
    int clipPix = 0;
};

/// The window of these parameters; false if there is nothing to paint: no size, no rate, fewer than two
/// samples.
bool rasterWindow(const RasterParm& parm, RasterWindow* window);

/// A trace that is shown: its samples and where they stand in the work trace.
struct RasterColumn {
    int tr = 0;
    int start = 0;  ///< first sample taken
    int dest = 0;   ///< its place in the work trace
    int n = 0;
    const float* samples = nullptr;  ///< the first sample taken
    int64_t first = 0;               ///< sample that place 0 of the work trace stands for; may lie before the trace
};

/// Renders pictures. Its work buffers are kept and only grow; one render at a time.
///
/// Traces are resampled and rows painted in parallel; the picture is the same to the bit whatever the number
/// of threads and the processor's variant.
class TraceRaster
{
public:
    TraceRaster();
    ~TraceRaster();

    /// The picture, Format_RGB32; null if there is nothing to paint. The picture's memory is used again at
    /// the next render unless a copy of it is still held then.
    /// @param tap  hears every trace shown, changed as it wants it; may be null
    QImage render(const RasterParm& parm, TraceTap* tap);

    /// Makes room for a render of so many traces of nSamples to `rows` pixel rows.
    void reserve(int rows, int nTraces, int nSamples);
    /// Shift in samples of trace i of the last render; 0 for a trace that it didn't show.
    int traceShift(int i) const { return i >= 0 && i < int(_ishift.size()) ? _ishift[i] : 0; }

private:
    void collectColumns(const RasterParm& parm, const RasterWindow& window, TraceTap* tap);
    void tapColumns(TraceTap* tap);
    void changeColumns(TraceTap* tap);

    std::vector<RasterColumn> _columns;
    std::vector<int> _ishift;
    std::vector<float> _changed;  // traces that a tap has changed, one after the other
    std::unique_ptr<ColumnResampler> _resampler;
    QImage _image;
};

#endif
