/// Constant phase rotation.
#ifndef ORVINPHASESHIFT_H
#define ORVINPHASESHIFT_H

class RealTransform;

/// Rotates the phase of a trace by a constant angle a: y = x cos a - H[x] sin a with the Hilbert transform
/// H[cos wt] = sin wt, so that cos(wt) becomes cos(wt + a); with the transform exp(-iwt) the phase of every
/// f > 0 rises by a (Claerbout, Fundamentals of Geophysical Data Processing, 1976; Levy and Oldenburg 1987).
///
/// The bins at frequency 0 and at Nyquist are multiplied by cos a only. The angle counts modulo 360; 0
/// leaves the trace as it is, 180 changes its sign exactly. A sample that is not finite counts as 0.
class OrvinPhaseShift
{
public:
    /// @param angle  degrees; one that is not finite counts as 0
    OrvinPhaseShift(int nSamples, float angle);
    void setAngle(float angle);
    /// Changes a trace of n samples in place; n may differ from nSamples. May run in several threads.
    void applyPhaseShift(float* trace, int n) const;

private:
    const RealTransform* _transform;  // for traces of nSamples
    double _angle;                    // degrees, 0 to 360
};

#endif
