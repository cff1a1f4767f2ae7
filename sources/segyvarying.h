/// How the bytes of the trace headers behave over a file.
#ifndef SEGYVARYING_H
#define SEGYVARYING_H

#include "sources/segyguesslayout.h"

/// Headers of a file in file order: runs of neighbours, so that steps between traces can be seen.
struct SegyHeaderSample {
    std::vector<SegyRawHeader> headers;
    bool isBigEndian = true;
    int64_t nTraces = 0;  ///< of the file

    size_t count() const { return headers.size(); }
    bool isWhole() const { return int64_t(headers.size()) == nTraces; }
    /// True when header i follows header i - 1 in the file.
    bool isNeighbour(size_t i) const { return i > 0 && headers[i].rank == headers[i - 1].rank + 1; }
    int32_t value(size_t i, int byte, int width) const;
    /// All values of a word. @param byte from 0, @param width 2 or 4
    std::vector<int32_t> values(int byte, int width) const;
};

/// The most headers that are looked at; of a longer file half of them are its first ones, the others stand in
/// its middle and at its end.
constexpr int64_t mostSampledHeaders = 4096;

/// Which ranks are looked at.
std::vector<int64_t> sampledRanks(int64_t nTraces);
/// Reads headers that stand at the given ranks and offsets. What the file has not is left out.
/// False with *error when reading failed.
bool readSegyHeaders(const ByteSource& source, const std::vector<int64_t>& ranks, const std::vector<int64_t>& offsets,
                     SegyHeaderSample* sample, std::string* error);
/// The same where a layout says.
bool readSegyHeaders(const ByteSource& source, const SegyLayout& layout, SegyHeaderSample* sample, std::string* error);

/// In the order of the ranking.
enum class SegyBehaviour { RepeatsByEnsemble, CountsUp, Coordinates, Varies, Constant };
const char* segyBehaviourName(SegyBehaviour behaviour);

/// A word of the trace header and how it behaves.
struct SegyVaryingWord {
    int byte = 0;   ///< from 1
    int width = 4;  ///< bytes
    SegyBehaviour behaviour = SegyBehaviour::Constant;
    std::string evidence;  ///< steps and lengths of runs are averages
    int32_t first = 0, least = 0, most = 0;
    int64_t nDistinct = 0;
    double share = 1.0;      ///< 0 to 1: the part of the steps that behave so
    const char* field = "";  ///< the standard's name of these bytes, empty if it has none
};

/// All words that are not 0 in every header, classified and ranked: by behaviour, by share, by byte. Where 4
/// bytes may be two short words, both readings are ranked.
std::vector<SegyVaryingWord> rankSegyWords(const SegyHeaderSample& sample);
/// Length of the runs of equal values over neighbouring headers, on average.
double meanRun(const SegyHeaderSample& sample, const std::vector<int32_t>& values);

#endif
