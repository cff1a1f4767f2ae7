#include "tracedata/seismicheader.h"

#include "host/dataset/hdr.h"
#include "host/flow/stheader.h"

#include <algorithm>
#include <cstring>

SeismicHeader::SeismicHeader(int* header, int nheaderwords, const HeaderWords* words)
    : _header(header), _rheader(header), _nHeaderWords(nheaderwords), _lentWords(words)
{
    checkHeaderSaved();
}

void SeismicHeader::checkHeaderSaved()
{
    _isLentInForce = _lentWords && _lentWords->isInForce();
}

const HeaderWords& SeismicHeader::headerWords() const
{
    static const FlowWords flowWords;
    if (_isLentInForce) return *_lentWords;
    if (_datasetWords.handle() != 0) return _datasetWords;
    return flowWords;
}

static bool holds(const int* words, int index, int nCells, int nWords)
{
    return words && index >= 0 && index <= nWords - nCells;
}

/// Copies the bytes of one or two words; 0 where they lie outside the array.
template <typename T>
static int readWords(const int* words, int index, int nWords, T* value)
{
    constexpr int cellBytes = sizeof(int);
    constexpr int nCells = int(sizeof(T)) / cellBytes;
    *value = T(0);
    if (!holds(words, index, nCells, nWords)) return 0;
    std::memcpy(value, words + index, sizeof(T));
    return 1;
}

int SeismicHeader::headerValue(int index, int* value) const
{
    return index < 0 ? 0 : readWords(_header, index, _nHeaderWords, value);
}

int SeismicHeader::headerValue(int index, float* value) const
{
    return readWords(_rheader, index, _nHeaderWords, value);
}

int SeismicHeader::headerFloatValue(int index, float* value) const
{
    return index < 0 ? 0 : readWords(_header, index, _nHeaderWords, value);
}

int SeismicHeader::headerDoubleValue(int index, double* value) const
{
    return index < 0 ? 0 : readWords(_header, index, _nHeaderWords, value);
}

int SeismicHeader::headerLongValue(int index, long* value) const
{
    return index < 0 ? 0 : readWords(_header, index, _nHeaderWords, value);
}

void SeismicHeader::headerStringValue(int index, char* text, int len) const
{
    if (len <= 0 || !holds(_header, index, 1, _nHeaderWords)) return;
    const size_t available = size_t(_nHeaderWords - index) * sizeof(int);
    const size_t nCopied = std::min(size_t(len), available);
    std::strncpy(text, reinterpret_cast<const char*>(_header + index), nCopied);
    std::memset(text + nCopied, 0, size_t(len) - nCopied);
}

void SeismicHeader::headerValueSet(int index, int value)
{
    if (holds(_header, index, 1, _nHeaderWords)) _header[index] = value;
}

void SeismicHeader::headerValueSet(int index, float value)
{
    if (holds(_header, index, 1, _nHeaderWords)) std::memcpy(_header + index, &value, sizeof value);
}

const char* SeismicHeader::headerIndexName(int index)
{
    _cname = headerWords().name(WordFrom0(index)).toStdString();
    return _cname.c_str();
}

void SeismicHeader::headerIndexNameS(int index, QString& name)
{
    name = QString::fromLatin1(headerIndexName(index));
}

int SeismicHeader::headerIndex(const QString& name) const
{
    return headerWords().index(name).value;
}

int SeismicHeader::headerLength(const QString& name) const
{
    return headerWords().length(name);
}

int SeismicHeader::headerFormat(const QString& name) const
{
    return headerWords().format(name);
}

int SeismicHeader::headerExists(const QString& name) const
{
    return headerWords().exists(name);
}

const char* SeismicHeader::headerDesc(const QString& name)
{
    _cdesc = headerWords().description(name).toStdString();
    return _cdesc.c_str();
}

void SeismicHeader::headerDescS(const QString& name, QString& description)
{
    description = headerWords().description(name);
}

int SeismicHeader::headerAddStd(const QString& name)
{
    const QByteArray text = name.toLatin1();
    if (getTreviaVersion() != 0)
        hdr_std_add_(getTreviaVersion(), text.constData());
    else
        stHdrAddStd(text.constData());
    return 0;
}

int SeismicHeader::headerAdd(const QString& name, const QString& description, int type)
{
    return headerAdd(name, description, 1, type);
}

int SeismicHeader::headerAdd(const QString& name, const QString& description, int length, int type)
{
    const QByteArray text = name.toLatin1(), words = description.toLatin1();
    if (getTreviaVersion() != 0)
        return hdr_add_(getTreviaVersion(), text.constData(), words.constData(), _nHeaderWords + 1, 1, type);
    return stHdrAdd(text.constData(), words.constData(), length, type);
}
