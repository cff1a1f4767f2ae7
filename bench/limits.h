/// The practical limits: each function does, in a plain loop, the same work as one of our kernels, and
/// gives the same sums. A figure of ours is the ratio of its time to that of its limit.
#ifndef LIMITS_H
#define LIMITS_H

#include <cstddef>
#include <cstdint>

/// Copies nBytes: what this machine's memory gives.
void plainCopy(void* to, const void* from, size_t nBytes);

// Trace raster.

/// Eight-point resampling to nOut rows by a table of 513 fractions: the samples stand from padded + 16 on, a
/// sample every 1 / step rows.
void plainResample(const float* padded, double step, const float (*taps)[8], int nOut, float* out);
/// A plain picture of resampled traces, out[row + trace * stride], pixPerTrace apart from xbase on.
struct PlainPicture {
    const float* out;
    size_t stride;
    int nTraces, width, height, xbase, clipPix;
    float pixPerTrace;
    unsigned* pixels;
};
/// Colours by a table that runs from maxValue down in steps of increment.
/// @param isLined  each trace's end is black
void plainColor(const PlainPicture& picture, const unsigned* table, int nColors, double maxValue, double increment,
                bool isLined);
/// Variable area where isFilled, and wiggle where isLined, row by row.
void plainBlack(const PlainPicture& picture, bool isFilled, bool isLined);
/// The wiggles alone, over whatever stands there.
void plainLines(const PlainPicture& picture);
/// Linear interpolation of traces whose samples are step rows apart to nOut rows.
void plainLinear(const float* in, int n, float step, int nOut, float* out);
/// A map, interpolated from trace to trace.
void plainMap(const PlainPicture& picture, const unsigned* table, int nColors, double maxValue, double increment);

// Conditioning.

/// Copies nTraces traces of nSamples and takes each through a transform of length n and back, all in FFTW.
void plainTransforms(const float* in, int nTraces, int nSamples, int n, float* out);

// SEG-Y.

/// Adds up the 16 key values of each trace header of a mapped big-endian file, coordinates unscaled.
void plainHeaderSums(const unsigned char* file, int64_t nTraces, int64_t recordBytes, double* sums);
/// Reads all traces of an IEEE file and converts their samples into fresh memory; returns the last one.
float plainReadOfTraces(int descriptor, int64_t nTraces, int nSamples);
/// Reads a whole file in megabytes; returns its bytes, -1 on failure.
int64_t plainReadOfFile(int descriptor);

#endif
