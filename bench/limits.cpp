#include "bench/limits.h"

#include <algorithm>
#include <cstring>

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

void plainColor(const PlainPicture& p, const unsigned* table, int nColors, double maxValue, double increment)
{
    for (int r = 0; r < p.height; ++r) {
        unsigned* const line = p.pixels + size_t(r) * p.width;
        int prevEnd = p.xbase;
        for (int k = 0; k < p.nTraces; ++k) {
            const float value = p.out[r + k * p.stride];
            const int axis = std::clamp(int(k * p.pixPerTrace + p.xbase), 0, p.width - 1);
            const int a = std::clamp(int(value * p.pixPerTrace), -p.clipPix, p.clipPix);
            const int end = std::clamp(a + axis, 0, p.width - 1);
            const unsigned color = table[std::clamp(int((maxValue - value) / increment), 0, nColors - 1)];
            if (value > 0.0f) {
                for (int x = std::max(axis, prevEnd); x <= end; ++x) line[x] = color;
            } else {
                for (int x = end; x <= axis; ++x) line[x] = color;
            }
            prevEnd = end;
        }
    }
}

void plainWiggle(const PlainPicture& p)
{
    const unsigned black = 0xff000000u;
    for (int r = 0; r < p.height; ++r) {
        unsigned* const line = p.pixels + size_t(r) * p.width;
        int prevEnd = p.xbase;
        for (int k = 0; k < p.nTraces; ++k) {
            const float value = p.out[r + k * p.stride];
            const int axis = std::clamp(int(k * p.pixPerTrace + p.xbase), 0, p.width - 1);
            const int end = std::clamp(std::clamp(int(value * p.pixPerTrace), -p.clipPix, p.clipPix) + axis, 0, p.width - 1);
            if (value > 0.0f)
                for (int x = std::max(axis, prevEnd); x <= end; ++x) line[x] = black;
            line[end] = black;
            if (r > 0) {
                const float above = p.out[r - 1 + k * p.stride];
                const int from = std::clamp(int(above * p.pixPerTrace), -p.clipPix, p.clipPix) + axis;
                const int first = std::max(end < from ? end + 1 : from, 0);
                const int last = std::min(end > from ? end - 1 : from, p.width - 1);
                for (int x = first; x <= last; ++x) (line - p.width)[x] = black;
            }
            prevEnd = end;
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
