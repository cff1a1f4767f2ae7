#include "sources/segydata2.h"

#include "host/report.h"
#include "host/signal/bytes.h"
#include "sources/formatted.h"
#include "sources/segysamples.h"

#include <QFile>

#include <algorithm>
#include <climits>
#include <cstring>
#include <utility>

const QStringList segyData2::itemList = {"CHAN    ", "SOU_SLOC", "CDP     ", "CHAN    ", "OFFSET  ", "SRF_SLOC",
                                         "ILINE_NO", "XLINE_NO", "FFID    ", "TRACENO ", "CDP_X   ", "CDP_Y   ",
                                         "SRC_X   ", "SRC_Y   ", "REC_X   ", "REC_Y   "};

/// Which slot a key number sorts on.
static const struct {
    int key, slot;
} keySlots[] = {{4, 0}, {5, 1}, {6, 2}, {7, 3}, {9, 4}, {86, 5}, {48, 6}, {49, 7}, {3, 8}, {1, 9}};

/// The largest data that a trace of variable length may tell, in usual trace lengths.
constexpr int largestLengthFactor = 40;
/// Lines of one kind that are printed as they come; the rest is counted.
constexpr int64_t mostAlikeLines = 10;

segyData2::segyData2(const SegyReadParm& parm, Report* report, ProgressSink* progress)
    : _parm(parm), _report(report), _progress(progress), doSwap(parm.iswap != 0), doRemap(parm.iremap != 0),
      variable(parm.ivariable != 0), tape(parm.itape != 0), _segyHeader(segyTraceHeaderBytes)
{
}

segyData2::~segyData2()
{
    closeFile();
}

bool segyData2::openFile(const QString& filename, bool show)
{
    closeFile();
    _curFile = filename;
    if (tape) return isOpen;
    if (_parm.imode == 0) {
        auto file = std::make_unique<FileSource>();
        isOpen = file->open(QFile::encodeName(filename).toStdString(), &_error);
        if (isOpen) _source = std::move(file);
    } else {
        _out = std::make_unique<QSaveFile>(filename);
        isOpen = _out->open(QIODevice::WriteOnly);
        _error = _out->errorString().toStdString();
        if (!isOpen) _out.reset();
    }
    if (!isOpen) {
        _report->line(formatted("\nsegyData2: open error=%s\n\n", _error.c_str()));
    } else if (show) {
        const std::string name = filename.toStdString();
        _report->line(_parm.imode == 0 ? formatted("\nOpen for reading, SEGY file: %s\n\n", name.c_str())
                                       : formatted("\nOpen for writing, SEGY file: %s\n\n", name.c_str()));
    }
    return isOpen;
}

bool segyData2::openSource(std::unique_ptr<ByteSource> source, const QString& name)
{
    closeFile();
    _curFile = name;
    _source = std::move(source);
    isOpen = true;
    return isOpen;
}

/// Whether there was nothing to write, or all of it stands under its name.
bool segyData2::endWriting()
{
    const std::unique_ptr<QSaveFile> out = std::move(_out);
    if (!out) return true;
    if (std::exchange(_isWriteBroken, false)) out->cancelWriting();
    // A file that a commit can't put in its place goes, and the former one stays.
    if (out->commit()) return true;
    _report->line(formatted("segyData2: cannot write file %s: %s\n", QFile::encodeName(_curFile).constData(),
                            out->errorString().toUtf8().constData()));
    return false;
}

/// Returns the bytes written, -1 where not all of them were: the file then never takes its place.
int64_t segyData2::writeBytes(int64_t n, const void* data)
{
    const int64_t nWritten = _out ? _out->write(static_cast<const char*>(data), n) : -1;
    if (nWritten == n && _out->flush()) return n;
    _isWriteBroken = true;
    return -1;
}

bool segyData2::closeFile()
{
    _source.reset();
    const bool isWhole = endWriting();
    _pos = 0;
    isOpen = false;
    _nBadLengths = _nBadLengthsUntold = 0;
    return isWhole;
}

/// Reads at the position and moves it; -1 on failure.
int64_t segyData2::readBytes(int64_t n, void* out)
{
    if (!_source || n <= 0) return 0;
    const int64_t got = _source->read(_pos, size_t(n), out, &_error);
    if (got > 0) _pos += got;
    return got;
}

bool segyData2::reelHeader(bool printIt)
{
    return _parm.imode == 0 ? (readReel() && (printIt ? (printReel(), true) : true)) : writeReel();
}

/// EBCDIC letters lie above 127, and its blank is the other's @.
static bool isAsciiText(const char* text)
{
    int nBlanks = 0;
    for (int i = 0; i < segyTextBytes; ++i) {
        if (static_cast<unsigned char>(text[i]) > 127) return false;
        nBlanks += text[i] == ' ' ? 1 : text[i] == '@' ? -1 : 0;
    }
    return nBlanks > 0;
}

bool segyData2::readReel()
{
    if (!tape) {
        _error = "Unexpected end of file";
        if (readBytes(segyReelBytes, &reel) != segyReelBytes) {
            _report->line(formatted("segyData2: error while reading reel headers: %s\n", _error.c_str()));
            return false;
        }
    }
    _pos = firstTrace();
    if (doSwap) swapReelFields(&reel);
    if (_parm.iformat != 2 && _parm.iformat != 4) {
        if (isAsciiText(reel.ebcdic)) {
            _report->assumed("segyData2: the text header is ASCII, but is read as EBCDIC");
            _assumptions.push_back({.name = "the text header is ASCII",
                                    .consequence = "it is read as EBCDIC",
                                    .control = "SEGY file type:"});
        }
        ebcdicToAscii(reel.ebcdic, segyTextBytes);
    }
    _nSamples = reel.nsamp;
    if (isSampleCountNeeded()) takeUnsigned(uint16_t(reel.nsamp));
    if ((reel.nsr < 1 || isSampleCountNeeded()) && !fixReel()) {
        _report->line("segyData2: error while reading first trace to fix reel header problems.\n");
        return false;
    }
    return true;
}

bool segyData2::writeReel()
{
    if (_parm.iformat != 2) asciiToEbcdic(reel.ebcdic, segyTextBytes);
    if (tape) return true;
    if (doSwap) swapReelFields(&reel);
    const bool isWritten = writeBytes(segyReelBytes, &reel) == segyReelBytes;
    if (doSwap) swapReelFields(&reel);
    if (!isWritten)
        _report->line(formatted("segyData2: error while reading reel headers: %s\n",
                                _out ? _out->errorString().toUtf8().constData() : "no file is open"));
    return isWritten;
}

/// A word of the reel that was repaired.
void segyData2::tellFixed(const char* what, int value, const char* name, const char* control)
{
    _report->line(formatted("segyData2: Warning, fixed %s: %d\n", what, value));
    _assumptions.push_back({.name = name, .consequence = formatted("fixed %s: %d", what, value), .control = control});
}

/// A count above 32767 reads as negative. It is believed when the file is exactly as long as it tells.
bool segyData2::takeUnsigned(uint16_t word)
{
    if (variable || word <= INT16_MAX || !_source) return false;
    const SegyReadLayout& layout = _parm.layout;
    const int format = layout.sampleFormat > 0 ? layout.sampleFormat
                       : _parm.formatCode > 0  ? _parm.formatCode
                                               : reel.format;
    const int64_t record = layout.headerBytes + int64_t(word) * segySampleBytes(format);
    const int64_t traces = _source->size() - layout.firstTrace;
    if (traces < record || traces % record != 0) return false;
    setNumSamples(word);
    _report->line("\nsegyData2: WARNING, Incorrect SEGY binary header values.\n");
    tellFixed("no. of samples, taken as unsigned", _nSamples, "the sample count reads as negative",
              "Num samples per trace:");
    return true;
}

bool segyData2::fixReel()
{
    _report->line("\nsegyData2: WARNING, Incorrect SEGY binary header values.\n"
                  "     attempting to fix sample rate or number of samples\n"
                  "     using the first trace header.\n\n");
    char header[segyTraceHeaderBytes];
    _error = "Unexpected end of file";
    if (readBytes(segyTraceHeaderBytes, header) != segyTraceHeaderBytes) {
        _report->line(
            formatted("segyData2: error while reading a trace header to fix reel header: %s\n", _error.c_str()));
        return false;
    }
    if (!seekPos(-segyTraceHeaderBytes)) return false;
    int16_t counts[2];  // samples, interval
    std::memcpy(counts, header + offsetof(segyTrace, nsampt), sizeof counts);
    if (doSwap) endianSwap(counts, 2, 2);
    if (isSampleCountNeeded() && !(counts[0] < 1 && takeUnsigned(uint16_t(counts[0])))) {
        setNumSamples(counts[0]);
        tellFixed("no. of samples from first trace header", _nSamples, "the reel has no sample count",
                  "Num samples per trace:");
    }
    if (reel.nsr < 1) {
        reel.nsr = counts[1];
        tellFixed("sample rate from first trace header", reel.nsr, "the reel has no sample interval",
                  "Input sample rate:");
    }
    return true;
}

/// A text line that a terminal can show: 80 characters, controls as blanks.
static std::string printableLine(const char* text)
{
    QString line = QString::fromLatin1(text, 80);
    for (QChar& c : line)
        if (c.unicode() < 0x20 || (c.unicode() >= 0x7f && c.unicode() < 0xa0)) c = ' ';
    return line.toStdString();
}

void segyData2::printReel()
{
    const std::string dashes = std::string(18, '-') + "\n";
    std::string text = "\nSEGY EBCDIC Header\n" + dashes;
    for (int i = 0; i < 40; ++i) text += printableLine(reel.ebcdic + 80 * i) + "\n";
    text += "\nSEGY Binary Header\n" + dashes;
    _report->line(text);
    const struct {
        const char* format;
        int value;
    } fields[] = {{" Job ID            : %d\n", reel.jobid},  {" Line Num          : %d\n", reel.line},
                  {" Reel Num          : %d\n", reel.reeln},  {" Num Traces        : %d\n", reel.ntrc},
                  {" Num Aux Traces    : %d\n", reel.naux},   {" Sample Rate (usec): %d\n", reel.nsr},
                  {" Num Samples       : %d\n", _nSamples},   {" Sort              : %d\n", reel.sort},
                  {" Data format       : %d\n", reel.format}, {" Measurement       : %d\n", reel.measurement}};
    for (const auto& field : fields) {
        _report->line(formatted(field.format, field.value));
    }
    _report->line("\n");
}

void segyData2::setNumSamples(int nSamples)
{
    _nSamples = nSamples;
    reel.nsamp = int16_t(uint16_t(nSamples));
}

void segyData2::setTraceBytes()
{
    // The reel may have been changed since; the count behind its short word wins while both agree.
    if (int16_t(uint16_t(_nSamples)) != reel.nsamp) _nSamples = reel.nsamp;
    nbytes = segySampleBytes(sampleFormat());
    const int64_t length = _parm.layout.headerBytes + int64_t(std::max(0, _nSamples)) * nbytes;
    segytrclength = int(std::min(length, int64_t(INT_MAX)));
    _maxBytes = int(std::min(length * largestLengthFactor, int64_t(INT_MAX)));
    // A trace tells its length in a short word, and no read brings more than the file has.
    const int64_t told = variable ? std::min<int64_t>(int64_t(INT16_MAX) * nbytes, fileSize()) : 0;
    const int64_t samples = int64_t(std::max(0, _nSamples)) * std::max(4, nbytes);
    _bufferBytes = int(std::min<int64_t>(segyTraceHeaderBytes + std::max(samples, told), _maxBytes));
}

void segyData2::swapTraceHeader(segyTrace* trace) const
{
    swapTraceFields(trace);
}

void segyData2::swapTrace(segyTrace* trace) const
{
    if (nbytes >= 2) endianSwap(reinterpret_cast<char*>(trace) + segyTraceHeaderBytes, nbytes, _nSamples);
}

void segyData2::reportReadError()
{
    _report->line(formatted("segyData2: error while reading trace: %s\n", _error.c_str()));
}

int segyData2::readTrace(void* data)
{
    segytrace = static_cast<segyTrace*>(data);
    if (tape) return 0;
    auto* record = static_cast<char*>(data);
    const int nRead = variable ? readVariable(record) : readFixed(record);
    if (nRead >= 1) convertTrace(record, nRead);
    return nRead;
}

/// Reads the first 240 bytes of a trace header, zeros for what the file has not, and passes its extensions.
/// Returns the bytes present, 0 at the end, below 0 on failure.
int64_t segyData2::readHeader(char* record)
{
    std::memset(record, 0, segyTraceHeaderBytes);
    const int64_t got = readBytes(segyTraceHeaderBytes, record);
    const int64_t extensions = _parm.layout.headerBytes - segyTraceHeaderBytes;
    if (got == segyTraceHeaderBytes && extensions > 0) _pos = std::min(_pos + extensions, _source->size());
    return got;
}

int segyData2::readFixed(char* record)
{
    if (_parm.layout.headerBytes > segyTraceHeaderBytes) {
        const int64_t start = _pos;
        const int64_t gotHeader = readHeader(record);
        const int64_t got = gotHeader < segyTraceHeaderBytes
                                ? gotHeader
                                : readBytes(int64_t(_nSamples) * nbytes, record + segyTraceHeaderBytes);
        if (gotHeader < 0 || got < 0) {
            reportReadError();
            return -1;
        }
        return int(_pos - start);
    }
    const int64_t got = readBytes(segytrclength, record);
    if (got < 0) reportReadError();
    if (got > 0 && got < segyTraceHeaderBytes) std::memset(record + got, 0, size_t(segyTraceHeaderBytes - got));
    return int(got);
}

/// A field of a raw header in machine order.
template <typename T>
static T headerField(const void* header, size_t byte, bool isSwapped)
{
    T value;
    std::memcpy(&value, static_cast<const char*>(header) + byte, sizeof value);
    if (isSwapped) endianSwap(&value, int(sizeof value), 1);
    return value;
}

segyData2::DataLength segyData2::dataLength(const void* rawHeader) const
{
    const int nsampt = headerField<int16_t>(rawHeader, offsetof(segyTrace, nsampt), doSwap);
    DataLength length = {};
    // Without a count of its own a trace is taken to be shorter by its header: so it stands in old files.
    length.declared = nsampt > 0 ? int64_t(nsampt) * nbytes : int64_t(_nSamples) * nbytes - _parm.layout.headerBytes;
    length.isBad = length.declared <= 0 || length.declared > _maxBytes;
    length.wanted = length.isBad ? int64_t(_nSamples) * 4 : length.declared;
    return length;
}

void segyData2::reportBadLength(const void* rawHeader, const DataLength& length)
{
    if (++_nBadLengths > mostAlikeLines) {
        ++_nBadLengthsUntold;
        return;
    }
    _report->line(formatted("segyData2: error while reading variable length trace: %d, num samples=%d\n",
                            headerField<int32_t>(rawHeader, offsetof(segyTrace, tsln), doSwap),
                            int(length.declared / nbytes)));
}

void segyData2::tellRepeated()
{
    if (_nBadLengthsUntold == 0) return;
    _report->line(formatted("segyData2: error while reading variable length trace: %lld more, %lld so far\n",
                            static_cast<long long>(_nBadLengthsUntold), static_cast<long long>(_nBadLengths)));
    _nBadLengthsUntold = 0;
}

int segyData2::readVariable(char* record)
{
    const int64_t gotHeader = readHeader(record);
    if (gotHeader < 0) reportReadError();
    if (gotHeader <= 0) return int(gotHeader);
    const DataLength length = dataLength(record);
    if (length.isBad) reportBadLength(record, length);
    const int64_t start = _pos;
    // What doesn't fit into the buffer is counted but not kept; no caller takes that many samples.
    const int64_t room = std::max<int64_t>(0, _bufferBytes - segyTraceHeaderBytes);
    const int64_t kept = readBytes(std::min(length.wanted, room), record + segyTraceHeaderBytes);
    if (kept < 0) reportReadError();
    const int64_t got = kept < room ? kept : std::min(length.wanted, std::max(kept, _source->size() - start));
    _pos = length.isBad ? std::max<int64_t>(0, start + length.declared) : start + std::max<int64_t>(0, got);
    return got <= 0 ? int(got) : int(std::min(got + _parm.layout.headerBytes, int64_t(INT_MAX)));
}

void segyData2::convertTrace(char* record, int nRead)
{
    std::memcpy(_segyHeader.data(), record, segyTraceHeaderBytes);
    int count = _nSamples;
    if (nRead < segytrclength) count = std::max(0, (nRead - _parm.layout.headerBytes) / nbytes);
    char* samples = record + segyTraceHeaderBytes;
    if (doSwap && _parm.iformat != 4) {
        swapTraceFields(record);
        if (nbytes >= 2) endianSwap(samples, nbytes, count);
    }
    const int weightFactor = headerField<int16_t>(record, offsetof(segyTrace, weightFactor), false);
    convertSegySamples(sampleFormat(), weightFactor, samples, count, &_tempData);
    if (count < _nSamples) std::memset(samples + size_t(count) * 4, 0, size_t(_nSamples - count) * 4);
}

int segyData2::writeTrace(void* data)
{
    if (tape) return 0;
    segytrace = static_cast<segyTrace*>(data);
    if (doSwap) swapTrace(segytrace);
    const auto nWritten = int(writeBytes(segytrclength, data));
    if (nWritten < 0)
        _report->line(formatted("segyData2: error while writing trace: %s\n",
                                _out ? _out->errorString().toUtf8().constData() : "no file is open"));
    return nWritten;
}

segyMapItem* segyData2::mapItem(int i)
{
    return i >= 0 && i < _map.count() ? _map.items() + i : nullptr;
}

int segyData2::seekTrace(int itrace, void* data, bool force)
{
    const segyMapItem* item = mapItem(itrace);
    if (!item) return 0;
    const QString name = _map.fileName(item->ifile);
    if (name != _curFile && !openFile(name, false)) return -1;
    const int64_t before = _pos;
    _pos = int64_t(item->offset);
    const int nRead = readTrace(data);
    if (!force) _pos = before;
    return nRead;
}

int segyData2::seekTracePtr(int itrace)
{
    const segyMapItem* item = mapItem(itrace);
    if (!item) return 0;
    const QString name = _map.fileName(item->ifile);
    if (name != _curFile && !openFile(name, false)) return 0;
    _pos = int64_t(item->offset);
    return 1;
}

int segyData2::seekTraceValue(int ivalue, KeyNumber ipkey) const
{
    const MapSlot slot = getItemKey(ipkey);
    const segyMapItem* items = _map.items();
    int i = 0;
    while (i < _map.count() && segyKeyValue(items[i].item[slot.value]) != ivalue) ++i;
    return i;
}

int segyData2::skipFiles(int)
{
    return 0;
}

bool segyData2::seekPos(int64_t offset)
{
    if (_pos + offset < 0) return false;
    _pos += offset;
    return true;
}

void segyData2::setRemap(int iremap, const SegyRemapTable& table)
{
    _parm.iremap = iremap;
    _parm.remapTable = table;
    doRemap = iremap != 0;
}

MapSlot segyData2::getItemKey(KeyNumber key)
{
    for (const auto& entry : keySlots)
        if (entry.key == key.value) return MapSlot(entry.slot);
    return MapSlot();
}

QString segyData2::getHeaderName(KeyNumber key)
{
    for (const auto& entry : keySlots)
        if (entry.key == key.value) return itemList[entry.slot];
    return QString();
}
