/// What the words of a trace header are called and how they are stored, whoever keeps the list.
#ifndef HEADERWORDS_H
#define HEADERWORDS_H

#include "host/flow/standardwords.h"
#include "tracedata/wordnumber.h"

#include <QString>

/// What a list says of a name; as it starts, what it says of an unknown one.
struct HeaderWordInfo {
    WordFrom0 index;
    int format = Integer4Format;  ///< a HeaderFormat
    int length = 1;               ///< in 4-byte cells
    int exists = 0;               ///< 1 if the list has the word
    QString description;
};

/// A list of header words. Names are eight characters, padded with blanks. A list is lent to the header views
/// that ask it, and outlives them.
class HeaderWords
{
public:
    virtual ~HeaderWords() = default;
    /// What the list says of a name.
    virtual HeaderWordInfo word(const QString& name) const = 0;
    /// Name of the word that begins at a position; empty where none does.
    virtual QString name(WordFrom0 word) const = 0;
    /// Positions of a header: one more than the last.
    virtual int count() const = 0;
    /// Whether the list is to be asked: a table that nobody has filled yet isn't.
    virtual bool isInForce() const { return true; }

    WordFrom0 index(const QString& name) const { return word(name).index; }
    int format(const QString& name) const { return word(name).format; }
    int length(const QString& name) const { return word(name).length; }
    int exists(const QString& name) const { return word(name).exists; }
    QString description(const QString& name) const { return word(name).description; }
};

#endif
