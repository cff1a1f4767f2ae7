/// Resampling by the 8-coefficient least-squares sinc.
///
/// The coefficients are the Wiener solution for a flat spectrum up to fm = 0.066 + 0.265 ln 8 of Nyquist:
/// the Toeplitz system of sinc(fm j) with the right side sinc(fm (3 - j + d)), j = 0..7, for the fraction
/// d of a sample interval, tabulated for 513 fractions (Levinson's recursion). Each row is scaled to sum
/// 1, so that constants stay; a position on a sample gives the sample itself. Sines up to 0.6 of Nyquist
/// keep their amplitude within 0.5 % and their phase within 0.1 degrees.
///
/// Rules of both: the eight taps stand at the samples floor(p) - 3 to floor(p) + 4 of the position p; a
/// tap before the first sample takes yinl, one behind the last yinr, and where all eight lie on one side
/// the result is that value exactly. A position that is NaN gives yinl. A sample that is not finite counts
/// as 0. Each output is summed in one fixed order, the same for every processor and number of threads.
/// May be called from several threads.
#ifndef RESAMPLE_H
#define RESAMPLE_H

/// Resamples nin samples at fxin + i dxin to nout uniform positions fxout + i dxout. The units are the
/// caller's; dxin is not 0.
///
/// @param yin   nin samples; lent, only read
/// @param yout  out: nout samples; may overlap yin, which then behaves as if it had been copied
void ress8r(int nin, float dxin, float fxin, const float* yin, float yinl, float yinr, int nout, float dxout,
            float fxout, float* yout);

/// The same for nout positions in any order, xout (lent, only read). yout may be yin or xout.
void ints8r(int nin, float dxin, float fxin, const float* yin, float yinl, float yinr, int nout, const float* xout,
            float* yout);

#endif
