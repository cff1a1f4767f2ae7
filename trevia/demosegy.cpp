#include "trevia/demosegy.h"

#include "host/signal/bytes.h"
#include "trevia/demonoise.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>

constexpr int textLines = 40, textColumns = 80;
constexpr int tracesPerBlock = 240;
constexpr int secondsBetweenShots = 90, firstHour = 8;

static void putInteger(uint8_t* bytes, int offset, int width, int64_t value)
{
    for (int i = width - 1; i >= 0; --i, value >>= 8) bytes[offset + i] = uint8_t(value & 0xff);
}

static int64_t rounded(double value)
{
    return std::llround(value);
}

static int64_t hundredths(double metres)
{
    return rounded(100.0 * metres);
}

static int64_t staticMs(const DemoTrace& t, double x)
{
    return t.hasStatics ? rounded(-1000.0 * demoStatic(x)) : 0;
}

/// Time of day of the trace's shot in seconds.
static int shotClock(const DemoTrace& t)
{
    return firstHour * 3600 + (t.ffid - DemoLine::firstFfid) % 600 * secondsBetweenShots;
}

struct TraceOfFile {
    const DemoTrace& trace;
    int rank, nSamples;
};

/// The words of a trace header, offsets from 0; what isn't here is 0. The sources lie on the surface, on
/// land: depth, uphole time and water depths are 0, and no mute has been applied.
static const struct {
    int offset, width;
    int64_t (*value)(const TraceOfFile& f);
} headerWords[] = {
    {0, 4, [](const TraceOfFile& f) -> int64_t { return f.rank; }},
    {4, 4, [](const TraceOfFile& f) -> int64_t { return f.rank; }},
    {8, 4, [](const TraceOfFile& f) -> int64_t { return f.trace.ffid; }},
    {12, 4, [](const TraceOfFile& f) -> int64_t { return f.trace.channel; }},
    {16, 4, [](const TraceOfFile& f) -> int64_t { return f.trace.shotPoint; }},
    {20, 4, [](const TraceOfFile& f) -> int64_t { return f.trace.cdp; }},
    {24, 4, [](const TraceOfFile& f) -> int64_t { return f.trace.sequence; }},
    {28, 2, [](const TraceOfFile& f) -> int64_t { return f.trace.faults & DemoDead ? 2 : 1; }},
    {30, 2, [](const TraceOfFile&) -> int64_t { return 1; }},
    {32, 2, [](const TraceOfFile& f) -> int64_t { return f.trace.fold; }},
    {34, 2, [](const TraceOfFile&) -> int64_t { return 1; }},
    {36, 4, [](const TraceOfFile& f) -> int64_t { return rounded(f.trace.offset); }},
    {40, 4, [](const TraceOfFile& f) -> int64_t { return hundredths(demoElevation(f.trace.receiver.x)); }},
    {44, 4, [](const TraceOfFile& f) -> int64_t { return hundredths(demoElevation(f.trace.source.x)); }},
    {52, 4, [](const TraceOfFile&) -> int64_t { return hundredths(DemoLine::datum); }},
    {56, 4, [](const TraceOfFile&) -> int64_t { return hundredths(DemoLine::datum); }},
    {68, 2, [](const TraceOfFile&) -> int64_t { return -100; }},
    {70, 2, [](const TraceOfFile&) -> int64_t { return -100; }},
    {72, 4, [](const TraceOfFile& f) -> int64_t { return hundredths(demoMapPlace(f.trace.source).x); }},
    {76, 4, [](const TraceOfFile& f) -> int64_t { return hundredths(demoMapPlace(f.trace.source).y); }},
    {80, 4, [](const TraceOfFile& f) -> int64_t { return hundredths(demoMapPlace(f.trace.receiver).x); }},
    {84, 4, [](const TraceOfFile& f) -> int64_t { return hundredths(demoMapPlace(f.trace.receiver).y); }},
    {88, 2, [](const TraceOfFile&) -> int64_t { return 1; }},
    {90, 2, [](const TraceOfFile&) -> int64_t { return int64_t(DemoLine::v0); }},
    {92, 2, [](const TraceOfFile&) -> int64_t { return int64_t(DemoLine::v1); }},
    {98, 2, [](const TraceOfFile& f) -> int64_t { return staticMs(f.trace, f.trace.source.x); }},
    {100, 2, [](const TraceOfFile& f) -> int64_t { return staticMs(f.trace, f.trace.receiver.x); }},
    {102, 2,
     [](const TraceOfFile& f) -> int64_t {
         return staticMs(f.trace, f.trace.source.x) + staticMs(f.trace, f.trace.receiver.x);
     }},
    {114, 2, [](const TraceOfFile& f) -> int64_t { return f.nSamples; }},
    {116, 2, [](const TraceOfFile&) -> int64_t { return rounded(1e6 * DemoLine::intervalSec); }},
    {118, 2, [](const TraceOfFile&) -> int64_t { return 1; }},
    {124, 2, [](const TraceOfFile&) -> int64_t { return 1; }},
    {156, 2, [](const TraceOfFile&) -> int64_t { return 2024; }},
    {158, 2, [](const TraceOfFile&) -> int64_t { return 153; }},
    {160, 2, [](const TraceOfFile& f) -> int64_t { return shotClock(f.trace) / 3600; }},
    {162, 2, [](const TraceOfFile& f) -> int64_t { return shotClock(f.trace) / 60 % 60; }},
    {164, 2, [](const TraceOfFile& f) -> int64_t { return shotClock(f.trace) % 60; }},
    {166, 2, [](const TraceOfFile&) -> int64_t { return 4; }},
    {172, 2, [](const TraceOfFile& f) -> int64_t { return f.trace.station; }},
    {180, 4, [](const TraceOfFile& f) -> int64_t { return hundredths(demoMapPlace(f.trace.bin).x); }},
    {184, 4, [](const TraceOfFile& f) -> int64_t { return hundredths(demoMapPlace(f.trace.bin).y); }},
    {188, 4, [](const TraceOfFile& f) -> int64_t { return f.trace.inLine; }},
    {192, 4, [](const TraceOfFile& f) -> int64_t { return f.trace.crossLine; }},
    {196, 4, [](const TraceOfFile& f) -> int64_t { return f.trace.shotPoint; }},
    {200, 2, [](const TraceOfFile&) -> int64_t { return 1; }},
    {204, 4, [](const TraceOfFile& f) -> int64_t { return f.trace.panelVelocity; }},
};

std::array<uint8_t, segyHeaderBytes> demoHeader(const DemoTrace& trace, int rank, int nSamples)
{
    std::array<uint8_t, segyHeaderBytes> bytes = {};
    for (const auto& word : headerWords)
        putInteger(bytes.data(), word.offset, word.width, word.value({trace, rank, nSamples}));
    return bytes;
}

/// 40 lines of 80 characters "C 1 ..." in EBCDIC; the last two are those of revision 1.
static void putText(const std::vector<std::string>& title, uint8_t* bytes)
{
    for (int line = 0; line < textLines; ++line) {
        std::string text = line == textLines - 2 ? "SEG Y REV1" : line == textLines - 1 ? "END TEXTUAL HEADER" : "";
        if (text.empty() && line < int(title.size())) text = title[line];
        const std::string number = std::to_string(line + 1);
        text = "C" + std::string(2 - number.size(), ' ') + number + " " + text;
        text.resize(textColumns, ' ');
        std::memcpy(bytes + line * textColumns, text.data(), textColumns);
    }
    asciiToEbcdic(bytes, textLines * textColumns);
}

static int largestEnsemble(const std::vector<DemoTrace>& traces)
{
    int largest = 0;
    for (const DemoTrace& trace : traces) largest = std::max(largest, trace.sequence);
    return largest;
}

/// The most traces that share a CDP, or that were stacked into one.
static int largestFold(const std::vector<DemoTrace>& traces, bool stacked)
{
    std::map<int, int> folds;
    int largest = 0;
    for (const DemoTrace& trace : traces) largest = std::max(largest, stacked ? trace.fold : ++folds[trace.cdp]);
    return largest;
}

std::vector<uint8_t> demoReel(const DemoFile& file)
{
    std::vector<uint8_t> bytes(segyReelBytes, 0);
    putText(file.title, bytes.data());
    const int interval = int(rounded(1e6 * DemoLine::intervalSec));
    const int ensemble = largestEnsemble(file.traces);
    const int fold = largestFold(file.traces, file.sort == DemoStacked);
    const struct {
        int offset, width;
        int64_t value;
    } words[] = {
        {3200, 4, 1},
        {3204, 4, 1},
        {3208, 4, 1},
        {3212, 2, ensemble},
        {3216, 2, interval},
        {3218, 2, interval},
        {3220, 2, file.nSamples},
        {3222, 2, file.nSamples},
        {3224, 2, 5},
        {3226, 2, fold},
        {3228, 2, file.sort},
        {3230, 2, 1},
        {3248, 2, 1},
        {3250, 2, 1},
        {3252, 2, 1},
        {3254, 2, 1},
        {3256, 2, 1},
        {3500, 2, 0x0100},
        {3502, 2, 1},
    };
    for (const auto& w : words) putInteger(bytes.data(), w.offset, w.width, w.value);
    return bytes;
}

void putBigEndian(const float* samples, int n, uint8_t* bytes)
{
    std::memcpy(bytes, samples, size_t(n) * sizeof(float));
    if (littleEndian()) endianSwap(bytes, sizeof(float), n);
}

void writeDemoFile(const DemoFile& file, double noiseDeviation, OutputFile* out)
{
    const std::vector<uint8_t> reel = demoReel(file);
    out->write(reel.data(), reel.size());
    const int n = file.nSamples, nTraces = int(file.traces.size());
    const size_t traceBytes = segyHeaderBytes + size_t(n) * sizeof(float);
    std::vector<uint8_t> block(tracesPerBlock * traceBytes);
    std::vector<float> noise(noiseDeviation > 0.0 ? size_t(tracesPerBlock) * n : 0);
    DemoNoise generator;
    for (int begin = 0; begin < nTraces; begin += tracesPerBlock) {
        const int count = std::min(tracesPerBlock, nTraces - begin);
        if (!noise.empty())  // one after the other: the numbers must not depend on the threads
            for (size_t i = 0; i < size_t(count) * n; ++i) noise[i] = float(noiseDeviation * generator.normal());
#pragma omp parallel for schedule(dynamic, 8)
        for (int i = 0; i < count; ++i) {
            const DemoTrace& trace = file.traces[begin + i];
            std::vector<float> samples(n);
            demoSamples(trace, file.signal, noise.empty() ? nullptr : &noise[size_t(i) * n], n, samples.data());
            uint8_t* bytes = &block[i * traceBytes];
            const auto header = demoHeader(trace, begin + i + 1, n);
            std::memcpy(bytes, header.data(), header.size());
            putBigEndian(samples.data(), n, bytes + header.size());
        }
        out->write(block.data(), count * traceBytes);
    }
}
