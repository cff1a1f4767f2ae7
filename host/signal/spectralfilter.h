/// A filter given by one complex factor a frequency, applied to zero-padded traces.
#ifndef SPECTRALFILTER_H
#define SPECTRALFILTER_H

class RealTransform;

/// Copies a trace of n samples, those that are not finite as 0, to the thread's work array, pads it with
/// zeros to the transform's length and transforms it. Returns the complex values, to be changed in place
/// before finishFiltering; valid until the thread's next use of a TransformWork.
float* startFiltering(const RealTransform& transform, const float* trace, int n);
/// Transforms back into the trace. The factors must hold the scale 1 / length.
void finishFiltering(const RealTransform& transform, float* trace, int n);

/// Length of the transform of a trace of n samples: twice as long at the least, so that nothing comes
/// round from one end to the other.
int paddedLength(int n);

#endif
