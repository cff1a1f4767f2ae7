/// The build of the trace map: headers only, yet the same items and lines as reading trace by trace.
#include "host/progresssink.h"
#include "sources/segydata2.h"
#include "sources/segyheader.h"
#include "sources/segyheaderreader.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <memory>
#include <new>
#include <omp.h>

constexpr int tracesAStep = 1000;

/// Turns a raw header into the key values of an item.
class segyData2::MapBuild
{
public:
    explicit MapBuild(segyData2* data);
    bool hasUsableRemap() const { return !_remap.empty(); }
    void stopRemap() { _isRemapped = false; }
    bool isRemapped() const { return _isRemapped; }
    /// @param raw  240 bytes in file order
    void keys(const unsigned char* raw, float* items);
    /// Tells the sink when enough traces have passed. False when it wants to stop.
    bool step(int nTraces);
    void beginProgress(bool show);

private:
    segyData2* _data;
    std::vector<int> _record, _raw, _words;
    SegyHeader _header;
    int _index[SegyHeader::nMappedWords];
    std::vector<SegyRemapRow> _remap;
    bool _isRemapped;
    bool _isDirect;
    bool _isSwapped;
    bool _isShown = false;
    int _lastTold = -tracesAStep - 1;
    int _value = 0;
};

segyData2::MapBuild::MapBuild(segyData2* data)
    : _data(data), _record(segyTraceHeaderBytes / 4), _raw(segyTraceHeaderBytes / 4),
      _words(std::max(1, data->_parm.nHeaderWords)), _header(_record.data(), _words.data(), data->_parm.nHeaderWords),
      _isRemapped(data->doRemap), _isSwapped(data->doSwap && data->_parm.iformat != 4)
{
    _header.setTreviaVersion(data->_parm.istandalone);
    const bool isScaled = data->_parm.icscale != 0;
    _header.applyScalars(isScaled, isScaled);
    _header.buildHeaderIndex(_index);
    _header.setSegyRawHeader(_raw.data());
    if (_isRemapped) _remap = _header.buildRemapIndex(data->_parm.remapTable);
    _isDirect = data->_parm.istandalone == 1 && data->_parm.nHeaderWords >= _header.totalHeaderWords;
}

void segyData2::MapBuild::keys(const unsigned char* raw, float* items)
{
    if (_isDirect && !_isRemapped) {
        _header.mapKeysOfRaw(raw, _isSwapped, items);
        return;
    }
    std::memcpy(_record.data(), raw, segyTraceHeaderBytes);
    if (_isSwapped) swapTraceFields(_record.data());
    _header.convertSegyToOrvinFast(_index);
    if (_isRemapped) {
        std::memcpy(_raw.data(), raw, segyTraceHeaderBytes);
        _header.performRemapFast(_remap, _data->_parm.iswap);
    }
    _header.loadTraceMap(items);
}

void segyData2::MapBuild::beginProgress(bool show)
{
    _isShown = show && _data->_progress;
    if (!_isShown) return;
    const QString name = _data->_curFile;
    _data->_progress->begin(_data->_parm.imode == 0 ? "Read SEGY File" : "Write SEGY File",
                            "File: " + name.toStdString() + "\n\nBuilding Index Map ......... Please Wait");
    const float steps =
        float(_data->fileSize() - _data->firstTrace()) / (float(_data->segytrclength) * float(tracesAStep));
    _data->_progress->setRange(0, int(std::clamp(steps, 0.0f, 1e9f)));
}

bool segyData2::MapBuild::step(int nTraces)
{
    if (nTraces - _lastTold <= tracesAStep) return true;
    _lastTold = nTraces;
    if (_isShown) _data->_progress->step(_value);
    ++_value;
    return !_data->_progress || !_data->_progress->cancelled();
}

/// The rest of the file is taken to go on as its beginning has.
void segyData2::giveUpMap(int64_t offset)
{
    const double share = double(_source->size() - firstTrace()) / double(std::max<int64_t>(1, offset - firstTrace()));
    _mapBytesNeeded = int64_t(double(_map.count()) * double(SegyMap::bytesAnItem) * std::max(1.0, share));
    _map = SegyMap();
}

/// Maps traces of fixed length whose headers lie whole in the file, shared out to threads: a file that is in memory is
/// copied at the speed of one core otherwise. Stops before a header that can't be read.
/// @param most      items that the map may have; there is room for them
/// @param isWanted  out: false when the sink wants to stop
void segyData2::mapWholeHeaders(MapBuild* build, int64_t most, bool* isWanted)
{
    constexpr int64_t chunkTraces = 16384;
    const int64_t reach = _source->size() - firstTrace() - segyTraceHeaderBytes;
    const int64_t nWhole = reach < 0 ? 0 : reach / segytrclength + 1;
    const int64_t nAll = std::min(nWhole, most - _map.count());
    if (nAll < chunkTraces) return;
    const int nThreads = omp_get_max_threads(), before = _map.count();
    const auto ifile = uint32_t(_map.fileIndex(_curFile));
    std::vector<std::unique_ptr<MapBuild>> builds(nThreads);
    std::vector<std::unique_ptr<SegyHeaderReader>> readers(nThreads);
    for (int i = 0; i < nThreads; ++i) {
        builds[i] = std::make_unique<MapBuild>(this);
        if (!build->isRemapped()) builds[i]->stopRemap();
        readers[i] = std::make_unique<SegyHeaderReader>(*_source, segytrclength);
    }
    for (int64_t first = 0; first < nAll && *isWanted; first += chunkTraces) {
        const int64_t n = std::min(chunkTraces, nAll - first);
        segyMapItem* const items = _map.append(int(n));
        std::vector<int64_t> nDone(nThreads);
#pragma omp parallel for schedule(static, 1) num_threads(nThreads)
        for (int part = 0; part < nThreads; ++part) {
            const int64_t begin = n * part / nThreads, end = n * (part + 1) / nThreads;
            std::string error;
            int64_t i = begin;
            for (; i < end; ++i) {
                int nPresent = 0;
                const int64_t offset = firstTrace() + (first + i) * segytrclength;
                const unsigned char* raw = readers[part]->header(offset, &nPresent, &error);
                if (nPresent < segyTraceHeaderBytes) break;
                items[i].itrace = uint32_t(before + first + i);
                items[i].offset = uint64_t(offset);
                items[i].ifile = ifile;
                builds[part]->keys(raw, items[i].item);
            }
            nDone[part] = i - begin;
        }
        int64_t nRead = 0;
        for (int part = 0; part < nThreads && nRead == n * part / nThreads; ++part) nRead += nDone[part];
        for (int64_t i = 0; i < nRead && *isWanted; ++i) *isWanted = build->step(int(before + first + i));
        if (nRead == n) continue;
        _map.cut(int(before + first + nRead));
        return;
    }
}

bool segyData2::buildMap(bool show)
{
    _isRemapRejected = false;
    _mapBytesNeeded = 0;
    if (!_source) return true;
    MapBuild build(this);
    if (doRemap && !build.hasUsableRemap()) {
        _isRemapRejected = true;
        setRemap(0, SegyRemapTable());
        build.stopRemap();
    }
    build.beginProgress(show);
    const int64_t size = _source->size();
    const int64_t traceBytes = std::max<int64_t>(0, size - firstTrace());
    const int64_t nFixed = variable ? 0 : (traceBytes + segytrclength - 1) / segytrclength;
    const int64_t mostItems = std::min<int64_t>(_mapLimit / SegyMap::bytesAnItem, INT_MAX);
    if (nFixed > 0 && !_map.reserve(std::min<int64_t>(_map.count() + nFixed, mostItems))) throw std::bad_alloc();
    const int before = _map.count();
    bool isWanted = true;
    if (!variable && !SegyHeaderReader::isScattered(segytrclength)) mapWholeHeaders(&build, mostItems, &isWanted);
    SegyHeaderReader reader(*_source, segytrclength);
    const auto ifile = uint32_t(_map.fileIndex(_curFile));
    int64_t offset = firstTrace() + int64_t(_map.count() - before) * segytrclength;
    while (isWanted) {
        int nPresent = 0;
        const unsigned char* raw = reader.header(offset, &nPresent, &_error);
        if (nPresent < 0) reportReadError();
        if (nPresent <= 0) break;
        int64_t next = offset + segytrclength;
        if (variable) {
            const DataLength length = dataLength(raw);
            if (length.isBad) reportBadLength(raw, length);
            const int64_t dataStart = offset + _parm.layout.headerBytes;
            if (nPresent < segyTraceHeaderBytes || dataStart >= size || length.wanted <= 0) break;
            next = length.isBad ? dataStart + length.declared : std::min(dataStart + length.declared, size);
        }
        isWanted = build.step(_map.count());
        if (!isWanted) break;
        if (_map.count() >= mostItems) {
            giveUpMap(offset);
            break;
        }
        segyMapItem* item = _map.append();
        if (!item) throw std::bad_alloc();
        item->itrace = uint32_t(_map.count() - 1);
        item->offset = uint64_t(offset);
        item->ifile = ifile;
        build.keys(raw, item->item);
        offset = next;
    }
    _map.shrinkToFit();
    _pos = offset;
    tellRepeated();
    return isWanted && _mapBytesNeeded == 0;
}
