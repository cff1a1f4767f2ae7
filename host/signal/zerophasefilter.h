/// Multiplies the spectrum of real traces by real factors.
#ifndef ZEROPHASEFILTER_H
#define ZEROPHASEFILTER_H

#include <vector>

/// A filter of one real factor a frequency, applied to zero-padded traces.
///
/// A trace of n real values is transformed as n/2 complex ones, of which the even values are the real and the odd
/// ones the imaginary parts: less than half the time of FFTW's real transform. The spectrum of the trace itself
/// (Brigham, The Fast Fourier Transform, 1974, ch. 10) is never made: taking it apart, multiplying and putting it
/// together again comes to Z'[k] = a[k] Z[k] + i b[k] conj(Z[n/2 - k]) with real a and b, which hold the factors.
///
/// Plans are estimated, not measured, so that the same input gives the same bits in every run.
class ZeroPhaseFilter
{
public:
    ZeroPhaseFilter() = default;
    /// @param factors  length/2 + 1 of them, from 0 to Nyquist, with the scale 1/length; length is even
    explicit ZeroPhaseFilter(const std::vector<float>& factors);

    /// Filters n <= length samples in place; what lies outside is 0, a sample that is not finite counts as 0. Safe
    /// from several threads.
    void apply(float* trace, int n) const;

private:
    struct Plans;

    int _length = 0;
    const Plans* _plans = nullptr;       // kept for the life of the program
    std::vector<float> _own, _mirrored;  // a and b, each twice, for the real and the imaginary part
};

#endif
