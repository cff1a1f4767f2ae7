/// Named header words out of the 240 bytes of a SEG-Y trace header.
#ifndef SEGYHEADER_H
#define SEGYHEADER_H

#include "sources/segyremaptable.h"
#include "tracedata/seismicheader.h"

#include <QStringList>

#include <vector>

/// A usable row of the remap table, parsed once, so that no text is read per trace.
struct SegyRemapRow {
    enum Source { Byte, Short, Integer, Real, Double, Text, Nothing };
    int index = 0;   ///< header word, counted from 0
    int format = 1;  ///< HeaderFormat of that word
    Source source = Nothing;
    int start = 0;       ///< first byte in the raw header, counted from 0
    int length = 0;      ///< in bytes; start + length is at most 240
    bool isIbm = false;  ///< a Real in IBM floating point
};

/// The system's table of header words, and the translation of a SEG-Y trace header into them.
///
/// Stand-alone (trevia version 1) names and formats come from the table of standard words; with any other
/// version the SeismicHeader is asked. Both arrays, and the raw bytes, are lent and must outlive the view.
/// May be used on any thread, one object a thread.
class SegyHeader : public SeismicHeader
{
public:
    /// Number of entries in the index array of buildHeaderIndex.
    static constexpr int nMappedWords = 31;
    static constexpr int rawHeaderBytes = 240;
    /// Number of key values that loadTraceMap gives.
    static constexpr int nMapSlots = 16;

    /// Without words: for questions of names, or until setNewData and setTotalHeaderWords.
    SegyHeader();
    SegyHeader(int* header, int nheaderwords, const HeaderWords* words = nullptr);
    /// @param segyheader    the trace record in machine byte order, at least 240 bytes
    /// @param header        the nheaderwords words to fill
    SegyHeader(int* segyheader, int* header, int nheaderwords, const HeaderWords* words = nullptr);

    void setNewData(int* segyheader, int* header);
    /// The 240 bytes of the trace header in file byte order, for the remap.
    void setSegyRawHeader(int* raw) { _segyrawheader = raw; }
    /// Whether the scalars of elevations and depths, and of coordinates, are applied; both are at first.
    void applyScalars(bool depscalar, bool coorscalar);
    void setTotalHeaderWords(int itotal);

    /// Rows "NAME    |index|type|count|description|" in the order of the words.
    const QStringList& headerNames() const { return _headerNames; }
    /// Index of a name, blanks included. Stand-alone an unknown name gives 0, the index of CHAN.
    int OrvinHeaderIndex(const QString& name) const;
    int OrvinHeaderIndex(const char* name) const;
    /// Name of a word; empty for a bad index.
    QString OrvinHeaderIndexName(int index);
    /// The same; null for a bad index. Valid until the next call on this view.
    const char* OrvinHeaderIndexNameC(int index);
    QString OrvinHeaderDesc(int index);
    QString OrvinHeaderDesc(const QString& name);
    const char* OrvinHeaderDescC(int index);
    /// A HeaderFormat; that of a 4-byte integer for an unknown name.
    int OrvinHeaderFormat(int index);
    int OrvinHeaderFormat(const QString& name);
    int OrvinHeaderExists(const QString& name) const;

    /// Fills all words from the trace record: zeroes them, then writes the mapped ones. Looks up each name.
    void convertSegyToOrvin();
    /// Looks up the mapped words: nMappedWords indices, -1 where the header has no such word.
    void buildHeaderIndex(int* indexa) const;
    /// The same conversion with looked-up indices.
    void convertSegyToOrvinFast(const int* indexa);
    /// The nMapSlots key values of a trace, out of the converted words.
    void loadTraceMap(float* items) const;
    /// The same values straight from a raw header of 240 bytes, as stand-alone they come out of swap (where
    /// isSwapped), conversion and loadTraceMap without a remap. The map build calls it once a trace.
    void mapKeysOfRaw(const unsigned char* raw, bool isSwapped, float* items) const;

    /// The usable rows of a table, in order. Rows with an empty word, format, or a start byte outside 1 to
    /// 240, or whose bytes would pass the 240th, are left out. A name of fewer than eight characters is padded.
    std::vector<SegyRemapRow> buildRemapIndex(const SegyRemapTable& table);
    /// What is wrong with a row: why it is skipped, or does another thing than it says. Empty for a good row, and
    /// for an empty one.
    QString remapRowFault(const SegyRemapTable& table, int row);
    /// Overwrites words from the raw header.
    void performRemap(const SegyRemapTable& table, int iswap);
    void performRemapFast(const std::vector<SegyRemapRow>& rows, int iswap);

    /// The list behind the look-ups above: the standard words, or the host's.
    const HeaderWords& names() const;

    int totalHeaderWords = 0;
    int stdHeaderWords = 0;

private:
    void buildHeaderNames();
    bool isStandAlone() const { return getTreviaVersion() == 1; }
    const char* textOf(int index, const QString& text);
    int wordInt(WordFrom0 word) const;
    float wordFloat(WordFrom0 word) const;
    bool readRemapRow(const std::array<QString, SegyRemapTable::nColumns>& cells, SegyRemapRow* row, QString* fault);
    void storeRemapped(const SegyRemapRow& row, double value);

    int* _segyheader = nullptr;  // lent, in machine order
    int _nheaders = 0;
    QStringList _headerNames;
    bool _depScalar = true;
    bool _coorScalar = true;
    int* _segyrawheader = nullptr;  // lent, in file order
    QByteArray _textOut;            // the last text handed out as char*
};

#endif
