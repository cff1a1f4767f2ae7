/// Where a SEG-Y file's parts stand when they don't stand at the usual places.
#ifndef SEGYREADLAYOUT_H
#define SEGYREADLAYOUT_H

#include "sources/segyrecords.h"

/// In the order of the menu's choice.
enum class SegyByteOrder {
    OfType,        ///< the file type decides
    HighestFirst,  ///< big-endian
    LowestFirst    ///< little-endian
};

/// The longest trace header that the standard has room for: 100 extensions.
constexpr int mostSegyHeaderBytes = 101 * segyTraceHeaderBytes;

/// The standard places unless the user, or a guess, says otherwise.
struct SegyReadLayout {
    int64_t firstTrace = segyReelBytes;      ///< byte of the first trace header, from 0
    int headerBytes = segyTraceHeaderBytes;  ///< of a trace header with its extensions; the first 240 are read
    int sampleFormat = 0;                    ///< a format of segyLayoutSamples(); 0 leaves it to the reel and the user
    SegyByteOrder byteOrder = SegyByteOrder::OfType;

    bool operator==(const SegyReadLayout&) const = default;
    bool isStandard() const { return *this == SegyReadLayout(); }
};

#endif
