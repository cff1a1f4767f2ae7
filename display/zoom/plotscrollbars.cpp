#include "display/zoom/plotscrollbars.h"

#include <QScrollBar>
#include <QSignalBlocker>
#include <qwt_plot.h>

#include <algorithm>
#include <cmath>

PlotScrollBars::PlotScrollBars(QwtPlot* plot)
    : QObject(plot), _plot(plot), _hscroller(new QScrollBar(Qt::Horizontal, plot)),
      _vscroller(new QScrollBar(Qt::Vertical, plot))
{
    _hscroller->setObjectName("hscroller");
    _vscroller->setObjectName("vscroller");
    for (QScrollBar* bar : {_hscroller, _vscroller}) {
        bar->setCursor(Qt::ArrowCursor);
        bar->hide();
    }
    connect(_hscroller, &QScrollBar::valueChanged, this, [this](int v) { emit horizontalMoved(_hLeast + v); });
    connect(_vscroller, &QScrollBar::valueChanged, this, [this](int v) { emit verticalMoved(_vLeast + v); });
}

/// Whole units inside the integer range, cut.
static int units(double value)
{
    return value > 0.0 ? int(std::min(value, 1e9)) : 0;  // 0 for NaN too
}

static void setBar(QScrollBar* bar, const ScrollExtent& extent)
{
    const QSignalBlocker quiet(bar);
    const int range = units(extent.whole - extent.span);
    bar->setRange(0, range);
    bar->setPageStep(std::max(1, units(extent.span)));
    bar->setSingleStep(std::max(1, bar->pageStep() / 10));
    bar->setValue(units(std::round(extent.from - extent.least)));
    bar->setVisible(range > 0);
}

void PlotScrollBars::synchronize(const ScrollExtent& horizontal, const ScrollExtent& vertical)
{
    _hLeast = horizontal.least;
    _vLeast = vertical.least;
    setBar(_hscroller, horizontal);
    setBar(_vscroller, vertical);
    place();
}

bool PlotScrollBars::hasHorizontal() const
{
    return !_hscroller->isHidden();
}

void PlotScrollBars::reserveHorizontal(bool on)
{
    if (_isReserved == on) return;
    _isReserved = on;
    place();
}

void PlotScrollBars::reserveBelow(int nPixels)
{
    if (_below == nPixels) return;
    _below = nPixels;
    place();
}

void PlotScrollBars::place()
{
    const int right = _vscroller->isHidden() ? 0 : _vscroller->sizeHint().width();
    const int bottom = _hscroller->isHidden() && !_isReserved ? 0 : _hscroller->sizeHint().height();
    const QMargins margins(0, 0, right, bottom + _below);
    if (_plot->contentsMargins() != margins) _plot->setContentsMargins(margins);
    _vscroller->setGeometry(_plot->width() - right, 0, right, _plot->height() - bottom);
    _hscroller->setGeometry(0, _plot->height() - bottom, _plot->width() - right, bottom);
}
