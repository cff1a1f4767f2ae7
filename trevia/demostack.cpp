#include "trevia/demostack.h"

#include "host/numeric/resample.h"
#include "trevia/demonoise.h"

#include <cmath>
#include <memory>

constexpr int firstVelocity = 1800, lastVelocity = 3600, velocityStep = 100;
constexpr double largestStretch = 0.5;

void stackTrace(const float* trace, int n, double offset, double velocity, double* sums, int* counts)
{
    const double dt = DemoLine::intervalSec, xx = offset * offset / (velocity * velocity);
    std::vector<float> times(n), moved(n);
    int firstLive = 0;
    for (int i = 0; i < n; ++i) {
        const double t = dt * i, from = std::sqrt(t * t + xx);
        times[i] = float(from / dt);
        if (from - t > largestStretch * t && offset != 0.0) firstLive = i + 1;
    }
    ints8r(n, 1.0f, 0.0f, trace, 0.0f, 0.0f, n, times.data(), moved.data());
    for (int i = firstLive; i < n && times[i] <= float(n - 1); ++i) {
        sums[i] += moved[i];
        ++counts[i];
    }
}

/// All samples of a file before they are written.
static std::vector<float> samplesOf(const DemoFile& file, double noiseDeviation)
{
    const int n = file.nSamples, nTraces = int(file.traces.size());
    std::vector<float> noise(size_t(nTraces) * n), samples(noise.size());
    DemoNoise generator;
    if (noiseDeviation > 0.0)
        for (float& v : noise) v = float(noiseDeviation * generator.normal());
#pragma omp parallel for schedule(dynamic, 8)
    for (int i = 0; i < nTraces; ++i)
        demoSamples(file.traces[i], file.signal, noiseDeviation > 0.0 ? &noise[size_t(i) * n] : nullptr, n,
                    &samples[size_t(i) * n]);
    return samples;
}

/// First and one-past-last trace of each CDP.
static std::vector<std::pair<int, int>> ensemblesOf(const std::vector<DemoTrace>& traces)
{
    std::vector<std::pair<int, int>> ensembles;
    for (int i = 0; i < int(traces.size()); ++i) {
        if (i == 0 || traces[i].cdp != traces[i - 1].cdp) ensembles.emplace_back(i, i);
        ensembles.back().second = i + 1;
    }
    return ensembles;
}

static DemoTrace stackedHeader(const DemoTrace& first, int fold, int velocity, int sequence)
{
    DemoTrace trace = first;
    trace.ffid = trace.panelVelocity = velocity;
    trace.channel = trace.sequence = sequence;
    trace.fold = fold;
    trace.source = trace.receiver = trace.bin;
    trace.offset = 0.0;
    trace.midpoint = trace.bin.x;
    trace.station = trace.shotPoint = DemoLine::firstStation + int(trace.bin.x / DemoLine::stationSpacing + 0.5);
    return trace;
}

DemoFile demoVelocityStacks(const DemoFile& cdpFile, double noiseDeviation)
{
    const int n = cdpFile.nSamples;
    const std::vector<float> samples = samplesOf(cdpFile, noiseDeviation);
    const std::vector<std::pair<int, int>> ensembles = ensemblesOf(cdpFile.traces);
    const int nVelocities = (lastVelocity - firstVelocity) / velocityStep + 1, nCdps = int(ensembles.size());
    const auto stacks = std::make_shared<std::vector<float>>(size_t(nVelocities) * nCdps * n);
    DemoFile file;
    file.nSamples = n;
    file.sort = DemoStacked;
    file.traces.resize(size_t(nVelocities) * nCdps);
#pragma omp parallel for schedule(dynamic, 8)
    for (int k = 0; k < nVelocities * nCdps; ++k) {
        const int velocity = firstVelocity + k / nCdps * velocityStep;
        const auto [begin, end] = ensembles[k % nCdps];
        std::vector<double> sums(n, 0.0);
        std::vector<int> counts(n, 0);
        for (int i = begin; i < end; ++i)
            stackTrace(&samples[size_t(i) * n], n, cdpFile.traces[i].offset, velocity, sums.data(), counts.data());
        float* stack = &(*stacks)[size_t(k) * n];
        for (int i = 0; i < n; ++i) stack[i] = counts[i] ? float(sums[i] / counts[i]) : 0.0f;
        file.traces[k] = stackedHeader(cdpFile.traces[begin], end - begin, velocity, k % nCdps + 1);
    }
    file.signal = [stacks, nCdps](const DemoTrace& trace, int nSamples, double* out) {
        const int panel = (trace.panelVelocity - firstVelocity) / velocityStep;
        const float* stack = &(*stacks)[(size_t(panel) * nCdps + trace.sequence - 1) * nSamples];
        for (int i = 0; i < nSamples; ++i) out[i] += stack[i];
    };
    return file;
}
