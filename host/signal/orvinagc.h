/// Automatic gain control.
#ifndef ORVINAGC_H
#define ORVINAGC_H

/// Divides each sample by the mean absolute amplitude in a window centred on it (Yilmaz, Seismic Data
/// Analysis, 2001, chapter 1).
///
/// The window reaches h = max(1, floor(window/(2 dt) + 0.5)) samples to both sides and is cut at the ends
/// of the trace. Only live samples (finite and not 0) count in the mean; those that are not finite become
/// 0. The divisor is never below 1e-6 of the mean of the whole trace. A window of 0 or less, or longer
/// than the trace, is one window over all.
class OrvinAGC
{
public:
    /// @param nSamples    usual length; each call has its own, so nothing depends on it
    /// @param winlen      window in ms
    /// @param sampleRate  sample interval in ms; what is not above 0 makes one window over all
    OrvinAGC(int nSamples, int winlen, float sampleRate);
    void setWindowLength(int winlen) { _windowMs = winlen; }
    /// Changes a trace of n samples in place; n may differ from nSamples. May run in several threads.
    void applyAGC(float* trace, int n) const;

private:
    int _windowMs;
    float _sampleRate;
};

#endif
