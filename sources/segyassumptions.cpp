#include "sources/segyassumptions.h"

#include "sources/formatted.h"

namespace {

/// When a kind is worth a line.
enum class Matters { Always, WithDepthScalar, WithCoordinateScalar, IfAll };

const struct {
    int (*value)(const segyTrace&);
    bool (*isOdd)(int value);
    Matters matters;
    const char* what;
    const char* consequence;
} kinds[] = {
    {[](const segyTrace& t) { return int(t.trid); }, [](int v) { return v != 1; }, Matters::Always,
     "trace id other than 1", "not counted as live traces"},
    {[](const segyTrace& t) { return int(t.cscale); }, [](int v) { return v == 0; },
     Matters::WithCoordinateScalar, "coordinate scalar 0", "coordinates become 0"},
    {[](const segyTrace& t) { return int(t.escale); }, [](int v) { return v == 0; }, Matters::WithDepthScalar,
     "depth/elev scalar 0", "depths and elevations become 0"},
    {[](const segyTrace& t) { return int(t.delay); }, [](int v) { return v != 0; }, Matters::Always,
     "recording delay in ms", "the time axis leaves it out"},
    {[](const segyTrace& t) { return int(t.offset); }, [](int v) { return v == 0; }, Matters::IfAll,
     "empty offset", "all traces are taken to be at offset 0"},
};

} // namespace

void SegyAssumptions::start(bool isDepthScaled, bool isCoordinateScaled)
{
    static_assert(std::size(kinds) == nKinds);
    _tallies = {};
    _nTraces = 0;
    _isDepthScaled = isDepthScaled;
    _isCoordinateScaled = isCoordinateScaled;
}

void SegyAssumptions::add(const segyTrace& trace, int64_t rank)
{
    ++_nTraces;
    for (int i = 0; i < nKinds; ++i) {
        const int value = kinds[i].value(trace);
        if (!kinds[i].isOdd(value)) continue;
        if (_tallies[i].count++ == 0) _tallies[i] = {1, rank, value};
    }
}

std::vector<std::string> SegyAssumptions::lines() const
{
    std::vector<std::string> texts;
    for (int i = 0; i < nKinds; ++i) {
        const Tally& tally = _tallies[i];
        const Matters matters = kinds[i].matters;
        const bool isTold = matters == Matters::Always ||
                            (matters == Matters::WithDepthScalar && _isDepthScaled) ||
                            (matters == Matters::WithCoordinateScalar && _isCoordinateScaled) ||
                            (matters == Matters::IfAll && tally.count == _nTraces && _nTraces > 1);
        if (tally.count == 0 || !isTold) continue;
        texts.push_back(formatted(
            "SegyLoader: %s in %d of %d traces, first in trace %lld (%d): %s", kinds[i].what, tally.count,
            _nTraces, static_cast<long long>(tally.firstTrace), tally.firstValue, kinds[i].consequence));
    }
    return texts;
}
