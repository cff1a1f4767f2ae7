/// The second set of traces of a display, translucent over the first.
#ifndef OVERLAYLAYER_H
#define OVERLAYLAYER_H

#include "display/tracelayer.h"

#include <memory>

class DisplayHost;

/// Made with the first batch that it gets; with it on, every second batch of the display is its own.
class OverlayLayer
{
public:
    /// @param plot   the plot to attach to; lent, as the others are
    /// @param host   may be null
    OverlayLayer(QwtPlot* plot, PlotOwner* owner, DisplayHost* host) : _plot(plot), _owner(owner), _host(host) {}

    /// Shows a batch over the data, in colours of its own. False with *error when memory ran out.
    bool load(const TraceBatch& batch, const HeaderKeys& keys, int treviaVersion, const SeismicPlot& main,
              const QRect& canvas, std::string* error);
    /// Whose turn it is: the next batch is the overlay's, or, after one, that of the data.
    bool isNext() const { return !_isLast; }
    void setNext(bool on) { _isLast = !on; }
    void clear();

    bool isMade() const { return _layer != nullptr; }
    /// Null until a batch was first loaded.
    SeismicData* data() const { return _layer ? _layer->data() : nullptr; }
    SeismicPlot* plot() const { return _layer ? _layer->plot() : nullptr; }
    /// The record in view, by its primary key; empty without one.
    QString record(const HeaderKeys& keys, const KeyColumn& primary) const;

private:
    void adopt(const SeismicPlot& main);
    void measure(const SeismicPlot& main);

    QwtPlot* _plot;
    PlotOwner* _owner;
    DisplayHost* _host;
    std::unique_ptr<TraceLayer> _layer;
    bool _isLast = false;  // the last batch was an overlay
};

#endif
