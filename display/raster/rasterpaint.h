/// The painting half of the trace raster: resampled traces to pixels.
#ifndef RASTERPAINT_H
#define RASTERPAINT_H

#include "display/raster/traceraster.h"

#include <algorithm>

class ColorTable;

/// Resampled traces and the picture they go to, all lent.
struct RasterPainting {
    /// Trace k, row r is rows[r * stride + k]; behind each row's traces and behind the last row stand traceLanes
    /// more that may be read.
    const float* rows = nullptr;
    size_t stride = 0;
    int nRows = 0;  ///< rows to paint, the first of them on pixel row window.top, not below 0
    RasterWindow window;
    DisplayType displayType = WiggleVA;
    const ColorTable* colors = nullptr;
    QRgb* pixels = nullptr;  ///< window.height lines of window.width pixels
    QRgb background = 0;     ///< of the rows that are painted
};

// Each row gets its background just before it is painted, while it is near.

/// Paints wiggles, areas and colours of window.count traces. Rows are shared out to threads.
void paintTraces(const RasterPainting& painting);
/// Paints traces as a map, interpolated from trace to trace. Rows are shared out to threads.
void paintMap(const RasterPainting& painting);

/// The pixels that a line from (x0, y - 1) to (x1, y) takes in row y - 1, cut to 0 to width - 1: from x0 up
/// to, not including, x1, or x0 alone where these are equal. In row y it takes x1.
struct PixelRun {
    int first, last;  ///< none if last is below first
};
inline PixelRun upperRun(int x0, int x1, int width)
{
    const int first = x1 < x0 ? x1 + 1 : x0;
    const int last = x1 > x0 ? x1 - 1 : x0;
    return {std::max(first, 0), std::min(last, width - 1)};
}

#endif
