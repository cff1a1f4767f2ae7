/// The lines over the picture at the steps of its axes.
#ifndef DISPLAYGRID_H
#define DISPLAYGRID_H

class QwtPlot;
class QwtPlotGrid;

/// A grid on the top and left axes, all lines off, attached to the plot, which deletes it. Its z keeps it in view above
/// the opaque picture.
QwtPlotGrid* makeGrid(QwtPlot* plot);

/// Shows the same lines as another grid.
void copyGridLines(const QwtPlotGrid& from, QwtPlotGrid* to);

#endif
