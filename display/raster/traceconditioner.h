/// The conditioned copy of an ensemble, and its measures.
#ifndef TRACECONDITIONER_H
#define TRACECONDITIONER_H

#include "host/rawvector.h"
#include "tracedata/plotparm.h"

#include <cstdint>
#include <memory>
#include <vector>

class BandPassFilter;
class OrvinAGC;
class OrvinPhaseShift;
class SeismicData;

/// Amplitudes of one trace over its samples that are finite and not 0.
struct TraceMeasure {
    int n = 0;
    float minimum = 3.4e38f;
    float maximum = -3.4e38f;
    double sum1 = 0.0;  ///< of absolute values
    double sum2 = 0.0;  ///< of roots of squares, the squares in single precision: 0 for the very smallest
};
TraceMeasure measureTrace(const float* trace, int n);

/// Phase rotation, band-pass and gain control of traces, each if wanted, and the amplitudes that the display
/// scales by. Runs once per new data or new setting, never at paint time; the data stay as they are.
class TraceConditioner
{
public:
    TraceConditioner();
    ~TraceConditioner();

    /// @param winlen  window in ms, kept also for a gain that is off
    void applyAGC(bool state, int winlen);
    /// @param angle  in degrees, kept also for a rotation that is off
    void applyPhase(bool state, float angle);
    /// Corners in Hz, rising: low cut, low pass, high pass, high cut.
    void applyFilter(bool state, int lc, int lp, int hp, int hc, bool isTime);
    /// All three at once; the corners are kept also for a filter that is off.
    void setParm(const ConditionParm& parm);
    const ConditionParm& parm() const { return _parm; }
    bool isAGC() const { return _parm.isAGC; }
    bool isPhase() const { return _parm.isPhase; }
    bool isFilter() const { return _parm.isFilter; }
    /// In ms.
    int agcWindow() const { return _parm.agcWindow; }
    /// In degrees.
    float phaseAngle() const { return _parm.phaseAngle; }

    /// Conditions num samples in place: phase, band-pass, AGC.
    /// @param nSamples    length of the ensemble's traces
    /// @param sampleRate  in ms
    void applyProcessing(float* trace, int num, int nSamples, float sampleRate);

    /// True: the traces handed over stay where they are, and as they are, up to the next computeNormalizer. Without
    /// conditioning they are then used in place, which saves as much memory again.
    void setLent(bool lent) { _isLent = lent; }

    /// Copies, conditions and measures all traces. Traces are shared out to threads; the results are the same
    /// to the bit whatever their number.
    void computeNormalizer(const SeismicData& data);

    /// How often the traces were conditioned: another number, other traces.
    int generation() const { return _generation; }
    /// The conditioned traces, sampleCount() floats each; null before the first computeNormalizer.
    const float* samples() const { return _samples; }
    /// True: samples() are the data's own, which may have gone since.
    bool isInPlace() const { return _samples && _samples != _tempData.data(); }
    int traceCount() const { return _nTraces; }
    int sampleCount() const { return _nSamples; }
    /// One divisor a trace: twice its mean absolute amplitude; 0 where 3 samples or fewer count. Counted are
    /// samples that are finite and not 0.
    const float* divTrace() const { return _divTrace.data(); }
    /// The mean of the divisors above, 0 with no counted trace.
    float divRecord() const { return _divRecord; }
    /// Traces with more than 3 counted samples.
    int countedTraces() const { return _nCounted; }
    /// Mean over these of the mean amplitude, 0 with none.
    float rms() const { return _rms; }
    /// Mean absolute amplitude of the samples of these, scaled so: by the divisor of each trace, the one of all, or
    /// not at all. 0 with none.
    double meanScaled(Normalize normalize) const;
    /// Of all counted samples; 3.4e38 and -3.4e38 with none.
    float minimum() const { return _minimum; }
    float maximum() const { return _maximum; }

private:
    void prepare(int nSamples, float sampleRate);
    void process(float* trace, int num) const;
    void measureTraces(const SeismicData& data, std::vector<TraceMeasure>* measures);

    ConditionParm _parm;
    std::unique_ptr<OrvinAGC> _agc;  // the three are made on first use, for _opSamples and _opRate
    std::unique_ptr<OrvinPhaseShift> _phase;
    std::unique_ptr<BandPassFilter> _filter;
    int _opSamples = 0;
    float _opRate = 0.0f;

    bool _isLent = false;
    const float* _samples = nullptr;  // of _tempData, or of the data lent
    RawVector<float> _tempData;       // only grows
    std::vector<float> _divTrace;     // only grows
    int _generation = 0;
    int _nTraces = 0;
    int _nSamples = 0;
    float _divRecord = 0.0f;
    int _nCounted = 0;
    int64_t _nSamplesCounted = 0;
    double _absoluteSum = 0.0;
    double _scaledSum = 0.0;  // of absolute values by their trace's divisor
    float _rms = 0.0f;
    float _minimum = 3.4e38f;
    float _maximum = -3.4e38f;
};

#endif
