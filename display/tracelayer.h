/// One set of traces on a display: its copy, its data and its picture.
#ifndef TRACELAYER_H
#define TRACELAYER_H

#include "display/headeraxis.h"
#include "display/raster/ensemblecopy.h"

#include <QString>

#include <memory>

class HeaderWords;
class PlotOwner;
class QRect;
class QwtPlot;
class SeismicData;
class SeismicPlot;

/// A batch of traces, lent for the call, and what is taken of it.
struct TraceBatch {
    float** traces = nullptr;
    int** heads = nullptr;
    int n = 0;
    int firstSample = 0;                 ///< first sample taken of each trace
    int nSamples = 0;                    ///< so many of them
    int nWords = 0;                      ///< header words of each trace
    const HeaderWords* words = nullptr;  ///< names them, lent as long as they are shown; null: the host's lists do
};

/// Copies batches and shows the last one; the data on a display are one, what lies over them is another.
class TraceLayer
{
public:
    /// @param parent  gets the picture attached; lent, outlives this
    /// @param owner   what the picture asks; lent
    TraceLayer(QwtPlot* parent, PlotOwner* owner, const QString& title);
    ~TraceLayer();

    /// Copies the batch, which must have a trace, and loads it as the data. False, with *error and all as it was,
    /// when memory ran out.
    bool take(const TraceBatch& batch, const HeaderKeys& keys, int treviaVersion, std::string* error);
    /// Whether this batch was taken last.
    bool holds(const TraceBatch& batch) const;
    /// Conditions and measures the data.
    void measure();
    /// The picture shows all of the data from now on, made ready for a canvas.
    void show(int firstSample, const QRect& canvas);
    /// Lets the data go; the background stays.
    void clear();

    SeismicData* data() const { return _data.get(); }
    SeismicPlot* plot() const { return _plot.get(); }

private:
    std::unique_ptr<SeismicData> _data;
    EnsembleCopy _copy;
    std::unique_ptr<SeismicPlot> _plot;  // detaches itself when it goes
};

#endif
