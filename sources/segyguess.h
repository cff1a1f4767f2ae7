/// What a SEG-Y file says of itself, held against what it holds: the settings that read it, and why.
#ifndef SEGYGUESS_H
#define SEGYGUESS_H

#include "sources/segyguesslayout.h"
#include "sources/segyguesssamples.h"
#include "sources/segyguesstext.h"
#include "sources/segyloadparm.h"
#include "sources/segyvarying.h"

/// One line of the panel.
struct SegyGuessFact {
    std::string what;      ///< e.g. "Byte order"
    std::string evidence;  ///< what was seen
    std::string choice;    ///< what follows, or why nothing does
};

struct SegyGuess {
    enum Verdict {
        NotSegy,      ///< nothing that a SEG-Y file could be; the settings stay
        NotFollowed,  ///< a SEG-Y file that the reader's rules can't follow; the settings stay
        Read          ///< the settings read it
    };
    Verdict verdict = NotSegy;
    std::string summary;  ///< one sentence
    std::vector<SegyGuessFact> facts;
    SegyLoadParm parm;  ///< the settings given, with what was found
    SegyLayoutSearch search;
    int64_t longestEnsemble = 0;  ///< traces of the largest ensemble that was seen, by the sort found
    SegyHeaderSample sample;      ///< the trace headers that were looked at; empty if NotSegy
};

/// Looks at a file. Bounded whatever it claims: some thousand headers and some ten thousand samples.
///
/// @param before  settings to start from; the list of files, remap and index are kept, the index is only
///                switched on where an ensemble stands in pieces
/// Returns true, also for what is no SEG-Y file; false with the system's text in *error when reading failed.
bool guessSegy(const ByteSource& source, const SegyLoadParm& before, SegyGuess* guess, std::string* error);
/// The same for a file on disk. @param path in the system's encoding
bool guessSegyFile(const std::string& path, const SegyLoadParm& before, SegyGuess* guess, std::string* error);

#endif
