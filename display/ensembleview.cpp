#include "display/ensembleview.h"

#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "display/wordlookup.h"
#include "display/zoom/axisarithmetic.h"
#include "tracedata/seismicdata.h"

EnsembleView::EnsembleView(SeismicDisplay* display) : QObject(display), _display(display) {}

QwtPlot* EnsembleView::plot() const
{
    return _display;
}

const SeismicData& EnsembleView::data() const
{
    return *_display->seismicData();
}

int EnsembleView::traceCount() const
{
    return _display->traceCount();
}

double EnsembleView::sampleRate() const
{
    return _display->sampleRate();
}

bool EnsembleView::isRightToLeft() const
{
    return _display->seismicPlot()->plotDirection() == RightToLeft;
}

double EnsembleView::xOfTrace(int trace) const
{
    return traceToX(trace, traceCount(), isRightToLeft());
}

int EnsembleView::traceAt(double x) const
{
    return xToTrace(x, traceCount(), isRightToLeft());
}

const KeyColumn& EnsembleView::primary() const
{
    return _display->headerAxis().pri();
}

const KeyColumn& EnsembleView::secondary() const
{
    return _display->headerAxis().sec();
}

float EnsembleView::keyOfTrace(int trace) const
{
    if (trace < 0 || trace >= traceCount()) return 0.0f;
    return secondary().values[size_t(xOfTrace(trace))];
}

int EnsembleView::traceOfKey(float key) const
{
    for (int i = 0; i < traceCount(); ++i)
        if (keyOfTrace(i) == key) return i;
    return -1;
}

double EnsembleView::word(const char* name, int trace) const
{
    if (trace < 0 || trace >= traceCount()) return 0.0;
    return wordOfTrace(data(), name, trace);
}

ReadoutPosition EnsembleView::positionAt(const QPointF& at) const
{
    return readoutPosition(_display->readoutFrame(), at.x(), at.y());
}
