#include "tracedata/plotparm.h"

#include "tracedata/parmmenu.h"

#include <algorithm>

static bool isAmplitudeColor(const parmmenu& menu)
{
    return menu.idisplay == ColorB || menu.idisplay == ColorWiggle;
}

/// The record's range is in force, or that of colours without one.
static bool isRangeTold(const parmmenu& menu)
{
    return menu.irange == 0 || isAmplitudeColor(menu);
}

static Normalize normalizeOf(const parmmenu& menu)
{
    if (menu.idisplay == Velocity) return Normalize::None;
    return menu.iscale == 1 ? Normalize::Trace : menu.iscale == 2 ? Normalize::Dataset : Normalize::None;
}

/// Samples an inch at 2 ms; the first ensemble tells the rate.
static float samplesPerInch(const parmmenu& menu)
{
    return float((1.0 / menu.ips) / 0.002);
}

constexpr double mostAmplitude = 3.4e38;

const std::vector<ParmField<PlotParm>>& plotParmFields()
{
    using Menu = const parmmenu&;
    using Parm = PlotParm*;
    static const std::vector<ParmField<PlotParm>> fields = {
        {&PlotParm::isAGC,
         {"agc", "", 0, 1, InPreset},
         [](Menu m, Parm p) { p->isAGC = m.iagc != 0; },
         [](const PlotParm& p, parmmenu* m) { m->iagc = p.isAGC; }},
        {&PlotParm::agcWindow,
         {"agcWindow", "ms", 1, 1e6, InPreset, true},
         [](Menu m, Parm p) {
             if (m.iagc != 0 || m.agcwinlen > 0) p->agcWindow = m.agcwinlen;
         },
         [](const PlotParm& p, parmmenu* m) { m->agcwinlen = p.agcWindow; }},
        {&PlotParm::isPhase, {"phase", "", 0, 1, InPreset}},
        {&PlotParm::phaseAngle, {"phaseAngle", "degrees", -360, 360, InPreset, true}},
        {&PlotParm::isFilter, {"filter", "", 0, 1, InPreset}},
        {&PlotParm::lowCut, {"lowCut", "Hz", 0, 1e6, InPreset, true}},
        {&PlotParm::lowPass, {"lowPass", "Hz", 0, 1e6, InPreset, true}},
        {&PlotParm::highPass, {"highPass", "Hz", 0, 1e6, InPreset, true}},
        {&PlotParm::highCut, {"highCut", "Hz", 0, 1e6, InPreset, true}},
        {&PlotParm::isTimeFilter, {"timeFilter", "", 0, 1, InPreset}},
        {&PlotParm::gain, {"gain", "dB", -200, 200, InPreset}, [](Menu m, Parm p) { p->gain = float(m.igain); }},
        {&PlotParm::clip, {"clip", "traces", 0, 1000, InPreset}, [](Menu m, Parm p) { p->clip = m.clip; }},
        {&PlotParm::normalize,
         {"scaling", "", 0, 2, InPreset, true, {"Trace", "Ensemble", "None"}},
         [](Menu m, Parm p) { p->normalize = normalizeOf(m); }},
        {&PlotParm::displayType,
         {"displayType",
          "",
          0,
          7,
          0,
          true,
          {"Wiggle/Variable Area", "Wiggle Only", "Variable Area Only", "Color", "Color/Wiggle", "Map", "Velocity",
           "Gray Scale"}},
         [](Menu m, Parm p) { p->displayType = DisplayType(m.idisplay); }},
        {&PlotParm::plotDirection,
         {"direction", "", 0, 3, InOverlay, true, {"Left to Right", "Right to Left", "Top to Bottom", "Bottom to Top"}},
         [](Menu m, Parm p) { p->plotDirection = PlotDirection(m.idirection); }},
        {&PlotParm::bias, {"bias", "", -mostAmplitude, mostAmplitude}, [](Menu m, Parm p) { p->bias = m.bias; }},
        {&PlotParm::applyBias, {"applyBias"}},
        {&PlotParm::antialias, {"antialias"}},
        {&PlotParm::autoRange, {"autoRange"}, [](Menu m, Parm p) { p->autoRange = !isRangeTold(m); }},
        {&PlotParm::rangeMin,
         {"rangeMin", "", -mostAmplitude, mostAmplitude},
         [](Menu m, Parm p) {
             if (isRangeTold(m)) p->rangeMin = m.irange == 0 ? m.minrange : -3.0f;
         }},
        {&PlotParm::rangeMax,
         {"rangeMax", "", -mostAmplitude, mostAmplitude},
         [](Menu m, Parm p) {
             if (isRangeTold(m)) p->rangeMax = m.irange == 0 ? m.maxrange : 3.0f;
         }},
        {&PlotParm::autoTraceSpacing,
         {"autoTraceSpacing", "", 0, 1, InOverlay},
         [](Menu m, Parm p) {
             if (m.tpi != 0.0f) p->autoTraceSpacing = false;
         }},
        {&PlotParm::traceSpacing,
         {"traceSpacing", "traces/inch", 1e-3, 1e6, InOverlay},
         [](Menu m, Parm p) {
             if (m.tpi != 0.0f) p->traceSpacing = m.tpi;
         }},
        {&PlotParm::autoSampleSpacing,
         {"autoSampleSpacing", "", 0, 1, InOverlay},
         [](Menu m, Parm p) {
             if (m.ips != 0.0f) p->autoSampleSpacing = false;
         }},
        {&PlotParm::sampleSpacing,
         {"sampleSpacing", "samples/inch", 1e-9, 1e12, InOverlay},
         [](Menu m, Parm p) {
             if (m.ips != 0.0f) p->sampleSpacing = samplesPerInch(m);
         }},
        {&PlotParm::bulkshift, {"bulkshift", "samples", -1e6, 1e6, 0, true}},
        {&PlotParm::moveout, {"moveout", "", 0, 2, 0, true, {"none", "linear", "hyperbolic"}}},
        {&PlotParm::velocity, {"velocity", "", 0, 1e9}},
        {&PlotParm::opacity, {"opacity", "", 0.0, 1.0}},
    };
    return fields;
}

const ParmField<PlotParm>& plotParmField(std::string_view key)
{
    const auto& fields = plotParmFields();
    return *std::find_if(fields.begin(), fields.end(), [=](const auto& field) { return field.rule.key == key; });
}

void takeFromMenu(const parmmenu& menu, PlotParm* parm)
{
    for (const auto& field : plotParmFields())
        if (field.fromMenu) field.fromMenu(menu, parm);
}

void keepInMenu(const PlotParm& parm, parmmenu* menu)
{
    for (const auto& field : plotParmFields())
        if (field.toMenu) field.toMenu(parm, menu);
}
