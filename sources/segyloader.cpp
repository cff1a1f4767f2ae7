#include "sources/segyloader.h"

#include "host/globals.h"
#include "host/report.h"
#include "host/signal/bytes.h"
#include "sources/formatted.h"
#include "sources/segymapthread.h"
#include "sources/segysamples.h"

#include <QFileInfo>

#include <algorithm>
#include <climits>
#include <cstring>
#include <new>

constexpr int defaultMaxTraces = 5000;
constexpr int msdosType = 1;
/// The largest trace of variable length is forty times this in bytes, which an int must hold.
constexpr int mostSamples = INT_MAX / 40 / 4 - 64;

SegyLoader::SegyLoader(const SegyLoadParm& parm, Report* report, ProgressSink* progress, const HeaderWords* headerTable)
    : _parm(parm), _isort(parm.isort), _iswap(littleEndian() ? 1 : 0), _nsamp(parm.nsamp), _maxtr(parm.maxtr),
      _srate(parm.srate), _iremap(parm.iremap), _report(report), _progress(progress),
      _segyheader(nullptr, 0, headerTable)
{
    if (_parm.itype == msdosType) _iswap = _iswap == 0;
    setLayout(parm.layout);
    initTreviaHeaders();
    setRemapTable(parm.iremap, parm.remapTable);
}

SegyLoader::~SegyLoader() = default;

std::unique_ptr<SegyLoader> SegyLoader::open(const SegyLoadParm& parm, Report* report, ProgressSink* progress,
                                             const HeaderWords* headerTable, QString* fileInHand)
{
    std::unique_ptr<SegyLoader> loader(new SegyLoader(parm, report, progress, headerTable));
    const bool isOpen = loader->openFiles() && (parm.indexbuilt == 0 || loader->buildIndex(true));
    if (fileInHand) *fileInHand = loader->currentFile();
    if (!isOpen) return nullptr;
    if (parm.indexbuilt != 0) loader->tellIndex();
    return loader;
}

void SegyLoader::initTreviaHeaders()
{
    _segyheader.setTreviaVersion(_parm.isStandAlone ? 1 : 0);
    _segyheader.applyScalars(_parm.iescale != 0, _parm.icscale != 0);
    const QStringList rows = _segyheader.headerNames();
    if (_parm.isStandAlone) {
        _orvinheaderwords = rows.size();
    } else if (globalRuntime.nth > 10) {
        _orvinheaderwords = globalRuntime.nth;
    } else {
        int nWords = 0;
        for (int i = 0; i < rows.size(); ++i) {
            const QString name = rows[i].section("|", 0, 0).trimmed();
            const int format = rows[i].section("|", 2, 2) == "Integer4" ? 1 : 2;
            if (!_segyheader.OrvinHeaderExists(name)) {
                if (i < _segyheader.stdHeaderWords)
                    _segyheader.headerAddStd(name);
                else
                    _segyheader.headerAdd(name, rows[i].section("|", 4, 4), rows[i].section("|", 3, 3).toInt(), format);
            }
            nWords = std::max(nWords, _segyheader.headerIndex(name) + _segyheader.headerLength(name));
        }
        // A host that doesn't count its words itself is counted here.
        globalRuntime.nth = std::max(globalRuntime.nth, nWords);
        _orvinheaderwords = globalRuntime.nth;
    }
    _segyheader.setTotalHeaderWords(_orvinheaderwords);
    _segyheader.buildHeaderIndex(_headerIndex);
}

SegyReadParm SegyLoader::readParm() const
{
    SegyReadParm parm;
    parm.iformat = _parm.itype == msdosType ? 2 : 0;
    parm.ivariable = _parm.ivariable;
    parm.iswap = _iswap;
    parm.iremap = _iremap;
    parm.istandalone = _parm.isStandAlone ? 1 : 0;
    parm.nHeaderWords = _orvinheaderwords;
    parm.icscale = _parm.icscale;
    parm.formatCode = segyFormatOfChoice(_parm.iformat);
    parm.remapTable = _table;
    parm.layout = _layout;
    return parm;
}

bool SegyLoader::openFiles()
{
    bool isOpen = false;
    try {
        for (const QString& name : _parm.files.split(",")) {
            if (name.isEmpty()) break;
            isOpen = openOneFile(name);
            if (!isOpen) break;
        }
    } catch (const std::bad_alloc&) {
        reportNoMemory();
        return false;
    }
    return isOpen;
}

/// The list can't carry such a name: its parts don't exist, but the whole does.
void SegyLoader::reportComma(const QString& name)
{
    if (!_parm.files.contains(",") || !QFileInfo::exists(_parm.files)) return;
    _report->box("SEGY Load Error",
                 formatted("A file name with a comma can't be in the list of files. \"%s\" is only a part of:\n%s",
                           name.toStdString().c_str(), _parm.files.toStdString().c_str()));
}

/// Merges the reel's values with the user's: both the loader's and the reel's are then the ones in force.
bool SegyLoader::takeReelValues()
{
    segyReel& reel = _segydata->reel;
    // What an earlier file's reel gave is not carried over; what the user gave is.
    _nsamp = _parm.nsamp < 1 ? _segydata->numSamples() : _parm.nsamp;
    if (_nsamp < 1) {
        _report->line(formatted("\n\nSEGYLOADER: Error, number of samples is less than zero. value=%d\n\n", _nsamp));
        return false;
    }
    if (_nsamp > mostSamples) {
        _report->line(formatted("\n\nSEGYLOADER: Error, number of samples is too large. value=%d\n\n", _nsamp));
        return false;
    }
    _segydata->setNumSamples(_nsamp);
    _maxtr = _parm.maxtr == 0 ? reel.ntrc : _parm.maxtr;
    if (reel.naux > 0) _maxtr = int(std::min(int64_t(_maxtr) + reel.naux, int64_t(INT_MAX)));
    if (_maxtr < 1) _maxtr = defaultMaxTraces;
    if (_parm.srate > 0.0f)
        reel.nsr = int16_t(std::clamp(double(_parm.srate) * 1000.0, double(INT16_MIN), double(INT16_MAX)));
    _srate = _parm.srate > 0.0f ? _parm.srate : float(reel.nsr) / 1000.0f;
    if (reel.nsr <= 0) {
        _report->line(formatted("\n\nSEGYLOADER: Error, sample rate is less than zero. value=%d\n\n", reel.nsr));
        return false;
    }
    _isort = SortCode(_parm.isort);
    buildSortKeys();
    if (segyFormatOfChoice(_parm.iformat) > 0) reel.format = int16_t(segyFormatOfChoice(_parm.iformat));
    if (_layout.sampleFormat == 0 && (reel.format < SegyIbm || reel.format > SegyInteger1))
        assume({.name = formatted("sample format code %d is unknown", reel.format),
                .consequence = "samples are taken as 4-byte IEEE",
                .control = "Data sample format:"});
    return true;
}

bool SegyLoader::openOneFile(const QString& name)
{
    _cText = name;
    _segydata = std::make_unique<segyData2>(readParm(), _report, _progress);
    if (!_segydata->openFile(name, true)) {
        _report->line(formatted("SegyLoader: Error while opening file: %s.\n", name.toStdString().c_str()));
        reportComma(name);
        return false;
    }
    if (!_segydata->reelHeader(true)) {
        _report->line("SegyLoader: Error while reading reel headers.\n");
        return false;
    }
    _assumptions = SegyAssumptions();
    for (const SegyAssumption& assumption : _segydata->assumptions()) _assumptions.note(assumption);
    if (!takeReelValues()) return failReelValues();
    _assumptions.setContext(assumptionContext());
    _segydata->setTraceBytes();
    reportCutTrace();
    assumeOfReel();
    assumeOfRemap();
    freeBuffers();
    _itempTrc = {};
    const int64_t needed = _segydata->bufferBytes() + narrowBytes() + bytesOfTraces(1);
    if (!isJustified(needed)) {
        reportTooLarge("One trace", needed);
        return false;
    }
    _itempTrc.assign((size_t(_segydata->bufferBytes()) + 3) / 4, 0);
    _numtraces = 0;
    _curTrace = 0;
    _hasEnsemble = false;
    _segydata->setPos(uint64_t(_segydata->firstTrace()));
    return true;
}

void SegyLoader::reportCutTrace()
{
    const int64_t traceBytes = _segydata->fileSize() - _segydata->firstTrace();
    const int64_t record = _segydata->traceLength();
    if (_parm.ivariable || traceBytes <= 0 || traceBytes % record == 0) return;
    const int64_t cutTrace = traceBytes / record + 1;
    assume({.name = formatted("1 trace is cut by the end of the file, trace %lld (%d bytes of %d)",
                              static_cast<long long>(cutTrace), int(traceBytes % record), int(record)),
            .consequence = "the rest counts as 0",
            .control = "Num samples per trace:"});
}

void SegyLoader::assume(const SegyAssumption& assumption)
{
    if (!_assumptions.note(assumption)) return;
    _report->assumed(assumption.line());
    emit assumptionsChanged();
}

SegyAssumptionContext SegyLoader::assumptionContext() const
{
    return {_parm.iescale != 0, _parm.icscale != 0, _parm.ivariable != 0, _nsamp, _segydata->reel.nsr};
}

/// What the standard's later editions put between the reel and the samples, and the settings don't follow.
void SegyLoader::assumeOfReel()
{
    const auto* reel = reinterpret_cast<const char*>(&_segydata->reel);
    const auto word = [&](int byte) {
        int16_t value;
        std::memcpy(&value, reel + byte, sizeof value);
        if (_segydata->parm().iswap) endianSwap(&value, 2, 1);
        return int(value);
    };
    constexpr int textCountByte = 3504, extraHeadersByte = 3506, revisionByte = 3500, mostTexts = 1000;
    const int nTexts = word(textCountByte);
    const bool isText = nTexts == -1 || (nTexts >= 1 && nTexts <= mostTexts);
    const int64_t textEnd = segyReelBytes + int64_t(std::max(1, nTexts)) * segyTextBytes;
    if (isText && _layout.firstTrace == segyReelBytes && textEnd <= _segydata->fileSize())
        assume({.name = nTexts < 0 ? std::string("extended text headers are told")
                                   : formatted("%d extended text header%s told", nTexts, nTexts == 1 ? " is" : "s are"),
                .consequence = "their bytes are read as traces",
                .control = "First trace at byte:"});
    const auto revision = static_cast<unsigned char>(std::max(reel[revisionByte], reel[revisionByte + 1]));
    int nExtra = word(extraHeadersByte);
    if (nExtra == 0) nExtra = word(extraHeadersByte + 2);  // as a word of four bytes
    if (revision == 2 && nExtra >= 1 && nExtra <= mostSegyHeaderBytes / segyTraceHeaderBytes - 1 &&
        _layout.headerBytes == segyTraceHeaderBytes)
        assume({.name = formatted("trace headers of %d bytes are told", segyTraceHeaderBytes * (1 + nExtra)),
                .consequence = "what is behind the first 240 is read as samples",
                .control = "Trace header length:"});
}

void SegyLoader::assumeOfRemap()
{
    if (!_iremap) return;
    for (int row = 0; row < SegyRemapTable::nRows; ++row) {
        const QString fault = _segyheader.remapRowFault(_table, row);
        if (fault.isEmpty()) continue;
        assume({.name = formatted("row %d of the remap table", row + 1),
                .consequence = fault.toStdString(),
                .control = "Re-map Table"});
    }
}

/// Key numbers without a slot of the map sort by the first slot.
void SegyLoader::assumeOfSort()
{
    if (_keys.ipkey == KeyNumber() || !segyData2::getHeaderName(_keys.ipkey).isEmpty()) return;
    const QString named = segySortName(_isort);
    const std::string name = named.isEmpty() ? std::string(_keys.priWord) : named.toStdString();
    assume({.name = "the index has no key for the sort \"" + name + "\"",
            .consequence = "it is sorted by the channel",
            .control = "Data sort order:"});
}

bool SegyLoader::failReelValues()
{
    _report->box("SEGY Reel Header Problem", "There was a problem while reading the SEGY reel header.\n\n"
                                             "Is this MSDOS SEGY format?\n\n"
                                             "Check standard error file for complete error message.");
    return false;
}

void SegyLoader::buildSortKeys()
{
    _keys = segySortKeys(_isort, _segydata->reel.sort);
    _isort = _keys.code;
    _iepkey = _ieskey = WordFrom1();
    if (_keys.ipkey == KeyNumber()) return;
    _iepkey = from1(_segyheader.names().index(_keys.priWord));
    _ieskey = from1(_segyheader.names().index(_keys.secWord));
}

GlobalRuntime SegyLoader::runTime() const
{
    constexpr int stackType = 7;
    GlobalRuntime runtime = {};
    runtime.samprat = _srate;
    runtime.numsmp = _nsamp;
    runtime.ipsort = _keys.ipsort;
    runtime.maxdtr = _maxtr;
    runtime.idtyp = isStacked() ? stackType : 0;
    runtime.nth = _orvinheaderwords;
    runtime.ipkey = _iepkey.value;
    runtime.iskey = _ieskey.value;
    return runtime;
}

void SegyLoader::setLayout(const SegyReadLayout& layout)
{
    _layout = layout;
    _layout.firstTrace = std::max(layout.firstTrace, int64_t(segyReelBytes));
    _layout.headerBytes = std::clamp(layout.headerBytes, segyTraceHeaderBytes, mostSegyHeaderBytes);
    if (layout.byteOrder != SegyByteOrder::OfType)
        _iswap = (layout.byteOrder == SegyByteOrder::HighestFirst) == littleEndian();
}

void SegyLoader::setRemapTable(int iremap, const SegyRemapTable& table)
{
    _iremap = iremap;
    _table = table;
    _remapRows = _segyheader.buildRemapIndex(table);
    if (_segydata) _segydata->setRemap(iremap, table);
}

void SegyLoader::saveHeaders()
{
    _segyheader.checkHeaderSaved();
}

void SegyLoader::dataLoaded()
{
    emit reLoadData();
    _isLoaded = true;
}

QByteArray SegyLoader::getEbcdic() const
{
    return QByteArray(_segydata->reel.ebcdic, segyTextBytes);
}
