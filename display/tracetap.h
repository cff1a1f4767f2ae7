/// Listens to the traces that a plot paints.
#ifndef TRACETAP_H
#define TRACETAP_H

/// Gets every trace that a render shows, conditioned but before gain and scaling.
class TraceTap
{
public:
    virtual ~TraceTap() = default;
    /// Called within a paint event on the main thread, in the order of painting.
    /// @param trace  n samples, lent for the call
    /// @param start  position of trace[0] in the whole trace as it was loaded
    /// @param tr     index of the trace in the data
    virtual void pickTraceChange(const float* trace, int start, int n, int tr) = 0;
};

#endif
