/// Goes from record to record of a source, and back to where it stood when a record can't be shown.
#ifndef RECORDNAVIGATOR_H
#define RECORDNAVIGATOR_H

#include "sources/ensemblesource.h"

#include <QPointer>

#include <functional>

class Report;

/// What a navigator asks of the window that shows the records.
class RecordScreens
{
public:
    virtual ~RecordScreens() = default;
    /// Screens side by side, each with a record of its own; at least 1.
    virtual int screenCount() const = 0;
    /// Records by which "next" moves.
    virtual int moveUp() const = 0;
    /// Shows the source's present ensemble on a screen, counted from 0. False when there is no memory for it.
    virtual bool showEnsemble(int screen) = 0;
    /// No record is left for this screen and those behind it.
    virtual void clearScreens(int from) = 0;
    /// Other records are on the screens, or the former ones are back.
    virtual void recordsShown() = 0;
    /// The data have come to their end; what was shown stays.
    virtual void recordsEnded() = 0;
    /// The source has another sort than the screens, which show its ensemble next.
    virtual void sortChanged() = 0;
};

/// Runs a step of a load. False after a box when there is not enough memory for it; `back` then undoes it.
bool runLoad(Report* report, const std::function<void()>& step, const std::function<void()>& back);

/// Owns the navigation: which records are on the screens, and the way to others. Without a source nothing moves.
/// A source without a list of records is read in its own order, forward alone. Source, screens and report are lent.
class RecordNavigator
{
public:
    RecordNavigator(RecordScreens* screens, Report* report) : _screens(screens), _report(report) {}

    /// Another source, which may be none; nothing of it is shown yet. One that goes is none.
    void setSource(EnsembleSource* source);
    /// Whether any record can be reached.
    bool canSeek() const { return _source && _source->canSeek(); }
    int recordCount() const { return _source ? _source->numEnsembles() : 0; }

    /// Each shows other records. False when the screens show what they did before: there is no source or no list, or
    /// the load was refused and the user knows why. The end of the data is told by recordsEnded, and is true.
    bool next();
    bool previous();
    bool first();
    /// A record of the list, counted from 0; false also for one outside.
    bool showEntry(int entry);
    /// The record of a primary value, in another sort where the code is another one.
    bool seek(SortCode sort, int value);

    /// Shows the ensemble that the source has just loaded on the first screen, and those behind it on the others.
    /// Throws std::bad_alloc when there is no memory to show it.
    void show();
    /// Fills the screens from `from` on with the records behind the last one shown.
    void fillScreens(int from);
    /// There are fewer screens than before: the source goes back to the last one left.
    void dropScreens();
    /// The source's list of records has come: finds the place of those on the screens.
    void takeIndex();

    /// Record of the list on the first screen; -1 where there is no list.
    int firstEntry() const { return _firstEntry; }
    /// Screens that have a record.
    int shownCount() const { return _nShown; }
    /// What is shown: "Record 3 of 12". Without a list only the records read so far are known.
    QString text() const;

private:
    bool load(const std::function<bool()>& load);

    RecordScreens* _screens;
    Report* _report;
    QPointer<EnsembleSource> _source;
    int _firstEntry = -1;
    int _nRead = 0;  // records read so far, without a list
    int _nShown = 0;
};

#endif
