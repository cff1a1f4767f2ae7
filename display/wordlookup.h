/// Header words of an ensemble by their names, and what is measured by them.
#ifndef WORDLOOKUP_H
#define WORDLOOKUP_H

class SeismicData;
struct HeaderTable;

/// Index of a header word, from 0, by its name padded to eight characters; -1 if there is none. The ensemble has at
/// least one trace.
/// @param isTrevia  names come from the host's lists, else from the SEG-Y mapping of `table`, which may be null
int wordIndex(const SeismicData& data, bool isTrevia, const HeaderTable* table, const char* name);

/// Mean over the live traces, those whose word `typeWord` is 1, of the mean absolute amplitude of their samples that
/// are finite and not 0; traces with up to 3 of these don't count. 0 without such traces.
float meanLiveAmplitude(const SeismicData& data, int typeWord);

#endif
