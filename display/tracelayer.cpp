#include "display/tracelayer.h"

#include "display/seismicplot.h"
#include "tracedata/seismicdata.h"

TraceLayer::TraceLayer(QwtPlot* parent, PlotOwner* owner, const QString& title)
    : _data(std::make_unique<SeismicData>()), _plot(std::make_unique<SeismicPlot>(owner, _data.get(), title))
{
    _plot->attach(parent);
}

TraceLayer::~TraceLayer() = default;

bool TraceLayer::take(const TraceBatch& batch, const HeaderKeys& keys, int treviaVersion, std::string* error)
{
    if (!_copy.copy(batch.traces, batch.heads, batch.n, batch.firstSample, batch.nSamples, batch.nWords, error))
        return false;
    _data->clear();
    _data->setHeaderWords(batch.words);
    _data->setNumHeaderWords(batch.nWords);
    _data->loadAllTraces(_copy.traces(), _copy.headers(), batch.nSamples, batch.n);
    _data->setPriKey(keys.pri.value);
    _data->setSecKey(keys.sec.value);
    _data->setTreviaVersion(treviaVersion);
    return true;
}

bool TraceLayer::holds(const TraceBatch& batch) const
{
    return _copy.holds(batch.traces, batch.heads, batch.n, batch.firstSample, batch.nSamples, batch.nWords);
}

void TraceLayer::measure()
{
    _plot->invalidateImage();
    _plot->computeNormalizer();
}

void TraceLayer::show(int firstSample, const QRect& canvas)
{
    _plot->setSeismicView(0, 0, _data->traceCount(), _data->sampleCount(), firstSample);
    _plot->setDataLoaded(true);
    _plot->setOutputBuffers(canvas);
}

void TraceLayer::clear()
{
    _plot->setDataLoaded(false);
    _data->clear();
}
