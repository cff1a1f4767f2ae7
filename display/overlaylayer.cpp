#include "display/overlaylayer.h"

#include "display/displayhost.h"
#include "display/seismicplot.h"
#include "tracedata/seismicdata.h"

#include <qwt_plot.h>

bool OverlayLayer::load(const TraceBatch& batch, const HeaderKeys& keys, int treviaVersion, const SeismicPlot& main,
                        const QRect& canvas, std::string* error)
{
    std::unique_ptr<TraceLayer> made;
    if (!_layer) made = std::make_unique<TraceLayer>(_plot, _owner, "overlayplot");
    if (!(made ? made : _layer)->take(batch, keys, treviaVersion, error)) return false;
    const bool isNew = made != nullptr;
    if (isNew) _layer = std::move(made);
    _layer->data()->setSampleRate(main.data()->sampleRate());
    if (isNew) adopt(main);
    _layer->measure();
    _layer->show(batch.firstSample, canvas);
    _isLast = true;
    return true;
}

void OverlayLayer::adopt(const SeismicPlot& main)
{
    SeismicPlot* plot = _layer->plot();
    plot->setZ(main.z() + 1.0);
    plot->setColorBar(_host ? _host->overlayColorBarFrame() : main.colorBar());
    measure(main);
    plot->setTrevia(main.isTrevia());
    PlotParm parm = plot->parm();
    copyParms(plotParmFields(), InOverlay, main.parm(), &parm);
    plot->changeParm(parm);
    plot->setTransparent(true);
    if (_host) _host->setOverlayMode(true);
}

/// Data that are never negative, as velocities are, become a map; all others colours like the main data.
void OverlayLayer::measure(const SeismicPlot& main)
{
    SeismicPlot* plot = _layer->plot();
    _layer->data()->computeRMS();
    if (_layer->data()->getMinimum() >= 0.0f) {
        plot->setDisplayType(Map);
        plot->setAutoGain(main.isAutoGain());
        return;
    }
    plot->setDisplayType(ColorB);
    plot->setNormalization(main.normalization());
    plot->setAutoGain(false);
    plot->setRange(-3.0f, 3.0f);
}

void OverlayLayer::clear()
{
    if (_layer) _layer->clear();
}

QString OverlayLayer::record(const HeaderKeys& keys, const KeyColumn& primary) const
{
    if (!_layer || !plot()->isVisible() || !plot()->isDataLoaded()) return QString();
    const float value = primary.name != "None" ? keyOfTrace(*data(), keys.pri, primary.type, 0) : 0.0f;
    return primary.name.trimmed() + " " + QString::number(double(value), 'g', 9);
}
