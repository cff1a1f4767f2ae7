#include "sources/segysamples.h"

#include "host/signal/bytes.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>

// Samples stand behind 240 bytes in a caller's buffer of any type.
typedef float AnyFloat __attribute__((may_alias, aligned(1)));
typedef int32_t AnyInt32 __attribute__((may_alias, aligned(1)));

const std::vector<SegyLayoutSample>& segyLayoutSamples()
{
    static const std::vector<SegyLayoutSample> list = {
        {SegyReal8, "IEEE (8 byte)"},         {SegyInteger3, "Integer (3 byte)"},
        {SegyInteger8, "Integer (8 byte)"},   {SegyUnsigned1, "Unsigned (1 byte)"},
        {SegyUnsigned2, "Unsigned (2 byte)"}, {SegyUnsigned3, "Unsigned (3 byte)"},
        {SegyUnsigned4, "Unsigned (4 byte)"}, {SegyUnsigned8, "Unsigned (8 byte)"}};
    return list;
}

int segyFormatOfChoice(int choice)
{
    static const int codes[] = {0, SegyIeee, SegyIbm, SegyInteger4, SegyInteger2, SegyInteger1, SegyIntegerGain};
    return choice >= 1 && choice < int(std::size(codes)) ? codes[choice] : 0;
}

int segySampleBytes(int format)
{
    switch (format) {
    case SegyInteger1:
    case SegyUnsigned1: return 1;
    case SegyInteger2:
    case SegyUnsigned2: return 2;
    case SegyInteger3:
    case SegyUnsigned3: return 3;
    case SegyReal8:
    case SegyInteger8:
    case SegyUnsigned8: return 8;
    default: return 4;
    }
}

/// Integers that the floats would overrun are copied out first; `value` reads one of nBytes.
template <typename Value>
static void convertWeighted(int nBytes, Value value, int weightFactor, void* data, int count, std::vector<char>* work)
{
    const size_t nAll = size_t(count) * size_t(nBytes);
    if (work->size() < nAll) work->resize(nAll);
    std::memcpy(work->data(), data, nAll);
    const auto factor = float(std::pow(2.0, -weightFactor));
    auto* out = static_cast<AnyFloat*>(data);
    for (int i = 0; i < count; ++i) out[i] = float(value(work->data() + size_t(i) * size_t(nBytes))) * factor;
}

template <typename T>
static T valueAt(const char* bytes)
{
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

template <typename T>
static void convertNarrow(int weightFactor, void* data, int count, std::vector<char>* work)
{
    convertWeighted(int(sizeof(T)), valueAt<T>, weightFactor, data, count, work);
}

/// Three bytes in machine order, as the upper ones of a word of four, which carries the sign down.
template <typename T>
static void convertThree(int weightFactor, void* data, int count, std::vector<char>* work)
{
    const auto value = [](const char* bytes) {
        char word[4] = {};
        std::memcpy(word + (littleEndian() ? 1 : 0), bytes, 3);
        return T(valueAt<T>(word) >> 8);
    };
    convertWeighted(3, value, weightFactor, data, count, work);
}

/// Words of four or eight bytes, by value; the floats never overrun what is still to come.
template <typename T>
static void convertWide(void* data, int count)
{
    auto* bytes = static_cast<char*>(data);
    for (int i = 0; i < count; ++i) {
        const auto value = float(valueAt<T>(bytes + size_t(i) * sizeof(T)));
        std::memcpy(bytes + size_t(i) * sizeof value, &value, sizeof value);
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
        for (int i = 0; i < count; ++i) static_cast<AnyFloat*>(data)[i] = float(static_cast<const AnyInt32*>(data)[i]);
        break;
    case SegyInteger2: convertNarrow<int16_t>(weightFactor, data, count, work); break;
    case SegyInteger1: convertNarrow<int8_t>(weightFactor, data, count, work); break;
    case SegyIntegerGain: convertGained(data, count); break;
    case SegyUnsigned1: convertNarrow<uint8_t>(weightFactor, data, count, work); break;
    case SegyUnsigned2: convertNarrow<uint16_t>(weightFactor, data, count, work); break;
    case SegyInteger3: convertThree<int32_t>(weightFactor, data, count, work); break;
    case SegyUnsigned3: convertThree<uint32_t>(weightFactor, data, count, work); break;
    case SegyUnsigned4: convertWide<uint32_t>(data, count); break;
    case SegyReal8: convertWide<double>(data, count); break;
    case SegyInteger8: convertWide<int64_t>(data, count); break;
    case SegyUnsigned8: convertWide<uint64_t>(data, count); break;
    default: break;
    }
}
