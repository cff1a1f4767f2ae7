#include "sources/segywords.h"

HeaderWordInfo SegyWords::word(const QString& name) const
{
    const int found = standardWordIndex(name.toLatin1().constData());
    const StandardWord& word = standardWords[found < 0 ? 0 : found];
    HeaderWordInfo info;
    info.index = WordFrom0(found < 0 ? 0 : found);
    if (found >= 0) info.format = word.format;
    info.exists = found >= 0;
    info.description = QString::fromLatin1(word.description);
    return info;
}

QString SegyWords::name(WordFrom0 word) const
{
    const bool isWord = word.value >= 0 && word.value < standardWordCount;
    return isWord ? QString::fromLatin1(standardWords[word.value].name) : QString();
}

const SegyWords& segyWords()
{
    static const SegyWords words;
    return words;
}
