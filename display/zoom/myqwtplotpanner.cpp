#include "display/zoom/myqwtplotpanner.h"

#include "tracedata/orvinconstants.h"

#include <qwt_scale_div.h>
#include <qwt_scale_map.h>

#include <algorithm>
#include <cmath>

constexpr double noLimit = nullValue;

MyQwtPlotPanner::MyQwtPlotPanner(QWidget* canvas)
    : QwtPanner(canvas), _xmin(noLimit), _xmax(noLimit), _ymin(noLimit), _ymax(noLimit)
{
    std::fill(std::begin(_isEnabled), std::end(_isEnabled), true);
    connect(this, &QwtPanner::panned, this, &MyQwtPlotPanner::moveCanvas);
}

void MyQwtPlotPanner::setMinMax(double xmin, double xmax, double ymin, double ymax, double shift, int direction)
{
    _xmin = xmin;
    _xmax = xmax;
    _ymin = ymin;
    _ymax = ymax;
    _shift = shift;
    _direction = direction;
}

void MyQwtPlotPanner::setAxisEnabled(int axis, bool on)
{
    if (axis >= 0 && axis < QwtPlot::axisCnt) _isEnabled[axis] = on;
}

bool MyQwtPlotPanner::isAxisEnabled(int axis) const
{
    return axis >= 0 && axis < QwtPlot::axisCnt && _isEnabled[axis];
}

QwtPlot* MyQwtPlotPanner::plot() const
{
    return parentWidget() ? qobject_cast<QwtPlot*>(parentWidget()->parentWidget()) : nullptr;
}

bool MyQwtPlotPanner::isPanned() const
{
    const auto smallerEnd = [this](int axis) {
        const QwtScaleDiv& div = plot()->axisScaleDiv(axis);
        return std::min(div.lowerBound(), div.upperBound());
    };
    return !plot() || smallerEnd(QwtPlot::yLeft) != _shift || smallerEnd(QwtPlot::xTop) != 0.0;
}

void limitInterval(double least, double largest, double* lower, double* upper)
{
    const double span = *upper - *lower;
    if (least != noLimit && *lower < least) {
        *lower = least;
        *upper = span + least;
    }
    if (largest != noLimit && *upper > largest) {
        *upper = largest;
        *lower = largest - span;
    }
    *lower = std::max(*lower, 0.0);
    *upper = std::max(*upper, 0.0);
}

double wholePixel(double pixel)
{
    if (!(std::fabs(pixel) < 1e9)) return 0.0;  // no canvas is that far; NaN too
    if (pixel >= 0.0) return int(pixel + 0.5);
    const int below = int(pixel - 1.0);
    return int(pixel - below + 0.5) + below;
}

void MyQwtPlotPanner::moveCanvas(int dx, int dy)
{
    QwtPlot* plot = this->plot();
    if ((dx == 0 && dy == 0) || !plot) return;
    const bool autoReplot = plot->autoReplot();
    plot->setAutoReplot(false);
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
        if (!_isEnabled[axis]) continue;
        const QwtScaleMap map = plot->canvasMap(axis);
        const QwtScaleDiv& div = plot->axisScaleDiv(axis);
        const double p1 = wholePixel(map.transform(div.lowerBound()));
        const double p2 = wholePixel(map.transform(div.upperBound()));
        if (axis == QwtPlot::xBottom || axis == QwtPlot::xTop) {
            double lower = map.invTransform(p1 - dx), upper = map.invTransform(p2 - dx);
            limitInterval(_xmin, _xmax, &lower, &upper);
            plot->setAxisScale(axis, lower, upper, _xIncrement.step(upper - lower));
            continue;
        }
        const double least = _ymin == noLimit ? noLimit : _ymin + _shift;
        const double largest = _ymax == noLimit ? noLimit : _ymax + _shift;
        const int down = _direction == 0 ? dy : -dy;
        double lower = map.invTransform(p1 + down), upper = map.invTransform(p2 + down);
        if (lower <= upper)
            limitInterval(least, largest, &lower, &upper);
        else
            limitInterval(least, largest, &upper, &lower);
        plot->setAxisScale(axis, lower, upper, _yIncrement.step(upper - lower));
    }
    plot->setAutoReplot(autoReplot);
    plot->replot();
}
