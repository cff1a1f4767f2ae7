#include "display/raster/traceconditioner.h"

#include "display/raster/rasternumber.h"
#include "host/cpuvariant.h"
#include "host/signal/bandpassfilter.h"
#include "host/signal/orvinagc.h"
#include "host/signal/orvinphaseshift.h"
#include "tracedata/orvinconstants.h"
#include "tracedata/seismicdata.h"

#include <algorithm>
#include <cstring>

#include <emmintrin.h>

static constexpr int nLanes = 8;
typedef float FloatLanes __attribute__((vector_size(nLanes * sizeof(float))));
typedef int IntLanes __attribute__((vector_size(nLanes * sizeof(int))));
typedef float FourFloats __attribute__((vector_size(16)));
typedef double FourDoubles __attribute__((vector_size(32)));
typedef double TwoDoubles __attribute__((vector_size(16)));

template <int half>
static inline MERIDUNE_KERNEL FourDoubles halfOf(const FloatLanes& v)
{
    const FourFloats four =
        half == 0 ? __builtin_shufflevector(v, v, 0, 1, 2, 3) : __builtin_shufflevector(v, v, 4, 5, 6, 7);
    return __builtin_convertvector(four, FourDoubles);
}

static inline MERIDUNE_KERNEL FourDoubles rootsOf(const FourDoubles& v)
{
    const TwoDoubles low = _mm_sqrt_pd(__builtin_shufflevector(v, v, 0, 1));
    const TwoDoubles high = _mm_sqrt_pd(__builtin_shufflevector(v, v, 2, 3));
    return __builtin_shufflevector(low, high, 0, 1, 2, 3);
}

/// Running measures in as many lanes as there are samples in one step, added at the end: the order is always
/// the same. Samples that don't count add 0.
struct LaneMeasure {
    IntLanes counts{};
    FloatLanes least = FloatLanes{} + nullValue, largest = FloatLanes{} - nullValue;
    FourDoubles sums[2] = {}, roots[2] = {};
};

static inline MERIDUNE_KERNEL void addLanes(FloatLanes v, LaneMeasure* measure)
{
    const IntLanes counted = (v - v == 0.0f) & (v != 0.0f);
    measure->counts -= counted;
    measure->least = (counted & (v < measure->least)) ? v : measure->least;
    measure->largest = (counted & (v > measure->largest)) ? v : measure->largest;
    v = counted ? v : FloatLanes{};
    const FloatLanes magnitude = v < 0.0f ? -v : v, square = v * v;
    measure->sums[0] += halfOf<0>(magnitude);
    measure->sums[1] += halfOf<1>(magnitude);
    measure->roots[0] += rootsOf(halfOf<0>(square));
    measure->roots[1] += rootsOf(halfOf<1>(square));
}

static inline MERIDUNE_KERNEL TraceMeasure measureKernel(const float* trace, int n)
{
    LaneMeasure lanes;
    FloatLanes v;
    int i = 0;
    for (; i + nLanes <= n; i += nLanes) {
        std::memcpy(&v, trace + i, sizeof v);
        addLanes(v, &lanes);
    }
    v = FloatLanes{};
    for (int lane = 0; i < n; ++i, ++lane) v[lane] = trace[i];
    addLanes(v, &lanes);

    TraceMeasure measure;
    for (int lane = 0; lane < nLanes; ++lane) {
        measure.n += lanes.counts[lane];
        measure.sum1 += lanes.sums[lane / 4][lane % 4];
        measure.sum2 += lanes.roots[lane / 4][lane % 4];
        measure.minimum = std::min(measure.minimum, lanes.least[lane]);
        measure.maximum = std::max(measure.maximum, lanes.largest[lane]);
    }
    return measure;
}

static TraceMeasure measurePlain(const float* trace, int n)
{
    return measureKernel(trace, n);
}

MERIDUNE_V3 static TraceMeasure measureV3(const float* trace, int n)
{
    return measureKernel(trace, n);
}

TraceMeasure measureTrace(const float* trace, int n)
{
    return (cpuVariant() == CpuVariant::V3 ? measureV3 : measurePlain)(trace, n);
}

TraceConditioner::TraceConditioner() = default;
TraceConditioner::~TraceConditioner() = default;

void TraceConditioner::applyAGC(bool state, int winlen)
{
    _parm.isAGC = state;
    if (!state && winlen < 1) return;  // no window is told: the former one stays
    _parm.agcWindow = winlen;
    if (_agc) _agc->setWindowLength(winlen);
}

void TraceConditioner::applyPhase(bool state, float angle)
{
    _parm.isPhase = state;
    _parm.phaseAngle = angle;
    if (_phase) _phase->setAngle(angle);
}

void TraceConditioner::applyFilter(bool state, int lc, int lp, int hp, int hc, bool isTime)
{
    _parm.isFilter = state;
    if (!state) return;
    _parm.lowCut = lc;
    _parm.lowPass = lp;
    _parm.highPass = hp;
    _parm.highCut = hc;
    _parm.isTimeFilter = isTime;
    _filter.reset();
}

void TraceConditioner::setParm(const ConditionParm& parm)
{
    applyAGC(parm.isAGC, parm.agcWindow);
    applyPhase(parm.isPhase, parm.phaseAngle);
    applyFilter(true, parm.lowCut, parm.lowPass, parm.highPass, parm.highCut, parm.isTimeFilter);
    _parm.isFilter = parm.isFilter;
}

/// Makes what is missing. Data of another length or rate need other operators.
void TraceConditioner::prepare(int nSamples, float sampleRate)
{
    if (nSamples != _opSamples || sampleRate != _opRate) {
        _agc.reset();
        _phase.reset();
        _filter.reset();
        _opSamples = nSamples;
        _opRate = sampleRate;
    }
    if (_parm.isPhase && !_phase) _phase = std::make_unique<OrvinPhaseShift>(nSamples, _parm.phaseAngle);
    if (_parm.isAGC && !_agc) _agc = std::make_unique<OrvinAGC>(nSamples, _parm.agcWindow, sampleRate);
    if (_parm.isFilter && !_filter) {
        const float lc = _parm.lowCut, lp = _parm.lowPass, hp = _parm.highPass, hc = _parm.highCut;
        _filter = std::make_unique<BandPassFilter>(0, 0, 0, 0.02f, lc, lp, hp, hc, nSamples, sampleRate);
        _filter->setTimeDomain(_parm.isTimeFilter);
        _filter->buildFilter(lc, lp, hp, hc);
    }
}

void TraceConditioner::process(float* trace, int num) const
{
    if (_parm.isPhase) _phase->applyPhaseShift(trace, num);
    if (_parm.isFilter) _filter->applyFilter(trace, num);
    if (_parm.isAGC) _agc->applyAGC(trace, num);
}

void TraceConditioner::applyProcessing(float* trace, int num, int nSamples, float sampleRate)
{
    if (num < 1) return;
    prepare(nSamples, sampleRate);
    process(trace, num);
}

double TraceConditioner::meanScaled(Normalize normalize) const
{
    if (_nSamplesCounted == 0) return 0.0;
    if (normalize == Normalize::Trace) return _scaledSum / double(_nSamplesCounted);
    const double mean = _absoluteSum / double(_nSamplesCounted);
    return normalize == Normalize::Dataset && _divRecord > 0.0f ? mean / _divRecord : mean;
}

/// The first sample of traces that lie one after the other; null where they don't.
static const float* firstOfBlock(const SeismicData& data)
{
    if (data.traceCount() < 1 || data.sampleCount() < 1) return nullptr;
    const float* const first = data.getTraceValues(0, 0);
    for (int i = 1; i < data.traceCount(); ++i)
        if (data.getTraceValues(i, 0) != first + size_t(i) * data.sampleCount()) return nullptr;
    return first;
}

void TraceConditioner::measureTraces(const SeismicData& data, std::vector<TraceMeasure>* measures)
{
    const bool isConditioned = _parm.isPhase || _parm.isFilter || _parm.isAGC;
    const float* const lent = _isLent && !isConditioned ? firstOfBlock(data) : nullptr;
    const size_t nAll = size_t(_nTraces) * _nSamples;
    if (!lent && _tempData.size() < nAll) _tempData.resize(nAll);
    if (nAll > 0) prepare(_nSamples, data.sampleRate());
    _samples = lent ? lent : _tempData.data();
#pragma omp parallel for schedule(static) if (isWorthThreads(_nSamples, _nTraces))
    for (int i = 0; i < _nTraces; ++i) {
        if (!lent && _nSamples > 0) {
            float* const trace = _tempData.data() + size_t(i) * _nSamples;
            std::memcpy(trace, data.getTraceValues(i, 0), _nSamples * sizeof(float));
            process(trace, _nSamples);
        }
        (*measures)[i] = measureTrace(_samples + size_t(i) * _nSamples, _nSamples);
    }
}

void TraceConditioner::computeNormalizer(const SeismicData& data)
{
    ++_generation;
    _nTraces = std::max(0, data.traceCount());
    _nSamples = std::max(0, data.sampleCount());
    if (_divTrace.size() < size_t(_nTraces)) _divTrace.resize(_nTraces);
    std::vector<TraceMeasure> measures(_nTraces);
    measureTraces(data, &measures);

    double divisors = 0.0, means = 0.0;
    _nCounted = 0;
    _nSamplesCounted = 0;
    _absoluteSum = _scaledSum = 0.0;
    _minimum = nullValue;
    _maximum = -nullValue;
    for (int i = 0; i < _nTraces; ++i) {
        const TraceMeasure& measure = measures[i];
        _minimum = std::min(_minimum, measure.minimum);
        _maximum = std::max(_maximum, measure.maximum);
        _divTrace[i] = 0.0f;
        if (measure.n <= 3) continue;
        _divTrace[i] = float((measure.sum1 + measure.sum1) / measure.n);
        divisors += _divTrace[i];
        if (measure.sum2 != 0.0) means += measure.sum2 / measure.n;
        ++_nCounted;
        _nSamplesCounted += measure.n;
        _absoluteSum += measure.sum1;
        _scaledSum += _divTrace[i] > 0.0f ? measure.sum1 / _divTrace[i] : measure.sum1;
    }
    _divRecord = _nCounted > 0 ? float((divisors + divisors) * 0.5 / _nCounted) : 0.0f;
    _rms = _nCounted > 0 ? float(means / _nCounted) : 0.0f;
}
