/// Conditioning of an ensemble beside a bare transform there and back with a copy, on one core.
#include "bench/limits.h"
#include "bench/ratio.h"
#include "display/raster/traceconditioner.h"
#include "host/signal/npfar.h"
#include "tracedata/seismicdata.h"

#include <cmath>
#include <cstdlib>
#include <random>

#include <omp.h>

static constexpr int nTraces = 2000, nSamples = 2000;

/// Largest difference of the limit's output from its input, which it should give back.
static float worstDifference(const std::vector<float>& a, const std::vector<float>& b)
{
    float worst = 0.0f;
    for (size_t i = 0; i < a.size(); ++i) worst = std::max(worst, std::fabs(a[i] - b[i]));
    return worst;
}

int main()
{
    omp_set_num_threads(1);
    std::vector<float> values(size_t(nTraces) * nSamples), copies(values.size());
    std::mt19937 random(5);
    std::normal_distribution<float> normal;
    for (float& v : values) v = normal(random);
    std::vector<float*> traces;
    int word = 0;
    std::vector<int*> headers(nTraces, &word);
    for (int i = 0; i < nTraces; ++i) traces.push_back(&values[size_t(i) * nSamples]);
    SeismicData data;
    data.setNumHeaderWords(1);
    data.setSampleRate(2.0f);
    data.loadAllTraces(traces.data(), headers.data(), nSamples, nTraces);

    const int n = npfar(nSamples);
    plainTransforms(values.data(), nTraces, nSamples, n, copies.data());
    if (worstDifference(values, copies) > 1e-4f) {
        std::printf("condition: the bare transforms don't give the traces back\n");
        return EXIT_FAILURE;
    }
    const auto limit = [&] { plainTransforms(values.data(), nTraces, nSamples, n, copies.data()); };
    const double nBytes = 2.0 * sizeof(float) * values.size();
    TraceConditioner conditioner;
    const auto ours = [&] { conditioner.computeNormalizer(data); };
    printFigure("condition 2000x2000, measures alone", 1.3, nBytes, ours, limit);
    conditioner.applyAGC(true, 500);
    printFigure("condition 2000x2000, AGC", 1.3, nBytes, ours, limit);
    conditioner.applyFilter(true, 4, 12, 50, 60, false);
    printFigure("condition 2000x2000, AGC and band-pass", 1.3, nBytes, ours, limit);
    return benchStatus(true);
}
