/// Header words of an ensemble by their names, and what is measured by them.
#ifndef WORDLOOKUP_H
#define WORDLOOKUP_H

class SeismicData;

/// Value of a header word of a trace, from 0, by its name padded to eight characters; 0 without such a word.
double wordOfTrace(const SeismicData& data, const char* name, int trace);

/// Mean over the live traces, those whose word `typeWord` is 1, of the mean absolute amplitude of their samples that
/// are finite and not 0; traces with up to 3 of these don't count. 0 without such traces.
float meanLiveAmplitude(const SeismicData& data, int typeWord);

#endif
