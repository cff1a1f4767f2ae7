/// What the users of FFTW share.
#ifndef FFTWPLANNER_H
#define FFTWPLANNER_H

#include <fftw3.h>

#include <memory>
#include <mutex>

/// The planner of FFTW is not thread-safe; its execution is. Held while a plan is made.
std::mutex& fftwPlannerMutex();

/// Floats with FFTW's alignment, freed with their owner.
struct FftwFree {
    void operator()(float* p) const { fftwf_free(p); }
};
using FftwFloats = std::unique_ptr<float, FftwFree>;

/// Room for n floats that grows and is never given back.
struct FftwRoom {
    float* atLeast(int n);

private:
    FftwFloats _floats;
    int _n = 0;
};

#endif
