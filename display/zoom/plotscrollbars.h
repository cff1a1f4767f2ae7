/// The scroll bars of a plot: they stand in its margins while a part of the data is out of sight.
#ifndef PLOTSCROLLBARS_H
#define PLOTSCROLLBARS_H

#include <QObject>

class QScrollBar;
class QwtPlot;

/// What a bar shows: whole units of traces or ms.
struct ScrollExtent {
    double least = 0.0;  ///< first value of the data
    double whole = 0.0;  ///< extent of the data
    double from = 0.0;   ///< first value shown
    double span = 0.0;   ///< extent shown
};

/// Two bars, children of the plot. A bar with nothing to scroll is hidden and takes no room.
class PlotScrollBars : public QObject
{
    Q_OBJECT

public:
    explicit PlotScrollBars(QwtPlot* plot);

    /// Brings both bars up to date. Doesn't tell of a move.
    void synchronize(const ScrollExtent& horizontal, const ScrollExtent& vertical);
    /// Puts them at the plot's lower and right edge.
    void place();
    bool hasHorizontal() const;
    /// Leaves room for the horizontal bar also while there is none, as a plot beside it has one.
    void reserveHorizontal(bool on);
    /// So many pixels more stay free above the horizontal bar's place.
    void reserveBelow(int nPixels);

signals:
    /// The user moved a bar: the first value to show.
    void horizontalMoved(double from);
    void verticalMoved(double from);

private:
    QwtPlot* _plot;
    QScrollBar* _hscroller;
    QScrollBar* _vscroller;
    int _below = 0;
    bool _isReserved = false;
    double _hLeast = 0.0, _vLeast = 0.0;
};

#endif
