/// A source of records that a test makes up: each one trace of one sample.
#ifndef STANDINSOURCE_H
#define STANDINSOURCE_H

#include "sources/ensemblesource.h"
#include "sources/segywords.h"

#include <algorithm>
#include <vector>

/// Record i has the value `values[i]` in sort 1 and its negative in sort 2, which runs the other way. Records of
/// `refused` values are refused as too large.
class StandInSource : public EnsembleSource
{
public:
    std::vector<int> values = {10, 20, 30, 40, 50};
    bool isListed = true;
    std::vector<int> refused;
    int loads = 0;

    bool loadNextEnsemble(int moveup) override
    {
        if (!isListed) return load(_at + 1);
        return load(std::clamp(_at + moveup, 0, numEnsembles() - 1));
    }
    bool loadLastEnsemble(int moveup) override { return isListed && load(std::max(0, _at - moveup)); }
    bool seekEnsemble(int pkey) override
    {
        for (int i = 0; i < numEnsembles(); ++i)
            if (ensembleValue(i) == pkey) return load(i);
        return load(numEnsembles() - 1);
    }
    bool reloadEnsemble() override { return load(std::max(0, _at)); }
    Place place() const override { return {_at, 0, 0, 0, 0, 0, _at >= 0}; }
    void setPlace(const Place& place) override
    {
        _at = place.entry;
        _nTraces = 0;
    }
    float** getTraces() override { return &_trace; }
    int** getHeaders() override { return &_header; }
    int numTraces() const override { return _nTraces; }
    bool canSeek() const override { return isListed; }
    bool isIndexBuilt() const override { return isListed; }
    int numEnsembles() const override { return int(values.size()); }
    int ensembleValue(int entry) const override
    {
        if (entry < 0 || entry >= numEnsembles()) return 0;
        return _sort == SortCode(2) ? -values[values.size() - 1 - size_t(entry)] : values[size_t(entry)];
    }
    int ensembleTraces(int) const override { return 1; }
    int priCurKey() const override { return isListed ? _at : -1; }
    void setEnsemble(int entry) override { _at = entry; }
    WordFrom1 priEKey() const override { return pri; }
    WordFrom1 secEKey() const override { return sec; }
    QString priName() const override { return "FFID    "; }
    QString secName() const override { return "CHAN    "; }
    const QStringList& priSortList() const override { return _sorts; }
    SortCode currentSortKey() const override { return _sort; }
    void buildNewSort(SortCode isort) override
    {
        _sort = isort;
        _at = -1;
        emit keysChanged();
    }
    QString sortText() const override { return _sorts[_sort.value - 1]; }
    GlobalRuntime runTime() const override { return told; }
    const HeaderWords& headerWords() const override { return *words; }
    int numHeaderWords() const override { return words->count(); }
    std::optional<int> domain() const override { return itsDomain; }

    WordFrom1 pri = WordFrom1(4), sec = WordFrom1(1);
    GlobalRuntime told = {};
    const HeaderWords* words = &segyWords();
    std::optional<int> itsDomain;

private:
    bool load(int entry)
    {
        ++loads;
        const int value = entry < numEnsembles() ? ensembleValue(entry) : 0;
        if (std::find(refused.begin(), refused.end(), value) != refused.end()) {
            _nTraces = 0;
            return false;
        }
        _nTraces = entry < numEnsembles() ? 1 : 0;
        if (_nTraces == 0) return true;  // the end of the data: the place stays
        _at = entry;
        _sample = float(value);
        return true;
    }

    QStringList _sorts = {"Up", "Down"};
    SortCode _sort = SortCode(1);
    int _at = -1;
    int _nTraces = 0;
    float _sample = 0.0f;
    float* _trace = &_sample;
    int _word = 0;
    int* _header = &_word;
};

#endif
