/// Where the traces of a SEG-Y file stand: what its own words claim, held against its size and its headers.
#ifndef SEGYGUESSLAYOUT_H
#define SEGYGUESSLAYOUT_H

#include "sources/bytesource.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// 240 bytes of a trace header in file order, with its place.
struct SegyRawHeader {
    int64_t rank = 0;  ///< in file order, from 0
    std::array<unsigned char, 240> bytes = {};

    int int16(int byte, bool isBigEndian) const;
    int uint16(int byte, bool isBigEndian) const { return int16(byte, isBigEndian) & 0xffff; }
    int32_t int32(int byte, bool isBigEndian) const;
    bool isZero() const;
};

/// How a file is laid out. Positions are in bytes from the start of the file.
struct SegyLayout {
    bool isBigEndian = true;
    int64_t firstTrace = 3600;
    int headerBytes = 240;  ///< of a trace header with its extensions
    int nSamples = 0;
    int sampleBytes = 4;
    int formatCode = 0;         ///< as the file tells it
    bool isVariable = false;    ///< each trace header tells its own length
    int64_t nTraces = 0;        ///< whole ones; of a long file with variable lengths those that were walked
    int64_t tailBytes = 0;      ///< behind the last whole trace
    bool isWalkWhole = true;    ///< of variable lengths: the walk has reached the end of the file
    double plausibility = 0.0;  ///< 0 to 1: how much the bytes at the expected places look like trace headers

    int64_t recordBytes() const { return headerBytes + int64_t(nSamples) * sampleBytes; }
    int64_t offset(int64_t rank) const { return firstTrace + rank * recordBytes(); }
};

/// What the reel header claims in one byte order.
struct SegyReelClaims {
    int format = 0;       ///< format code
    int nSamples = 0;     ///< unsigned
    int longSamples = 0;  ///< of revision 2, 0 if absent
    int interval = 0;     ///< microseconds, signed
    int nTraces = 0, nAux = 0, sort = 0;
    int revision = 0;          ///< major number; 0 for what is no revision
    int nExtendedText = 0;     ///< -1: told by an end stanza
    int nExtraHeaders = 0;     ///< of 240 bytes, behind each trace header
    int64_t firstTrace = 0;    ///< of revision 2, 0 if absent
    bool isOrderTold = false;  ///< the byte-order constant at byte 3297 reads 01020304
    bool isFormatKnown() const { return format >= 1 && format <= 16 && format != 13 && format != 14; }
};

/// A layout, and what spoke for it.
struct SegyLayoutSearch {
    bool isFound = false;
    bool isSu = false;         ///< no reel header: trace headers from byte 0 on
    bool isSeg2 = false;       ///< another format, known by its first bytes
    SegyReelClaims claims[2];  ///< little-endian, big-endian
    SegyLayout layout;
    std::vector<SegyRawHeader> probes;  ///< headers that were looked at: first ones, middle ones, last ones
    std::vector<double> probeScores;    ///< how plausible each is, 0 to 1
    int endStanzaBlocks = 0;            ///< text blocks up to one with an end stanza, 0 if none was found
};

/// Bytes of a sample by its code, 0 for a code that has none; code 6 is 8 bytes by the standard.
int segyStandardSampleBytes(int code);
/// How much 240 bytes look like a trace header: the share of fields that hold what such a field can.
///
/// @param first  another header of the file: what it holds is plausible, too
/// A header of nothing but zeros is neither plausible nor not: 0.4.
double segyHeaderPlausibility(const SegyRawHeader& header, const SegyRawHeader& first, bool isBigEndian, int nSamples,
                              int interval);
/// Reads a header; what lies behind the end of the file is 0. Returns the bytes present, -1 with *error on
/// failure.
int64_t readSegyRawHeader(const ByteSource& source, int64_t offset, SegyRawHeader* header, std::string* error);
/// Searches the layout: all that the words of the file allow are tried in both byte orders, and the one whose
/// records fit the size and hold plausible headers wins. Reads at most some thousand headers.
/// False with *error when reading failed.
bool findSegyLayout(const ByteSource& source, SegyLayoutSearch* search, std::string* error);

#endif
