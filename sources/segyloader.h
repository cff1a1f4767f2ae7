/// Ensembles out of SEG-Y files.
#ifndef SEGYLOADER_H
#define SEGYLOADER_H

#include "host/rowstore.h"
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
    /// Where the files' parts stand; before openFiles. Bounded to what can be.
    void setLayout(const SegyReadLayout& layout);
    const SegyReadLayout& layout() const { return _layout; }
    /// Opens and checks all files; the last one stays in use. On failure says why and returns false; the
    /// loader is then of no further use.
    bool openFiles();
    /// Builds the map if an index was asked for and isn't there yet. False after a box: the file is then as
    /// without an index.
    bool buildAskedIndex();
    /// After openFiles: buildAskedIndex, and puts the keys into the menu record.
    void initBuild();
    /// Keys, sort and data type of the present sort into the menu record: after openFiles, and after a new sort.
    void tellSort();
    /// Builds the map, sorts it and lists the primary keys. False after a box when the memory doesn't suffice.
    bool indexBuild(bool show);
    /// The same on a thread of its own, with a file and a map of its own; indexBuilt() tells when the loader
    /// has taken it over, on the main thread. Returns the thread, which the loader owns; null when no file is
    /// open. While one runs no second one starts.
    SegyMapThread* startIndexBuild();
    /// Share of a background build in percent.
    int indexBuildPercent() const;
    /// Lets a background build end before it is through; all stays as it was.
    void stopIndexBuild();

    /// Loads an ensemble moveup steps on; without an index the next one in the file. An ensemble without
    /// traces is the end. False after a box when it takes more memory than the file's size can justify, or than
    /// there is: the loader then stands where it stood, without traces.
    bool loadNextEnsemble(int moveup);
    /// The same backward. False without an index, too.
    bool loadLastEnsemble(int moveup);
    /// Loads the ensemble with this primary value, the last one if there is none. False as loadLastEnsemble.
    bool seekEnsemble(int pkey);
    /// Loads the ensemble that was loaded last once more.
    bool reloadEnsemble();

    /// Where the loader stands, to go back to after a load that came to nothing.
    struct Place {
        int entry;          ///< of priList
        int value;          ///< primary value
        uint64_t position;  ///< in the file
        uint64_t first;     ///< of the ensemble's first trace in the file
        int64_t trace;      ///< running count of traces
        int64_t firstTrace; ///< the same before the ensemble
        bool hasEnsemble;
    };
    Place place() const;
    void setPlace(const Place& place);
    bool canSeek() const { return _keys.ipkey != KeyNumber() && _isIndexBuilt; }
    /// Changes the sort; with an index sorts anew, without touching the file.
    void buildNewSort(SortCode isort);
    /// Smallest and largest primary value of a sort over the map; both 0 for a sort without a range.
    void getSortRange(SortCode isort, float* min, float* max) const;
    /// Sorts the map and lists the distinct primary values.
    QStringList priKeyList();

    /// See segyData2::seekTrace; data has room for bufferBytes().
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
    float** getTraces() { return _traces.rows(); }
    int** getHeaders() { return _headers.rows(); }
    int numTraces() const { return _numtraces; }
    /// Most traces that an ensemble can have; buffers are made as traces come.
    int maxTraces() const { return _maxtr; }
    int numSamples() const { return _nsamp; }
    float sampleRate() const { return _srate; }
    int maxBytes() const { return _segydata ? _segydata->maxBytes() : 0; }
    int bufferBytes() const { return _segydata ? _segydata->bufferBytes() : 0; }
    /// The most memory that the file's size justifies for map, ensemble and work space, and what they take.
    int64_t mostBytes() const;
    int64_t bytesInUse() const;
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
    KeyNumber priKey() const { return _keys.ipkey; }
    KeyNumber secKey() const { return _keys.iskey; }
    WordFrom1 priEKey() const { return _iepkey; }
    WordFrom1 secEKey() const { return _ieskey; }
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
    SortCode currentSortKey() const { return _isort; }
    bool isStacked() const { return _isStacked; }
    SegyHeader* segyHeader() { return &_segyheader; }
    bool isOpen() const { return _isOpen; }
    bool isLoaded() const { return _isLoaded; }
    bool isIndexBuilt() const { return _isIndexBuilt; }
    /// True from the start of a background build until its result has been taken over, or it was given up.
    bool isIndexBuilding() const { return _isIndexBuilding; }
    /// All that was taken for granted of the file so far; each kind is told to the report at its first place.
    std::vector<SegyAssumption> assumptions() const { return _assumptions.all(); }
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
    /// assumptions() has grown, or a count of it.
    void assumptionsChanged();
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
    void assume(const SegyAssumption& assumption);
    void assumeOfReel();
    void assumeOfRemap();
    void assumeOfSort();
    SegyAssumptionContext assumptionContext() const;
    SegyReadParm readParm() const;
    void buildSortKeys();
    void takeBuiltMap();
    void listPrimaryKeys();
    int ensembleStart();
    int rawWord(KeyNumber key) const;
    void appendTrace(int64_t rank);
    void convertHeader(int* words);
    void growBuffers(int nTraces);
    int64_t bytesOfTraces(int64_t nTraces) const;
    /// Work space of a trace of narrow integers.
    int64_t narrowBytes() const;
    bool isJustified(int64_t nBytes) const { return nBytes <= mostBytes(); }
    void reportTooLarge(const char* what, int64_t nBytes);
    void reportNoMemory();
    void freeBuffers();
    bool buildIndex(bool show);
    int64_t readEnsemble(int iTrace);
    bool loadEntry(int64_t entry);
    void rejectRemapIfUseless();

    const QString _cfiles;
    QStringList cfileList;
    SortCode _isort;
    int _ifile, _imode, _iformat, _ivariable, _iswap, _icscale, _iescale;
    const int _userSamples, _userTraces;
    const SortCode _userSort;
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
    SegyReadLayout _layout;
    std::vector<SegyRemapRow> _remapRows;
    SegyHeader _segyheader;
    int _headerIndex[SegyHeader::nMappedWords];
    int _orvinheaderwords = 85;
    bool _isOpen = false;
    const bool _isIndexAsked;
    bool _isIndexBuilt;
    bool _isLoaded = false;
    bool _isStacked = false;
    parmmenu* _menu = nullptr;
    QString _cText;

    RowStore<float> _traces;
    RowStore<int> _headers;
    std::vector<int> _itempTrc;  // one raw trace
    int _numtraces = 0;
    int64_t _curTrace = 0;
    int64_t _firstTrace = 0;    // _curTrace before the ensemble on screen
    uint64_t _firstOffset = 0;  // of the first trace of the ensemble on screen, which stays there at the end of the data
    bool _hasEnsemble = false;
    SegyAssumptions _assumptions;

    SegySortKeys _keys;
    WordFrom1 _iepkey, _ieskey;  // header words of the keys
    QString _priName, _secName;
    std::vector<int> _priValues;  // distinct primary values in sorted order
    std::vector<int> _priStarts;  // first map index of each
    int _priCurKey = -1;
    int _priCurValue = 0;
    std::unique_ptr<SegyMapThread> _thread;
    bool _isIndexBuilding = false;
};

#endif
