/// What a display needs of the graph of header words above it.
#ifndef HEADERSTRIP_H
#define HEADERSTRIP_H

#include <QRectF>

class QString;
class QwtPlot;

/// Called on the main thread; lent to the display until it is taken back with null. It stands above the canvas and has
/// the same trace axis.
class HeaderStrip
{
public:
    virtual ~HeaderStrip() = default;
    /// The plot whose left and right axes take as much room as those of the display, so that traces are in line.
    virtual QwtPlot* stripPlot() = 0;
    /// Labels of the trace axis: n + 1 values, that of trace i from 1 at i, lent until the next call; `type` is that
    /// of their column. The curves are those of the ensemble that the display now holds.
    virtual void updateCurves(const float* values, int n, char type, const QString& name) = 0;
    virtual void setTraceIncrement(double step) = 0;
    /// The display has zoomed: traces and ms.
    virtual void setZoom(const QRectF& rect) = 0;
    virtual void resetZoom() = 0;
    /// The display has been painted anew.
    virtual void replotStrip() = 0;
};

#endif
