#include "host/signal/fftwplanner.h"

std::mutex& fftwPlannerMutex()
{
    static std::mutex mutex;
    return mutex;
}

float* FftwRoom::atLeast(int n)
{
    if (n > _n) {
        _floats.reset(fftwf_alloc_real(size_t(n)));
        _n = n;
    }
    return _floats.get();
}
