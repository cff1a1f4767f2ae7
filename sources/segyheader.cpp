#include "sources/segyheader.h"

#include "host/flow/standardwords.h"
#include "host/globals.h"
#include "host/signal/bytes.h"
#include "sources/segywords.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

/// What becomes of a field on its way into a word.
enum class Conversion { Integer, ShortInteger, Float, ShortFloat, Absolute, Depth, Coordinate };

struct MappedWord {
    const char* name;
    int byte;  // offset in the trace header, counted from 0
    Conversion conversion;
};

/// The standard mapping, in the order of buildHeaderIndex.
constexpr MappedWord mappedWords[SegyHeader::nMappedWords] = {
    {"SEQNO   ", 24, Conversion::Integer},     {"TRACENO ", 0, Conversion::Integer},
    {"FFID    ", 8, Conversion::Integer},      {"CDP     ", 20, Conversion::Integer},
    {"CHAN    ", 12, Conversion::Integer},     {"TRC_TYPE", 28, Conversion::ShortInteger},
    {"TR_FOLD ", 32, Conversion::ShortFloat},  {"OFFSET  ", 36, Conversion::Float},
    {"AOFFSET ", 36, Conversion::Absolute},    {"UPHOLE  ", 94, Conversion::ShortFloat},
    {"SOU_STAT", 98, Conversion::ShortFloat},  {"REC_STAT", 100, Conversion::ShortFloat},
    {"TOT_STAT", 102, Conversion::ShortFloat}, {"TLIVE_S ", 110, Conversion::ShortFloat},
    {"TFULL_S ", 112, Conversion::ShortFloat}, {"SRF_SLOC", 172, Conversion::ShortInteger},
    {"SOU_SLOC", 196, Conversion::Integer},    {"SOURCE  ", 16, Conversion::Integer},
    {"ILINE_NO", 188, Conversion::Integer},    {"XLINE_NO", 192, Conversion::Integer},
    {"REC_ELEV", 40, Conversion::Depth},       {"SOU_ELEV", 44, Conversion::Depth},
    {"DEPTH   ", 48, Conversion::Depth},       {"SOU_H2OD", 60, Conversion::Depth},
    {"REC_H2OD", 64, Conversion::Depth},       {"SOU_X   ", 72, Conversion::Coordinate},
    {"SOU_Y   ", 76, Conversion::Coordinate},  {"REC_X   ", 80, Conversion::Coordinate},
    {"REC_Y   ", 84, Conversion::Coordinate},  {"CDP_X   ", 180, Conversion::Coordinate},
    {"CDP_Y   ", 184, Conversion::Coordinate},
};

constexpr int depthScalarByte = 68;
constexpr int coordinateScalarByte = 70;
constexpr int unswappedBytes = 196;  // from here on a trace header stays in file order

/// How a key slot of the trace map is filled.
enum class SlotKind { Integer, Bits };

struct SlotWord {
    WordFrom0 standard;     // of the standard words
    int StdHdr::*hostWord;  // its position in the host's header, counted from 1
    SlotKind kind;
};

/// The key slots in order; slot 4 carries the bits of the float OFFSET, as the coordinates do.
constexpr SlotWord slotWords[SegyHeader::nMapSlots] = {
    {WordFrom0(0), &StdHdr::ichan, SlotKind::Integer},      {WordFrom0(5), &StdHdr::isou_sloc, SlotKind::Integer},
    {WordFrom0(14), &StdHdr::icdp, SlotKind::Integer},      {WordFrom0(0), &StdHdr::ichan, SlotKind::Integer},
    {WordFrom0(1), &StdHdr::ioffset, SlotKind::Bits},       {WordFrom0(10), &StdHdr::isrf_sloc, SlotKind::Integer},
    {WordFrom0(48), &StdHdr::iiline_no, SlotKind::Integer}, {WordFrom0(49), &StdHdr::ixline_no, SlotKind::Integer},
    {WordFrom0(3), &StdHdr::iffid, SlotKind::Integer},      {WordFrom0(29), &StdHdr::itraceno, SlotKind::Integer},
    {WordFrom0(16), &StdHdr::icdp_x, SlotKind::Bits},       {WordFrom0(17), &StdHdr::icdp_y, SlotKind::Bits},
    {WordFrom0(6), &StdHdr::isou_x, SlotKind::Bits},        {WordFrom0(7), &StdHdr::isou_y, SlotKind::Bits},
    {WordFrom0(11), &StdHdr::irec_x, SlotKind::Bits},       {WordFrom0(12), &StdHdr::irec_y, SlotKind::Bits},
};

}  // namespace

template <typename T>
static T fieldAt(const void* record, int byte)
{
    T value;
    std::memcpy(&value, static_cast<const char*>(record) + byte, sizeof value);
    return value;
}

static int clampedInt(double value)
{
    if (std::isnan(value)) return 0;
    return int(std::clamp(value, double(INT_MIN), double(INT_MAX)));
}

SegyHeader::SegyHeader() : SeismicHeader(nullptr, 0)
{
    buildHeaderNames();
}

SegyHeader::SegyHeader(int* header, int nheaderwords, const HeaderWords* words)
    : SegyHeader(nullptr, header, nheaderwords, words)
{
}

SegyHeader::SegyHeader(int* segyheader, int* header, int nheaderwords, const HeaderWords* words)
    : SeismicHeader(header, nheaderwords, words), _segyheader(segyheader), _nheaders(nheaderwords)
{
    buildHeaderNames();
}

/// The rows of the table; made once, shared by all views.
static const QStringList& standardRows()
{
    static const QStringList rows = [] {
        QStringList list;
        for (int i = 0; i < standardWordCount; ++i) {
            const StandardWord& word = standardWords[i];
            const char* type = word.format == Float4Format ? "Float4" : "Integer4";
            list += QString("%1|%2|%3|1|%4|").arg(word.name).arg(i).arg(type, word.description);
        }
        return list;
    }();
    return rows;
}

void SegyHeader::buildHeaderNames()
{
    _headerNames = standardRows();
    stdHeaderWords = hostWordCount;
    totalHeaderWords = _headerNames.size();
}

void SegyHeader::setNewData(int* segyheader, int* header)
{
    _segyheader = segyheader;
    setAsNewHeader(header);
}

void SegyHeader::applyScalars(bool depscalar, bool coorscalar)
{
    _depScalar = depscalar;
    _coorScalar = coorscalar;
}

void SegyHeader::setTotalHeaderWords(int itotal)
{
    _nheaders = totalHeaderWords = _nHeaderWords = itotal;
}

const HeaderWords& SegyHeader::names() const
{
    return isStandAlone() ? segyWords() : headerWords();
}

int SegyHeader::OrvinHeaderIndex(const QString& name) const
{
    return names().index(name).value;
}

int SegyHeader::OrvinHeaderIndex(const char* name) const
{
    return OrvinHeaderIndex(QString::fromLatin1(name));
}

QString SegyHeader::OrvinHeaderIndexName(int index)
{
    return names().name(WordFrom0(index));
}

const char* SegyHeader::OrvinHeaderIndexNameC(int index)
{
    return textOf(index, OrvinHeaderIndexName(index));
}

QString SegyHeader::OrvinHeaderDesc(int index)
{
    const QString name = OrvinHeaderIndexName(index);
    return name.isEmpty() ? QString() : OrvinHeaderDesc(name);
}

QString SegyHeader::OrvinHeaderDesc(const QString& name)
{
    return names().description(name);
}

const char* SegyHeader::OrvinHeaderDescC(int index)
{
    return textOf(index, OrvinHeaderDesc(index));
}

const char* SegyHeader::textOf(int index, const QString& text)
{
    if (isStandAlone() && (index < 0 || index >= segyWords().count())) return nullptr;
    _textOut = text.toLatin1();
    return _textOut.constData();
}

int SegyHeader::OrvinHeaderFormat(int index)
{
    return names().format(OrvinHeaderIndexName(index));
}

int SegyHeader::OrvinHeaderFormat(const QString& name)
{
    return names().format(name);
}

int SegyHeader::OrvinHeaderExists(const QString& name) const
{
    return names().exists(name);
}

void SegyHeader::buildHeaderIndex(int* indexa) const
{
    for (int i = 0; i < nMappedWords; ++i) indexa[i] = OrvinHeaderIndex(mappedWords[i].name);
}

void SegyHeader::convertSegyToOrvin()
{
    int indexa[nMappedWords];
    buildHeaderIndex(indexa);
    convertSegyToOrvinFast(indexa);
}

/// A scalar of 0 is a factor of 0, on purpose: it zeroes what it scales.
static float scaleFactor(bool isOn, int16_t scalar)
{
    if (!isOn) return 1.0f;
    return scalar < 0 ? float(1.0 / -double(scalar)) : float(scalar);
}

void SegyHeader::convertSegyToOrvinFast(const int* indexa)
{
    if (!_header || !_segyheader) return;
    std::fill(_header, _header + std::max(0, _nheaders), 0);
    const float depthFactor = scaleFactor(_depScalar, fieldAt<int16_t>(_segyheader, depthScalarByte));
    const float coorFactor = scaleFactor(_coorScalar, fieldAt<int16_t>(_segyheader, coordinateScalarByte));
    for (int i = 0; i < nMappedWords; ++i) {
        const int index = indexa[i];
        if (index < 0 || index >= _nheaders) continue;
        const int byte = mappedWords[i].byte;
        float real = 0.0f;
        switch (mappedWords[i].conversion) {
        case Conversion::Integer: _header[index] = fieldAt<int32_t>(_segyheader, byte); continue;
        case Conversion::ShortInteger: _header[index] = fieldAt<int16_t>(_segyheader, byte); continue;
        case Conversion::Float: real = float(fieldAt<int32_t>(_segyheader, byte)); break;
        case Conversion::ShortFloat: real = float(fieldAt<int16_t>(_segyheader, byte)); break;
        case Conversion::Absolute: real = float(std::abs(int64_t(fieldAt<int32_t>(_segyheader, byte)))); break;
        case Conversion::Depth: real = float(fieldAt<int32_t>(_segyheader, byte)) * depthFactor; break;
        case Conversion::Coordinate: real = float(fieldAt<int32_t>(_segyheader, byte)) * coorFactor; break;
        }
        std::memcpy(_header + index, &real, sizeof real);
    }
}

int SegyHeader::wordInt(WordFrom0 word) const
{
    return _header && word.value >= 0 && word.value < _nheaders ? _header[word.value] : 0;
}

float SegyHeader::wordFloat(WordFrom0 word) const
{
    const int bits = wordInt(word);
    float value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

void SegyHeader::loadTraceMap(float* items) const
{
    for (int i = 0; i < nMapSlots; ++i) {
        const SlotWord& slot = slotWords[i];
        const WordFrom0 word = isStandAlone() ? slot.standard : from0(WordFrom1(stdHdr.*slot.hostWord));
        items[i] = slot.kind == SlotKind::Integer ? float(wordInt(word)) : wordFloat(word);
    }
}

/// Where each key slot stands in the raw header: the two tables above, joined.
static const std::array<const MappedWord*, SegyHeader::nMapSlots>& slotSources()
{
    static const auto sources = [] {
        std::array<const MappedWord*, SegyHeader::nMapSlots> found = {};
        for (int i = 0; i < SegyHeader::nMapSlots; ++i)
            for (const MappedWord& word : mappedWords)
                if (WordFrom0(standardWordIndex(word.name)) == slotWords[i].standard) found[i] = &word;
        return found;
    }();
    return sources;
}

template <typename T>
static T rawField(const unsigned char* raw, int byte, bool isSwapped)
{
    T value = fieldAt<T>(raw, byte);
    if (!isSwapped || byte >= unswappedBytes) return value;
    if constexpr (sizeof(T) == 2)
        return T(__builtin_bswap16(uint16_t(value)));
    else
        return T(__builtin_bswap32(uint32_t(value)));
}

void SegyHeader::mapKeysOfRaw(const unsigned char* raw, bool isSwapped, float* items) const
{
    const auto& sources = slotSources();
    const float coorFactor = scaleFactor(_coorScalar, rawField<int16_t>(raw, coordinateScalarByte, isSwapped));
    for (int i = 0; i < nMapSlots; ++i) {
        const int byte = sources[i]->byte;
        switch (sources[i]->conversion) {
        case Conversion::ShortInteger: items[i] = float(rawField<int16_t>(raw, byte, isSwapped)); break;
        case Conversion::Coordinate: items[i] = float(rawField<int32_t>(raw, byte, isSwapped)) * coorFactor; break;
        default: items[i] = float(rawField<int32_t>(raw, byte, isSwapped)); break;
        }
    }
}

/// Turns format and start byte into a place in the raw header. The start byte is divided by the element's
/// size, so a field off its natural boundary is taken from the boundary before it; bytes and texts are taken
/// one behind the byte that the user counts from 1.
static void placeOf(const QString& format, int startByte, SegyRemapRow* row)
{
    static const struct {
        const char* text;
        SegyRemapRow::Source source;
        int bytes;
    } elements[] = {{"1I", SegyRemapRow::Byte, 1},
                    {"2I", SegyRemapRow::Short, 2},
                    {"4I", SegyRemapRow::Integer, 4},
                    {"4R", SegyRemapRow::Real, 4},
                    {"8R", SegyRemapRow::Double, 8}};
    for (const auto& element : elements) {
        if (format != element.text) continue;
        row->source = element.source;
        row->start = startByte / element.bytes * element.bytes;
        row->length = element.bytes;
        return;
    }
    if (!format.startsWith("A")) return;
    row->source = SegyRemapRow::Text;
    row->start = startByte;
    row->length = std::max(0, format.mid(1).toInt());
}

/// A row of the table in the terms of the header. False for one that can't be used, with the reason in *fault.
bool SegyHeader::readRemapRow(const std::array<QString, SegyRemapTable::nColumns>& cells, SegyRemapRow* row,
                              QString* fault)
{
    const QString word = cells[SegyRemapTable::HeaderWord].toUpper();
    const QString format = cells[SegyRemapTable::Format].toUpper();
    const int startByte = cells[SegyRemapTable::StartByte].toInt();
    *fault = word.isEmpty()                                ? "no header word: skipped"
             : format.isEmpty()                            ? "no format: skipped"
             : startByte < 1 || startByte > rawHeaderBytes ? "the start byte must be 1 to 240: skipped"
                                                           : "";
    if (!fault->isEmpty()) return false;
    const QString name = word.leftJustified(8, ' ');
    row->index = OrvinHeaderIndex(name);
    if (row->index < 0 || row->index >= totalHeaderWords) {
        *fault = "no header word \"" + word + "\": skipped";
        return false;
    }
    row->format = OrvinHeaderFormat(name);
    row->isIbm = cells[SegyRemapTable::Type].toUpper() == "IBM";
    placeOf(format, startByte, row);
    if (row->length > rawHeaderBytes - row->start) {
        *fault = "its bytes would pass the 240th: skipped";
        return false;
    }
    // These rows count, for they are rules: only what they do is not what they seem to say.
    if (!OrvinHeaderExists(name)) *fault = "no header word \"" + word + "\": it overwrites CHAN";
    if (row->source == SegyRemapRow::Nothing) *fault = "no format \"" + format + "\": the word stays as it is";
    return true;
}

std::vector<SegyRemapRow> SegyHeader::buildRemapIndex(const SegyRemapTable& table)
{
    std::vector<SegyRemapRow> rows;
    QString fault;
    for (const auto& cells : table.cells) {
        SegyRemapRow row;
        if (readRemapRow(cells, &row, &fault)) rows.push_back(row);
    }
    return rows;
}

QString SegyHeader::remapRowFault(const SegyRemapTable& table, int row)
{
    const auto& cells = table.cells[size_t(row)];
    QString fault;
    SegyRemapRow read;
    if (std::all_of(cells.begin(), cells.end(), [](const QString& cell) { return cell.trimmed().isEmpty(); }))
        return fault;
    readRemapRow(cells, &read, &fault);
    return fault;
}

void SegyHeader::performRemap(const SegyRemapTable& table, int iswap)
{
    performRemapFast(buildRemapIndex(table), iswap);
}

/// One element of the raw header in machine byte order.
template <typename T>
static T remapElement(const void* raw, const SegyRemapRow& row, int iswap)
{
    T value = fieldAt<T>(raw, row.start);
    if (iswap && sizeof(T) > 1) endianSwap(&value, int(sizeof(T)), 1);
    return value;
}

static int remapText(const void* raw, const SegyRemapRow& row)
{
    const char* text = static_cast<const char*>(raw) + row.start;
    return QString::fromLatin1(text, int(strnlen(text, size_t(row.length)))).toInt();
}

void SegyHeader::storeRemapped(const SegyRemapRow& row, double value)
{
    if (row.format == Integer4Format) {
        _header[row.index] = clampedInt(value);
        return;
    }
    const float real = float(value);
    std::memcpy(_header + row.index, &real, sizeof real);
}

void SegyHeader::performRemapFast(const std::vector<SegyRemapRow>& rows, int iswap)
{
    if (!_header || !_segyrawheader) return;
    for (const SegyRemapRow& row : rows) {
        if (row.index >= _nheaders) continue;
        switch (row.source) {
        case SegyRemapRow::Byte: storeRemapped(row, fieldAt<int8_t>(_segyrawheader, row.start)); break;
        case SegyRemapRow::Short: storeRemapped(row, remapElement<int16_t>(_segyrawheader, row, iswap)); break;
        case SegyRemapRow::Integer: storeRemapped(row, remapElement<int32_t>(_segyrawheader, row, iswap)); break;
        case SegyRemapRow::Double: storeRemapped(row, remapElement<double>(_segyrawheader, row, iswap)); break;
        case SegyRemapRow::Text: storeRemapped(row, remapText(_segyrawheader, row)); break;
        case SegyRemapRow::Real: {
            float value = remapElement<float>(_segyrawheader, row, iswap);
            if (row.isIbm) ibmToIeee(&value, 1);
            storeRemapped(row, double(value));
            break;
        }
        case SegyRemapRow::Nothing: break;
        }
    }
}
