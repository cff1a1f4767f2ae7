/// Low-pass before a trace is shown with fewer pixels than samples.
#ifndef ANTIALIAS_H
#define ANTIALIAS_H

/// Filters n samples p to q so that only `frac` of the samples may be kept.
///
/// A symmetric sinc with a Kaiser window (beta 4.5), cut-off 0.425 frac cycles a sample, half length
/// ceil(10/frac), gain 1 at frequency 0 (Kaiser 1974). The end samples are repeated outwards; a sample
/// that is not finite counts as 0.
///
/// @param frac   new sampling over old; 1 and more, 0 and less and NaN copy
/// @param phase  0: zero phase, the only one there is, whatever the value
/// @param q      out: n samples; may overlap p, as if p had been copied
///
/// May be called from several threads; each keeps the operator of its last frac.
void antialias(float frac, int phase, int n, const float* p, float* q);

#endif
