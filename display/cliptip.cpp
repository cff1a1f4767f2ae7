#include "display/cliptip.h"

#include "display/raster/fitgain.h"
#include "display/seismicplot.h"

#include <QEvent>
#include <QToolTip>
#include <QWidget>

ClipTip::ClipTip(QWidget* canvas, const SeismicPlot* plot) : QObject(canvas), _canvas(canvas), _plot(plot)
{
    canvas->installEventFilter(this);
}

/// A share in percent; one that would round to nothing or to all says so.
static QString shareText(const ClipCount& count)
{
    if (count.clipped == 0) return "No sample is clipped";
    const double percent = count.live > 0 ? 100.0 * double(count.clipped) / double(count.live) : 0.0;
    const QString share = percent < 0.1 ? QString("Less than 0.1")
                          : percent > 99.9 && count.clipped < count.live
                              ? QString("More than 99.9")
                              : QString::number(percent, 'f', percent < 10.0 ? 1 : 0);
    return share + " % of the samples are clipped";
}

QString ClipTip::text()
{
    const DisplayType type = _plot->displayType();
    if (!_plot->isDataLoaded() || _plot->isDrawImage() || type == Map || type == Velocity) return QString();
    State now;
    now.generation = _plot->conditioner().generation();
    now.gain = _plot->gain();
    now.clip = _plot->clip();
    now.bias = _plot->isApplyBias() ? _plot->bias() : 0.0f;
    now.rangeMin = _plot->rangeMin();
    now.rangeMax = _plot->rangeMax();
    now.displayType = type;
    now.normalize = int(_plot->normalization());
    if (now == _state) return _text;
    std::vector<float> offsets;
    const ClipCount count = clippedSamples(_plot->rasterParm(&offsets));
    _state = now;
    _text = shareText(count);
    ++_counts;
    return _text;
}

bool ClipTip::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QObject::eventFilter(object, event);
    // Under the picture: beside the mouse it would hide the traces that are being looked at.
    QToolTip::showText(_canvas->mapToGlobal(QPoint(0, _canvas->height())), text(), _canvas);
    return true;
}
