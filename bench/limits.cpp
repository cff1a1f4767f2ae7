#include "bench/limits.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

#include <fftw3.h>

#include <unistd.h>

void plainCopy(void* to, const void* from, size_t nBytes)
{
    std::memcpy(to, from, nBytes);
}

// Trace raster.

void plainResample(const float* padded, double step, const float (*taps)[8], int nOut, float* out)
{
    for (int i = 0; i < nOut; ++i) {
        const double p = 16.0 + step * i;
        const int whole = int(p);
        const float* t = taps[int((p - whole) * 512.0 + 0.5)];
        const float* y = padded + whole - 3;
        out[i] = ((y[0] * t[0] + y[4] * t[4]) + (y[2] * t[2] + y[6] * t[6])) +
                 ((y[1] * t[1] + y[5] * t[5]) + (y[3] * t[3] + y[7] * t[7]));
    }
}

static const unsigned black = 0xff000000u;

/// Pixel columns of a trace's axis and end.
struct PlainEnds {
    PlainEnds(const PlainPicture& p, int r, int k)
        : value(p.out[r + k * p.stride]), axis(std::clamp(int(k * p.pixPerTrace + p.xbase), 0, p.width - 1)),
          at(std::clamp(int(value * p.pixPerTrace), -p.clipPix, p.clipPix) + axis), end(std::clamp(at, 0, p.width - 1))
    {
    }
    float value;
    int axis, at, end;
};

void plainColor(const PlainPicture& p, const unsigned* table, int nColors, double maxValue, double increment,
                bool isLined)
{
    for (int r = 0; r < p.height; ++r) {
        unsigned* const line = p.pixels + size_t(r) * p.width;
        int prevEnd = p.xbase;
        for (int k = 0; k < p.nTraces; ++k) {
            const PlainEnds t(p, r, k);
            const unsigned color = table[std::clamp(int((maxValue - t.value) / increment), 0, nColors - 1)];
            if (t.value > 0.0f) {
                for (int x = std::max(t.axis, prevEnd); x <= t.end; ++x) line[x] = color;
            } else {
                for (int x = t.end; x <= t.axis; ++x) line[x] = color;
            }
            if (isLined) line[t.end] = black;
            prevEnd = t.end;
        }
    }
}

static void plainLine(const PlainPicture& p, int r, int k, const PlainEnds& t)
{
    if (r == 0) return;
    const int from = PlainEnds(p, r - 1, k).at;
    const int first = std::max(t.end < from ? t.end + 1 : from, 0);
    const int last = std::min(t.end > from ? t.end - 1 : from, p.width - 1);
    for (int x = first; x <= last; ++x) p.pixels[size_t(r - 1) * p.width + x] = black;
}

void plainBlack(const PlainPicture& p, bool isFilled, bool isLined)
{
    for (int r = 0; r < p.height; ++r) {
        unsigned* const line = p.pixels + size_t(r) * p.width;
        int prevEnd = p.xbase;
        for (int k = 0; k < p.nTraces; ++k) {
            const PlainEnds t(p, r, k);
            if (isFilled && t.value > 0.0f)
                for (int x = std::max(t.axis, prevEnd); x <= t.end; ++x) line[x] = black;
            if (isLined) {
                line[t.end] = black;
                plainLine(p, r, k, t);
            }
            prevEnd = t.end;
        }
    }
}

void plainLines(const PlainPicture& p)
{
    for (int r = 1; r < p.height; ++r)
        for (int k = 0; k < p.nTraces; ++k) plainLine(p, r, k, PlainEnds(p, r, k));
}

void plainLinear(const float* in, int n, float step, int nOut, float* out)
{
    int node = 0;
    for (int i = 0; i < nOut; ++i) {
        const float position = float(i);
        while (node + 2 < n && step * (node + 1) <= position) ++node;
        const float at = step * node, next = step * (node + 1);
        if (position > next) {
            out[i] = in[n - 1];
            continue;
        }
        const double part = (double(position) - at) / (double(next) - at), below = in[node];
        out[i] = float(below + part * (in[node + 1] - below));
    }
}

void plainMap(const PlainPicture& p, const unsigned* table, int nColors, double maxValue, double increment)
{
    const int columns = int(p.pixPerTrace * p.nTraces), n = p.nTraces;
    for (int r = 0; r < p.height; ++r) {
        unsigned* const line = p.pixels + size_t(r) * p.width + p.xbase;
        int node = 0;
        for (int x = 0; x < std::min(columns, p.width - p.xbase); ++x) {
            while (node + 2 < n && float(node + 1) * float(columns) / float(n) <= float(x)) ++node;
            const float at = float(node) * float(columns) / float(n);
            const float next = float(node + 1) * float(columns) / float(n);
            const double below = p.out[r + node * p.stride], above = p.out[r + (node + 1) * p.stride];
            const float value = float(x) > next
                                    ? float(above)
                                    : float(below + (double(x) - at) / (double(next) - at) * (above - below));
            line[x] = black | table[std::clamp(int((maxValue - value) / increment), 0, nColors - 1)];
        }
    }
}

// Conditioning.

void plainTransforms(const float* in, int nTraces, int nSamples, int n, float* out)
{
    float* const real = fftwf_alloc_real(n);
    fftwf_complex* const spectrum = fftwf_alloc_complex(n / 2 + 1);
    static const fftwf_plan forward = fftwf_plan_dft_r2c_1d(n, real, spectrum, FFTW_ESTIMATE);
    static const fftwf_plan back = fftwf_plan_dft_c2r_1d(n, spectrum, real, FFTW_ESTIMATE);
    for (int i = 0; i < nTraces; ++i) {
        std::memcpy(real, in + size_t(i) * nSamples, nSamples * sizeof(float));
        std::memset(real + nSamples, 0, (n - nSamples) * sizeof(float));
        fftwf_execute_dft_r2c(forward, real, spectrum);
        fftwf_execute_dft_c2r(back, spectrum, real);
        for (int j = 0; j < nSamples; ++j) out[size_t(i) * nSamples + j] = real[j] / n;
    }
    fftwf_free(real);
    fftwf_free(spectrum);
}

// SEG-Y.

void plainHeaderSums(const unsigned char* file, int64_t nTraces, int64_t recordBytes, double* sums)
{
    static const int words[] = {12, 196, 20, 12, 36, -172, 188, 192, 8, 0, 180, 184, 72, 76, 80, 84};
    for (int64_t i = 0; i < nTraces; ++i) {
        const unsigned char* header = file + 3600 + i * recordBytes;
        for (int slot = 0; slot < 16; ++slot) {
            uint32_t word = 0;
            uint16_t half = 0;
            if (words[slot] < 0) {
                std::memcpy(&half, header - words[slot], sizeof half);
                sums[slot] += float(int16_t(__builtin_bswap16(half)));
                continue;
            }
            std::memcpy(&word, header + words[slot], sizeof word);
            sums[slot] += float(int32_t(words[slot] == 196 ? word : __builtin_bswap32(word)));
        }
    }
}

float plainReadOfTraces(int descriptor, int64_t nTraces, int nSamples)
{
    const size_t recordBytes = 240 + sizeof(float) * size_t(nSamples);
    std::vector<unsigned char> record(recordBytes);
    const std::unique_ptr<float[]> traces(new float[size_t(nTraces) * size_t(nSamples)]);
    for (int64_t i = 0; i < nTraces; ++i) {
        if (::pread(descriptor, record.data(), recordBytes, 3600 + i * int64_t(recordBytes)) != ssize_t(recordBytes))
            break;
        float* const out = traces.get() + i * nSamples;
        for (int j = 0; j < nSamples; ++j) {
            uint32_t word = 0;
            std::memcpy(&word, &record[240 + sizeof word * size_t(j)], sizeof word);
            word = __builtin_bswap32(word);
            std::memcpy(out + j, &word, sizeof word);
        }
    }
    return traces[size_t(nTraces) * size_t(nSamples) - 1];
}

int64_t plainReadOfFile(int descriptor)
{
    static char block[1 << 20];
    int64_t total = 0;
    for (;;) {
        const ssize_t got = ::pread(descriptor, block, sizeof block, total);
        if (got <= 0) return got < 0 ? -1 : total;
        total += got;
    }
}
