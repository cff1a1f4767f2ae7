/// Which sort a SEG-Y file stands in, and how large its ensembles are, by its trace headers.
#ifndef SEGYGUESSENSEMBLES_H
#define SEGYGUESSENSEMBLES_H

#include "sources/segyvarying.h"

struct SegySortGuess {
    int code = 0;  ///< 1 to 11; 0: the headers don't tell, the reel's sort word decides
    std::string evidence;
};

struct SegyEnsembleGuess {
    int64_t longest = 0;       ///< traces of the largest ensemble that was seen
    bool isScattered = false;  ///< an ensemble's traces stand in several places
    std::string evidence;
};

/// @param sample    at least one header
/// @param reelSort  the reel's sort word
SegySortGuess guessSegySort(const SegyHeaderSample& sample, int reelSort = 0);
/// @param keyByte  of the primary key word in the trace header, from 0
SegyEnsembleGuess guessSegyEnsembles(const SegyHeaderSample& sample, int keyByte);

#endif
