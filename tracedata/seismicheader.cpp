#include "tracedata/seismicheader.h"

#include "host/dataset/hdr.h"
#include "host/flow/stheader.h"
#include "tracedata/headertable.h"

#include <cstring>

/// What the source in force says of a name.
struct SeismicHeader::WordInfo {
    int index = -1;
    int format = 1;
    int length = 1;
    int exists = 0;
    QString description;
};

SeismicHeader::SeismicHeader(int* header, int nheaderwords, const HeaderTable* table)
    : _header(header), _rheader(header), _nHeaderWords(nheaderwords), _headerTable(table)
{
    checkHeaderSaved();
}

void SeismicHeader::checkHeaderSaved()
{
    _headerIsSaved = _headerTable && _headerTable->_headerSaved;
}

static bool holds(const int* words, int index, int nCells, int nWords)
{
    return words && index >= 0 && index <= nWords - nCells;
}

/// Copies the bytes of one or two words; 0 where they lie outside the array.
template <typename T>
static int readWords(const int* words, int index, int nWords, T* value)
{
    constexpr int nCells = sizeof(T) / sizeof(int);
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
    _cname.clear();
    if (_headerIsSaved) {
        if (index >= 0 && index < _headerTable->count()) _cname = _headerTable->_headerName[index].toStdString();
    } else if (_itrevia != 0) {
        std::string description;
        int length = 0, format = 0, status = 1;
        hdr_indinfo_(_itrevia, index + 1, &_cname, &description, &length, &format, &status);
        _cname = _cname.substr(0, 8);
    } else {
        _cname = stHdrIndexName(index);
    }
    return _cname.c_str();
}

void SeismicHeader::headerIndexNameS(int index, QString& name)
{
    name = QString::fromLatin1(headerIndexName(index));
}

SeismicHeader::WordInfo SeismicHeader::wordInfo(const QString& name) const
{
    WordInfo info;
    const QByteArray text = name.toLatin1();
    if (_headerIsSaved) {
        const int i = _headerTable->find(name);
        if (i >= 0) {
            info = {_headerTable->_headerIndex[i], _headerTable->_headerFormat[i], _headerTable->_headerLength[i],
                    _headerTable->_headerExist[i], _headerTable->_headerDesc[i]};
        }
    } else if (_itrevia != 0) {
        std::string description;
        int position = 0, status = 1;
        hdr_naminfo__(_itrevia, text.constData(), &description, &info.length, &info.format, &position, &status);
        info.index = position - 1;
        info.exists = status == 0;
        info.description = QString::fromStdString(description);
    } else {
        info = {stHdrIndex(text.constData()), stHdrFormat(text.constData()), stHdrLength(text.constData()),
                stHdrExists(text.constData()), QString::fromLatin1(stHdrDesc(text.constData()))};
    }
    return info;
}

int SeismicHeader::headerIndex(const QString& name) const
{
    return wordInfo(name).index;
}

int SeismicHeader::headerLength(const QString& name) const
{
    return wordInfo(name).length;
}

int SeismicHeader::headerFormat(const QString& name) const
{
    return wordInfo(name).format;
}

int SeismicHeader::headerExists(const QString& name) const
{
    return wordInfo(name).exists;
}

const char* SeismicHeader::headerDesc(const QString& name)
{
    _cdesc = wordInfo(name).description.toStdString();
    return _cdesc.c_str();
}

void SeismicHeader::headerDescS(const QString& name, QString& description)
{
    description = wordInfo(name).description;
}

int SeismicHeader::headerAddStd(const QString& name)
{
    const QByteArray text = name.toLatin1();
    if (_itrevia != 0)
        hdr_std_add_(_itrevia, text.constData());
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
    if (_itrevia != 0) return hdr_add_(_itrevia, text.constData(), words.constData(), _nHeaderWords + 1, 1, type);
    return stHdrAdd(text.constData(), words.constData(), length, type);
}
