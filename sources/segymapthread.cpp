#include "sources/segymapthread.h"

#include "host/progresssink.h"
#include "host/report.h"

#include <algorithm>
#include <new>

namespace {

/// Keeps the lines until the main thread takes them.
class KeptLines : public Report
{
public:
    explicit KeptLines(std::string* lines) : _lines(lines) {}
    void line(const std::string& text) override { *_lines += text; }
    void box(const std::string& title, const std::string& text) override { *_lines += title + ": " + text + "\n"; }

private:
    std::string* _lines;
};

/// Keeps the share for the main thread, and stops when that asks for it.
class SharedProgress : public ProgressSink
{
public:
    SharedProgress(std::atomic<int>* nSteps, std::atomic<int>* step) : _nSteps(nSteps), _step(step) {}
    void begin(const std::string&, const std::string&) override {}
    void setRange(int, int largest) override { *_nSteps = largest; }
    void step(int value) override { *_step = value; }
    bool cancelled() const override { return QThread::currentThread()->isInterruptionRequested(); }

private:
    std::atomic<int>* _nSteps;
    std::atomic<int>* _step;
};

}  // namespace

int longestStackRun(const SegyMap& map, const SegySortKeys& keys)
{
    if (!keys.isStack()) return 0;
    const int mysort = keys.mysort;
    const segyMapItem* items = map.items();
    int run = 0, longest = 0;
    for (int i = 0; i < map.count() - 1; ++i) {
        const float* here = items[i].item;
        const float* next = items[i + 1].item;
        const bool isNewRun = mysort == 4 ? here[3] > next[3] : mysort == 10 ? here[5] != next[5] : here[6] != next[6];
        if (isNewRun) {
            longest = std::max(longest, run);
            run = 1;
        } else {
            ++run;
        }
    }
    return std::max(longest, run);
}

SegyMapThread::SegyMapThread(const segyData2& opened, const SegySortKeys& keys)
    : _file(opened.curFile()), _parm(opened.parm()), _reel(opened.reel), _nSamples(opened.numSamples()), _keys(keys),
      _mapLimit(opened.mapLimit())
{
}

SegyMapThread::~SegyMapThread()
{
    requestInterruption();
    wait();
}

int SegyMapThread::percent() const
{
    const int nSteps = _nSteps, step = _step;
    return nSteps > 0 ? int(std::clamp<int64_t>(int64_t(step) * 100 / nSteps, 0, 100)) : 0;
}

SegyMap SegyMapThread::takeMap()
{
    _isComplete = false;
    return std::move(_map);
}

void SegyMapThread::run()
{
    try {
        build();
    } catch (const std::bad_alloc&) {
        _isOutOfMemory = true;
    }
    _isDone = true;
}

void SegyMapThread::build()
{
    KeptLines report(&_lines);
    SharedProgress progress(&_nSteps, &_step);
    segyData2 data(_parm, &report, &progress);
    if (!data.openFile(_file, false)) return;
    data.reel = _reel;
    data.setNumSamples(_nSamples);
    data.setTraceBytes();
    data.setMapLimit(_mapLimit);
    const bool isBuilt = data.buildMap(true);
    _mapBytesNeeded = data.mapBytesNeeded();
    if (!isBuilt) return;
    _longestRun = longestStackRun(data.map(), _keys);
    if (_keys.ipkey != KeyNumber())
        sortSegyMap(data.map().items(), data.totalTraces(), segyData2::getItemKey(_keys.ipkey),
                    segyData2::getItemKey(_keys.iskey));
    _isRemapRejected = data.isRemapRejected();
    _map = std::move(data.map());
    _isComplete = true;
}
