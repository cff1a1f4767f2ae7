#include "sources/segyassumptions.h"

#include "sources/formatted.h"

#include <algorithm>

namespace {

/// When a kind is worth a line.
enum class Matters { Always, WithDepthScalar, WithCoordinateScalar, IfAll, FixedLength, VariableLength };

using Context = SegyAssumptionContext;

const struct {
    int (*value)(const segyTrace&);
    bool (*isOdd)(int value, const Context& context);
    Matters matters;
    const char* name;
    const char* consequence;
    const char* control;
} kinds[] = {
    {[](const segyTrace& t) { return int(t.trid); }, [](int v, const Context&) { return v != 1; }, Matters::Always,
     "trace id other than 1", "not counted as live traces", "Re-map Table"},
    {[](const segyTrace& t) { return int(t.cscale); }, [](int v, const Context&) { return v == 0; },
     Matters::WithCoordinateScalar, "coordinate scalar 0", "coordinates become 0", "Apply coordinate scalar?"},
    {[](const segyTrace& t) { return int(t.escale); }, [](int v, const Context&) { return v == 0; },
     Matters::WithDepthScalar, "depth/elev scalar 0", "depths and elevations become 0", "Apply depth/elev scalar?"},
    {[](const segyTrace& t) { return int(t.delay); }, [](int v, const Context&) { return v != 0; }, Matters::Always,
     "recording delay in ms", "the time axis leaves it out", ""},
    {[](const segyTrace& t) { return int(t.offset); }, [](int v, const Context&) { return v == 0; }, Matters::IfAll,
     "empty offset", "all traces are taken to be at offset 0", "Re-map Table"},
    {[](const segyTrace& t) { return int(uint16_t(t.nsampt)); },
     [](int v, const Context& c) { return v != 0 && v != (c.nSamples & 0xffff); }, Matters::FixedLength,
     "another sample count in the trace header", "the traces are read with the count of the file",
     "Variable trace length?"},
    {[](const segyTrace& t) { return int(t.nsampt); }, [](int v, const Context& c) { return v > c.nSamples; },
     Matters::VariableLength, "more samples than the file's count", "what is behind that count is left out",
     "Num samples per trace:"},
    {[](const segyTrace& t) { return int(uint16_t(t.nsrt)); },
     [](int v, const Context& c) { return v != 0 && v != (c.intervalUs & 0xffff); }, Matters::Always,
     "another sample interval in the trace header", "the interval of the file is in force", "Input sample rate:"},
};

constexpr int delayKind = 3;

}  // namespace

std::string SegyAssumption::remark() const
{
    return isDelayLeftOut ? formatted("delay %d ms not in the axis", firstValue) : std::string();
}

std::string SegyAssumption::text() const
{
    if (nTraces == 0) return name + ": " + consequence;
    return formatted("%s in %lld of %lld traces, first in trace %lld (%d): %s", name.c_str(),
                     static_cast<long long>(count), static_cast<long long>(nTraces), static_cast<long long>(firstTrace),
                     firstValue, consequence.c_str());
}

void SegyAssumptions::countIn(int kind, const Tally& met)
{
    Tally& tally = _tallies[size_t(kind)];
    if (tally.count == 0) tally = {0, met.firstTrace, met.firstValue};
    tally.count += met.count;
}

void SegyAssumptions::add(const segyTrace& trace, int64_t rank)
{
    const auto place = size_t(std::max<int64_t>(0, rank));
    if (place >= _isCounted.size()) _isCounted.resize(std::max(place + 1, 2 * _isCounted.size()));
    if (_isCounted[place]) return;
    _isCounted[place] = true;
    ++_nTraces;
    ++_nInEnsemble;
    static_assert(std::size(kinds) == nKinds);
    for (int i = 0; i < nKinds; ++i) {
        const int value = kinds[i].value(trace);
        if (!kinds[i].isOdd(value, _context)) continue;
        const Tally met = {1, rank, value};
        Tally& inEnsemble = _ensemble[size_t(i)];
        if (inEnsemble.count++ == 0) inEnsemble = met;
        if (kinds[i].matters != Matters::IfAll) countIn(i, met);
    }
}

void SegyAssumptions::endEnsemble()
{
    for (int i = 0; i < nKinds; ++i)
        if (kinds[i].matters == Matters::IfAll && _nInEnsemble > 1 && _ensemble[size_t(i)].count == _nInEnsemble)
            countIn(i, _ensemble[size_t(i)]);
    _ensemble = {};
    _nInEnsemble = 0;
}

bool SegyAssumptions::note(const SegyAssumption& assumption)
{
    for (const SegyAssumption& known : _ofFile)
        if (known.name == assumption.name && known.consequence == assumption.consequence) return false;
    _ofFile.push_back(assumption);
    return true;
}

bool SegyAssumptions::isTold(int kind) const
{
    if (_tallies[size_t(kind)].count == 0) return false;
    switch (kinds[kind].matters) {
    case Matters::WithDepthScalar: return _context.isDepthScaled;
    case Matters::WithCoordinateScalar: return _context.isCoordinateScaled;
    case Matters::FixedLength: return !_context.isVariable;
    case Matters::VariableLength: return _context.isVariable;
    default: return true;
    }
}

SegyAssumption SegyAssumptions::assumptionOf(int kind) const
{
    const Tally& tally = _tallies[size_t(kind)];
    return {kinds[kind].name,        tally.count,         _nTraces,         tally.firstTrace, tally.firstValue,
            kinds[kind].consequence, kinds[kind].control, kind == delayKind};
}

std::vector<SegyAssumption> SegyAssumptions::all() const
{
    std::vector<SegyAssumption> list = _ofFile;
    for (int i = 0; i < nKinds; ++i)
        if (isTold(i)) list.push_back(assumptionOf(i));
    return list;
}

std::vector<SegyAssumption> SegyAssumptions::takeNew()
{
    std::vector<SegyAssumption> list;
    for (int i = 0; i < nKinds; ++i) {
        if (_isTaken[size_t(i)] || !isTold(i)) continue;
        _isTaken[size_t(i)] = true;
        list.push_back(assumptionOf(i));
    }
    return list;
}
