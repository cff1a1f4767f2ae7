/// What a plot asks of the display that shows it.
#ifndef PLOTOWNER_H
#define PLOTOWNER_H

class SeismicData;
class TraceTap;

/// Called on the main thread only, within paint events.
class PlotOwner
{
public:
    virtual ~PlotOwner() = default;
    /// 0: times rise along with the vertical scale; else they run against it.
    virtual int timeDirection() const = 0;
    /// The vertical scale counts the samples of a slice, not ms.
    virtual bool isSlice() const { return false; }
    /// Hears each trace shown, see TraceTap.
    virtual void sendPickTraceChange(const float* trace, int start, int n, int tr) = 0;
    /// Who changes the traces before they are painted; null for nobody. Asked once a render.
    virtual TraceTap* traceChanger() { return nullptr; }
    /// Header word OFFSET of the first nTraces traces of data, in the survey's lengths; zeros if there is no
    /// such word. Asked once a render, and only with move-out on.
    virtual void traceOffsets(const SeismicData& data, int nTraces, float* offsets) const = 0;
};

#endif
