#include "trevia/demosamples.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

constexpr double pi = std::numbers::pi;
constexpr double firstLength = 0.5;  // seconds; exp(-30) of the wavelet is left then
constexpr double rickerReach = 6.0;  // pi f t; exp(-36) is left there
constexpr double reflectionHz = 30.0, airHz = 90.0;
constexpr double noisyFactor = 6.0;
constexpr int spikeSample = 400, firstNanSample = 500, nanSamples = 3;
constexpr float spikeHeight = 1e4f;

double demoFirstWavelet(double t)
{
    return t < 0.0 ? 0.0 : -std::exp(-60.0 * t) * std::sin(2.0 * pi * 40.0 * t);
}

double demoRicker(double frequency, double t)
{
    const double a = pi * frequency * t;
    return (1.0 - 2.0 * a * a) * std::exp(-a * a);
}

/// Adds amplitude * wavelet(t - time) where begin <= t <= end.
template <class Wavelet>
static void addEvent(double begin, double end, int n, double* samples, const Wavelet& wavelet)
{
    const int first = int(std::clamp(std::ceil(begin / DemoLine::intervalSec), 0.0, double(n)));
    const int last = int(std::clamp(std::floor(end / DemoLine::intervalSec), -1.0, n - 1.0));
    for (int i = first; i <= last; ++i) samples[i] += wavelet(DemoLine::intervalSec * i);
}

static void addRicker(double frequency, double time, double amplitude, int n, double* samples)
{
    const double reach = rickerReach / (pi * frequency);
    addEvent(time - reach, time + reach, n, samples,
             [&](double t) { return amplitude * demoRicker(frequency, t - time); });
}

static void addFirstArrivals(const DemoTrace& trace, int n, double* samples)
{
    const double o = std::fabs(trace.offset);
    const DemoArrivals arrivals = demoArrivals(trace.source.x, trace.receiver.x, o);
    const double later[3] = {1.0 / (1.0 + o / 60.0), 0.6 / (1.0 + o / 200.0),
                             o > 300.0 ? 0.4 / (1.0 + o / 200.0) : 0.0};
    for (int branch = 0; branch < 3; ++branch) {
        const double onset = arrivals.time[branch];
        const double amplitude = branch == arrivals.first ? 2.0 / (1.0 + o / 200.0) : later[branch];
        addEvent(onset, onset + firstLength, n, samples,
                 [&](double t) { return amplitude * demoFirstWavelet(t - onset); });
    }
}

static double moveOutTime(const DemoReflection& r, double offset)
{
    return std::sqrt(r.t0 * r.t0 + offset * offset / (r.velocity * r.velocity));
}

static void addReflections(const DemoTrace& trace, int n, double* samples)
{
    const double statics = trace.hasStatics ? demoStatic(trace.source.x) + demoStatic(trace.receiver.x) : 0.0;
    for (int i = 0; i < DemoLine::reflectorCount; ++i) {
        const DemoReflection r = demoReflection(i, trace.midpoint);
        addRicker(reflectionHz, statics + moveOutTime(r, trace.offset), r.amplitude, n, samples);
    }
    const DemoReflection multiple = demoMultiple(trace.midpoint);
    addRicker(reflectionHz, statics + moveOutTime(multiple, trace.offset), multiple.amplitude, n, samples);
}

static void addGroundRoll(double o, double factor, int n, double* samples)
{
    const double begin = o / 450.0, end = std::max(o / 250.0, begin + 0.1);
    const double amplitude = factor * 3.0 / std::sqrt(1.0 + o / 50.0);
    addEvent(begin, end, n, samples, [&](double t) {
        const double u = (t - begin) / (end - begin), s = std::sin(pi * u);
        return amplitude * s * s * std::sin(2.0 * pi * (6.0 + 5.0 * u) * (t - begin));
    });
}

void addLineSignal(const DemoTrace& trace, double coherent, int n, double* samples)
{
    const double o = std::fabs(trace.offset);
    addFirstArrivals(trace, n, samples);
    addReflections(trace, n, samples);
    addGroundRoll(o, coherent, n, samples);
    addRicker(airHz, o / 340.0, coherent / (1.0 + o / 300.0), n, samples);
}

void addEtaSignal(const DemoTrace& trace, int n, double* samples)
{
    for (int i = 0; i < DemoLine::etaReflectorCount; ++i) {
        const DemoEtaReflection r = demoEtaReflection(i);
        addRicker(reflectionHz, demoEtaTime(r, trace.offset), r.amplitude, n, samples);
    }
}

void addPatchSignal(const DemoTrace& trace, int n, double* samples)
{
    for (int i = 0; i < DemoLine::reflectorCount; ++i) {
        const DemoReflection r = demoReflection(i, trace.bin.x, trace.bin.y);
        addRicker(reflectionHz, r.t0, r.amplitude, n, samples);
    }
    const DemoReflection multiple = demoMultiple(trace.bin.x, trace.bin.y);
    addRicker(reflectionHz, multiple.t0, multiple.amplitude, n, samples);
}

void demoSamples(const DemoTrace& trace, const DemoSignal& signal, const float* noise, int n, float* samples)
{
    if (trace.faults & (DemoDead | DemoZero)) {
        std::fill(samples, samples + n, 0.0f);
        return;
    }
    std::vector<double> sums(n, 0.0);
    signal(trace, n, sums.data());
    const int late = trace.faults & DemoLate ? int(std::floor(demoLateSec / DemoLine::intervalSec + 0.5)) : 0;
    const double noiseFactor = trace.faults & DemoNoisy ? noisyFactor : 1.0;
    const double polarity = trace.faults & DemoReversed ? -1.0 : 1.0;
    for (int i = 0; i < n; ++i) {
        const double shown = i >= late ? sums[i - late] : 0.0;
        samples[i] = float(polarity * (shown + (noise ? noiseFactor * noise[i] : 0.0)));
    }
    if (trace.faults & DemoSpike) samples[spikeSample] = spikeHeight;
    if (trace.faults & DemoNan)
        std::fill_n(samples + firstNanSample, nanSamples, std::numeric_limits<float>::quiet_NaN());
}
