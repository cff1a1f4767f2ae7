/// The loader's index and its ensembles.
#include "sources/segyloader.h"

#include "host/report.h"
#include "sources/formatted.h"
#include "sources/segymapthread.h"
#include "sources/segysamples.h"
#include "sources/segytraceindex.h"

#include <algorithm>
#include <cstring>
#include <new>

void SegyLoader::rejectRemapIfUseless()
{
    if (_segydata->isRemapRejected()) setRemapTable(0, SegyRemapTable());
}

bool SegyLoader::indexBuild(bool show)
{
    if (!buildIndex(show)) return false;
    dataLoaded();
    tellIndex();
    return true;
}

/// Whoever asks for traces by their number finds them.
void SegyLoader::tellIndex()
{
    setTraceIndex(std::make_unique<SegyTraceIndex>(this));
}

bool SegyLoader::buildIndex(bool show)
{
    try {
        _segydata->setMapLimit(mostBytes() - bytesInUse());
        _segydata->buildMap(show);
        if (_segydata->mapBytesNeeded() > 0) {
            reportTooLarge("The index map", bytesInUse() + _segydata->mapBytesNeeded());
            return false;
        }
        rejectRemapIfUseless();
        allocTraces(longestStackRun(_segydata->map(), _keys));
        priKeyList();
    } catch (const std::bad_alloc&) {
        _segydata->setMap(SegyMap());
        reportNoMemory();
        return false;
    }
    return _isIndexBuilt = true;
}

SegyMapThread* SegyLoader::startIndexBuild()
{
    if (isIndexBuilding()) return _thread.get();
    _segydata->setMapLimit(mostBytes() - bytesInUse());
    _thread = std::make_unique<SegyMapThread>(*_segydata, _keys);
    connect(_thread.get(), &QThread::finished, this, &SegyLoader::endIndexBuild);
    _isIndexBuilding = true;
    _thread->start(QThread::InheritPriority);
    emit indexBuildStarted();
    return _thread.get();
}

int SegyLoader::indexBuildPercent() const
{
    return _thread ? _thread->percent() : 0;
}

void SegyLoader::stopIndexBuild()
{
    if (_thread) _thread->requestInterruption();
}

int SegyLoader::ensembleValue(int entry) const
{
    return entry >= 0 && entry < numEnsembles() ? _priValues[size_t(entry)] : 0;
}

int SegyLoader::ensembleTraces(int entry) const
{
    if (entry < 0 || entry >= numEnsembles()) return 0;
    const int next = entry + 1 < numEnsembles() ? _priStarts[size_t(entry) + 1] : getTotalTraces();
    return next - _priStarts[size_t(entry)];
}

void SegyLoader::endIndexBuild()
{
    if (!_thread || !_thread->isDone()) return;
    _isIndexBuilding = false;
    takeBuiltMap();
    emit indexBuildEnded();
}

void SegyLoader::takeBuiltMap()
{
    const std::string lines = _thread->takeLines();
    if (!lines.empty()) _report->line(lines);
    if (_thread->mapBytesNeeded() > 0)
        reportTooLarge("The index map", bytesInUse() + _thread->mapBytesNeeded());
    else if (_thread->isOutOfMemory())
        reportNoMemory();
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
    if (_hasEnsemble && _keys.ipkey != KeyNumber()) {
        const MapSlot slot = segyData2::getItemKey(_keys.ipkey);
        const segyMapItem* items = _segydata->map().items();
        const segyMapItem* end = items + _segydata->totalTraces();
        const segyMapItem* first =
            std::find_if(items, end, [this](const segyMapItem& item) { return item.offset == _firstOffset; });
        if (first != end) {
            _priCurValue = segyKeyValue(first->item[slot.value]);
            _priCurKey = int(std::find(_priValues.begin(), _priValues.end(), _priCurValue) - _priValues.begin());
        }
    }
    _isIndexBuilt = true;
    dataLoaded();
    tellIndex();
    emit indexBuilt();
}

void SegyLoader::buildNewSort(SortCode isort)
{
    _isort = isort;
    buildSortKeys();
    if (_isIndexBuilt) {
        priKeyList();
        tellIndex();
    }
    emit keysChanged();
}

void SegyLoader::getSortRange(SortCode isort, float* min, float* max) const
{
    *min = *max = 0.0f;
    const KeyNumber key = segySortRangeKey(isort);
    if (key == KeyNumber()) return;
    *min = 3.4e38f;
    *max = -3.4e38f;
    const MapSlot slot = segyData2::getItemKey(key);
    for (int i = 0; i < getTotalTraces(); ++i) {
        const float value = _segydata->map().items()[i].item[slot.value];
        if (value < *min) *min = value;
        if (value > *max) *max = value;
    }
}

QStringList SegyLoader::priKeyList()
{
    if (_keys.ipkey != KeyNumber())
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
    if (_keys.ipkey != KeyNumber()) {
        const MapSlot slot = segyData2::getItemKey(_keys.ipkey);
        _priName = segyData2::getHeaderName(_keys.ipkey);
        _secName = segyData2::getHeaderName(_keys.iskey);
        assumeOfSort();
        for (int i = 0; i < _segydata->totalTraces(); ++i) {
            const int value = segyKeyValue(_segydata->map().items()[i].item[slot.value]);
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

int64_t SegyLoader::mostBytes() const
{
    constexpr int64_t factor = 8, base = int64_t(64) << 20;
    return base + factor * _segydata->fileSize();
}

int64_t SegyLoader::bytesOfTraces(int64_t nTraces) const
{
    constexpr int64_t pointers = 4 * sizeof(void*) + 32;  // and what an allocation takes besides
    return nTraces * (4 * int64_t(_nsamp) + 4 * std::max(1, _orvinheaderwords) + pointers);
}

int64_t SegyLoader::narrowBytes() const
{
    const bool isThree = segySampleBytes(_segydata->sampleFormat()) == 3;
    return int64_t(isThree ? 3 : 2) * _nsamp;
}

int64_t SegyLoader::bytesInUse() const
{
    return int64_t(_itempTrc.size()) * 4 + narrowBytes() + bytesOfTraces(int64_t(_traces.count())) +
           getTotalTraces() * SegyMap::bytesAnItem;
}

static double mebibytes(int64_t nBytes)
{
    return double(nBytes) / double(1 << 20);
}

void SegyLoader::reportTooLarge(const char* what, int64_t nBytes)
{
    _report->box("SEGY Memory",
                 formatted("%s of this file would need about %.0f MiB of memory, with what else the file takes.\n"
                           "A file of %.4g MiB justifies at most %.0f MiB, so these settings can't be right.\n\n"
                           "Check the number of samples, the sample format and the trace length, or press "
                           "\"Guess Settings\". Nothing has been changed.",
                           what, mebibytes(nBytes), mebibytes(_segydata->fileSize()), mebibytes(mostBytes())));
}

void SegyLoader::reportNoMemory()
{
    _report->box("SEGY Memory", "There is not enough memory to load this file. Nothing has been changed.");
}

void SegyLoader::freeBuffers()
{
    _traces.reset(size_t(std::max(1, _nsamp)));
    _headers.reset(size_t(std::max(1, _orvinheaderwords)));
    _numtraces = 0;
}

/// Buffers are made as traces come: a capacity may be far more than a file has.
void SegyLoader::growBuffers(int nTraces)
{
    const int64_t justified = int64_t(_traces.count()) + (mostBytes() - bytesInUse()) / bytesOfTraces(1);
    const size_t most = size_t(std::max<int64_t>(nTraces, justified));
    _traces.grow(size_t(nTraces), most);
    _headers.grow(size_t(nTraces), most);
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

/// A 32-bit word of the trace in hand; 0 outside the header.
int SegyLoader::rawWord(KeyNumber key) const
{
    const bool isInside = key.value >= 1 && key.value <= segyTraceHeaderBytes / 4;
    return isInside ? _itempTrc[size_t(key.value) - 1] : 0;
}

SegyLoader::Place SegyLoader::place() const
{
    return {_priCurKey, _priCurValue, _segydata->getPos(), _firstOffset, _curTrace, _firstTrace, _hasEnsemble};
}

void SegyLoader::setPlace(const Place& place)
{
    _priCurKey = place.entry;
    _priCurValue = place.value;
    _firstOffset = place.first;
    _curTrace = place.trace;
    _firstTrace = place.firstTrace;
    _hasEnsemble = place.hasEnsemble;
    _numtraces = 0;
    _segydata->setPos(place.position);
}

bool SegyLoader::loadNextEnsemble(int moveup)
{
    return loadEntry(int64_t(_priCurKey) + moveup);
}

/// @param entry  of priList; without an index the next ensemble of the file is loaded whatever it says
bool SegyLoader::loadEntry(int64_t entry)
{
    _numtraces = 0;
    const Place before = place();
    int iTrace = 0;
    if (_isIndexBuilt) {
        if (_priValues.empty()) return true;
        _priCurKey = int(std::clamp<int64_t>(entry, 0, int64_t(_priValues.size()) - 1));
        iTrace = ensembleStart();
    }
    if (_iremap) _segyheader.setSegyRawHeader(_segydata->segyRawHeader());
    bool isLoaded = false;
    try {
        const int64_t nWanted = readEnsemble(iTrace);
        _segydata->tellRepeated();
        isLoaded = nWanted == _numtraces;
        if (!isLoaded) {
            const int64_t needed = bytesInUse() + bytesOfTraces(nWanted - int64_t(_traces.count()));
            setPlace(before);
            freeBuffers();
            reportTooLarge("The ensemble", needed);
        }
    } catch (const std::bad_alloc&) {
        setPlace(before);
        freeBuffers();
        reportNoMemory();
    }
    if (!isLoaded) return false;
    _assumptions.endEnsemble();
    for (const SegyAssumption& assumption : _assumptions.takeNew()) _report->assumed(assumption.line());
    if (!_assumptions.all().empty()) emit assumptionsChanged();
    return true;
}

/// Reads from a map index, or from the position on, to the end of the ensemble. Returns its number of traces;
/// it is above _numtraces when the buffers for them are not justified: those are only counted.
int64_t SegyLoader::readEnsemble(int iTrace)
{
    int recorded = 0;
    int64_t nWanted = 0;
    for (;; ++iTrace) {
        const uint64_t before = _segydata->getPos();
        const int nRead = _isIndexBuilt ? _segydata->seekTrace(iTrace, _itempTrc.data(), true)
                                        : _segydata->readTrace(_itempTrc.data());
        if (nRead < 0) _report->line("\nSegyLoader: Error, while reading trace data\n");
        if (nRead <= 0) break;
        const int value = rawWord(_keys.ipkey);
        if (nWanted == 0) {
            recorded = _isIndexBuilt ? _priCurValue : value;
            _firstOffset = _isIndexBuilt ? _segydata->mapItem(iTrace)->offset : before;
            _firstTrace = _curTrace;
            _hasEnsemble = true;
        } else if (value != recorded) {
            if (!_isIndexBuilt) _segydata->setPos(before);
            break;
        }
        ++_curTrace;
        ++nWanted;
        const bool isRoom = nWanted <= int64_t(_traces.count()) || isJustified(bytesInUse() + bytesOfTraces(1));
        if (isRoom && nWanted == _numtraces + 1)
            appendTrace(_isIndexBuilt ? int64_t(_segydata->mapItem(iTrace)->itrace) + 1 : _curTrace);
        if (nWanted >= _maxtr) break;
    }
    if (!_isIndexBuilt) _priCurValue = recorded;
    return nWanted;
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
    convertHeader(_headers.rows()[_numtraces]);
    std::memcpy(_traces.rows()[_numtraces], _itempTrc.data() + segyTraceHeaderBytes / 4,
                size_t(_nsamp) * sizeof(float));
    ++_numtraces;
}

bool SegyLoader::loadLastEnsemble(int moveup)
{
    return canSeek() && !_priValues.empty() && loadEntry(int64_t(_priCurKey) - moveup);
}

bool SegyLoader::seekEnsemble(int pkey)
{
    return canSeek() && loadEntry(std::find(_priValues.begin(), _priValues.end(), pkey) - _priValues.begin());
}

bool SegyLoader::reloadEnsemble()
{
    if (!_isIndexBuilt && _hasEnsemble) {
        _segydata->setPos(_firstOffset);
        _curTrace = _firstTrace;
    }
    return loadEntry(_priCurKey);
}

int SegyLoader::seekTrace(int itrace, void* data, bool force)
{
    return _segydata->seekTrace(itrace, data, force);
}

int SegyLoader::readMappedTrace(int itrace, int* words, float* samples, bool force)
{
    const int nRead = seekTrace(itrace, _itempTrc.data(), force);
    if (nRead < 1) return nRead;
    if (_iremap) _segyheader.setSegyRawHeader(_segydata->segyRawHeader());
    convertHeader(words);
    std::memcpy(samples, _itempTrc.data() + segyTraceHeaderBytes / 4, size_t(_nsamp) * sizeof(float));
    return nRead;
}

int SegyLoader::seekTraceConverted(int itrace, float* data, bool force)
{
    growBuffers(1);
    int* const words = _headers.rows()[0];
    const int nRead = readMappedTrace(itrace, words, data + _orvinheaderwords, force);
    if (nRead >= 1) std::memcpy(data, words, size_t(_orvinheaderwords) * sizeof(int));
    return nRead;
}
