/// What kind of numbers the samples of a SEG-Y file are, by their bits alone.
#ifndef SEGYGUESSSAMPLES_H
#define SEGYGUESSSAMPLES_H

#include "sources/segyguesslayout.h"

/// Counts over 4-byte samples.
///
/// IBM against IEEE: the fraction of a normalised IBM number never begins with a zero digit (IBM System/360
/// Principles of Operation, 1964), so bits 23 to 20 are never all zero. In IEEE numbers bit 23 is the lowest
/// bit of the exponent, and where it is 0, the three fraction bits below it are 0 in log2(9/8) = 17 % of all
/// numbers that spread over several octaves (S. Newcomb, Note on the frequency of use of the different digits
/// in natural numbers, American Journal of Mathematics 4, 1881).
struct SegySampleStatistics {
    int64_t nSamples = 0;  ///< looked at
    int64_t nNonZero = 0;
    int64_t nSmallInteger = 0;  ///< first byte 00 or FF, which no usual float has
    int64_t nEven = 0;          ///< bit 23 is 0
    int64_t nUnnormalised = 0;  ///< of these, bits 22 to 20 are 0, too
    int64_t nNotFinite = 0;     ///< infinite or not a number if IEEE
    int nEvenExponents = 0;     ///< IEEE exponents with bit 23 at 0 that 4 % or more of the samples have
    int64_t nNegative = 0;      ///< sign bit set
    /// Mean of bits 30 to 23 where the sign bit is set less that where it is clear; 0 with too few of either.
    /// Floats carry their sign apart, so it is small; the bits of a negative integer are turned over, which
    /// lifts it to almost 255.
    double signContrast = 0.0;
    int exponentSpan = 0;  ///< values of bits 30 to 23 that hold the middle 90 % of what is not 0

    double unnormalisedShare() const { return nEven > 0 ? double(nUnnormalised) / double(nEven) : 0.0; }
};

enum class SegySampleKind {
    Undecided,  ///< too few, all zero, within too few octaves, or over more of them than data have
    Ibm,
    Ieee,
    Integer4
};

/// Counts over samples of some traces from the first to the last one, of variable length of the first ones;
/// at most 64 traces of 2000 samples. False with *error when reading failed.
bool countSegySamples(const ByteSource& source, const SegyLayout& layout, SegySampleStatistics* statistics,
                      std::string* error);
/// The same over words in machine order.
SegySampleStatistics countSegyWords(const uint32_t* words, size_t n);
SegySampleKind segySampleKind(const SegySampleStatistics& statistics);

#endif
