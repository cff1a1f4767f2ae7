#include "display/tools/tracetaps.h"

void TraceTaps::pickTraceChange(const float* trace, int start, int n, int tr)
{
    for (TraceTap* tap : _taps.members()) tap->pickTraceChange(trace, start, n, tr);
}

bool TraceTaps::changesTraces() const
{
    for (const TraceTap* tap : _taps.members())
        if (tap->changesTraces()) return true;
    return false;
}

void TraceTaps::changeTrace(float* trace, int start, int n, int tr)
{
    for (TraceTap* tap : _taps.members()) tap->changeTrace(trace, start, n, tr);
}
