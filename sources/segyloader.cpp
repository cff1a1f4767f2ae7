#include "sources/segyloader.h"

#include "host/globals.h"
#include "host/report.h"
#include "sources/segymapthread.h"
#include "sources/segysamples.h"
#include "tracedata/parmmenu.h"

#include <QFileInfo>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>

/// Reel format codes of the format choices 1 to 6.
static const int formatChoices[] = {0, SegyIeee, SegyIbm, SegyInteger4, SegyInteger2, SegyInteger1, SegyIntegerGain};

constexpr int defaultMaxTraces = 5000;
/// The largest trace of variable length is forty times this in bytes, which an int must hold.
constexpr int mostSamples = INT_MAX / 40 / 4 - 64;

static int formatOfChoice(int choice)
{
    return choice >= 1 && choice < int(std::size(formatChoices)) ? formatChoices[choice] : 0;
}

SegyLoader::SegyLoader(int ifile, const QString& cfiles, int imode, int isort, int itype, int iformat, int ivariable,
                       int iswap, int icscale, int iescale, int nsamp, int maxtr, float srate, int iremap,
                       int indexbuilt, bool isstandalone, Report* report, ProgressSink* progress,
                       const HeaderTable* headerTable)
    : _cfiles(cfiles), _ifile(ifile - 1), _imode(imode), _isort(isort), _iformat(iformat), _ivariable(ivariable),
      _iswap(iswap), _icscale(icscale), _iescale(iescale), _userSamples(nsamp), _userTraces(maxtr), _userRate(srate),
      _nsamp(nsamp), _maxtr(maxtr), _srate(srate), _iremap(iremap), _itype(itype), _itform(0),
      _iStandAlone(isstandalone ? 1 : 0), _report(report), _progress(progress), _segyheader(nullptr, 0, headerTable),
      _isIndexBuilt(indexbuilt != 0)
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

void SegyLoader::setMenu(parmmenu* menu)
{
    _menu = menu;
    if (!_menu) return;
    _menu->idisplay = 0;
    _menu->iscreens = 1;
    _menu->dostore = 0;
    _menu->docollect = 0;
    _menu->icollect = 10;
    _menu->nens = _maxtr;
    _menu->tpi = 0.0f;
    _menu->ips = 0.0f;
    _menu->bias = 0.0f;
    _menu->clip = 2.0f;
    _menu->minrange = -3.0f;
    _menu->maxrange = 3.0f;
    _menu->ipkey = _menu->ipkeyreal = _iepkey;
    _menu->iskey = _menu->iskeyreal = _ieskey;
    _menu->iskeymod = 2;
    _menu->iskeyinc = 25;
    _menu->igain = 0;
    _menu->irange = 1;
    _menu->stime = 0;
    _menu->etime = 0;
    _menu->idirection = 0;
    _menu->iplotheader = -1;
    _menu->idifference = 0;
    _menu->iscale = 1;
    _menu->ireset = 1;
    _menu->moveup = 1;
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
    parm.formatCode = formatOfChoice(_iformat);
    parm.remapTable = _table;
    return parm;
}

bool SegyLoader::openFiles()
{
    _thread.reset();
    for (const QString& name : cfileList)
        if (!openOneFile(name)) return false;
    return _isOpen;
}

/// The list can't carry such a name: its parts don't exist, but the whole does.
void SegyLoader::reportComma(const QString& name)
{
    if (!_cfiles.contains(",") || !QFileInfo::exists(_cfiles)) return;
    _report->box("SEGY Load Error", "A file name with a comma can't be in the list of files. \"" +
                                        name.toStdString() + "\" is only a part of:\n" + _cfiles.toStdString());
}

bool SegyLoader::openOneFile(const QString& name)
{
    _cText = name;
    _segydata = std::make_unique<segyData2>(readParm(), _report, _progress);
    _isOpen = _segydata->openFile(name, true);
    if (!_isOpen) {
        _report->line("SegyLoader: Error while opening file: " + name.toStdString() + ".\n");
        reportComma(name);
        return false;
    }
    _isOpen = _segydata->reelHeader(true);
    if (!_isOpen) {
        _report->line("SegyLoader: Error while reading reel headers.\n");
        return false;
    }
    segyReel& reel = _segydata->reel;
    // What an earlier file's reel gave is not carried over; what the user gave is.
    _nsamp = _userSamples < 1 ? _segydata->numSamples() : _userSamples;
    if (_nsamp < 1) {
        _report->line("\n\nSEGYLOADER: Error, number of samples is less than zero. value=" + std::to_string(_nsamp) +
                      "\n\n");
        return failReelValues();
    }
    if (_nsamp > mostSamples) {
        _report->line("\n\nSEGYLOADER: Error, number of samples is too large. value=" + std::to_string(_nsamp) + "\n\n");
        return failReelValues();
    }
    _segydata->setNumSamples(_nsamp);
    _maxtr = _userTraces == 0 ? reel.ntrc : _userTraces;
    if (reel.naux > 0) _maxtr = int(std::min(int64_t(_maxtr) + reel.naux, int64_t(INT_MAX)));
    if (_maxtr < 1) _maxtr = defaultMaxTraces;
    if (_userRate > 0.0f)
        reel.nsr = int16_t(std::clamp(double(_userRate) * 1000.0, double(INT16_MIN), double(INT16_MAX)));
    _srate = _userRate > 0.0f ? _userRate : float(reel.nsr) / 1000.0f;
    if (reel.nsr <= 0) {
        _report->line("\n\nSEGYLOADER: Error, sample rate is less than zero. value=" + std::to_string(reel.nsr) +
                      "\n\n");
        return failReelValues();
    }
    buildSortKeys();
    if (formatOfChoice(_iformat) > 0) reel.format = int16_t(formatOfChoice(_iformat));
    if (reel.format < SegyIbm || reel.format > SegyInteger1)
        _report->assumed("SegyLoader: sample format code " + std::to_string(reel.format) +
                         " is unknown: samples are taken as 4-byte IEEE");
    _segydata->setTraceBytes();
    const int64_t tail = (_segydata->fileSize() - segyReelBytes) % _segydata->traceLength();
    if (!_ivariable && tail > 0)
        _report->assumed("SegyLoader: 1 trace is cut by the end of the file, trace " +
                         std::to_string((_segydata->fileSize() - segyReelBytes) / _segydata->traceLength() + 1) +
                         " (" + std::to_string(tail) + " bytes of " + std::to_string(_segydata->traceLength()) +
                         "): the rest counts as 0");
    _traces.clear();
    _headers.clear();
    _traceStore.clear();
    _headerStore.clear();
    _itempTrc.assign((size_t(_segydata->maxBytes()) + 3) / 4, 0);
    _numtraces = 0;
    _curTrace = 0;
    _hasEnsemble = false;
    _segydata->setPos(segyReelBytes);
    return true;
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
    if (_keys.ipkey < 0) return;
    _iepkey = _segyheader.OrvinHeaderIndex(_keys.priWord) + 1;
    _ieskey = _segyheader.OrvinHeaderIndex(_keys.secWord) + 1;
}

void SegyLoader::initBuild()
{
    if (_isIndexBuilt)
        indexBuild(true);
    else
        dataLoaded();
    _isStacked = _keys.mysort == 4 || _keys.mysort == 10 || _keys.mysort == 11;
    if (!_menu || !_segydata) return;
    orvinRuntimeStruct& runtime = _menu->_orvinruntime;
    runtime.ipkey = _menu->ipkey = _menu->ipkeyreal = _iepkey;
    runtime.iskey = _menu->iskey = _menu->iskeyreal = _ieskey;
    runtime.samprat = _srate;
    runtime.numsmp = _segydata->numSamples();
    runtime.maxdtr = _maxtr;
    runtime.nth = _orvinheaderwords;
    runtime.ipsort = _keys.ipsort;
    runtime.idomain = _menu->idomain;
    runtime.idtyp = _isStacked ? 7 : 0;
}

void SegyLoader::rejectRemapIfUseless()
{
    if (_segydata->isRemapRejected()) setRemapTable(0, SegyRemapTable());
}

void SegyLoader::indexBuild(bool show)
{
    if (!_segydata) return;
    _segydata->buildMap(show);
    rejectRemapIfUseless();
    allocTraces(longestStackRun(_segydata->map(), _keys.mysort));
    priKeyList();
    dataLoaded();
    _isIndexBuilt = true;
}

bool SegyLoader::isIndexBuilding() const
{
    return _thread && _thread->isRunning();
}

SegyMapThread* SegyLoader::startIndexBuild()
{
    if (!_segydata || !_isOpen) return nullptr;
    if (isIndexBuilding()) return _thread.get();
    _thread = std::make_unique<SegyMapThread>(*_segydata, _keys);
    connect(_thread.get(), &QThread::finished, this, &SegyLoader::takeBuiltMap);
    _thread->start(QThread::InheritPriority);
    return _thread.get();
}

void SegyLoader::takeBuiltMap()
{
    if (!_thread || !_thread->isFinished()) return;
    if (!_thread->lines().empty()) _report->line(_thread->lines());
    if (!_thread->isComplete()) return;
    // The ensemble on screen was read without an index: it is known by the place of its first trace.
    _segydata->setMap(_thread->takeMap());
    if (_thread->isRemapRejected()) setRemapTable(0, SegyRemapTable());
    allocTraces(_thread->longestRun());
    const SegySortKeys& built = _thread->keys();
    if (built.ipkey == _keys.ipkey && built.iskey == _keys.iskey)
        listPrimaryKeys();
    else
        priKeyList();
    if (_hasEnsemble && _keys.ipkey >= 0) {
        const int slot = segyData2::getItemKey(_keys.ipkey);
        const segyMapItem* items = _segydata->map().items();
        const segyMapItem* end = items + _segydata->totalTraces();
        const segyMapItem* first =
            std::find_if(items, end, [this](const segyMapItem& item) { return item.offset == _firstOffset; });
        if (first != end) {
            _priCurValue = segyKeyValue(first->item[slot]);
            _priCurKey = int(std::find(_priValues.begin(), _priValues.end(), _priCurValue) - _priValues.begin());
        }
    }
    _isIndexBuilt = true;
    dataLoaded();
    emit indexBuilt();
}

void SegyLoader::buildNewSort(int isort)
{
    _isort = isort;
    buildSortKeys();
    if (_isIndexBuilt) priKeyList();
}

void SegyLoader::getSortRange(int isort, float* min, float* max) const
{
    *min = *max = 0.0f;
    const int key = segySortRangeKey(isort);
    if (key == 0) return;
    *min = 3.4e38f;
    *max = -3.4e38f;
    const int slot = segyData2::getItemKey(key);
    for (int i = 0; i < getTotalTraces(); ++i) {
        const float value = _segydata->map().items()[i].item[slot];
        if (value < *min) *min = value;
        if (value > *max) *max = value;
    }
}

QStringList SegyLoader::priKeyList()
{
    if (_segydata && _keys.ipkey >= 0)
        sortSegyMap(_segydata->map().items(), _segydata->totalTraces(), segyData2::getItemKey(_keys.ipkey),
                    segyData2::getItemKey(_keys.iskey));
    listPrimaryKeys();
    return priList();
}

/// Walks the sorted map. The last run is not compared with the longest, on purpose: the capacity that the user
/// or the reel gave bounds it.
void SegyLoader::listPrimaryKeys()
{
    _priValues.clear();
    _priStarts.clear();
    _priCurKey = -1;
    int longest = 0, run = 0;
    if (_segydata && _keys.ipkey >= 0) {
        const int slot = segyData2::getItemKey(_keys.ipkey);
        _priName = segyData2::getHeaderName(_keys.ipkey);
        _secName = segyData2::getHeaderName(_keys.iskey);
        for (int i = 0; i < _segydata->totalTraces(); ++i) {
            const int value = segyKeyValue(_segydata->map().items()[i].item[slot]);
            if (!_priValues.empty() && value == _priValues.back()) {
                ++run;
                continue;
            }
            longest = std::max(longest, run);
            run = 1;
            _priValues.push_back(value);
            _priStarts.push_back(i);
        }
    }
    allocTraces(longest);
}

QStringList SegyLoader::priList() const
{
    QStringList list;
    list.reserve(int(_priValues.size()));
    for (int value : _priValues) list += QString::number(value);
    return list;
}

void SegyLoader::allocTraces(int maxtr)
{
    _maxtr = std::max(_maxtr, maxtr);
}

/// Buffers are made as traces come: a capacity may be far more than a file has.
void SegyLoader::growBuffers(int nTraces)
{
    while (int(_traceStore.size()) < nTraces) {
        _traceStore.push_back(std::make_unique_for_overwrite<float[]>(size_t(_nsamp)));
        _headerStore.push_back(std::make_unique<int[]>(size_t(std::max(1, _orvinheaderwords))));
        _traces.push_back(_traceStore.back().get());
        _headers.push_back(_headerStore.back().get());
    }
}

/// The first map index of the entry in force.
int SegyLoader::ensembleStart()
{
    const int entry = _priCurKey;
    _priCurValue = _priValues[size_t(entry)];
    // Keys that are NaN stand last and list a second 0: the first one counts.
    const int sameBefore = int(std::find(_priValues.begin(), _priValues.end(), _priCurValue) - _priValues.begin());
    return _priStarts[size_t(sameBefore)];
}

/// A 32-bit word of the trace in hand, counted from 1; 0 outside the header.
int SegyLoader::rawWord(int key) const
{
    return key >= 1 && key <= segyTraceHeaderBytes / 4 ? _itempTrc[size_t(key) - 1] : 0;
}

bool SegyLoader::loadNextEnsemble(int moveup)
{
    _numtraces = 0;
    _hasEnsemble = false;
    if (!_segydata) return true;
    _assumptions.start(_iescale != 0, _icscale != 0);
    int iTrace = 0;
    if (_isIndexBuilt) {
        if (_priValues.empty()) return true;
        const int64_t wanted = int64_t(_priCurKey) + moveup;
        _priCurKey = int(std::clamp<int64_t>(wanted, 0, int64_t(_priValues.size()) - 1));
        iTrace = ensembleStart();
    }
    if (_iremap) _segyheader.setSegyRawHeader(_segydata->segyRawHeader());
    int recorded = 0;
    for (;; ++iTrace) {
        const uint64_t before = _segydata->getPos();
        const int nRead =
            _isIndexBuilt ? _segydata->seekTrace(iTrace, _itempTrc.data(), true) : _segydata->readTrace(_itempTrc.data());
        if (nRead < 0) _report->line("\nSegyLoader: Error, while reading trace data\n");
        if (nRead <= 0) break;
        const int value = rawWord(_keys.ipkey);
        if (_numtraces == 0) {
            recorded = _isIndexBuilt ? _priCurValue : value;
            _firstOffset = _isIndexBuilt ? _segydata->mapItem(iTrace)->offset : before;
            _hasEnsemble = true;
        } else if (value != recorded) {
            if (!_isIndexBuilt) _segydata->setPos(before);
            break;
        }
        ++_curTrace;
        appendTrace(_isIndexBuilt ? int64_t(_segydata->mapItem(iTrace)->itrace) + 1 : _curTrace);
        if (_numtraces >= _maxtr) break;
    }
    if (!_isIndexBuilt) _priCurValue = recorded;
    for (const std::string& text : _assumptions.lines()) _report->assumed(text);
    return true;
}

void SegyLoader::convertHeader(int* words)
{
    std::fill(words, words + _orvinheaderwords, 0);
    _segyheader.setNewData(_itempTrc.data(), words);
    _segyheader.convertSegyToOrvinFast(_headerIndex);
    if (_iremap) _segyheader.performRemapFast(_remapRows, _iswap);
}

void SegyLoader::appendTrace(int64_t rank)
{
    growBuffers(_numtraces + 1);
    const auto* trace = reinterpret_cast<const segyTrace*>(_itempTrc.data());
    _assumptions.add(*trace, rank);
    convertHeader(_headers[size_t(_numtraces)]);
    std::memcpy(_traces[size_t(_numtraces)], _itempTrc.data() + segyTraceHeaderBytes / 4,
                size_t(_nsamp) * sizeof(float));
    ++_numtraces;
}

bool SegyLoader::loadLastEnsemble(int moveup)
{
    if (!canSeek() || _priValues.empty()) return false;
    const int64_t wanted = int64_t(_priCurKey) - moveup;
    _priCurKey = int(std::clamp<int64_t>(wanted, 0, int64_t(_priValues.size()) - 1));
    return loadNextEnsemble(0);
}

bool SegyLoader::seekEnsemble(int pkey)
{
    if (!canSeek()) return false;
    _priCurKey = int(std::find(_priValues.begin(), _priValues.end(), pkey) - _priValues.begin());
    return loadNextEnsemble(0);
}

int SegyLoader::seekTrace(int itrace, void* data, bool force)
{
    return _segydata ? _segydata->seekTrace(itrace, data, force) : 0;
}

int SegyLoader::seekTraceConverted(int itrace, float* data, bool force)
{
    const int nRead = seekTrace(itrace, _itempTrc.data(), force);
    if (nRead < 1) return nRead;
    growBuffers(1);
    if (_iremap) _segyheader.setSegyRawHeader(_segydata->segyRawHeader());
    convertHeader(_headers[0]);
    std::memcpy(data, _headers[0], size_t(_orvinheaderwords) * sizeof(int));
    std::memcpy(data + _orvinheaderwords, _itempTrc.data() + segyTraceHeaderBytes / 4, size_t(_nsamp) * sizeof(float));
    return nRead;
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
    _segyheader.fillHeaderTable(table, _orvinheaderwords);
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
