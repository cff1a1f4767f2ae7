/// How a plot shows its traces: one record, and the table of its fields.
#ifndef PLOTPARM_H
#define PLOTPARM_H

#include "tracedata/orvinconstants.h"
#include "tracedata/parmfield.h"

#include <vector>

/// What is done to the traces before they are measured and painted.
struct ConditionParm {
    bool isAGC = false;
    int agcWindow = 500;  ///< ms, kept also for a gain control that is off
    bool isPhase = false;
    float phaseAngle = 0.0f;  ///< degrees, kept also for a rotation that is off
    bool isFilter = false;
    int lowCut = 4, lowPass = 12, highPass = 50, highCut = 60;  ///< Hz, rising
    bool isTimeFilter = false;                                  ///< the band-pass works in the time domain

    bool operator==(const ConditionParm&) const = default;
};

/// How they are painted then.
struct LookParm {
    DisplayType displayType = WiggleVA;
    PlotDirection plotDirection = LeftToRight;
    Normalize normalize = Normalize::Trace;
    float gain = 0.0f;  ///< dB
    float clip = 2.0f;  ///< excursion limit in trace widths
    float bias = 0.0f;  ///< in units of the samples
    bool applyBias = false;
    bool antialias = false;
    bool autoRange = true;                     ///< the range follows the amplitudes
    float rangeMin = 0.0f, rangeMax = 255.0f;  ///< amplitudes of the colours
    bool autoTraceSpacing = true;              ///< all traces fill the width
    float traceSpacing = 5.0f;                 ///< traces an inch
    bool autoSampleSpacing = true;
    float sampleSpacing = 1.0f;  ///< samples an inch
    int bulkshift = 0;           ///< samples, positive moves traces to later times
    int moveout = 0;             ///< 0 none, 1 linear, 2 hyperbolic
    float velocity = 0.0f;       ///< of the move-out, lengths a second
    float opacity = 0.75f;       ///< of an overlay
};

/// All of it. A value lives in the plot; whoever shows or keeps it asks the plot.
struct PlotParm : ConditionParm, LookParm {
};

/// One row a field. Presets, overlay, session, dialogs and the menu record walk it.
const std::vector<ParmField<PlotParm>>& plotParmFields();
/// The row of a key that there is.
const ParmField<PlotParm>& plotParmField(std::string_view key);

/// The fields that the menu record has, as it says; *parm for the others, and where it leaves the choice.
void takeFromMenu(const parmmenu& menu, PlotParm* parm);
/// Keeps in the menu record what displays that are still to come take along.
void keepInMenu(const PlotParm& parm, parmmenu* menu);

#endif
