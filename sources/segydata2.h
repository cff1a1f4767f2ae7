/// One SEG-Y file: its reel header, its traces and the map of them.
#ifndef SEGYDATA2_H
#define SEGYDATA2_H

#include "sources/bytesource.h"
#include "sources/segyassumptions.h"
#include "sources/segymap.h"
#include "sources/segyreadlayout.h"
#include "sources/segyrecords.h"
#include "sources/segyremaptable.h"

#include <QSaveFile>
#include <QStringList>

#include <memory>
#include <vector>

class ProgressSink;
class Report;

/// How to read a file. Plain, so that a background build gets its own copy.
struct SegyReadParm {
    int itape = 0;      ///< not 0: no file access at all
    int imode = 0;      ///< 0 read, else write
    int iformat = 0;    ///< text handling: 2 the text is ASCII; 4 the same, and headers and samples aren't swapped
    int ivariable = 0;  ///< every trace tells its own length
    int iswap = 0;      ///< the file's byte order differs from the machine's
    int iremap = 0;     ///< the remap table overwrites header words
    int istandalone = 1;
    int nHeaderWords = 60;
    int icscale = 0;     ///< the one scalar switch of the map
    int formatCode = 0;  ///< sample format in place of the reel's; 0 is the reel's
    SegyRemapTable remapTable;
    SegyReadLayout layout;  ///< for reading; its byte order is for those who set iswap
};

/// Touches a SEG-Y file: opens it, reads or writes headers and traces, and lists all traces in a map.
///
/// Samples come as IEEE floats whatever the file holds. Made for one file after the other; reads of several
/// files happen through the map. No locks: one thread at a time. Report and sink are lent and outlive it.
class segyData2
{
public:
    explicit segyData2(const SegyReadParm& parm, Report* report, ProgressSink* progress = nullptr);
    ~segyData2();
    segyData2(const segyData2&) = delete;
    segyData2& operator=(const segyData2&) = delete;

    /// Closes what is open and opens a file; for writing an old file is removed first. Result is isOpen.
    bool openFile(const QString& filename, bool show);
    /// The same with bytes from elsewhere, for tests and fuzzing; never writes.
    bool openSource(std::unique_ptr<ByteSource> source, const QString& name);
    /// Ends reading, or puts what was written in the place of the named file. Returns false, with a line and the former
    /// file as it was, where not all bytes are on the disk.
    bool closeFile();

    /// Reads (or writes) the reel header; with printIt tells text and fields to the report.
    bool reelHeader(bool printIt);
    /// Repairs sample count and interval from the first trace header, at the present position.
    bool fixReel();
    /// Derives the sizes from the reel; call it before any trace is read.
    void setTraceBytes();
    /// Overrides the reel's sample count; may be above what the reel's short word holds.
    void setNumSamples(int nSamples);
    int numSamples() const { return _nSamples; }

    /// Byte swaps in place. swapTrace treats as many samples as the reel tells.
    void swapTraceHeader(segyTrace* trace) const;
    void swapTrace(segyTrace* trace) const;

    /// Reads the next trace and converts it: header in machine order, then at least numSamples() floats, zero
    /// where the trace has none. @param data room for bufferBytes() bytes. Returns the bytes that the trace has in
    /// the file, 0 at its end, below 0 on failure. A trace cut by the end counts; missing header bytes are 0.
    int readTrace(void* data);
    /// Swaps the samples in place if the file wants it, and writes one trace.
    int writeTrace(void* data);
    /// Reads the trace with a map index as readTrace does; 0 for an index behind the map, -1 when its file
    /// can't be opened. Without force the position stays.
    int seekTrace(int itrace, void* data, bool force);
    /// Moves to a trace of the map: 1, or 0 for a bad index or file.
    int seekTracePtr(int itrace);
    /// First map index whose key truncates to ivalue; totalTraces() if there is none.
    int seekTraceValue(int ivalue, KeyNumber ipkey) const;
    int skipFiles(int ifiles);
    /// Moves relative to the present position.
    bool seekPos(int64_t offset);
    uint64_t getPos() const { return uint64_t(_pos); }
    void setPos(uint64_t pos) { _pos = int64_t(pos); }

    /// Lists all traces, in file order, by their headers alone; appends to what the map holds. The result, and
    /// the lines told, are those of reading trace by trace. False when the sink cancelled it, or when the map
    /// passed its limit: mapBytesNeeded() then tells about how much it would take, and the map is empty.
    /// Throws std::bad_alloc when there is no memory for it.
    bool buildMap(bool show);
    /// The most memory that a map and its sort may take; without it there is no limit.
    void setMapLimit(int64_t bytes) { _mapLimit = bytes; }
    int64_t mapLimit() const { return _mapLimit; }
    /// Of a build that was given up for its size, else 0.
    int64_t mapBytesNeeded() const { return _mapBytesNeeded; }
    /// Sums up the lines that were told so often that only the first ones were printed.
    void tellRepeated();
    int totalTraces() const { return _map.count(); }
    segyMapItem* mapItem(int i);
    SegyMap& map() { return _map; }
    const SegyMap& map() const { return _map; }
    void setMap(SegyMap map) { _map = std::move(map); }
    /// True when the build found no usable row in the remap table and went on without remapping.
    bool isRemapRejected() const { return _isRemapRejected; }

    /// Map slot of a key number; the first for a number that has none.
    static MapSlot getItemKey(KeyNumber key);
    /// Name of the slot of a key number, padded to eight characters; empty for a number that has none.
    static QString getHeaderName(KeyNumber key);

    /// The 240 bytes of the trace header that was read last, in file order.
    int* segyRawHeader() { return _segyHeader.data(); }
    /// Largest trace data that a trace of variable length may tell.
    int maxBytes() const { return _maxBytes; }
    /// Room that readTrace uses: a trace as long as its count can tell, or numSamples() floats; at most maxBytes().
    int bufferBytes() const { return _bufferBytes; }
    /// Of a trace record in the file, in bytes.
    int traceLength() const { return segytrclength; }
    /// Byte of the first trace, which readTrace begins with.
    int64_t firstTrace() const { return _parm.layout.firstTrace; }
    /// The format in force: the layout's, or the reel's.
    int sampleFormat() const { return _parm.layout.sampleFormat > 0 ? _parm.layout.sampleFormat : reel.format; }
    /// What the reel left to be taken for granted; the lines that tell of it are told already.
    const std::vector<SegyAssumption>& assumptions() const { return _assumptions; }
    int64_t fileSize() const { return _source ? _source->size() : 0; }
    const QString& curFile() const { return _curFile; }
    const SegyReadParm& parm() const { return _parm; }
    /// Lets remapping change between loads.
    void setRemap(int iremap, const SegyRemapTable& table);

    static const QStringList itemList;  ///< names of the map's slots
    segyReel reel = {};
    segyTrace* segytrace = nullptr;  ///< the record being worked on, in the caller's buffer
    bool isOpen = false;

private:
    /// The data part of a trace of variable length.
    struct DataLength {
        int64_t declared;  // bytes; the next record stands behind them
        bool isBad;
        int64_t wanted;  // bytes to read
    };

    int64_t readBytes(int64_t n, void* out);
    int readFixed(char* record);
    int64_t readHeader(char* record);
    int readVariable(char* record);
    DataLength dataLength(const void* rawHeader) const;
    void reportBadLength(const void* rawHeader, const DataLength& length);
    void reportReadError();
    void giveUpMap(int64_t offset);
    void convertTrace(char* record, int nBytes);
    bool readReel();
    bool writeReel();
    int64_t writeBytes(int64_t n, const void* data);
    bool endWriting();
    void printReel();
    bool takeUnsigned(uint16_t word);
    void tellFixed(const char* what, int value, const char* name, const char* control);
    bool isSampleCountNeeded() const { return _nSamples < 1; }

    class MapBuild;
    void mapWholeHeaders(MapBuild* build, int64_t most, bool* isWanted);

    SegyReadParm _parm;
    Report* _report;
    ProgressSink* _progress;
    QString _curFile;
    std::unique_ptr<ByteSource> _source;
    std::unique_ptr<QSaveFile> _out;  // a new file beside the one that is written; null where none is
    bool _isWriteBroken = false;      // it will not take the place of the former one
    std::string _error;
    int64_t _pos = 0;
    bool doSwap, doRemap, variable, tape;
    int nbytes = 4;         // of a sample
    int segytrclength = 0;  // of a trace record
    int _maxBytes = 0;
    int _bufferBytes = 0;
    int64_t _mapLimit = INT64_MAX;
    int64_t _mapBytesNeeded = 0;
    int64_t _nBadLengths = 0;        // traces of variable length that told no possible one
    int64_t _nBadLengthsUntold = 0;  // of these, the ones since the last sum
    int _nSamples = 0;
    std::vector<char> _tempData;
    std::vector<int> _segyHeader;
    std::vector<SegyAssumption> _assumptions;
    SegyMap _map;
    bool _isRemapRejected = false;
};

#endif
