/// A view of one trace's header words.
#ifndef SEISMICHEADER_H
#define SEISMICHEADER_H

#include <QObject>
#include <QString>

#include <string>

struct HeaderTable;

/// Answers what a header word is called and what it holds, by name or by index counted from 0.
///
/// Names come from the first source that there is: the table saved by the window, the header list of a
/// dataset, the header list of the flow. The view owns no words: the array is lent and must outlive it,
/// and so must the table. Getters with a negative index return 0 and leave their target; setters ignore
/// an index outside the array. One view is made for each trace of an ensemble.
class SeismicHeader : public QObject
{
public:
    /// @param header        nheaderwords words of 4 bytes, lent; may be null for questions of names only
    /// @param nheaderwords  length of the array, the limit of the setters
    /// @param table         the window's header table, or null where no window stands behind the data
    SeismicHeader(int* header, int nheaderwords, const HeaderTable* table = nullptr);

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
    void setTreviaVersion(int version) { _itrevia = version; }
    int getTreviaVersion() const { return _itrevia; }

    /// Adds a standard word to the dataset's or the flow's list; always 0.
    int headerAddStd(const QString& name);
    int headerAdd(const QString& name, const QString& description, int type);
    int headerAdd(const QString& name, const QString& description, int length, int type);

    /// Takes over whether the window's table is to be used.
    void checkHeaderSaved();

    int numHeaderWords() const { return _nHeaderWords; }
    int* headers() const { return _header; }

protected:
    int* _header;     // lent
    int* _rheader;    // the words read as floats: the address given to the constructor
    int _itrevia = 0;
    std::string _cname;
    std::string _cdesc;
    int _nHeaderWords;
    bool _headerIsSaved = false;
    const HeaderTable* _headerTable;  // lent, may be null

private:
    struct WordInfo;
    WordInfo wordInfo(const QString& name) const;
};

#endif
