/// Repaints of a display beside a plain loop with the same resampling and the same pixel writes, on one core.
#include "bench/limits.h"
#include "bench/ratio.h"
#include "display/colors/colortable.h"
#include "display/raster/traceraster.h"
#include "host/numeric/resample.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <random>
#include <string>

#include <omp.h>

/// Smooth traces, scaled each by itself, on a picture of 1900 by 1000 pixels.
struct Section {
    Section(int traces, int samples, DisplayType type);
    void resamplePlain();
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
        for (int j = 0; j < samples; ++j) values[size_t(i) * samples + j] = previous = 0.8f * previous + normal(random);
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

void Section::resamplePlain()
{
    for (int i = 0; i < nTraces; ++i) {
        const float* in = &values[size_t(i) * nSamples];
        for (int j = 0; j < nSamples; ++j) padded[16 + j] = in[j] / divisors[i];
        float* const to = &out[size_t(i) * window.height];
        if (parm.displayType == Map || parm.displayType == Velocity) {
            plainLinear(&padded[16], nSamples, window.pixPerSample, window.height, to);
            continue;
        }
        std::fill_n(padded.begin(), 16, padded[16]);
        plainResample(padded.data(), 1.0 / double(window.pixPerSample), taps, window.height, to);
    }
}

void Section::paintPlain()
{
    resamplePlain();
    std::fill(pixels.begin(), pixels.end(), 0xffffffffu);
    const PlainPicture picture = {out.data(),     size_t(window.height), nTraces,
                                  window.width,   window.height,         window.xbase,
                                  window.clipPix, window.pixPerTrace,    pixels.data()};
    const auto color = [&](bool isLined) {
        plainColor(picture, colors.rgbArray(), colors.numColors(), colors.maxValue(), colors.increment(), isLined);
    };
    switch (parm.displayType) {
    case WiggleVA: return plainBlack(picture, true, true);
    case Wiggle: return plainBlack(picture, false, true);
    case VA: return plainBlack(picture, true, false);
    case ColorB: return color(false);
    case ColorWiggle: color(true); return plainLines(picture);
    default: return plainMap(picture, colors.rgbArray(), colors.numColors(), colors.maxValue(), colors.increment());
    }
}

long Section::sumOf(const unsigned* from) const
{
    long sum = 0;
    for (size_t i = 0; i < pixels.size(); ++i) sum = sum * 31 + from[i];
    return sum;
}

/// Seconds that matplotlib takes for its redraws, by name; empty where it isn't installed.
static std::map<std::string, double> matplotlibSeconds()
{
    std::map<std::string, double> seconds;
    FILE* const script =
        ::popen("OMP_NUM_THREADS=1 /usr/bin/python3 " MERIDUNE_SOURCE_DIR "/bench/matplotlibredraw.py 2>&1", "r");
    char name[64];
    double value = 0.0;
    while (script && std::fscanf(script, "%63s %lf", name, &value) == 2) seconds[name] = value;
    if (script) ::pclose(script);
    if (seconds.empty()) std::puts("python3-matplotlib is not installed: nothing to compare redraws with");
    return seconds;
}

/// A kind of picture beside its plain loop, beside a redraw of matplotlib's, and on two cores beside one.
struct Kind {
    const char* name;
    int nTraces, nSamples;
    DisplayType type;
    const char* redraw;  ///< whose time is compared, null for none
    double faster;       ///< times faster than that
};

static bool measure(const Kind& kind, const std::map<std::string, double>& redraws)
{
    omp_set_num_threads(1);
    Section section(kind.nTraces, kind.nSamples, kind.type);
    section.paintPlain();
    const QImage image = section.paint();
    if (section.sumOf(reinterpret_cast<const unsigned*>(image.constBits())) != section.sumOf(section.pixels.data())) {
        std::printf("%s: the pictures differ\n", kind.name);
        return false;
    }
    const std::string name = std::string("repaint ") + kind.name;
    const double nBytes = 4.0 * (section.values.size() + section.out.size() + section.pixels.size());
    const auto paint = [&] { section.paint(); };
    const Ratio ratio = printFigure(name.c_str(), 0.6, nBytes, paint, [&] { section.paintPlain(); });
    const auto redraw = redraws.find(kind.redraw ? kind.redraw : "");
    if (redraw != redraws.end())
        printValue((name + " / matplotlib").c_str(), ratio.oursSec / redraw->second, 1.0 / kind.faster, ratio.oursSec,
                   redraw->second);
    if (kind.nTraces < 2000) return true;
    const auto paintOn = [&section](int nThreads) {
        return [&section, nThreads] {
            omp_set_num_threads(nThreads);
            section.paint();
        };
    };
    printFigure((name + ", two cores by one").c_str(), 1.0 / 1.7, 0.0, paintOn(2), paintOn(1));
    return true;
}

int main()
{
    static const Kind kinds[] = {
        {"2000x2000, map", 2000, 2000, Map, "bilinear", 12.0},
        {"2000x2000, velocity", 2000, 2000, Velocity, "bilinear", 12.0},
        {"2000x2000, colour", 2000, 2000, ColorB, "bilinear", 6.0},
        {"2000x2000, colour/wiggle", 2000, 2000, ColorWiggle, "bilinear", 6.0},
        {"2000x2000, VA", 2000, 2000, VA, "bilinear", 6.0},
        {"2000x2000, wiggle", 2000, 2000, Wiggle, "bilinear", 6.0},
        {"2000x2000, wiggle/VA", 2000, 2000, WiggleVA, "bilinear", 6.0},
        {"500x1500, colour", 500, 1500, ColorB, nullptr, 0.0},
        {"500x1500, wiggle/VA", 500, 1500, WiggleVA, "wiggles", 65.0},
    };
    const std::map<std::string, double> redraws = matplotlibSeconds();
    bool isGood = true;
    const char* const only = std::getenv("MERIDUNE_BENCH_ONLY");  // part of a name
    for (const Kind& kind : kinds)
        if (!only || std::strstr(kind.name, only)) isGood &= measure(kind, redraws);
    return benchStatus(isGood);
}
