#include "host/signal/realtransform.h"

#include "host/signal/fftwplanner.h"

#include <algorithm>
#include <map>

struct RealTransform::Plans {
    fftwf_plan forward, back;
};

RealTransform::RealTransform(int n) : _n(n), _plans(std::make_unique<Plans>())
{
    const FftwFloats real(fftwf_alloc_real(size_t(n) + 2)), complex(fftwf_alloc_real(size_t(n) + 2));
    auto* spectrum = reinterpret_cast<fftwf_complex*>(complex.get());
    _plans->forward = fftwf_plan_dft_r2c_1d(n, real.get(), spectrum, FFTW_ESTIMATE | FFTW_PRESERVE_INPUT);
    _plans->back = fftwf_plan_dft_c2r_1d(n, spectrum, real.get(), FFTW_ESTIMATE | FFTW_DESTROY_INPUT);
}

RealTransform::~RealTransform()
{
    fftwf_destroy_plan(_plans->forward);
    fftwf_destroy_plan(_plans->back);
}

const RealTransform& RealTransform::ofLength(int n)
{
    static std::map<int, std::unique_ptr<RealTransform>> transforms;
    n = std::max(n, 1);
    const std::lock_guard<std::mutex> lock(fftwPlannerMutex());
    std::unique_ptr<RealTransform>& transform = transforms[n];
    if (!transform) transform.reset(new RealTransform(n));
    return *transform;
}

void RealTransform::forward(const float* real, float* complexOut) const
{
    fftwf_execute_dft_r2c(_plans->forward, const_cast<float*>(real), reinterpret_cast<fftwf_complex*>(complexOut));
}

void RealTransform::back(float* complexIn, float* real) const
{
    fftwf_execute_dft_c2r(_plans->back, reinterpret_cast<fftwf_complex*>(complexIn), real);
}

TransformWork TransformWork::ofThread(int n)
{
    static thread_local FftwRoom real, spectrum;
    return {real.atLeast(n + 2), spectrum.atLeast(n + 2)};
}

int quickTransformLength(int n)
{
    int64_t best = 0;
    for (int64_t five = 16; five < 10ll * std::max(n, 16); five *= 5)
        for (int64_t three = five; three < 10ll * std::max(n, 16); three *= 3) {
            int64_t length = three;
            while (length < n) length *= 2;
            if (best == 0 || length < best) best = length;
        }
    return int(best);
}
