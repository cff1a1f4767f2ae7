/// The header table that a window has saved from the flow or file it shows: six parallel lists.
#ifndef HEADERTABLE_H
#define HEADERTABLE_H

#include "tracedata/headerwords.h"

#include <QList>

/// Entry i of each list belongs to header word i. Owned by the window, lent to its header views, which
/// only read it; a window changes it on the main thread when no index is being built.
struct HeaderTable : public HeaderWords {
    bool _headerSaved = false;   ///< the lists are valid and take precedence over the host's
    QList<QString> _headerName;  ///< padded with blanks to eight characters
    QList<QString> _headerDesc;
    QList<int> _headerIndex;
    QList<int> _headerFormat;  ///< a HeaderFormat
    QList<int> _headerExist;   ///< 1 if the word exists
    QList<int> _headerLength;  ///< in 4-byte cells

    void clear();
    /// Takes over all words of a header of nWords, and marks the table as saved. A position without a name gets
    /// "None", which doesn't exist.
    void fill(const HeaderWords& words, int nWords);
    void append(const QString& name, const QString& desc, int index, int format, int exists, int length);
    /// Position of a name in the lists, compared whole with its padding; -1 if there is none.
    int find(const QString& name) const;

    HeaderWordInfo word(const QString& name) const override;
    QString name(WordFrom0 word) const override;
    /// Number of words, the same for all six lists.
    int count() const override { return _headerName.size(); }
    bool isInForce() const override { return _headerSaved; }
};

#endif
