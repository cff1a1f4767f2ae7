#include "trevia/demosurvey.h"

#include <algorithm>
#include <cmath>
#include <numbers>

constexpr double twoPi = 2.0 * std::numbers::pi;
constexpr double anticlineAt = 2700.0, anticlineWidth = 500.0, anticlineLift = 0.03;
constexpr int anticlineReflector = 4;
constexpr double crossDip = 2.0;  // how much steeper the reflectors of the patch dip across than along the line

DemoPlace demoMapPlace(DemoPlace p)
{
    return {500000.0 + 0.8660254 * p.x + 0.5 * p.y, 4200000.0 + 0.5 * p.x - 0.8660254 * p.y};
}

DemoShot demoShot(int index)
{
    DemoShot shot;
    shot.index = index;
    shot.ffid = DemoLine::firstFfid + index;
    shot.shotPoint = DemoLine::firstShotPoint + index;
    const double planned = 468.0 + 48.0 * index;  // half-way between two stations
    shot.place.x = planned + (index == 29 ? 12.0 : 0.0);
    shot.place.y = index % 5 == 2 ? 8.0 : 0.0;
    const int below = int(std::floor(shot.place.x / DemoLine::stationSpacing)) - 59;
    shot.firstLive = DemoLine::firstStation + std::clamp(below, 0, DemoLine::stationCount - DemoLine::channelCount);
    return shot;
}

double demoStationX(int station)
{
    return DemoLine::stationSpacing * (station - DemoLine::firstStation);
}

double demoOffset(DemoPlace source, DemoPlace receiver)
{
    const double distance = std::hypot(receiver.x - source.x, receiver.y - source.y);
    return receiver.x < source.x ? -distance : distance;
}

int demoCdp(double midpoint)
{
    return DemoLine::firstBin + int(std::floor(midpoint / DemoLine::binSize));
}

double demoCdpCentre(int cdp)
{
    return DemoLine::binSize * (cdp - DemoLine::firstBin) + 0.5 * DemoLine::binSize;
}

double demoElevation(double x)
{
    return DemoLine::datum + 22.0 * std::sin(twoPi * x / 4100.0) + 5.0 * std::sin(twoPi * x / 870.0 + 1.0);
}

double demoWeathering(double x)
{
    return 11.0 + 4.0 * std::sin(twoPi * x / 1900.0 + 0.4) + 2.0 * std::sin(twoPi * x / 610.0);
}

double demoStatic(double x)
{
    return demoWeathering(x) * (1.0 / DemoLine::v0 - 1.0 / DemoLine::v1) +
           (demoElevation(x) - DemoLine::datum) / DemoLine::v1;
}

static double slownessDifference(double upper, double lower)
{
    return std::sqrt(1.0 / (upper * upper) - 1.0 / (lower * lower));
}

double demoDelay1(double x)
{
    return demoWeathering(x) * slownessDifference(DemoLine::v0, DemoLine::v1);
}

double demoDelay2(double x)
{
    return demoWeathering(x) * slownessDifference(DemoLine::v0, DemoLine::v2) +
           DemoLine::layerThickness * slownessDifference(DemoLine::v1, DemoLine::v2);
}

DemoArrivals demoArrivals(double sourceX, double receiverX, double absOffset)
{
    DemoArrivals a;
    a.time[0] = absOffset / DemoLine::v0;
    a.time[1] = absOffset / DemoLine::v1 + demoDelay1(sourceX) + demoDelay1(receiverX);
    a.time[2] = absOffset / DemoLine::v2 + demoDelay2(sourceX) + demoDelay2(receiverX);
    a.first = int(std::min_element(a.time, a.time + 3) - a.time);
    return a;
}

// The derivative of exp(-60 t) sin(w t) vanishes where tan(w t) = w / 60.
double demoTroughTime()
{
    constexpr double w = twoPi * 40.0;
    return std::atan(w / 60.0) / w;
}

double demoMinusPlusTime()
{
    return 0.0125;
}

double demoPeakTime()
{
    return demoTroughTime() + 0.0125;
}

double demoPlusMinusTime()
{
    return 0.025;
}

static const struct {
    double t0, dip;  // seconds, seconds per km
    double velocity, amplitude;
} reflectors[DemoLine::reflectorCount] = {
    {0.350, 0.004, 2050, 0.25}, {0.560, -0.008, 2250, -0.2}, {0.800, 0.012, 2500, 0.3},
    {1.050, 0.0, 2750, -0.25},  {1.350, 0.020, 3050, 0.3},   {1.650, -0.015, 3350, 0.2},
};

DemoReflection demoReflection(int reflector, double x, double y)
{
    const auto& r = reflectors[reflector];
    const double q = (x - anticlineAt) / 1000.0;
    double t0 = r.t0 + r.dip * (q + crossDip * y / 1000.0);
    if (reflector == anticlineReflector) {
        const double distance = std::hypot(x - anticlineAt, y) / anticlineWidth;
        t0 -= anticlineLift * std::exp(-distance * distance);
    }
    return {t0, r.velocity * (1.0 + 0.01 * q), r.amplitude};
}

DemoReflection demoMultiple(double x, double y)
{
    const DemoReflection primary = demoReflection(1, x, y);
    return {2.0 * primary.t0, primary.velocity, 0.12};
}

std::vector<double> dixVelocities(const std::vector<DemoReflection>& reflections)
{
    std::vector<double> velocities;
    double t = 0.0, vvt = 0.0;
    for (const DemoReflection& r : reflections) {
        const double next = r.velocity * r.velocity * r.t0;
        velocities.push_back(std::sqrt((next - vvt) / (r.t0 - t)));
        t = r.t0;
        vvt = next;
    }
    return velocities;
}

DemoEtaReflection demoEtaReflection(int reflector)
{
    static const DemoEtaReflection table[DemoLine::etaReflectorCount] = {
        {0.7, 2200, 0.05, 0.3}, {1.1, 2500, 0.10, -0.25}, {1.6, 2900, 0.08, 0.3}};
    return table[reflector];
}

double demoEtaTime(const DemoEtaReflection& r, double offset)
{
    const double xx = offset * offset, vv = r.velocity * r.velocity, tt = r.t0 * r.t0;
    return std::sqrt(tt + xx / vv - 2.0 * r.eta * xx * xx / (vv * (tt * vv + (1.0 + 2.0 * r.eta) * xx)));
}

std::vector<double> demoIntervalEtas()
{
    std::vector<DemoReflection> reflections;
    reflections.reserve(DemoLine::etaReflectorCount);
    for (int i = 0; i < DemoLine::etaReflectorCount; ++i)
        reflections.push_back({demoEtaReflection(i).t0, demoEtaReflection(i).velocity, 0.0});
    const std::vector<double> velocities = dixVelocities(reflections);
    std::vector<double> etas;
    double t = 0.0, sum = 0.0;
    for (int i = 0; i < DemoLine::etaReflectorCount; ++i) {
        const DemoEtaReflection r = demoEtaReflection(i);
        const double next = r.t0 * std::pow(r.velocity, 4) * (1.0 + 8.0 * r.eta);
        etas.push_back(((next - sum) / (std::pow(velocities[i], 4) * (r.t0 - t)) - 1.0) / 8.0);
        t = r.t0;
        sum = next;
    }
    return etas;
}
