/// Drags the canvas with the mouse; the axes keep their steps and stop at the ends of the data.
#ifndef MYQWTPLOTPANNER_H
#define MYQWTPLOTPANNER_H

#include "display/zoom/axisstep.h"

#include <qwt_panner.h>
#include <qwt_plot.h>

class MyQwtPlotPanner : public QwtPanner
{
    Q_OBJECT

public:
    explicit MyQwtPlotPanner(QWidget* canvas);

    /// Ends of the data: traces on x, ms on y counted from shift. 3.4e38 is no limit.
    /// @param direction  not 0: the vertical axes fall upward, as times do; 0: they rise
    void setMinMax(double xmin, double xmax, double ymin, double ymax, double shift, int direction);
    void setXIncrement(const AxisRule& rule) { _xIncrement = rule; }
    void setYIncrement(const AxisRule& rule) { _yIncrement = rule; }
    void setAxisEnabled(int axis, bool on);
    bool isAxisEnabled(int axis) const;
    /// True unless the left scale begins at the shift and the top one at 0.
    bool isPanned() const;

    QwtPlot* plot() const;

public slots:
    /// Moves the scales by pixels, dx to the right and dy downward, and replots.
    virtual void moveCanvas(int dx, int dy);

private:
    bool _isEnabled[QwtPlot::axisCnt];
    double _xmin, _xmax, _ymin, _ymax;
    double _shift = 0.0;
    AxisRule _xIncrement, _yIncrement;
    int _direction = 1;
};

/// The interval [lower, upper] moved into [least, largest] with its span intact, and not below 0;
/// 3.4e38 is no limit. lower <= upper.
void limitInterval(double least, double largest, double* lower, double* upper);

/// To the nearest whole pixel, halves upward on both sides of 0.
double wholePixel(double pixel);

#endif
