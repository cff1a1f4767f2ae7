#include "display/plotlook.h"

#include "display/axisarithmetic.h"
#include "display/seismicplot.h"
#include "tracedata/parmmenu.h"

/// The range of the record, or the usual one of colours; a plot of another mode finds its own.
static void takeRange(const parmmenu& menu, SeismicPlot* plot)
{
    const bool isColor = menu.idisplay == ColorB || menu.idisplay == ColorWiggle;
    if (menu.irange == 0)
        plot->setRange(menu.minrange, menu.maxrange);
    else if (isColor)
        plot->setRange(-3.0f, 3.0f);
    else
        return;
    plot->setAutoGain(false);
}

static void takeSpacing(const parmmenu& menu, SeismicPlot* plot)
{
    if (menu.tpi != 0.0f) {
        plot->setAutoTraceSpacing(false);
        plot->setTraceSpacing(menu.tpi);
    }
    if (menu.ips != 0.0f) {
        plot->setAutoSampleSpacing(false);
        plot->setSampleSpacing(samplesPerInch(menu.ips, 2.0));
    }
}

void takeMenu(const parmmenu& menu, SeismicPlot* plot)
{
    plot->setNormalization(menu.iscale == 1   ? Normalize::Trace
                           : menu.iscale == 2 ? Normalize::Dataset
                                              : Normalize::None);
    takeRange(menu, plot);
    plot->setDisplayType(DisplayType(menu.idisplay));
    takeRange(menu, plot);  // the display type has its own idea of the range; the user's stays in force
    plot->setPlotDirection(PlotDirection(menu.idirection));
    plot->setGain(float(menu.igain));
    takeSpacing(menu, plot);
    plot->setClip(menu.clip);
    plot->setBias(menu.bias);
    plot->applyAGC(menu.iagc != 0, menu.agcwinlen);
}

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
