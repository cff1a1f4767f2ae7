/// A view of one trace's header words.
#ifndef SEISMICHEADER_H
#define SEISMICHEADER_H

#include "tracedata/hostwords.h"

#include <QObject>

#include <string>

/// A record's words, and the list that names them: answers what a word is called and what it holds, by name or
/// by index counted from 0.
///
/// Names come from the first list that there is: the one lent, once it is in force, that of a dataset, that of
/// the flow. The view owns no words: the array is lent and must outlive it, and so must the list. Getters with a
/// negative index return 0 and leave their target; setters ignore an index outside the array. One view is made
/// for each trace of an ensemble.
class SeismicHeader : public QObject
{
public:
    /// @param header        nheaderwords words of 4 bytes, lent; may be null for questions of names only
    /// @param nheaderwords  length of the array, the limit of the setters
    /// @param words         the list of the window behind the data, or null where the host's lists are asked
    SeismicHeader(int* header, int nheaderwords, const HeaderWords* words = nullptr);

    /// The list that answers for the names.
    const HeaderWords& headerWords() const;

    /// Points the view at other words. Float look-ups by headerValue(index, float*) keep the old ones.
    void setAsNewHeader(int* header) { _header = header; }

    int headerValue(int index, int* value) const;
    /// The only getter without a test of the sign; an index outside the array gives 0.
    int headerValue(int index, float* value) const;
    int headerFloatValue(int index, float* value) const;
    /// Two adjacent words read as one value.
    int headerDoubleValue(int index, double* value) const;
    int headerLongValue(int index, long* value) const;
    /// Copies len bytes as strncpy does from that word on, cut at the array's end.
    void headerStringValue(int index, char* text, int len) const;
    void headerValueSet(int index, int value);
    void headerValueSet(int index, float value);

    /// Name of a word; valid until the next call on this view.
    const char* headerIndexName(int index);
    void headerIndexNameS(int index, QString& name);
    /// Index of a name, -1 if unknown.
    int headerIndex(const QString& name) const;
    /// Length in 4-byte cells.
    int headerLength(const QString& name) const;
    /// A HeaderFormat.
    int headerFormat(const QString& name) const;
    int headerExists(const QString& name) const;
    /// Description; valid until the next call on this view.
    const char* headerDesc(const QString& name);
    void headerDescS(const QString& name, QString& description);

    /// Handle of a dataset's header list, 0 for that of the flow.
    void setTreviaVersion(int version) { _datasetWords = DatasetWords(version); }
    int getTreviaVersion() const { return _datasetWords.handle(); }

    /// Adds a standard word to the dataset's or the flow's list; always 0.
    int headerAddStd(const QString& name);
    int headerAdd(const QString& name, const QString& description, int type);
    int headerAdd(const QString& name, const QString& description, int length, int type);

    /// Takes over whether the list lent is in force.
    void checkHeaderSaved();

    int numHeaderWords() const { return _nHeaderWords; }
    int* headers() const { return _header; }

protected:
    int* _header;   // lent
    int* _rheader;  // the words read as floats: the address given to the constructor
    std::string _cname;
    std::string _cdesc;
    int _nHeaderWords;

private:
    const HeaderWords* _lentWords;  // may be null
    bool _isLentInForce = false;
    DatasetWords _datasetWords{0};
};

#endif
