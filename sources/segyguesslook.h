/// Whether a file is plainly misread by the settings that it was opened with.
#ifndef SEGYGUESSLOOK_H
#define SEGYGUESSLOOK_H

#include "sources/segyguess.h"

class SegyLoader;

/// How a file is being read. Plain, so that it can be judged when its loader has gone.
struct SegyReading {
    bool isOpen = false;  ///< else it was refused: only the byte order is told
    bool isBigEndian = true;
    int64_t firstTrace = segyReelBytes;
    int headerBytes = segyTraceHeaderBytes;
    int sampleFormat = 0;  ///< code in force
    int nSamples = 0;
    bool isVariable = false;
    int sortCode = 0;   ///< of the menu, 0 for the reel's
    int nTraces = 0;    ///< of the first ensemble
    int maxTraces = 0;  ///< that an ensemble has room for
};

/// Of a loader that stands on its first ensemble; null where the file was refused.
SegyReading segyReading(SegyLoader* loader, const SegyLoadParm& told);

/// What is worth saying of a reading; nothing where `line` is empty.
struct SegyFirstLook {
    std::string line;          ///< what the guess found, and what is read otherwise; one sentence or two
    bool hasSettings = false;  ///< the guess has settings that read the file
};

/// Misread are: a refused file, one that is no SEG-Y file, another byte order, other places or lengths of the traces,
/// another kind of samples, ensembles of one trace where the headers hold larger ones, and an ensemble that ends for
/// want of room. What the user typed for the sort or the room is his wish.
///
/// @param name  of the file, for the line
SegyFirstLook firstLook(const std::string& name, const SegyGuess& guess, const SegyLoadParm& told,
                        const SegyReading& reading);

#endif
