#include "sources/segyguesssamples.h"

#include "host/signal/bytes.h"

#include <algorithm>

constexpr int64_t mostTraces = 64;
constexpr int64_t mostSamplesATrace = 2000;

using Histogram = std::array<int64_t, 256>;

/// The bin under which a share of all n lies.
static int quantile(const Histogram& bins, int64_t n, double share)
{
    int64_t below = 0;
    for (size_t i = 0; i < bins.size(); ++i)
        if ((below += bins[i]) > int64_t(share * double(n))) return int(i);
    return int(bins.size()) - 1;
}

SegySampleStatistics countSegyWords(const uint32_t* words, size_t n)
{
    SegySampleStatistics statistics;
    Histogram exponents = {};
    double signSums[2] = {};  // of the exponents, by the sign bit
    statistics.nSamples = int64_t(n);
    for (size_t i = 0; i < n; ++i) {
        const uint32_t word = words[i];
        if ((word & 0x7fffffffu) == 0) continue;
        const uint32_t exponent = word >> 23 & 0xff;
        ++statistics.nNonZero;
        ++exponents[exponent];
        statistics.nNegative += word >> 31;
        signSums[word >> 31] += double(exponent);
        statistics.nNotFinite += exponent == 0xff;
        statistics.nSmallInteger += word >> 24 == 0 || word >> 24 == 0xff;
        if (exponent & 1) continue;
        ++statistics.nEven;
        statistics.nUnnormalised += (word >> 20 & 7) == 0;
    }
    for (size_t exponent = 0; exponent < exponents.size(); exponent += 2)
        statistics.nEvenExponents += exponents[exponent] > 0 && exponents[exponent] * 25 >= statistics.nNonZero;
    constexpr int64_t leastOfSign = 20;
    const int64_t nPositive = statistics.nNonZero - statistics.nNegative;
    if (std::min(nPositive, statistics.nNegative) >= leastOfSign)
        statistics.signContrast = signSums[1] / double(statistics.nNegative) - signSums[0] / double(nPositive);
    statistics.exponentSpan =
        quantile(exponents, statistics.nNonZero, 0.95) - quantile(exponents, statistics.nNonZero, 0.05);
    return statistics;
}

SegySampleKind segySampleKind(const SegySampleStatistics& statistics)
{
    constexpr int64_t leastSamples = 200, leastEven = 60;
    constexpr double leastContrast = 64.0;
    constexpr int mostSpan = 80;
    if (statistics.nNonZero < leastSamples / 10) return SegySampleKind::Undecided;
    if (statistics.nSmallInteger * 10 >= statistics.nNonZero * 9) return SegySampleKind::Integer4;
    if (statistics.signContrast > leastContrast) return SegySampleKind::Integer4;
    if (statistics.exponentSpan > mostSpan) return SegySampleKind::Undecided;
    if (statistics.nNonZero < leastSamples || statistics.nEven < leastEven) return SegySampleKind::Undecided;
    const double share = statistics.unnormalisedShare();
    if (share > 0.03) return SegySampleKind::Ieee;
    if (share < 0.01 && statistics.nEvenExponents >= 2 && statistics.nNotFinite == 0) return SegySampleKind::Ibm;
    return SegySampleKind::Undecided;
}

bool countSegySamples(const ByteSource& source, const SegyLayout& layout, SegySampleStatistics* statistics,
                      std::string* error)
{
    *statistics = SegySampleStatistics();
    if (layout.sampleBytes != 4 || layout.nSamples < 1) return true;
    const int64_t last = std::max<int64_t>(0, layout.nTraces - 1);
    const int64_t nLooked = std::min(last + 1, mostTraces);
    std::vector<uint32_t> words;
    int64_t offset = layout.firstTrace;
    for (int64_t i = 0; i < nLooked; ++i) {
        int64_t count = layout.nSamples;
        if (layout.isVariable) {
            SegyRawHeader header;
            if (readSegyRawHeader(source, offset, &header, error) < 0) return false;
            count = header.uint16(114, layout.isBigEndian);
        } else {
            offset = layout.offset(nLooked > 1 ? last * i / (nLooked - 1) : 0);
        }
        // The middle of a long trace: its start is often muted.
        const int64_t nWords = std::min<int64_t>(count, mostSamplesATrace);
        const int64_t start = offset + layout.headerBytes + (count - nWords) / 2 * 4;
        const size_t before = words.size();
        words.resize(before + size_t(nWords));
        const int64_t got = source.read(start, size_t(nWords) * 4, words.data() + before, error);
        if (got < 0) return false;
        words.resize(before + size_t(got / 4));
        offset += layout.headerBytes + count * 4;
    }
    if (layout.isBigEndian == littleEndian()) endianSwap(words.data(), 4, int64_t(words.size()));
    *statistics = countSegyWords(words.data(), words.size());
    return true;
}
