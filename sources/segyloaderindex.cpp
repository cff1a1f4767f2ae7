/// The loader's index and its ensembles.
#include "sources/segyloader.h"

#include "host/report.h"
#include "sources/segymapthread.h"

#include <algorithm>
#include <cstring>

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

SegyMapThread* SegyLoader::startIndexBuild()
{
    if (!_segydata || !_isOpen) return nullptr;
    if (isIndexBuilding()) return _thread.get();
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
        const int nRead = _isIndexBuilt ? _segydata->seekTrace(iTrace, _itempTrc.data(), true)
                                        : _segydata->readTrace(_itempTrc.data());
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
