/// The records of a SEG-Y file as they stand in it, and the record of the in-memory trace map.
#ifndef SEGYRECORDS_H
#define SEGYRECORDS_H

#include <cstddef>
#include <cstdint>

constexpr int segyReelBytes = 3600;
constexpr int segyTextBytes = 3200;
constexpr int segyTraceHeaderBytes = 240;

/// The reel header: text and binary fields, one read fills it. In file byte order until swapped; `rev` and
/// `fixed` are neither swapped nor interpreted.
struct segyReel {
    char ebcdic[segyTextBytes];  ///< 40 lines of 80 characters
    int32_t jobid, line, reeln;
    int16_t ntrc;  ///< data traces per ensemble
    int16_t naux;  ///< auxiliary traces per ensemble
    int16_t nsr;   ///< sample interval in microseconds
    int16_t nsrField;
    int16_t nsamp;  ///< samples per trace
    int16_t nsampField;
    int16_t format;  ///< sample format code
    int16_t fold;
    int16_t sort;  ///< trace sort code
    int16_t vsum, sweepStart, sweepEnd, sweepLength, sweepType, sweepChannel, sweepTaperStart, sweepTaperEnd,
        sweepTaperType, correlated, gain, recovery;
    int16_t measurement;  ///< measurement system
    int16_t signal, vibPolarity;
    int32_t unuse1[10];
    int16_t rev, fixed;
    int32_t unuse2[74];
};
static_assert(sizeof(segyReel) == segyReelBytes);
static_assert(offsetof(segyReel, jobid) == 3200 && offsetof(segyReel, ntrc) == 3212);
static_assert(offsetof(segyReel, vibPolarity) == 3258 && offsetof(segyReel, rev) == 3300);

/// A trace: 240 bytes of header, then the samples.
struct segyTrace {
    int32_t tsln, tsnr, ffid, tnff, espn, cdpn, cdpt;
    int16_t trid, nvsum, nhsum, use;
    int32_t offset, relev, selev, sdepth, rdatum, sdatum, swater, rwater;
    int16_t escale, cscale;
    int32_t srcx, srcy, recx, recy;
    int16_t units, weather, subweath, suphole, guphole, sstatic, rstatic, tstatic, laga, lagb, delay, muteStart,
        muteEnd;
    int16_t nsampt;  ///< samples of this trace
    int16_t nsrt;    ///< sample interval in microseconds
    int16_t gaint, gainc, gaini, correlated, sweepStart, sweepEnd, sweepLen, sweepType, sweepTaperStart, sweepTaperEnd,
        sweepTaperType, aliasFilterFreq, aliasFilterSlop, notchFilterFreq, notchFilterSlop, lowCutFreq, highCutFreq,
        lowCutSlop, highCutSlop, yearRecord, dayRecord, hourRecord, minRecord, secRecord, timeCode;
    int16_t weightFactor;  ///< integer samples are divided by 2 to this power
    int16_t geoNumRoll, geoNumTrcFrst, geoNumTrcLast, gapSize, overTravel;
    int32_t unused[15];  ///< CDP x and y, inline, cross-line, then what differs from file to file
    float data[1];       ///< first of the samples
};
static_assert(offsetof(segyTrace, offset) == 36 && offsetof(segyTrace, escale) == 68);
static_assert(offsetof(segyTrace, units) == 88 && offsetof(segyTrace, nsampt) == 114);
static_assert(offsetof(segyTrace, weightFactor) == 168 && offsetof(segyTrace, unused) == 180);
static_assert(offsetof(segyTrace, data) == segyTraceHeaderBytes);

/// One trace of the map. In memory only; at most 96 bytes a trace.
struct segyMapItem {
    float item[16];   ///< key values, see segyData2::getItemKey
    uint64_t offset;  ///< of the trace record in its file, in bytes
    uint32_t itrace;  ///< rank in file order, from 0
    uint32_t ifile;   ///< index in the list of file names
};
static_assert(sizeof(segyMapItem) == 80);

/// A run of fields of the same width that a byte swap treats.
struct SegySwapRange {
    int byte;
    int elementBytes;
    int count;
};

/// Swaps the reel's fields in place: the 3 words at 3200 and the 24 short words from 3212.
void swapReelFields(segyReel* reel);
/// Swaps the fields of a trace header of 240 bytes in place. Bytes 196 to 239 stay as they are in the file.
void swapTraceFields(void* header);

#endif
