/// Ensembles out of SEG-Y files.
#ifndef SEGYLOADER_H
#define SEGYLOADER_H

#include "sources/segyassumptions.h"
#include "sources/segydata2.h"
#include "sources/segyheader.h"
#include "sources/segysortkeys.h"

#include <QObject>

#include <memory>
#include <vector>

struct HeaderTable;
struct parmmenu;
class ProgressSink;
class Report;
class SegyMapThread;

/// Turns SEG-Y files into sets of traces and their named headers.
///
/// Without an index it reads in file order, and an ensemble ends where the primary key changes. With one it
/// sorts the map of all traces by two keys and reaches any ensemble. Order of calls: setMenu, setRemapTable,
/// openFiles, initBuild, then ensembles. Lives on the main thread; report, sink, menu and table are lent.
/// Traces and headers belong to the loader and stay valid until the next ensemble.
class SegyLoader : public QObject
{
    Q_OBJECT

public:
    /// @param ifile   file kind, from 1 (a disk file)
    /// @param cfiles  names separated by commas
    /// @param isort   sort code, 0 takes the reel's
    /// @param itype   0 "Standard", 1 "MSDOS": the text is ASCII and the byte order the other one
    /// @param iformat sample format choice, 0 takes the reel's
    /// @param iswap   the file's byte order differs, as of a standard file
    /// @param nsamp, maxtr, srate  0 takes the reel's; srate in ms
    SegyLoader(int ifile, const QString& cfiles, int imode, int isort, int itype, int iformat, int ivariable, int iswap,
               int icscale, int iescale, int nsamp, int maxtr, float srate, int iremap, int indexbuilt,
               bool isstandalone, Report* report, ProgressSink* progress = nullptr,
               const HeaderTable* headerTable = nullptr);
    ~SegyLoader() override;

    void setMenu(parmmenu* menu);
    /// Opens and checks all files; the last one stays in use. On failure says why and returns false; the
    /// loader is then of no further use.
    bool openFiles();
    /// After openFiles: builds the map if an index was asked for, and puts the keys into the menu record.
    void initBuild();
    /// Builds the map, sorts it and lists the primary keys.
    void indexBuild(bool show);
    /// The same on a thread of its own, with a file and a map of its own; indexBuilt() tells when the loader
    /// has taken it over, on the main thread. Returns the thread, which the loader owns; null when no file is
    /// open. While one runs no second one starts.
    SegyMapThread* startIndexBuild();
    /// Share of a background build in percent.
    int indexBuildPercent() const;
    /// Lets a background build end before it is through; all stays as it was.
    void stopIndexBuild();

    /// Loads an ensemble moveup steps on; without an index the next one in the file. Always true: an ensemble
    /// without traces is the end.
    bool loadNextEnsemble(int moveup);
    /// False without an index.
    bool loadLastEnsemble(int moveup);
    /// Loads the ensemble with this primary value, the last one if there is none. False without an index.
    bool seekEnsemble(int pkey);
    bool canSeek() const { return _keys.ipkey >= 0 && _isIndexBuilt; }
    /// Changes the sort; with an index sorts anew, without touching the file.
    void buildNewSort(int isort);
    /// Smallest and largest primary value of a sort over the map; both 0 for a sort without a range.
    void getSortRange(int isort, float* min, float* max) const;
    /// Sorts the map and lists the distinct primary values.
    QStringList priKeyList();

    /// See segyData2::seekTrace; data has room for maxBytes().
    int seekTrace(int itrace, void* data, bool force);
    /// Reads a trace by map index: numHeaderWords() words, then numSamples() samples. Uses the first header
    /// buffer as work space. Returns as seekTrace.
    int seekTraceConverted(int itrace, float* data, bool force);
    void setRemapTable(int iremap, const SegyRemapTable& table);
    void saveHeaders();
    /// Fills the window's header table with the words of this loader.
    void fillHeaderTable(HeaderTable* table);
    void dataLoaded();
    /// Raises the capacity in traces; it never shrinks.
    void allocTraces(int maxtr);

    /// Arrays of at least numTraces() pointers.
    float** getTraces() { return _traces.data(); }
    int** getHeaders() { return _headers.data(); }
    int numTraces() const { return _numtraces; }
    /// Most traces that an ensemble can have; buffers are made as traces come.
    int maxTraces() const { return _maxtr; }
    int numSamples() const { return _nsamp; }
    float sampleRate() const { return _srate; }
    int maxBytes() const { return _segydata ? _segydata->maxBytes() : 0; }
    QString currentFile() const { return _cText; }
    /// The 3200 characters of the text header.
    QByteArray getEbcdic() const;
    /// Null while no file is open.
    const segyReel* getReelHeader() const { return _segydata ? &_segydata->reel : nullptr; }
    int getTotalTraces() const { return _segydata ? _segydata->totalTraces() : 0; }
    QStringList getMapItems() const { return segyData2::itemList; }
    segyMapItem* getMapArray() { return _segydata ? _segydata->map().items() : nullptr; }
    segyData2* SegyData() { return _segydata.get(); }
    QStringList priList() const;
    int priKey() const { return _keys.ipkey; }
    int secKey() const { return _keys.iskey; }
    int priEKey() const { return _iepkey; }
    int secEKey() const { return _ieskey; }
    QString priName() const { return _priName; }
    QString secName() const { return _secName; }
    int numHeaderWords() const { return _orvinheaderwords; }
    int applyCoorScale() const { return _icscale; }
    int applyElevScale() const { return _iescale; }
    int applyRemap() const { return _iremap; }
    const SegyRemapTable& remapTable() const { return _table; }
    const QStringList& priSortList() const { return segySortNames(); }
    int priCurValue() const { return _priCurValue; }
    /// Entry of priList on screen; -1 before the first ensemble.
    int priCurKey() const { return _priCurKey; }
    int currentSortKey() const { return _isort; }
    bool isStacked() const { return _isStacked; }
    SegyHeader* segyHeader() { return &_segyheader; }
    bool isOpen() const { return _isOpen; }
    bool isLoaded() const { return _isLoaded; }
    bool isIndexBuilt() const { return _isIndexBuilt; }
    /// True from the start of a background build until its result has been taken over, or it was given up.
    bool isIndexBuilding() const { return _isIndexBuilding; }
    int numEnsembles() const { return int(_priValues.size()); }
    /// Primary value and traces of an entry of priList, counted from 0; 0 where there is none.
    int ensembleValue(int entry) const;
    int ensembleTraces(int entry) const;
    /// Sets the entry of priList that the next load counts from.
    void setEnsemble(int entry) { _priCurKey = entry; }

signals:
    /// The views of reel and trace headers should read anew.
    void reLoadData();
    void indexBuildStarted();
    /// A background build has been taken over: previous and seek work from now on.
    void indexBuilt();
    /// A background build has ended, well or not.
    void indexBuildEnded();

private slots:
    void endIndexBuild();

private:
    void initTreviaHeaders();
    bool openOneFile(const QString& name);
    bool takeReelValues();
    bool failReelValues();
    void reportComma(const QString& name);
    void reportCutTrace();
    SegyReadParm readParm() const;
    void buildSortKeys();
    void takeBuiltMap();
    void listPrimaryKeys();
    int ensembleStart();
    int rawWord(int key) const;
    void appendTrace(int64_t rank);
    void convertHeader(int* words);
    void growBuffers(int nTraces);
    void rejectRemapIfUseless();

    const QString _cfiles;
    QStringList cfileList;
    int _ifile, _imode, _isort, _iformat, _ivariable, _iswap, _icscale, _iescale;
    const int _userSamples, _userTraces;
    const float _userRate;
    int _nsamp, _maxtr;
    float _srate;
    int _iremap;
    int _itype, _itform;
    int _iStandAlone;
    Report* _report;
    ProgressSink* _progress;

    std::unique_ptr<segyData2> _segydata;
    SegyRemapTable _table;
    std::vector<SegyRemapRow> _remapRows;
    SegyHeader _segyheader;
    int _headerIndex[SegyHeader::nMappedWords];
    int _orvinheaderwords = 85;
    bool _isOpen = false;
    bool _isIndexBuilt;
    bool _isLoaded = false;
    bool _isStacked = false;
    parmmenu* _menu = nullptr;
    QString _cText;

    std::vector<float*> _traces;
    std::vector<int*> _headers;
    std::vector<std::unique_ptr<float[]>> _traceStore;
    std::vector<std::unique_ptr<int[]>> _headerStore;
    std::vector<int> _itempTrc;  // one raw trace
    int _numtraces = 0;
    int64_t _curTrace = 0;
    uint64_t _firstOffset = 0;  // of the first trace of the ensemble on screen, which stays there at the end of the data
    bool _hasEnsemble = false;
    SegyAssumptions _assumptions;

    SegySortKeys _keys;
    int _iepkey = 0, _ieskey = 0;  // header words of the keys, from 1
    QString _priName, _secName;
    std::vector<int> _priValues;  // distinct primary values in sorted order
    std::vector<int> _priStarts;  // first map index of each
    int _priCurKey = -1;
    int _priCurValue = 0;
    std::unique_ptr<SegyMapThread> _thread;
    bool _isIndexBuilding = false;
};

#endif
