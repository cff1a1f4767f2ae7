#include "display/displaygrid.h"

#include <QPen>
#include <qwt_plot.h>
#include <qwt_plot_grid.h>

static void enableLines(QwtPlotGrid* grid, bool x, bool xMin, bool y, bool yMin)
{
    grid->enableX(x);
    grid->enableXMin(xMin);
    grid->enableY(y);
    grid->enableYMin(yMin);
}

QwtPlotGrid* makeGrid(QwtPlot* plot)
{
    auto* grid = new QwtPlotGrid;
    grid->setAxes(QwtPlot::xTop, QwtPlot::yLeft);
    grid->setMajorPen(QPen(QColor(0, 120, 120), 0));
    grid->setMinorPen(QPen(QColor(0, 120, 120), 0, Qt::DotLine));
    enableLines(grid, false, false, false, false);
    grid->attach(plot);
    return grid;
}

void copyGridLines(const QwtPlotGrid& from, QwtPlotGrid* to)
{
    enableLines(to, from.xEnabled(), from.xMinEnabled(), from.yEnabled(), from.yMinEnabled());
}
