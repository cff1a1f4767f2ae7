/// A box drawn on the canvas.
#ifndef BOXTOOL_H
#define BOXTOOL_H

#include "display/tools/canvastool.h"

#include <QObject>
#include <QPoint>
#include <QRectF>

class QRubberBand;
class QwtPlot;

/// The left button draws a rubber band. A click is a box without extent.
class BoxTool : public QObject, public CanvasTool
{
    Q_OBJECT

public:
    /// @param plot  parent; its top and left axes give the box its units
    explicit BoxTool(QwtPlot* plot);

    bool canvasEvent(QWidget* canvas, QEvent* event) override;
    void leave() override;

signals:
    /// A box was drawn: in scale units, inside of what the axes show.
    void boxDrawn(const QRectF& box);

private:
    void press(QWidget* canvas, const QPoint& pos);
    void drag(const QWidget* canvas, const QPoint& pos);
    void release(const QWidget* canvas, const QPoint& pos);

    QwtPlot* _plot;
    QRubberBand* _band = nullptr;  // child of the canvas, made by the first box
    QPoint _from;
    bool _isDragging = false;
};

#endif
