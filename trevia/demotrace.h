/// One trace of the demo survey: what its header says, and what its samples are made from.
#ifndef DEMOTRACE_H
#define DEMOTRACE_H

#include "trevia/demosurvey.h"

#include <vector>

/// What is wrong with a trace, as flags.
enum DemoFault {
    DemoDead = 1,      ///< zeros, trace id 2
    DemoZero = 2,      ///< zeros, trace id 1
    DemoReversed = 4,  ///< the polarity that the file holds is turned
    DemoLate = 8,      ///< 16 ms late
    DemoSpike = 16,    ///< one sample of 1e4
    DemoNan = 32,      ///< three samples that are not finite
    DemoNoisy = 64,    ///< noise times 6
};
constexpr double demoLateSec = 0.016;

/// Places are line coordinates in metres.
struct DemoTrace {
    int ffid = 0, channel = 0, shotPoint = 0, station = 0, cdp = 0;
    int inLine = 1, crossLine = 0;
    int sequence = 0;       ///< in its ensemble of the file, from 1
    int fold = 1;           ///< traces summed into this one
    int panelVelocity = 0;  ///< m/s, of a constant-velocity stack
    DemoPlace source = {}, receiver = {}, bin = {};
    double offset = 0.0;     ///< signed, exact
    double midpoint = 0.0;   ///< along the line, exact
    bool hasStatics = true;  ///< weathering and elevation delay the reflections
    int faults = 0;          ///< DemoFaults
};

/// The trace of a channel, 1 to DemoLine::channelCount, of a shot.
DemoTrace demoTrace(const DemoShot& shot, int channel);
/// The faults that the line has at a record, channel and station.
int demoFaults(int ffid, int channel, int station);

/// The first shots of the line in file order.
std::vector<DemoTrace> demoLine(int nShots, bool withFaults);
/// The same traces in CDP order, then by absolute offset, without statics and faults.
std::vector<DemoTrace> demoCdpLine(int nShots);
/// One CDP with offsets 50 to 3000 m, step 50.
std::vector<DemoTrace> demoEtaGather();
/// A stacked volume: 10 lines of 40 bins, 48 m and 24 m apart.
std::vector<DemoTrace> demoPatch();

#endif
