/// Builds and sorts the trace map of a file beside the main thread.
#ifndef SEGYMAPTHREAD_H
#define SEGYMAPTHREAD_H

#include "sources/segydata2.h"
#include "sources/segysortkeys.h"

#include <QThread>

#include <atomic>
#include <string>
#include <utility>

/// Longest run of stack traces in file order; the map must not be sorted yet. 0 for other sorts.
int longestStackRun(const SegyMap& map, const SegySortKeys& keys);

/// Has a file and a map of its own, so that the loader goes on reading. Its results are read after
/// finished(); the destructor stops the build and waits.
class SegyMapThread : public QThread
{
public:
    /// @param opened  the loader's file, of which name, reel and reading rules are copied
    SegyMapThread(const segyData2& opened, const SegySortKeys& keys);
    ~SegyMapThread() override;

    /// True once the build has ended, well or not; from then on the results may be read.
    bool isDone() const { return _isDone; }
    /// Share of the file that has been read, in percent; of a file of varying lengths an estimate.
    int percent() const;
    bool isComplete() const { return _isComplete; }
    bool isRemapRejected() const { return _isRemapRejected; }
    /// Of a build that was given up because its map would take too much; else 0.
    int64_t mapBytesNeeded() const { return _mapBytesNeeded; }
    bool isOutOfMemory() const { return _isOutOfMemory; }
    /// The sorted map; it can be taken once.
    SegyMap takeMap();
    const SegySortKeys& keys() const { return _keys; }
    int longestRun() const { return _longestRun; }
    /// The lines that the build has told; for the report of the main thread, once.
    std::string takeLines() { return std::exchange(_lines, std::string()); }

protected:
    void run() override;

private:
    void build();

    const QString _file;
    const SegyReadParm _parm;
    const segyReel _reel;
    const int _nSamples;
    const SegySortKeys _keys;
    SegyMap _map;
    std::string _lines;
    int _longestRun = 0;
    int64_t _mapLimit;
    int64_t _mapBytesNeeded = 0;
    bool _isOutOfMemory = false;
    bool _isComplete = false;
    std::atomic<int> _nSteps = 0, _step = 0;
    std::atomic<bool> _isDone = false;  // written last, read first: it orders all of the above
    bool _isRemapRejected = false;
};

#endif
