#include "trevia/demotrace.h"

#include <algorithm>
#include <cmath>
#include <tuple>

constexpr int etaCdp = 1225;
constexpr int etaOffsets = 60;
constexpr double etaStep = 50.0;
constexpr int patchLines = 10, patchBins = 40;
constexpr double patchStart = 2220.0, patchBinSize = 24.0, patchLineSpacing = 48.0;

DemoTrace demoTrace(const DemoShot& shot, int channel)
{
    DemoTrace trace;
    trace.ffid = shot.ffid;
    trace.channel = channel;
    trace.shotPoint = shot.shotPoint;
    trace.station = shot.firstLive + channel - 1;
    trace.sequence = channel;
    trace.source = shot.place;
    trace.receiver = {demoStationX(trace.station), 0.0};
    trace.offset = demoOffset(trace.source, trace.receiver);
    trace.midpoint = 0.5 * (trace.source.x + trace.receiver.x);
    trace.cdp = trace.crossLine = demoCdp(trace.midpoint);
    trace.bin = {demoCdpCentre(trace.cdp), 0.0};
    return trace;
}

int demoFaults(int ffid, int channel, int station)
{
    int faults = 0;
    if (station == 157 && ffid >= 1021) faults |= DemoDead;
    if (station == 203) faults |= DemoZero;
    // A reversed geophone in the reversed record stands right again.
    if ((station == 180) != (ffid == 1034)) faults |= DemoReversed;
    if (ffid == 1042) faults |= DemoLate;
    if (ffid == 1025 && channel == 77) faults |= DemoSpike;
    if (ffid == 1050 && channel == 5) faults |= DemoNan;
    if (station >= 220 && station <= 223) faults |= DemoNoisy;
    return faults;
}

std::vector<DemoTrace> demoLine(int nShots, bool withFaults)
{
    std::vector<DemoTrace> traces;
    for (int k = 0; k < nShots; ++k) {
        const DemoShot shot = demoShot(k);
        for (int channel = 1; channel <= DemoLine::channelCount; ++channel) {
            traces.push_back(demoTrace(shot, channel));
            if (withFaults) traces.back().faults = demoFaults(shot.ffid, channel, traces.back().station);
        }
    }
    return traces;
}

/// Numbers the traces of each CDP from 1.
static void numberWithinCdps(std::vector<DemoTrace>* traces)
{
    int cdp = -1, sequence = 0;
    for (DemoTrace& trace : *traces) {
        if (trace.cdp != cdp) sequence = 0;
        cdp = trace.cdp;
        trace.sequence = ++sequence;
    }
}

std::vector<DemoTrace> demoCdpLine(int nShots)
{
    std::vector<DemoTrace> traces = demoLine(nShots, false);
    std::stable_sort(traces.begin(), traces.end(), [](const DemoTrace& a, const DemoTrace& b) {
        return std::make_tuple(a.cdp, std::fabs(a.offset)) < std::make_tuple(b.cdp, std::fabs(b.offset));
    });
    for (DemoTrace& trace : traces) trace.hasStatics = false;
    numberWithinCdps(&traces);
    return traces;
}

std::vector<DemoTrace> demoEtaGather()
{
    std::vector<DemoTrace> traces;
    const double midpoint = demoCdpCentre(etaCdp);
    for (int i = 0; i < etaOffsets; ++i) {
        DemoTrace trace;
        trace.offset = etaStep * (i + 1);
        trace.midpoint = midpoint;
        trace.source = {midpoint - 0.5 * trace.offset, 0.0};
        trace.receiver = {midpoint + 0.5 * trace.offset, 0.0};
        trace.ffid = DemoLine::firstFfid + i;
        trace.shotPoint = DemoLine::firstShotPoint + i;
        trace.channel = trace.sequence = i + 1;
        trace.station = DemoLine::firstStation + int(std::floor(trace.receiver.x / DemoLine::stationSpacing + 0.5));
        trace.cdp = trace.crossLine = etaCdp;
        trace.bin = {midpoint, 0.0};
        trace.hasStatics = false;
        traces.push_back(trace);
    }
    return traces;
}

std::vector<DemoTrace> demoPatch()
{
    std::vector<DemoTrace> traces;
    for (int line = 0; line < patchLines; ++line)
        for (int bin = 0; bin < patchBins; ++bin) {
            DemoTrace trace;
            trace.inLine = line + 1;
            trace.crossLine = bin + 1;
            trace.cdp = line * patchBins + bin + 1;
            trace.ffid = trace.inLine;
            trace.channel = trace.sequence = trace.crossLine;
            trace.midpoint = patchStart + patchBinSize * bin;
            trace.source = trace.receiver = trace.bin = {trace.midpoint, patchLineSpacing * line};
            trace.shotPoint = trace.station = trace.crossLine;
            trace.hasStatics = false;
            traces.push_back(trace);
        }
    return traces;
}
