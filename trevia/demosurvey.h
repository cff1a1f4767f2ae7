/// The demo survey: a land line whose every answer is known. Geometry and earth model as pure functions.
///
/// Line coordinates: x along the line, y to its right, both in metres. Times are in seconds here; files
/// and texts hold milliseconds.
#ifndef DEMOSURVEY_H
#define DEMOSURVEY_H

#include <vector>

/// The numbers of the survey.
struct DemoLine {
    static constexpr int firstStation = 101, stationCount = 200;
    static constexpr int shotCount = 60, channelCount = 120;
    static constexpr int firstFfid = 1001, firstShotPoint = 201;
    static constexpr double stationSpacing = 24.0, binSize = 12.0;
    static constexpr int firstBin = 1000;  ///< CDP number of the bin that begins at x = 0
    static constexpr double intervalSec = 0.002;
    static constexpr int sampleCount = 1001;
    static constexpr double v0 = 700.0, v1 = 2000.0, v2 = 3400.0;  ///< weathering, layer 1, below: m/s
    static constexpr double layerThickness = 110.0;
    static constexpr double datum = 400.0;
    static constexpr int reflectorCount = 6, etaReflectorCount = 3;
};

struct DemoPlace {
    double x, y;
};
/// Map coordinates, in metres, of a place on the line: azimuth 60 degrees.
DemoPlace demoMapPlace(DemoPlace onLine);

struct DemoShot {
    int index;  ///< from 0
    int ffid, shotPoint;
    DemoPlace place;
    int firstLive;  ///< station of channel 1
};
DemoShot demoShot(int index);
double demoStationX(int station);
/// The source-receiver distance with the sign of receiver - source along the line.
double demoOffset(DemoPlace source, DemoPlace receiver);
/// CDP number of a midpoint, and the midpoint of a CDP number's bin.
int demoCdp(double midpoint);
double demoCdpCentre(int cdp);

double demoElevation(double x);
/// Thickness of the weathering.
double demoWeathering(double x);
/// The time that weathering and elevation add to a vertical ray, from the datum.
double demoStatic(double x);
/// Delay times of the refraction on top of layer 1 and on top of layer 2.
double demoDelay1(double x);
double demoDelay2(double x);

/// Arrival times of direct wave, first and second refraction.
struct DemoArrivals {
    double time[3];
    int first;  ///< which of them is the earliest, from 0
};
DemoArrivals demoArrivals(double sourceX, double receiverX, double absOffset);

/// Times from the onset of the first-arrival wavelet -exp(-60 t) sin(2 pi 40 t).
double demoTroughTime();
double demoMinusPlusTime();
double demoPeakTime();
double demoPlusMinusTime();

struct DemoReflection {
    double t0;        ///< two-way time at offset 0
    double velocity;  ///< move-out velocity in m/s
    double amplitude;
};
/// The reflections below a midpoint; index 0 to DemoLine::reflectorCount - 1. The 3D patch has the same
/// ones below (x, y), dipping across as well.
DemoReflection demoReflection(int reflector, double x, double y = 0.0);
/// The multiple of the second reflection.
DemoReflection demoMultiple(double x, double y = 0.0);
/// Interval velocities above each of the reflections, which come by rising t0 (Dix 1955).
std::vector<double> dixVelocities(const std::vector<DemoReflection>& reflections);

/// Reflections of the anisotropic gather: eta is the effective one of the whole overburden.
struct DemoEtaReflection {
    double t0, velocity, eta, amplitude;
};
DemoEtaReflection demoEtaReflection(int reflector);
/// Fourth-order time (Alkhalifah and Tsvankin 1995).
double demoEtaTime(const DemoEtaReflection& reflection, double offset);
/// Eta of each layer, from the effective ones and the Dix velocities (Alkhalifah 1997): the layer's part
/// of t V^4 (1 + 8 eta).
std::vector<double> demoIntervalEtas();

#endif
