/// Who hears, or changes, the traces that a plot paints.
#ifndef TRACETAP_H
#define TRACETAP_H

/// Gets every trace that a render shows, conditioned but before gain and scaling. Called within a paint event on the
/// main thread, in the order of painting.
class TraceTap
{
public:
    virtual ~TraceTap() = default;
    /// @param trace  n samples, lent for the call
    /// @param start  position of trace[0] in the whole trace as it was loaded
    /// @param tr     index of the trace in the data
    virtual void pickTraceChange(const float* trace, int start, int n, int tr) = 0;

    /// Whether changeTrace may write. Asked once a render: where it says no, nothing is copied.
    virtual bool changesTraces() const { return false; }
    /// Changes what is painted of a trace: a copy, so that the data and the next render keep theirs. The others, and
    /// pickTraceChange, see what it leaves.
    virtual void changeTrace(float* /*trace*/, int /*start*/, int /*n*/, int /*tr*/) {}
};

#endif
