/// A rubber band drawn along an axis: from the press to the rectangle to zoom to.
#ifndef AXISDRAG_H
#define AXISDRAG_H

#include <QObject>
#include <QPoint>
#include <QRectF>

class QMouseEvent;
class QRubberBand;
class QwtPlot;
class QwtScaleWidget;

/// Watches the four axis widgets of a plot. The left button drags a range, the right one resets. Left and
/// right axes choose times, top and bottom ones traces; the other extent is what the plot shows.
class AxisDrag : public QObject
{
    Q_OBJECT

public:
    /// @param plot  the plot, parent of this object
    explicit AxisDrag(QwtPlot* plot);

    /// Sample interval in ms: ranges of one trace or two samples are too small to be meant.
    void setSampleRate(double ms) { _sampleRate = ms; }

    bool eventFilter(QObject* object, QEvent* event) override;

signals:
    /// The left button was pressed on an axis.
    void started();
    /// A range was dragged; rect is in scale units, onTraceAxis tells on which kind of axis.
    void dragged(const QRectF& rect, bool onTraceAxis);
    /// The right button was pressed on an axis.
    void resetWanted();

private:
    enum class State { Idle, Dragging };

    void press(QwtScaleWidget* axis, const QMouseEvent* event);
    void move(QwtScaleWidget* axis, const QMouseEvent* event);
    void release(QwtScaleWidget* axis, const QMouseEvent* event);
    void cancel();
    QPoint onCanvas(QwtScaleWidget* axis, const QPoint& pos) const;
    QRectF draggedRect(QwtScaleWidget* axis, const QPoint& end) const;

    QwtPlot* _plot;
    QRubberBand* _rubberBand = nullptr;  // child of the canvas, made by the first drag
    State _state = State::Idle;
    QPoint _from;  // on the canvas
    double _sampleRate = 1.0;
};

#endif
