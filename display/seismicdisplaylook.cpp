/// How a display shows its traces, handed on to another one; and its data, put away.
#include "display/seismicdisplay.h"

#include "display/recordaxisscaledraw.h"
#include "display/seismicplot.h"
#include "tracedata/seismicdata.h"

#include <qwt_plot_grid.h>

static void copyConditioning(const TraceConditioner& from, SeismicPlot* to)
{
    const int* c = from.filterCorners();
    to->applyAGC(from.isAGC(), from.agcWindow());
    to->applyPhase(from.isPhase(), int(from.phaseAngle()));
    to->applyFilter(from.isFilter(), c[0], c[1], c[2], c[3], from.isTimeFilter());
}

static void copyLook(const SeismicPlot& from, SeismicPlot* to)
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

void SeismicDisplay::takeLook(const SeismicDisplay& other)
{
    copyLook(*other._seismicplot, _seismicplot);
    setPlotDirection(other._seismicplot->plotDirection());
    _keys = other._keys;
    _grid->enableX(other._grid->xEnabled());
    _grid->enableY(other._grid->yEnabled());
    _grid->enableXMin(other._grid->xMinEnabled());
    _grid->enableYMin(other._grid->yMinEnabled());
}

void SeismicDisplay::clearData()
{
    setShowImage(false);
    _images.forgetStored();
    _loadTraces = false;
    _seismicplot->setDataLoaded(false);
    _seismicdata->clear();
    if (_overlayplot) {
        _overlayplot->setDataLoaded(false);
        _overlaydata->clear();
    }
    rePlot();
}
