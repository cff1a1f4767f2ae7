#include "trevia/demotruth.h"

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <set>
#include <utility>

/// One line of at most 200 characters, printed as printf does.
__attribute__((format(printf, 2, 3))) static void addLine(std::string* text, const char* format, ...)
{
    char line[200];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    *text += line;
    *text += '\n';
}

DemoFirstBreak demoFirstBreak(const DemoTrace& trace)
{
    const DemoArrivals a = demoArrivals(trace.source.x, trace.receiver.x, std::fabs(trace.offset));
    const double onset = a.time[a.first] + (trace.faults & DemoLate ? demoLateSec : 0.0);
    DemoFirstBreak fb = {a.first + 1,
                         onset,
                         onset + demoTroughTime(),
                         onset + demoMinusPlusTime(),
                         onset + demoPeakTime(),
                         onset + demoPlusMinusTime()};
    if (trace.faults & DemoReversed) {
        std::swap(fb.trough, fb.peak);
        std::swap(fb.minusPlus, fb.plusMinus);
    }
    return fb;
}

std::string firstBreakText(const std::vector<DemoTrace>& traces)
{
    std::string text;
    addLine(&text, "ffid chan station offset_m branch onset_ms trough_ms minusplus_ms peak_ms plusminus_ms");
    for (const DemoTrace& t : traces) {
        if (t.faults & (DemoDead | DemoZero)) continue;
        const DemoFirstBreak fb = demoFirstBreak(t);
        addLine(&text, "%d %d %d %.3f %d %.3f %.3f %.3f %.3f %.3f", t.ffid, t.channel, t.station, t.offset, fb.branch,
                1e3 * fb.onset, 1e3 * fb.trough, 1e3 * fb.minusPlus, 1e3 * fb.peak, 1e3 * fb.plusMinus);
    }
    return text;
}

std::string reflectionText(const std::vector<DemoTrace>& traces)
{
    std::set<int> cdps;
    for (const DemoTrace& t : traces) cdps.insert(t.cdp);
    std::string text;
    addLine(&text, "cdp reflector t0_ms V_m/s vint_m/s");
    for (int cdp : cdps) {
        std::vector<DemoReflection> reflections;
        reflections.reserve(DemoLine::reflectorCount);
        for (int i = 0; i < DemoLine::reflectorCount; ++i) reflections.push_back(demoReflection(i, demoCdpCentre(cdp)));
        const std::vector<double> intervals = dixVelocities(reflections);
        for (int i = 0; i < DemoLine::reflectorCount; ++i)
            addLine(&text, "%d %d %.3f %.2f %.2f", cdp, i + 1, 1e3 * reflections[i].t0, reflections[i].velocity,
                    intervals[i]);
    }
    return text;
}

static void addStatic(std::string* text, char kind, int point, double x)
{
    addLine(text, "%c %d %.3f %.3f %.3f %.3f", kind, point, x, demoElevation(x), demoWeathering(x),
            1e3 * demoStatic(x));
}

std::string staticText(int nShots)
{
    std::string text;
    addLine(&text, "kind point x_m z_m h_m w_ms");
    for (int i = 0; i < DemoLine::stationCount; ++i) {
        const int station = DemoLine::firstStation + i;
        addStatic(&text, 'R', station, demoStationX(station));
    }
    for (int k = 0; k < nShots; ++k) addStatic(&text, 'S', demoShot(k).shotPoint, demoShot(k).place.x);
    return text;
}

std::string badTraceText(const std::vector<DemoTrace>& traces)
{
    static const std::pair<DemoFault, const char*> names[] = {
        {DemoDead, "dead"},   {DemoZero, "zero"}, {DemoReversed, "reversed"}, {DemoLate, "late_16_ms"},
        {DemoSpike, "spike"}, {DemoNan, "nan"},   {DemoNoisy, "noisy"}};
    std::string text;
    addLine(&text, "ffid chan station fault");
    for (const DemoTrace& t : traces)
        for (const auto& [fault, name] : names)
            if (t.faults & fault) addLine(&text, "%d %d %d %s", t.ffid, t.channel, t.station, name);
    return text;
}

std::string etaText()
{
    std::vector<DemoReflection> reflections;
    for (int i = 0; i < DemoLine::etaReflectorCount; ++i) {
        const DemoEtaReflection r = demoEtaReflection(i);
        reflections.push_back({r.t0, r.velocity, r.amplitude});
    }
    const std::vector<double> intervals = dixVelocities(reflections), etas = demoIntervalEtas();
    std::string text;
    addLine(&text, "reflector t0_ms V_m/s eta vint_m/s etaint");
    for (int i = 0; i < DemoLine::etaReflectorCount; ++i) {
        const DemoEtaReflection r = demoEtaReflection(i);
        addLine(&text, "%d %.3f %.2f %.4f %.2f %.4f", i + 1, 1e3 * r.t0, r.velocity, r.eta, intervals[i], etas[i]);
    }
    return text;
}
