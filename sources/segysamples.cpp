#include "sources/segysamples.h"

#include "host/signal/bytes.h"

#include <cmath>
#include <cstdint>
#include <cstring>

// Samples stand behind 240 bytes in a caller's buffer of any type.
typedef float AnyFloat __attribute__((may_alias, aligned(1)));
typedef int32_t AnyInt32 __attribute__((may_alias, aligned(1)));

int segySampleBytes(int format)
{
    return format == SegyInteger2 ? 2 : format == SegyInteger1 ? 1 : 4;
}

/// Integers that the floats would overrun are copied out first.
template <typename T>
static void convertWeighted(int weightFactor, void* data, int count, std::vector<char>* work)
{
    const size_t nBytes = size_t(count) * sizeof(T);
    if (work->size() < nBytes) work->resize(nBytes);
    std::memcpy(work->data(), data, nBytes);
    const auto factor = float(std::pow(2.0, -weightFactor));
    auto* out = static_cast<AnyFloat*>(data);
    for (int i = 0; i < count; ++i) {
        T sample;
        std::memcpy(&sample, work->data() + size_t(i) * sizeof(T), sizeof(T));
        out[i] = float(sample) * factor;
    }
}

static void convertGained(void* data, int count)
{
    auto* bytes = static_cast<char*>(data);
    for (int i = 0; i < count; ++i, bytes += 4) {
        int16_t halves[2];
        std::memcpy(halves, bytes, sizeof halves);
        const float value = float(halves[0]) * float(double(halves[1]) * double(halves[1]));
        std::memcpy(bytes, &value, sizeof value);
    }
}

void convertSegySamples(int format, int weightFactor, void* data, int count, std::vector<char>* work)
{
    if (count < 1) return;
    switch (format) {
    case SegyIbm: ibmToIeee(data, count); break;
    case SegyInteger4:
        for (int i = 0; i < count; ++i)
            static_cast<AnyFloat*>(data)[i] = float(static_cast<const AnyInt32*>(data)[i]);
        break;
    case SegyInteger2: convertWeighted<int16_t>(weightFactor, data, count, work); break;
    case SegyInteger1: convertWeighted<int8_t>(weightFactor, data, count, work); break;
    case SegyIntegerGain: convertGained(data, count); break;
    default: break;
    }
}
