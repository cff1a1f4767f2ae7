#include "host/signal/npfar.h"

#include "host/signal/realtransform.h"

#include <algorithm>
#include <cstring>
#include <vector>

static std::vector<int> makeLengths()
{
    std::vector<int> lengths;
    for (int two : {1, 2, 4, 8, 16})
        for (int three : {1, 3, 9})
            for (int five : {1, 5})
                for (int seven : {1, 7})
                    for (int eleven : {1, 11})
                        for (int thirteen : {1, 13})
                            lengths.push_back(2 * two * three * five * seven * eleven * thirteen);
    std::sort(lengths.begin(), lengths.end());
    return lengths;
}

int npfar(int nmin)
{
    static const std::vector<int> lengths = makeLengths();
    const auto found = std::lower_bound(lengths.begin(), lengths.end(), nmin);
    return found != lengths.end() ? *found : int((unsigned(nmin) + 1) / 2 * 2);
}

void pfarc(int isign, int n, const float* real, float* complexInterleaved)
{
    if (n < 1) return;
    const RealTransform& transform = RealTransform::ofLength(n);
    const TransformWork work = TransformWork::ofThread(n);
    std::memcpy(work.real, real, n * sizeof(float));
    transform.forward(work.real, work.spectrum);
    const int count = transform.complexCount();
    std::memcpy(complexInterleaved, work.spectrum, 2 * size_t(count) * sizeof(float));
    if (isign > 0)
        for (int k = 0; k < count; ++k) complexInterleaved[2 * k + 1] = -complexInterleaved[2 * k + 1];
}
