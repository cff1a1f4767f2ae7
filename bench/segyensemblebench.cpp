/// One ensemble of 120 traces of 1500 IBM samples, read and converted, beside segyio's C calls for it.
#include "bench/ratio.h"
#include "bench/segybenchfile.h"
#include "host/report.h"
#include "sources/segyloader.h"

#ifdef MERIDUNE_SEGYIO
#include <segyio/segy.h>
#endif

namespace {
struct Silent : Report {
    void line(const std::string&) override {}
    void box(const std::string&, const std::string&) override {}
};
}  // namespace

#ifdef MERIDUNE_SEGYIO

static constexpr int nTraces = 120, nSamples = 1500, nEnsembles = 50;

/// The same ensemble as segyio reads it: header and samples of each trace.
static void readBySegyio(segy_file* file, int first, std::vector<float>* samples, bool withHeaders)
{
    char header[SEGY_TRACE_HEADER_SIZE];
    const int bsize = segy_trace_bsize(nSamples);
    for (int i = 0; i < nTraces; ++i) {
        if (withHeaders) segy_traceheader(file, first + i, header, 3600, bsize);
        segy_readtrace(file, first + i, &(*samples)[size_t(i) * nSamples], 3600, bsize);
    }
    segy_to_native(SEGY_IBM_FLOAT_4_BYTE, int64_t(nTraces) * nSamples, samples->data());
}

int main()
{
    const SegyBenchFile file(nTraces * nEnsembles, nSamples, 1);
    if (!file.isGood) return 1;
    Silent report;
    const auto opened =
        SegyLoader::open({.files = QString::fromStdString(file.path), .isort = 1, .indexbuilt = 1}, &report);
    if (!opened) return 1;
    SegyLoader& loader = *opened;
    segy_file* other = segy_open(file.path.c_str(), "rb");
    std::vector<float> samples(size_t(nTraces) * nSamples);
    loader.seekEnsemble(7);
    readBySegyio(other, 6 * nTraces, &samples, true);
    for (int i = 0; i < nTraces; ++i)
        if (std::memcmp(loader.getTraces()[i], &samples[size_t(i) * nSamples], nSamples * sizeof(float)) != 0) {
            std::printf("segyensemblebench: trace %d differs\n", i);
            return 1;
        }
    int shot = 0;
    const auto next = [&] { return shot = (shot + 1) % nEnsembles; };
    const auto ours = [&] { loader.seekEnsemble(next() + 1); };
    const double nBytes = double(nTraces) * double(file.recordBytes);
    printFigure(
        "ensemble 120 x 1500 IBM / segyio, headers too", 0.7, nBytes, ours,
        [&] { readBySegyio(other, next() * nTraces, &samples, true); }, 201);
    printFigure(
        "ensemble 120 x 1500 IBM / segyio, samples only", 0.7, nBytes, ours,
        [&] { readBySegyio(other, next() * nTraces, &samples, false); }, 201);
    segy_close(other);
    return benchStatus(true);
}

#else

int main()
{
    std::printf("segyensemblebench: libsegyio-dev is not installed, nothing to compare with\n");
    return 0;
}

#endif
