#include "display/ensemblecopy.h"

#include <algorithm>
#include <new>
#include <stdexcept>

/// Makes room for n elements; 0 when memory ran out.
template <typename T>
static int grow(std::vector<T>* buffer, size_t n)
{
    if (buffer->size() >= n) return 1;
    try {
        buffer->resize(n);
    } catch (const std::bad_alloc&) {
        return 0;
    } catch (const std::length_error&) {
        return 0;
    }
    return 1;
}

void EnsembleCopy::point()
{
    for (int i = 0; i < _nTraces; ++i) {
        _traces[i] = _samples.data() + size_t(i) * _nSamples;
        _headers[i] = _words.data() + size_t(i) * _nWords;
    }
}

int EnsembleCopy::copy(float* const* traces, int* const* headers, int n, int first, int nSamples, int nWords,
                       std::string* error)
{
    if (n < 1) return 1;
    // The large blocks first: when they can't be had, nothing else needs to grow.
    const char* lacking = !grow(&_samples, size_t(n) * nSamples) ? "2"
                          : !grow(&_words, size_t(n) * nWords)   ? "3"
                          : !grow(&_traces, size_t(n))           ? "0"
                          : !grow(&_headers, size_t(n))          ? "1"
                                                                 : nullptr;
    point();  // the blocks may have moved, whether all of them have grown or not
    if (lacking) {
        *error = std::string("MERIDUNE: loadSeismicData, error while getting memory, ") + lacking + ".";
        return 0;
    }
    _nTraces = n;
    _nSamples = nSamples;
    _nWords = nWords;
    point();
    for (int i = 0; i < n; ++i) {
        std::copy(traces[i] + first, traces[i] + first + nSamples, _traces[i]);
        std::copy(headers[i], headers[i] + nWords, _headers[i]);
    }
    return 1;
}
