#include "frame/recordnavigator.h"

#include "host/report.h"

#include <algorithm>
#include <new>

bool runLoad(Report* report, const std::function<void()>& step, const std::function<void()>& back)
{
    try {
        step();
        return true;
    } catch (const std::bad_alloc&) {
        try {
            back();
        } catch (const std::bad_alloc&) {  // not even for what was there: the display is then empty
        }
        report->box("SEGY Memory", "There is not enough memory to show this data. Nothing has been changed.");
        return false;
    }
}

void RecordNavigator::setSource(EnsembleSource* source)
{
    _source = source;
    _firstEntry = -1;
    _nRead = _nShown = 0;
}

/// Shows the ensemble that `load` brings. False with the old one in place when it was refused, or when there is no
/// memory to show it.
bool RecordNavigator::load(const std::function<bool()>& load)
{
    const EnsembleSource::Place before = _source->place();
    const int entryBefore = _firstEntry, readBefore = _nRead;
    bool isLoaded = false;
    const auto step = [&] {
        isLoaded = load();
        if (isLoaded) show();
    };
    const auto back = [&] {
        _source->setPlace(before);
        bool isBack = false;
        if (_screens->screenCount() > 1 && _source->canSeek()) {  // the source stood at the last screen
            _source->setEnsemble(entryBefore);
            isBack = _source->loadNextEnsemble(0);
        } else {
            isBack = _source->reloadEnsemble();
        }
        if (isBack) show();
        _nRead = readBefore;
        _screens->recordsShown();
    };
    return runLoad(_report, step, back) && isLoaded;
}

void RecordNavigator::show()
{
    if (_source->numTraces() < 1) return _screens->recordsEnded();
    _firstEntry = _source->priCurKey();
    _nRead += std::max(1, _nShown);
    _nShown = 1;
    if (!_screens->showEnsemble(0)) throw std::bad_alloc();
    fillScreens(1);
}

void RecordNavigator::fillScreens(int from)
{
    for (int i = from; i < _screens->screenCount(); ++i) {
        const int entry = _source->priCurKey();
        _source->loadNextEnsemble(_screens->moveUp());
        const bool isNew = _source->numTraces() > 0 && (!_source->isIndexBuilt() || _source->priCurKey() != entry);
        if (!isNew) {
            _screens->clearScreens(i);
            break;
        }
        _screens->showEnsemble(i);
        ++_nShown;
    }
    _screens->recordsShown();
}

void RecordNavigator::dropScreens()
{
    const int n = _screens->screenCount();
    _nShown = std::min(_nShown, n);
    if (!canSeek()) return;
    _source->setEnsemble(_firstEntry + _screens->moveUp() * (n - 1));
    _source->loadNextEnsemble(0);
}

void RecordNavigator::takeIndex()
{
    // The source stands at the last screen.
    _firstEntry = std::max(0, _source->priCurKey() - _screens->moveUp() * (_nShown - 1));
}

bool RecordNavigator::next()
{
    return _source && load([this] { return _source->loadNextEnsemble(_screens->moveUp()); });
}

bool RecordNavigator::previous()
{
    if (!canSeek() || recordCount() == 0) return false;
    const int nScreens = _screens->screenCount();
    if (nScreens > 1) _source->setEnsemble(_firstEntry);
    return load([=, this] { return _source->loadLastEnsemble(_screens->moveUp() * nScreens); });
}

bool RecordNavigator::first()
{
    if (!_source) return false;
    _source->setEnsemble(-_screens->moveUp());
    return next();
}

bool RecordNavigator::showEntry(int entry)
{
    if (!canSeek() || entry < 0 || entry >= recordCount()) return false;
    return load([=, this] {
        _source->setEnsemble(entry);
        return _source->loadNextEnsemble(0);
    });
}

bool RecordNavigator::seek(SortCode sort, int value)
{
    if (!canSeek()) return false;
    const SortCode sortBefore = _source->currentSortKey();
    const EnsembleSource::Place before = _source->place();
    const bool isNewSort = sort != sortBefore;
    if (isNewSort) _source->buildNewSort(sort);
    bool isTold = false;
    const bool isShown = load([&] {
        if (!_source->seekEnsemble(value)) return false;
        isTold = isNewSort;
        if (isTold) _screens->sortChanged();
        return true;
    });
    if (isShown || !isNewSort) return isShown;
    _source->buildNewSort(sortBefore);
    _source->setPlace(before);
    if (!isTold) return false;
    _screens->sortChanged();
    load([this] { return _source->reloadEnsemble(); });
    return false;
}

QString RecordNavigator::text() const
{
    const bool isListed = _source && _source->isIndexBuilt() && _firstEntry >= 0;
    const int first = isListed ? _firstEntry + 1 : _nRead;
    const int step = isListed ? _screens->moveUp() : 1;
    const QString text = _nShown > 1 ? QString("Records %1 to %2").arg(first).arg(first + (_nShown - 1) * step)
                                     : QString("Record %1").arg(first);
    return isListed ? text + QString(" of %1").arg(recordCount()) : text;
}
