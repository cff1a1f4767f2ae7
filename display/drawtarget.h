/// What can be drawn on: a plot, two of its axes, and how its own mouse tools stand aside.
#ifndef DRAWTARGET_H
#define DRAWTARGET_H

#include <qwt_plot.h>

#include <functional>

class SeismicDisplay;

/// A display of traces, or a map; plain, so that DrawDialog knows neither.
struct DrawTarget {
    QwtPlot* plot = nullptr;  ///< lent; may go at any time, and takes what is drawn on it along
    int xAxis = QwtPlot::xTop;
    int yAxis = QwtPlot::yLeft;
    /// With true the plot's own tools leave the plain mouse buttons, with false they get them back. Only called
    /// while the plot lives.
    std::function<void(bool on)> setMouseAside;
};

/// The canvas of a display, in traces and ms; its mouse mode comes back when it has been set aside.
DrawTarget displayTarget(SeismicDisplay* display);

#endif
