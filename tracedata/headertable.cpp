#include "tracedata/headertable.h"

void HeaderTable::clear()
{
    *this = HeaderTable();
}

void HeaderTable::append(const QString& name, const QString& desc, int index, int format, int exists, int length)
{
    _headerName.append(name);
    _headerDesc.append(desc);
    _headerIndex.append(index);
    _headerFormat.append(format);
    _headerExist.append(exists);
    _headerLength.append(length);
}

void HeaderTable::fill(const HeaderWords& words, int nWords)
{
    HeaderTable filled;  // the words may be those of this table
    for (int i = 0; i < nWords; ++i) {
        const QString name = words.name(WordFrom0(i));
        if (name.isEmpty()) {
            filled.append("None", "None", i, Integer4Format, 0, 1);
            continue;
        }
        const QString padded = name.leftJustified(8, ' ');
        const HeaderWordInfo info = words.word(padded);
        filled.append(padded, info.description, i, info.format, info.exists, info.length);
    }
    filled._headerSaved = true;
    *this = filled;
}

int HeaderTable::find(const QString& name) const
{
    return _headerName.indexOf(name);
}

HeaderWordInfo HeaderTable::word(const QString& name) const
{
    const int i = find(name);
    if (i < 0) return {};
    return {WordFrom0(_headerIndex[i]), _headerFormat[i], _headerLength[i], _headerExist[i], _headerDesc[i]};
}

QString HeaderTable::name(WordFrom0 word) const
{
    return word.value >= 0 && word.value < count() ? _headerName[word.value] : QString();
}
