/// What a tool may know of a seismic display.
#ifndef ENSEMBLEVIEW_H
#define ENSEMBLEVIEW_H

#include "display/readout.h"
#include "display/tools/batchhook.h"
#include "display/tools/tracetaps.h"

#include <QObject>
#include <QPointF>

class QwtPlot;
class SeismicData;
class SeismicDisplay;
struct KeyColumn;

/// The ensemble on the screen, and when it changes. Traces count from 0 in the order of the data, positions on the
/// trace axis from 1 at the left. Main thread only.
class EnsembleView : public QObject
{
    Q_OBJECT

public:
    /// @param display  parent
    explicit EnsembleView(SeismicDisplay* display);

    /// The plot, with traces on its top and times on its left axis: curves are attached to it.
    QwtPlot* plot() const;
    /// The traces as they were loaded; empty before the first. Lent until ensembleLeaving.
    const SeismicData& data() const;
    int traceCount() const;
    /// In ms.
    double sampleRate() const;
    /// Whether the first trace stands at the right.
    bool isRightToLeft() const;

    /// Position on the trace axis of a trace.
    double xOfTrace(int trace) const;
    /// The trace in whose place a position lies; -1 beside the traces.
    int traceAt(double x) const;
    /// Name and values of the keys; value i is that of the position i.
    const KeyColumn& primary() const;
    const KeyColumn& secondary() const;
    /// Secondary key of a trace; 0 for one that isn't there.
    float keyOfTrace(int trace) const;
    /// The first trace with this secondary key; -1 if there is none.
    int traceOfKey(float key) const;
    /// Value of a header word of a trace by its name, padded to eight characters; 0
    /// without such a word or trace.
    double word(const char* name, int trace) const;
    /// What stands at a position of the axes, traces and ms.
    ReadoutPosition positionAt(const QPointF& at) const;

    /// Who hears or changes the traces that are painted.
    TraceTaps& taps() { return _taps; }
    /// Who may change header words before the display copies them.
    BatchHooks& batchHooks() { return _hooks; }

signals:
    /// The data are about to be replaced or let go: what belongs to them is to be saved now.
    void ensembleLeaving();
    /// New data are on the screen.
    void ensembleShown();
    /// The picture was built anew, of the same data: their conditioning, the spacings or the canvas have changed.
    void rebuilt();

private:
    SeismicDisplay* _display;
    TraceTaps _taps;
    BatchHooks _hooks;
};

#endif
