/// Ensembles out of SEG-Y files.
#ifndef SEGYLOADER_H
#define SEGYLOADER_H

#include "host/rowstore.h"
#include "sources/ensemblesource.h"
#include "sources/segyassumptions.h"
#include "sources/segydata2.h"
#include "sources/segyheader.h"
#include "sources/segyloadparm.h"
#include "sources/segysortkeys.h"

#include <memory>
#include <vector>

class ProgressSink;
class Report;
class SegyMapThread;

/// Turns SEG-Y files into sets of traces and their named headers.
///
/// Without an index it reads in file order, and an ensemble ends where the primary key changes. With one it
/// sorts the map of all traces by two keys and reaches any ensemble. Report, sink and table are lent.
class SegyLoader : public EnsembleSource
{
    Q_OBJECT

public:
    /// Opens and checks all files of the list, of which the last one stays in use, and builds the index if one is
    /// asked for. There is no loader that is open in part: null, when the report knows why, for a file that can't be
    /// read so, and for an index that takes more memory than the file can justify, or than there is.
    ///
    /// @param headerTable  the window's table, which names the words of a flow once it is saved; may be null
    /// @param fileInHand   out, where given: the file that is in use, or was refused
    static std::unique_ptr<SegyLoader> open(const SegyLoadParm& parm, Report* report, ProgressSink* progress = nullptr,
                                            const HeaderWords* headerTable = nullptr, QString* fileInHand = nullptr);
    ~SegyLoader() override;

    /// Where the files' parts stand.
    const SegyReadLayout& layout() const { return _layout; }
    /// Builds the map, sorts it and lists the primary keys. False after a box when the memory doesn't suffice.
    bool indexBuild(bool show);
    /// The same on a thread of its own, with a file and a map of its own; indexBuilt() tells when the loader
    /// has taken it over, on the main thread. Returns the thread, which the loader owns. While one runs no second one
    /// starts; an index that is there already is built anew.
    SegyMapThread* startIndexBuild();
    bool canBuildIndex() const override { return !_isIndexBuilt && !_isIndexBuilding; }
    void requestIndex() override
    {
        if (canBuildIndex()) startIndexBuild();
    }
    int indexBuildPercent() const override;
    void stopIndexBuild() override;

    bool loadNextEnsemble(int moveup) override;
    bool loadLastEnsemble(int moveup) override;
    bool seekEnsemble(int pkey) override;
    bool reloadEnsemble() override;
    Place place() const override;
    void setPlace(const Place& place) override;
    bool canSeek() const override { return _keys.ipkey != KeyNumber() && _isIndexBuilt; }
    /// With an index sorts anew, without touching the file.
    void buildNewSort(SortCode isort) override;
    /// Smallest and largest primary value of a sort over the map; both 0 for a sort without a range.
    void getSortRange(SortCode isort, float* min, float* max) const;
    /// Sorts the map and lists the distinct primary values.
    QStringList priKeyList();

    /// See segyData2::seekTrace; data has room for bufferBytes().
    int seekTrace(int itrace, void* data, bool force);
    /// Reads a trace by map index: numHeaderWords() words and numSamples() samples. Returns as seekTrace.
    int readMappedTrace(int itrace, int* words, float* samples, bool force);
    /// The same into one array, the samples behind the words. Uses the first header buffer as work space.
    int seekTraceConverted(int itrace, float* data, bool force);
    void setRemapTable(int iremap, const SegyRemapTable& table);
    void saveHeaders();
    void dataLoaded();
    /// Raises the capacity in traces; it never shrinks.
    void allocTraces(int maxtr);

    float** getTraces() override { return _traces.rows(); }
    int** getHeaders() override { return _headers.rows(); }
    int numTraces() const override { return _numtraces; }
    /// Most traces that an ensemble can have; buffers are made as traces come.
    int maxTraces() const { return _maxtr; }
    int numSamples() const { return _nsamp; }
    float sampleRate() const { return _srate; }
    int maxBytes() const { return _segydata->maxBytes(); }
    int bufferBytes() const { return _segydata->bufferBytes(); }
    /// The most memory that the file's size justifies for map, ensemble and work space, and what they take.
    int64_t mostBytes() const;
    int64_t bytesInUse() const;
    QString currentFile() const { return _cText; }
    /// The 3200 characters of the text header.
    QByteArray getEbcdic() const;
    const segyReel* getReelHeader() const { return &_segydata->reel; }
    int getTotalTraces() const { return _segydata->totalTraces(); }
    QStringList getMapItems() const { return segyData2::itemList; }
    segyMapItem* getMapArray() { return _segydata->map().items(); }
    segyData2* SegyData() { return _segydata.get(); }
    QStringList priList() const;
    KeyNumber priKey() const { return _keys.ipkey; }
    KeyNumber secKey() const { return _keys.iskey; }
    WordFrom1 priEKey() const override { return _iepkey; }
    WordFrom1 secEKey() const override { return _ieskey; }
    QString priName() const override { return _priName; }
    QString secName() const override { return _secName; }
    GlobalRuntime runTime() const override;
    const HeaderWords& headerWords() const override { return _segyheader.names(); }
    int numHeaderWords() const override { return _orvinheaderwords; }
    int applyCoorScale() const { return _parm.icscale; }
    int applyElevScale() const { return _parm.iescale; }
    int applyRemap() const { return _iremap; }
    const SegyRemapTable& remapTable() const { return _table; }
    const QStringList& priSortList() const override { return segySortNames(); }
    int priCurValue() const { return _priCurValue; }
    int priCurKey() const override { return _priCurKey; }
    SortCode currentSortKey() const override { return _isort; }
    QString sortText() const override { return segySortName(_isort); }
    bool isStacked() const { return _keys.isStack(); }
    SegyHeader* segyHeader() { return &_segyheader; }
    bool isOpen() const { return _segydata->isOpen; }
    bool isLoaded() const { return _isLoaded; }
    bool isIndexBuilt() const override { return _isIndexBuilt; }
    /// True from the start of a background build until its result has been taken over, or it was given up.
    bool isIndexBuilding() const override { return _isIndexBuilding; }
    /// All that was taken for granted of the file so far; each kind is told to the report at its first place.
    std::vector<SegyAssumption> assumptions() const { return _assumptions.all(); }
    int numEnsembles() const override { return int(_priValues.size()); }
    int ensembleValue(int entry) const override;
    int ensembleTraces(int entry) const override;
    void setEnsemble(int entry) override { _priCurKey = entry; }

signals:
    /// The views of reel and trace headers should read anew.
    void reLoadData();
    /// assumptions() has grown, or a count of it.
    void assumptionsChanged();

private slots:
    void endIndexBuild();

private:
    SegyLoader(const SegyLoadParm& parm, Report* report, ProgressSink* progress, const HeaderWords* headerTable);
    void setLayout(const SegyReadLayout& layout);
    void initTreviaHeaders();
    bool openFiles();
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
    void tellIndex();
    int64_t readEnsemble(int iTrace);
    bool loadEntry(int64_t entry);
    void rejectRemapIfUseless();

    const SegyLoadParm _parm;  // as the user asked; what came of it stands below
    SortCode _isort;
    int _iswap;
    int _nsamp, _maxtr;
    float _srate;
    int _iremap;
    Report* _report;
    ProgressSink* _progress;

    std::unique_ptr<segyData2> _segydata;
    SegyRemapTable _table;
    SegyReadLayout _layout;
    std::vector<SegyRemapRow> _remapRows;
    SegyHeader _segyheader;
    int _headerIndex[SegyHeader::nMappedWords];
    int _orvinheaderwords = 85;
    bool _isIndexBuilt = false;
    bool _isLoaded = false;
    QString _cText;

    RowStore<float> _traces;
    RowStore<int> _headers;
    std::vector<int> _itempTrc;  // one raw trace
    int _numtraces = 0;
    int64_t _curTrace = 0;
    int64_t _firstTrace = 0;  // _curTrace before the ensemble on screen
    uint64_t _firstOffset =
        0;  // of the first trace of the ensemble on screen, which stays there at the end of the data
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
