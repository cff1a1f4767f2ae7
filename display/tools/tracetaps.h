/// The trace taps of a display, in their order.
#ifndef TRACETAPS_H
#define TRACETAPS_H

#include "display/raster/tracetap.h"
#include "display/tools/orderedlist.h"

/// Stands for all of them: each changes the work trace in turn; then, with the last change done, each hears it.
class TraceTaps : public TraceTap
{
public:
    /// Where the common changes stand; any other number does as well.
    enum Order { Moveout = 100, Mutes = 200, Kills = 300 };

    /// The tap is lent until it is removed. A replot shows what it does.
    void add(TraceTap* tap, int order) { _taps.add(tap, order); }
    void remove(TraceTap* tap) { _taps.remove(tap); }

    void pickTraceChange(const float* trace, int start, int n, int tr) override;
    bool changesTraces() const override;
    void changeTrace(float* trace, int start, int n, int tr) override;

private:
    OrderedList<TraceTap> _taps;
};

#endif
