/// The plot under every seismic display: its two halves of a replot can be called apart.
#ifndef MYQWTPLOT_H
#define MYQWTPLOT_H

#include <qwt_plot.h>

class MyQwtPlotCanvas;

class MyQwtPlot : public QwtPlot
{
    Q_OBJECT

public:
    explicit MyQwtPlot(QWidget* parent = nullptr);

    /// The canvas made by this plot; a child of it.
    MyQwtPlotCanvas* myCanvas() const { return _canvas; }

    /// First half: brings the axes up to date and the layout with them.
    void replot1();
    /// Second half: repaints the canvas at once.
    void replot2();

private:
    MyQwtPlotCanvas* _canvas;  // child of the plot
};

#endif
