/// Files for the tests of the guess, and what it says of them.
#ifndef SEGYGUESSFIXTURE_H
#define SEGYGUESSFIXTURE_H

#include "sources/segyguesssettings.h"
#include "sources/segysamples.h"
#include "tests/unit/sources/segybuilder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

inline SegyGuess guessOf(const std::vector<char>& bytes, const SegyLoadParm& before = SegyLoadParm())
{
    const MemorySource source(bytes.data(), bytes.size());
    SegyGuess guess;
    std::string error;
    EXPECT_TRUE(guessSegy(source, before, &guess, &error)) << error;
    return guess;
}

inline const SegyGuessFact& fact(const SegyGuess& guess, const std::string& what)
{
    static const SegyGuessFact none;
    for (const SegyGuessFact& f : guess.facts)
        if (f.what == what) return f;
    ADD_FAILURE() << "no fact " << what;
    return none;
}

/// Noise of nearly normal distribution and unit deviation, always the same.
class Noise
{
public:
    double next()
    {
        double sum = 0.0;
        for (int i = 0; i < 12; ++i) {
            _state = _state * 6364136223846793005ull + 1442695040888963407ull;
            sum += double(_state >> 11) / 9007199254740992.0;
        }
        return sum - 6.0;
    }

private:
    uint64_t _state = 12345;
};

inline uint32_t ieeeBits(double value)
{
    const auto number = float(value);
    uint32_t bits;
    std::memcpy(&bits, &number, 4);
    return bits;
}

/// A number in base 16 with excess 64, by its definition.
inline uint32_t ibmBits(double value)
{
    if (value == 0.0) return 0;
    uint32_t exponent = 64;
    double fraction = std::fabs(value);
    while (fraction >= 1.0) fraction /= 16.0, ++exponent;
    while (fraction < 1.0 / 16.0) fraction *= 16.0, --exponent;
    return (value < 0.0 ? 0x80000000u : 0u) | exponent << 24 | uint32_t(fraction * 16777216.0);
}

/// Fills the usual fields of a shot record: trace numbers, FFID, channel, trace id, count and interval.
inline void fillHeader(SegyBuilder* file, size_t i, int ffid, int channel, int nSamples)
{
    file->setHeader<int32_t>(i, 0, int32_t(i) + 1);
    file->setHeader<int32_t>(i, 4, int32_t(i) + 1);
    file->setHeader<int32_t>(i, 8, ffid);
    file->setHeader<int32_t>(i, 12, channel);
    file->setHeader<int16_t>(i, 28, 1);
    file->setHeader<int16_t>(i, 114, int16_t(nSamples));
    file->setHeader<int16_t>(i, 116, 2000);
}

/// 4 shots of 6 channels, 50 samples of noise each.
inline SegyBuilder noiseFile(int code, bool isBigEndian, double amplitude, uint32_t (*bits)(double))
{
    SegyBuilder file(50, code, isBigEndian);
    Noise noise;
    for (size_t i = 0; i < 24; ++i) {
        std::vector<uint32_t> words(50);
        for (uint32_t& word : words) word = bits(amplitude * noise.next());
        file.addTrace(words);
        fillHeader(&file, i, 101 + int(i) / 6, 1 + int(i) % 6, 50);
    }
    return file;
}

/// 6 traces of 10 IEEE samples, 2 shots of 3 channels.
inline SegyBuilder smallFile(bool isBigEndian = true)
{
    SegyBuilder file(10, 5, isBigEndian);
    for (size_t i = 0; i < 6; ++i) {
        file.addTrace(std::vector<float>(10, 1.5f));
        fillHeader(&file, i, 7 + int(i) / 3, 1 + int(i) % 3, 10);
    }
    return file;
}

inline SegyLoadParm oddSettings()
{
    SegyLoadParm parm;
    parm.isort = 6;
    parm.iformat = 6;
    parm.nsamp = 77;
    parm.srate = 0.5f;
    return parm;
}

inline bool isSame(const SegyLoadParm& a, const SegyLoadParm& b)
{
    return a.isort == b.isort && a.itype == b.itype && a.iformat == b.iformat && a.ivariable == b.ivariable &&
           a.icscale == b.icscale && a.iescale == b.iescale && a.nsamp == b.nsamp && a.maxtr == b.maxtr &&
           a.srate == b.srate && a.indexbuilt == b.indexbuilt && a.files == b.files && a.iremap == b.iremap &&
           a.layout == b.layout;
}

#endif
