/// The constant-velocity stacks of the demo survey.
#ifndef DEMOSTACK_H
#define DEMOSTACK_H

#include "trevia/demosegy.h"

/// Stacks the CDP line once for each velocity from 1800 to 3600 m/s, step 100: second-order move-out, a
/// stretch mute of 50 %, the mean over the live samples.
///
/// @param cdpFile         the line in CDP order
/// @param noiseDeviation  as that file has it
///
/// The traces come panel by panel, the panel's velocity in the record number (so that the file can be
/// shown panel by panel) and as the panel velocity. Their signal is the finished stack: the file is
/// written without noise of its own.
DemoFile demoVelocityStacks(const DemoFile& cdpFile, double noiseDeviation);

/// Sums one trace, moved out, to `sums` and counts the samples that it had to give.
void stackTrace(const float* trace, int n, double offset, double velocity, double* sums, int* counts);

#endif
