/// What can be drawn on: a plot, two of its axes, and how its mouse is borrowed.
#ifndef DRAWTARGET_H
#define DRAWTARGET_H

#include <qwt_plot.h>

#include <functional>

class CanvasTool;
class SeismicDisplay;

/// A display of traces, or a map; plain, so that DrawDialog knows neither.
struct DrawTarget {
    QwtPlot* plot = nullptr;  ///< lent; may go at any time, and takes what is drawn on it along
    int xAxis = QwtPlot::xTop;
    int yAxis = QwtPlot::yLeft;
    /// With true the tool becomes the active one of the plot's canvas, with false the plot's own gets it back. Only
    /// called while the plot lives.
    std::function<void(CanvasTool* tool, bool on)> borrowMouse;
};

/// The canvas of a display, in traces and ms; the tool that was active comes back in the end.
DrawTarget displayTarget(SeismicDisplay* display);

#endif
