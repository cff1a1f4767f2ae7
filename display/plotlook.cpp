#include "display/plotlook.h"

#include "display/seismicplot.h"

static void copyConditioning(const TraceConditioner& from, SeismicPlot* to)
{
    const int* c = from.filterCorners();
    to->applyAGC(from.isAGC(), from.agcWindow());
    to->applyPhase(from.isPhase(), int(from.phaseAngle()));
    to->applyFilter(from.isFilter(), c[0], c[1], c[2], c[3], from.isTimeFilter());
}

void copyLook(const SeismicPlot& from, SeismicPlot* to)
{
    copyConditioning(from.conditioner(), to);
    to->setDisplayType(from.displayType());
    to->setNormalization(from.normalization());
    to->setRange(from.rangeMin(), from.rangeMax());  // the display type has its own idea of it
    to->setAutoGain(from.isAutoGain());
    to->setGain(from.gain());
    to->setClip(from.clip());
    to->setBias(from.bias());
    to->setApplyBias(from.isApplyBias());
    to->setAntiAlias(from.isAntiAlias());
    to->applyMoveout(from.moveout(), from.velocity());
    to->setAutoTraceSpacing(from.isAutoTraceSpacing());
    to->setTraceSpacing(from.traceSpacing());
    to->setAutoSampleSpacing(from.isAutoSampleSpacing());
    to->setSampleSpacing(from.sampleSpacing());
}
