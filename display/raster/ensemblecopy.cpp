#include "display/raster/ensemblecopy.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>

/// Below so many samples a second thread takes longer to start than it saves.
static constexpr size_t worthThreads = 1000000;

/// Room for n elements in *grown, if the buffer has too few; false when memory ran out.
template <class Buffer>
static bool reserve(const Buffer& buffer, size_t n, Buffer* grown)
{
    if (buffer.size() >= n) return true;
    try {
        grown->resize(n);
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const std::length_error&) {
        return false;
    }
    return true;
}

template <class Buffer>
static void take(Buffer* buffer, Buffer* grown)
{
    if (grown->size() > buffer->size()) buffer->swap(*grown);
}

void EnsembleCopy::point()
{
    for (int i = 0; i < _nTraces; ++i) {
        _traces[i] = _samples.data() + size_t(i) * _nSamples;
        _headers[i] = _words.data() + size_t(i) * _nWords;
    }
}

bool EnsembleCopy::holds(float* const* traces, int* const* headers, int n, int first, int nSamples, int nWords) const
{
    if (n != _nTraces || nSamples != _nSamples || nWords != _nWords) return false;
    for (int i = 0; i < n; ++i) {
        // Bits, so that a sample that is no number equals itself.
        if (std::memcmp(_traces[i], traces[i] + first, size_t(nSamples) * sizeof(float)) != 0) return false;
        if (std::memcmp(_headers[i], headers[i], size_t(nWords) * sizeof(int)) != 0) return false;
    }
    return true;
}

bool EnsembleCopy::copy(float* const* traces, int* const* headers, int n, int first, int nSamples, int nWords,
                        std::string* error)
{
    if (n < 1) return true;
    // Nothing moves before all of it is there: the data on the screen still look at the former blocks.
    RawVector<float> samples;
    std::vector<int> words;
    std::vector<float*> tracePointers;
    std::vector<int*> headerPointers;
    const char* lacking = !reserve(_samples, size_t(n) * nSamples, &samples) ? "2"
                          : !reserve(_words, size_t(n) * nWords, &words)     ? "3"
                          : !reserve(_traces, size_t(n), &tracePointers)     ? "0"
                          : !reserve(_headers, size_t(n), &headerPointers)   ? "1"
                                                                             : nullptr;
    if (lacking) {
        *error = std::string("MERIDUNE: loadSeismicData, error while getting memory, ") + lacking + ".";
        return false;
    }
    take(&_samples, &samples);
    take(&_words, &words);
    take(&_traces, &tracePointers);
    take(&_headers, &headerPointers);
    _nTraces = n;
    _nSamples = nSamples;
    _nWords = nWords;
    point();
#pragma omp parallel for schedule(static) if (size_t(n) * size_t(nSamples) > worthThreads)
    for (int i = 0; i < n; ++i) {
        std::copy(traces[i] + first, traces[i] + first + nSamples, _traces[i]);
        std::copy(headers[i], headers[i] + nWords, _headers[i]);
    }
    return true;
}
