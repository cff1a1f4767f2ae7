#include "display/cliptip.h"

#include "display/fitgain.h"
#include "display/seismicplot.h"

#include <QEvent>
#include <QWidget>

ClipTip::ClipTip(QWidget* canvas, const SeismicPlot* plot) : QObject(canvas), _canvas(canvas), _plot(plot)
{
    canvas->installEventFilter(this);
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
    _text = QString("%1 of %2 samples are clipped").arg(count.clipped).arg(count.live);
    ++_counts;
    return _text;
}

bool ClipTip::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::ToolTip) _canvas->setToolTip(text());  // the canvas itself shows it then
    return QObject::eventFilter(object, event);
}
