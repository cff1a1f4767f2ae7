/// Zero-phase band-pass.
#ifndef BANDPASSFILTER_H
#define BANDPASSFILTER_H

#include "host/signal/zerophasefilter.h"

#include <cstdint>

/// Corners of a band-pass in Hz, and the sampling.
struct BandPassCorners {
    double lc = 0.0, lp = 0.0, hp = 0.0, hc = 0.0;  ///< within 0..Nyquist once they are in force
    double intervalSec = 0.0;
    double nyquist() const { return 0.5 / intervalSec; }
    /// Gain at f in Hz: the product of L = clamp((f - lc)/(lp - lc), 0, 1), a step at lp if lc >= lp and 1
    /// everywhere if lp <= 0, and U = clamp((hc - f)/(hc - hp), 0, 1), a step at hp if hc <= hp and 1
    /// everywhere if hp reaches Nyquist.
    double gain(double f) const;
    /// Half length in samples of the time-domain operator for traces of n samples: min(n, ceil(2/(dt s)))
    /// with s, at least 1 Hz, the narrower slope. A side that is open has no slope.
    int halfLength(int n) const;
};

/// Trapezoid with linear slopes, as it is drawn (Ormsby 1961; Ryan, CSEG Recorder, September 1994).
///
/// In the frequency domain the trapezoid multiplies the transform of the trace, padded with as many zeros.
/// In the time domain the operator is the transform of the trapezoid, cut at its half length, its outer
/// quarter tapered by half a cosine, and scaled to the wanted gain in mid-band; it is applied by the same
/// transform, which for operators this long costs the least and differs from the convolution by rounding
/// only. Outside the trace is 0. A sample that is not finite counts as 0. An empty band gives zeros.
class BandPassFilter
{
public:
    /// The first four parameters are type, phase, inverse and lag: there is one filter, and it heeds none of them.
    ///
    /// @param lc, lp, hp, hc  corners in Hz, in any order; clamped to 0..Nyquist, NaN is 0
    /// @param nSamples    the usual length of a trace
    /// @param sampleRate  sample interval in ms; what is not above 0 counts as 1
    BandPassFilter(int, int, int, float, float lc, float lp, float hp, float hc, int nSamples, float sampleRate);
    /// Takes effect at the next buildFilter.
    void setTimeDomain(bool on) { _timeDomain = on; }
    void buildFilter(float lc, float lp, float hp, float hc);
    /// Changes a trace of n samples in place; n may differ from nSamples, and then the response of the
    /// thread's last such length is kept. May run in several threads, but not during buildFilter.
    void applyFilter(float* trace, int n) const;

private:
    ZeroPhaseFilter makeFilter(int n) const;

    int _nSamples;
    float _sampleRate;
    bool _timeDomain = false;
    bool _builtInTime = false;
    BandPassCorners _corners;
    int64_t _build = 0;       // which buildFilter of the program made the present state
    ZeroPhaseFilter _filter;  // for traces of _nSamples
};

#endif
