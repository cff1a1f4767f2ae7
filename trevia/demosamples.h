/// The samples of the demo survey, from its earth model.
#ifndef DEMOSAMPLES_H
#define DEMOSAMPLES_H

#include "trevia/demotrace.h"

#include <functional>

/// The wavelet of the first arrivals at a time after their onset, 0 before: -exp(-60 t) sin(2 pi 40 t).
double demoFirstWavelet(double t);
/// A Ricker wavelet at a time from its centre (Ricker 1953).
double demoRicker(double frequency, double t);

/// What one trace shows of the model, without noise and faults, at n samples from time 0. `samples` holds
/// n doubles, to which the events are added.
using DemoSignal = std::function<void(const DemoTrace& trace, int n, double* samples)>;

/// First arrivals, reflections with one multiple, ground roll and air wave, these two times `coherent`.
void addLineSignal(const DemoTrace& trace, double coherent, int n, double* samples);
/// The anisotropic reflections at the trace's offset.
void addEtaSignal(const DemoTrace& trace, int n, double* samples);
/// The reflections of the stacked volume at the trace's bin.
void addPatchSignal(const DemoTrace& trace, int n, double* samples);

/// The finished samples: signal (later by the fault's delay), noise and faults.
/// @param noise  n deviates of the wanted standard deviation, or null for none
void demoSamples(const DemoTrace& trace, const DemoSignal& signal, const float* noise, int n, float* samples);

#endif
