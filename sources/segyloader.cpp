#include "sources/segyloader.h"

#include "host/globals.h"
#include "host/report.h"
#include "host/signal/bytes.h"
#include "sources/formatted.h"
#include "sources/segymapthread.h"
#include "sources/segysamples.h"
#include "tracedata/headertable.h"
#include "tracedata/menukeys.h"
#include "tracedata/parmmenu.h"
#include "tracedata/picturedefaults.h"

#include <QFileInfo>

#include <algorithm>
#include <climits>
#include <cstring>
#include <new>

constexpr int defaultMaxTraces = 5000;
/// The largest trace of variable length is forty times this in bytes, which an int must hold.
constexpr int mostSamples = INT_MAX / 40 / 4 - 64;

SegyLoader::SegyLoader(int ifile, const QString& cfiles, int imode, int isort, int itype, int iformat,
                       int ivariable, int iswap, int icscale, int iescale, int nsamp, int maxtr, float srate,
                       int iremap, int indexbuilt, bool isstandalone, Report* report, ProgressSink* progress,
                       const HeaderTable* headerTable)
    : _cfiles(cfiles), _isort(isort), _ifile(ifile - 1), _imode(imode), _iformat(iformat),
      _ivariable(ivariable), _iswap(iswap), _icscale(icscale), _iescale(iescale), _userSamples(nsamp),
      _userTraces(maxtr), _userSort(isort), _userRate(srate), _nsamp(nsamp), _maxtr(maxtr), _srate(srate), _iremap(iremap),
      _itype(itype), _itform(0), _iStandAlone(isstandalone ? 1 : 0), _report(report), _progress(progress),
      _segyheader(nullptr, 0, headerTable), _isIndexAsked(indexbuilt != 0), _isIndexBuilt(indexbuilt != 0)
{
    if (_itype == 1) {
        _itform = 2;
        _iswap = _iswap == 0;
    }
    initTreviaHeaders();
    for (const QString& name : cfiles.split(",")) {
        if (name.isEmpty()) break;
        cfileList += name;
    }
}

SegyLoader::~SegyLoader() = default;

void SegyLoader::initTreviaHeaders()
{
    _segyheader.setTreviaVersion(_iStandAlone);
    _segyheader.applyScalars(_iescale != 0, _icscale != 0);
    const QStringList rows = _segyheader.headerNames();
    if (_iStandAlone) {
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
                    _segyheader.headerAdd(name, rows[i].section("|", 4, 4),
                                          rows[i].section("|", 3, 3).toInt(), format);
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

void SegyLoader::setMenu(parmmenu* menu)
{
    _menu = menu;
    if (!_menu) return;
    setPictureDefaults(_menu);
    _menu->nens = _maxtr;
    setMenuKeys(_menu, _iepkey, _ieskey);
    _menu->ireset = 1;
}

SegyReadParm SegyLoader::readParm() const
{
    SegyReadParm parm;
    parm.itape = _ifile;
    parm.imode = _imode;
    parm.iformat = _itform;
    parm.ivariable = _ivariable;
    parm.iswap = _iswap;
    parm.iremap = _iremap;
    parm.istandalone = _iStandAlone;
    parm.nHeaderWords = _orvinheaderwords;
    parm.icscale = _icscale;
    parm.formatCode = segyFormatOfChoice(_iformat);
    parm.remapTable = _table;
    parm.layout = _layout;
    return parm;
}

bool SegyLoader::openFiles()
{
    _thread.reset();
    _isIndexBuilding = false;
    try {
        for (const QString& name : cfileList)
            if (!openOneFile(name)) return false;
    } catch (const std::bad_alloc&) {
        reportNoMemory();
        _isOpen = false;
    }
    return _isOpen;
}

/// The list can't carry such a name: its parts don't exist, but the whole does.
void SegyLoader::reportComma(const QString& name)
{
    if (!_cfiles.contains(",") || !QFileInfo::exists(_cfiles)) return;
    _report->box(
        "SEGY Load Error",
        formatted("A file name with a comma can't be in the list of files. \"%s\" is only a part of:\n%s",
                  name.toStdString().c_str(), _cfiles.toStdString().c_str()));
}

/// Merges the reel's values with the user's: both the loader's and the reel's are then the ones in force.
bool SegyLoader::takeReelValues()
{
    segyReel& reel = _segydata->reel;
    // What an earlier file's reel gave is not carried over; what the user gave is.
    _nsamp = _userSamples < 1 ? _segydata->numSamples() : _userSamples;
    if (_nsamp < 1) {
        _report->line(
            formatted("\n\nSEGYLOADER: Error, number of samples is less than zero. value=%d\n\n", _nsamp));
        return false;
    }
    if (_nsamp > mostSamples) {
        _report->line(
            formatted("\n\nSEGYLOADER: Error, number of samples is too large. value=%d\n\n", _nsamp));
        return false;
    }
    _segydata->setNumSamples(_nsamp);
    _maxtr = _userTraces == 0 ? reel.ntrc : _userTraces;
    if (reel.naux > 0) _maxtr = int(std::min(int64_t(_maxtr) + reel.naux, int64_t(INT_MAX)));
    if (_maxtr < 1) _maxtr = defaultMaxTraces;
    if (_userRate > 0.0f)
        reel.nsr = int16_t(std::clamp(double(_userRate) * 1000.0, double(INT16_MIN), double(INT16_MAX)));
    _srate = _userRate > 0.0f ? _userRate : float(reel.nsr) / 1000.0f;
    if (reel.nsr <= 0) {
        _report->line(
            formatted("\n\nSEGYLOADER: Error, sample rate is less than zero. value=%d\n\n", reel.nsr));
        return false;
    }
    _isort = _userSort;
    buildSortKeys();
    if (segyFormatOfChoice(_iformat) > 0) reel.format = int16_t(segyFormatOfChoice(_iformat));
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
    _isOpen = _segydata->openFile(name, true);
    if (!_isOpen) {
        _report->line(formatted("SegyLoader: Error while opening file: %s.\n", name.toStdString().c_str()));
        reportComma(name);
        return false;
    }
    _isOpen = _segydata->reelHeader(true);
    if (!_isOpen) {
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
        return _isOpen = false;
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
    if (_ivariable || traceBytes <= 0 || traceBytes % record == 0) return;
    assume({.name = formatted("1 trace is cut by the end of the file, trace %lld (%d bytes of %d)",
                              static_cast<long long>(traceBytes / record + 1), int(traceBytes % record), int(record)),
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
    return {_iescale != 0, _icscale != 0, _ivariable != 0, _nsamp, _segydata->reel.nsr};
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
    _segydata->closeFile();
    _segydata.reset();
    _isOpen = false;
    _report->box("SEGY Reel Header Problem", "There was a problem while reading the SEGY reel header.\n\n"
                                             "Is this MSDOS SEGY format?\n\n"
                                             "Check standard error file for complete error message.");
    return false;
}

void SegyLoader::buildSortKeys()
{
    _keys = segySortKeys(_isort, _segydata ? _segydata->reel.sort : 0);
    _isort = _keys.code;
    _iepkey = _ieskey = WordFrom1();
    if (_keys.ipkey == KeyNumber()) return;
    _iepkey = from1(_segyheader.names().index(_keys.priWord));
    _ieskey = from1(_segyheader.names().index(_keys.secWord));
}

bool SegyLoader::buildAskedIndex()
{
    if (_isIndexBuilt && getTotalTraces() == 0) _isIndexBuilt = buildIndex(true);
    return _isIndexBuilt || !_isIndexAsked;
}

void SegyLoader::initBuild()
{
    buildAskedIndex();
    dataLoaded();
    tellSort();
    if (!_menu || !_segydata) return;
    orvinRuntimeStruct& runtime = _menu->_orvinruntime;
    runtime.samprat = _srate;
    runtime.numsmp = _segydata->numSamples();
    runtime.maxdtr = _maxtr;
    runtime.nth = _orvinheaderwords;
    runtime.idomain = _menu->idomain;
}

void SegyLoader::tellSort()
{
    _isStacked = _keys.mysort == 4 || _keys.mysort == 10 || _keys.mysort == 11;
    if (!_menu) return;
    orvinRuntimeStruct& runtime = _menu->_orvinruntime;
    setMenuKeys(_menu, _iepkey, _ieskey);
    runtime.ipkey = _iepkey.value;
    runtime.iskey = _ieskey.value;
    runtime.ipsort = _keys.ipsort;
    runtime.idtyp = _isStacked ? 7 : 0;
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

void SegyLoader::fillHeaderTable(HeaderTable* table)
{
    table->fill(_segyheader.names(), _orvinheaderwords);
}

void SegyLoader::dataLoaded()
{
    if (!_isOpen) return;
    emit reLoadData();
    _isLoaded = true;
}

QByteArray SegyLoader::getEbcdic() const
{
    return _segydata ? QByteArray(_segydata->reel.ebcdic, segyTextBytes) : QByteArray();
}
