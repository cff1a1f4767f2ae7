/// Repaints of a display beside a plain loop with the same resampling and the same pixel writes, on one core.
#include "bench/limits.h"
#include "bench/ratio.h"
#include "display/colortable.h"
#include "display/traceraster.h"
#include "host/numeric/resample.h"

#include <cstdlib>
#include <random>
#include <string>

#include <omp.h>

/// Smooth traces, scaled each by itself, on a picture of 1900 by 1000 pixels.
struct Section {
    Section(int traces, int samples, DisplayType type);
    void paintPlain();
    QImage paint() { return raster.render(parm, nullptr); }
    long sumOf(const unsigned* pixels) const;

    int nTraces, nSamples;
    std::vector<float> values, divisors;
    ColorTable colors;
    RasterParm parm;
    TraceRaster raster;
    RasterWindow window;
    float taps[513][8];
    std::vector<float> padded, out;
    std::vector<unsigned> pixels;
};

Section::Section(int traces, int samples, DisplayType type)
    : nTraces(traces), nSamples(samples), values(size_t(traces) * samples), padded(samples + 64)
{
    std::mt19937 random(5);
    std::normal_distribution<float> normal;
    for (int i = 0; i < traces; ++i) {
        float previous = 0.0f;
        for (int j = 0; j < samples; ++j)
            values[size_t(i) * samples + j] = previous = 0.8f * previous + normal(random);
        divisors.push_back(2.5f + 0.001f * i);
    }
    colors.setColorType(ColorYes);
    colors.setMinMaxValue(-1.5, 1.5);
    parm.samples = values.data();
    parm.nDataTraces = traces;
    parm.stride = samples;
    parm.sampleRate = 2.0f;
    parm.divTrace = divisors.data();
    parm.normalize = Normalize::Trace;
    parm.view.nTraces = traces;
    parm.view.nSamples = samples;
    parm.x = {0.0, traces + 1.0, 0.0, 1900.0};
    parm.y = {samples * 2.0, 0.0, 1000.0, 0.0};
    parm.displayType = type;
    parm.plotSampleCount = samples;
    parm.colors = &colors;
    rasterWindow(parm, &window);
    pixels.resize(size_t(window.width) * window.height);
    out.resize(size_t(window.height) * traces);
    for (int k = 0; k < 513; ++k)  // the resampler's own coefficients, read off eight spikes
        for (int j = 0; j < 8; ++j) {
            float spike[8] = {};
            spike[j] = 1.0f;
            ress8r(8, 1.0f, 0.0f, spike, 0.0f, 0.0f, 1, 1.0f, 3.0f + k / 512.0f, &taps[k][j]);
        }
    // at the fraction 1 the resampler has moved on to the next sample
    for (int j = 0; j < 8; ++j) taps[512][j] = j == 4 ? 1.0f : 0.0f;
}

void Section::paintPlain()
{
    for (int i = 0; i < nTraces; ++i) {
        const float* in = &values[size_t(i) * nSamples];
        for (int j = 0; j < nSamples; ++j) padded[16 + j] = in[j] / divisors[i];
        std::fill_n(padded.begin(), 16, padded[16]);
        plainResample(padded.data(), 1.0 / double(window.pixPerSample), taps, window.height,
                      &out[size_t(i) * window.height]);
    }
    std::fill(pixels.begin(), pixels.end(), 0xffffffffu);
    const PlainPicture picture = {out.data(),     size_t(window.height), nTraces,
                                  window.width,   window.height,         window.xbase,
                                  window.clipPix, window.pixPerTrace,    pixels.data()};
    if (parm.displayType == WiggleVA)
        plainWiggle(picture);
    else
        plainColor(picture, colors.rgbArray(), colors.numColors(), colors.maxValue(), colors.increment());
}

long Section::sumOf(const unsigned* from) const
{
    long sum = 0;
    for (size_t i = 0; i < pixels.size(); ++i) sum = sum * 31 + from[i];
    return sum;
}

static int measure(const char* name, int nTraces, int nSamples, DisplayType type)
{
    Section section(nTraces, nSamples, type);
    section.paintPlain();
    const QImage image = section.paint();
    if (section.sumOf(reinterpret_cast<const unsigned*>(image.constBits())) !=
        section.sumOf(section.pixels.data())) {
        std::printf("%s: the pictures differ\n", name);
        return 1;
    }
    const Ratio ratio = measureRatio([&] { section.paint(); }, [&] { section.paintPlain(); });
    printRatio(name, ratio, 2.0, 4.0 * (section.values.size() + section.out.size() + section.pixels.size()));
    return 0;
}

int main()
{
    omp_set_num_threads(1);
    int nFailed = 0;
    nFailed += measure("repaint 2000x2000, colour", 2000, 2000, ColorB);
    nFailed += measure("repaint 2000x2000, wiggle/VA", 2000, 2000, WiggleVA);
    nFailed += measure("repaint 500x1500, colour", 500, 1500, ColorB);
    nFailed += measure("repaint 500x1500, wiggle/VA", 500, 1500, WiggleVA);
    return nFailed ? EXIT_FAILURE : EXIT_SUCCESS;
}
