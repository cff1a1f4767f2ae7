/// The header words of SEG-Y data where no flow runs: the standard ones.
#ifndef SEGYWORDS_H
#define SEGYWORDS_H

#include "tracedata/headerwords.h"

/// The standard words, one cell each. An unknown name has the place and the description of CHAN, the first word:
/// sorts and remap tables count on it. It doesn't exist all the same.
class SegyWords : public HeaderWords
{
public:
    HeaderWordInfo word(const QString& name) const override;
    QString name(WordFrom0 word) const override;
    int count() const override { return standardWordCount; }
};

/// The one list, shared by all; lives as long as the program.
const SegyWords& segyWords();

#endif
