/// Where a window's ensembles come from: a file, a dataset, or a stand-in of a test.
#ifndef ENSEMBLESOURCE_H
#define ENSEMBLESOURCE_H

#include "host/globals.h"
#include "sources/traceindex.h"
#include "tracedata/wordnumber.h"

#include <QObject>
#include <QStringList>

#include <cstdint>
#include <memory>
#include <optional>

class HeaderWords;

/// Loads one ensemble after the other, or any by its place in the list of records, and tells of its data what a window
/// copies into its records. Knows no window and no menu. Lives on the main thread; traces and headers belong to the
/// source and stay valid until the next ensemble.
class EnsembleSource : public QObject
{
    Q_OBJECT

public:
    /// Where a source stands, to go back to after a load that came to nothing. Only its own source reads it.
    struct Place {
        int entry;           ///< of the list of records
        int value;           ///< primary value
        uint64_t position;   ///< in the file
        uint64_t first;      ///< of the ensemble's first trace in the file
        int64_t trace;       ///< running count of traces
        int64_t firstTrace;  ///< the same before the ensemble
        bool hasEnsemble;
    };

    /// Loads an ensemble moveup steps on; where records have no list the next one of the data. An ensemble without
    /// traces is the end. False, when the user knows the reason, for a load that was refused: the source then stands
    /// where it stood, without traces.
    virtual bool loadNextEnsemble(int moveup) = 0;
    /// The same backward. False also where records have no list.
    virtual bool loadLastEnsemble(int moveup) = 0;
    /// Loads the ensemble with this primary value of the sort in force, the last one if there is none. False as
    /// loadLastEnsemble.
    virtual bool seekEnsemble(int pkey) = 0;
    /// Loads the ensemble that was loaded last once more.
    virtual bool reloadEnsemble() = 0;
    virtual Place place() const = 0;
    virtual void setPlace(const Place& place) = 0;

    /// Arrays of at least numTraces() pointers.
    virtual float** getTraces() = 0;
    virtual int** getHeaders() = 0;
    virtual int numTraces() const = 0;

    /// Whether any record can be reached.
    virtual bool canSeek() const = 0;
    /// Whether the records have a list.
    virtual bool isIndexBuilt() const = 0;
    /// Whether a list can be made by requestIndex(): there is none, and none is under way.
    virtual bool canBuildIndex() const { return false; }
    /// Starts to make it, beside the user's work; nothing where it can't be made. indexBuilt() tells when it is there.
    virtual void requestIndex() {}
    /// From the start of that to indexBuildEnded().
    virtual bool isIndexBuilding() const { return false; }
    /// Share of it that is done, 0 to 100 percent.
    virtual int indexBuildPercent() const { return 0; }
    /// Lets it end before it is through; all stays as it was.
    virtual void stopIndexBuild() {}
    virtual int numEnsembles() const = 0;
    /// Primary value and traces of a record of the list, counted from 0; 0 where there is none.
    virtual int ensembleValue(int entry) const = 0;
    virtual int ensembleTraces(int entry) const = 0;
    /// The record loaded last; -1 before the first.
    virtual int priCurKey() const = 0;
    /// Sets the record that the next load counts from.
    virtual void setEnsemble(int entry) = 0;

    /// Header words of the primary and the secondary key.
    virtual WordFrom1 priEKey() const = 0;
    virtual WordFrom1 secEKey() const = 0;
    virtual QString priName() const = 0;
    virtual QString secName() const = 0;
    /// The sorts that a user may choose from, those of the codes from 1 on, and the one in force.
    virtual const QStringList& priSortList() const = 0;
    virtual SortCode currentSortKey() const = 0;
    /// Changes the sort, and so the list of records.
    virtual void buildNewSort(SortCode isort) = 0;
    /// What the sort is called; empty for one without a name.
    virtual QString sortText() const = 0;

    /// What the data are, in the host's terms. idomain, mode, iounit and idate are 0: those are not a source's.
    virtual GlobalRuntime runTime() const = 0;
    /// The list that names the header words, and the words of a trace.
    virtual const HeaderWords& headerWords() const = 0;
    virtual int numHeaderWords() const = 0;

    /// The data domain (8 a time slice); none where the data don't say and the menu's holds.
    virtual std::optional<int> domain() const { return std::nullopt; }
    /// Time of the slice that was loaded last, in ms; none for data that aren't slices.
    virtual std::optional<float> sliceTime() const { return std::nullopt; }
    /// Panels of the ensemble that was loaded last; 1 for data without panels.
    virtual int panelCount() const { return 1; }

    /// The index of all traces; null while there is none. Lent until traceIndexChanged.
    TraceIndex* traceIndex() const { return _traceIndex.get(); }
    /// Puts another index, or none, in place of the present one.
    void setTraceIndex(std::unique_ptr<TraceIndex> index);

signals:
    /// Another sort is in force: keys, list of records and their order are new.
    void keysChanged();
    /// The records have a list: previous and seek work from now on.
    void indexBuilt();
    /// A list is being made in the background.
    void indexBuildStarted();
    /// That has ended, well or not.
    void indexBuildEnded();
    /// traceIndex() is another one, or counts in another order.
    void traceIndexChanged();

private:
    std::unique_ptr<TraceIndex> _traceIndex;
};

#endif
